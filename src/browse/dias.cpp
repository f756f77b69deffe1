#include "browse/dias.h"

#include <cstdint>

namespace {

/// The number clsFilas::fDia has for a day; numbers order as days do.
std::uint32_t fNumeroDia(std::chrono::year_month_day dia)
{
    return static_cast<std::uint32_t>(static_cast<int>(dia.year())) << 9 |
           static_cast<unsigned>(dia.month()) << 5 | static_cast<unsigned>(dia.day());
}

/// @param fCumple whether a row of this day will do; asked for rows without a date, too (day 0).
template <typename Cumple>
std::optional<int> fBuscar(const clsFilas &filas, int lngDesde, int intPaso, const Cumple &fCumple)
{
    const auto &lstOrden = filas.fOrden();
    for (int lngPos = lngDesde; lngPos >= 0 && lngPos < filas.fCantidad(); lngPos += intPaso) {
        if (fCumple(filas.fDia(lstOrden[static_cast<std::size_t>(lngPos)]))) {
            return lngPos;
        }
    }
    return {};
}

} // namespace

std::optional<std::chrono::year_month_day> fDia(const clsFilas &filas, int lngPos)
{
    const std::uint32_t lngDia = filas.fDia(filas.fOrden()[static_cast<std::size_t>(lngPos)]);
    if (lngDia == 0) {
        return {};
    }
    return std::chrono::year{static_cast<int>(lngDia >> 9)} / std::chrono::month{lngDia >> 5 & 15} /
           std::chrono::day{lngDia & 31};
}

std::optional<int> fPrimeroDesde(const clsFilas &filas, int lngDesde,
                                 std::chrono::year_month_day dia)
{
    return fBuscar(filas, lngDesde, 1,
                   [lngMeta = fNumeroDia(dia)](std::uint32_t lngDia) { return lngDia >= lngMeta; });
}

std::optional<int> fPrimeroHasta(const clsFilas &filas, int lngDesde,
                                 std::chrono::year_month_day dia)
{
    return fBuscar(filas, lngDesde, -1, [lngMeta = fNumeroDia(dia)](std::uint32_t lngDia) {
        return lngDia != 0 && lngDia <= lngMeta;
    });
}
