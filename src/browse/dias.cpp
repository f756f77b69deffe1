#include "browse/dias.h"

namespace {

/// @param fCumple whether a row of this date will do; asked for rows without a date, too.
template <typename Cumple>
std::optional<int> fBuscar(const clsFilas &filas, int lngDesde, int intPaso, const Cumple &fCumple)
{
    const auto &lstOrden = filas.fOrden();
    for (int lngPos = lngDesde; lngPos >= 0 && lngPos < filas.fCantidad(); lngPos += intPaso) {
        if (fCumple(filas.fDatFecha(lstOrden[static_cast<std::size_t>(lngPos)]))) {
            return lngPos;
        }
    }
    return {};
}

} // namespace

std::optional<int> fPrimeroDesde(const clsFilas &filas, int lngDesde, clsFecha fecha)
{
    return fBuscar(filas, lngDesde, 1, [fecha](clsFecha otra) { return otra >= fecha; });
}

std::optional<int> fPrimeroAntes(const clsFilas &filas, int lngDesde, clsFecha fecha)
{
    return fBuscar(filas, lngDesde, -1,
                   [fecha](clsFecha otra) { return otra < fecha && otra != clsFilas::datNinguna; });
}
