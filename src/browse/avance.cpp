#include "browse/avance.h"

#include "browse/mover.h"
#include "shared/texto.h"

#include <chrono>

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

/// A text in capital letters, those of Spanish too.
std::string fMayusculas(std::string_view strUtf8)
{
    std::string strTexto = fMayusculasAscii(strUtf8);
    for (std::size_t lng = 1; lng < strTexto.size(); ++lng) {
        // Letters with a mark are C3 A0 to C3 BF; their capitals lie 20 (hexadecimal) before them.
        if (strTexto[lng - 1] == '\xC3' && strTexto[lng] >= '\xA0') {
            strTexto[lng] = static_cast<char>(strTexto[lng] - 0x20);
        }
    }
    return strTexto;
}

/// The first day of the unit that a day lies in.
sys_days fInicio(year_month_day dia, Avance modo)
{
    switch (modo) {
    case Avance::Semana:
        return sys_days{dia} - (std::chrono::weekday{dia} - std::chrono::Monday);
    case Avance::Mes:
        return dia.year() / dia.month() / 1;
    case Avance::Ano:
        return dia.year() / 1 / 1;
    default:
        return dia;
    }
}

/// The first day of the next unit.
sys_days fSiguiente(year_month_day dia, Avance modo)
{
    switch (modo) {
    case Avance::Semana:
        return fInicio(dia, modo) + std::chrono::weeks{1};
    case Avance::Mes:
        return (dia.year() / dia.month() + std::chrono::months{1}) / 1;
    case Avance::Ano:
        return (dia.year() + std::chrono::years{1}) / 1 / 1;
    default:
        return sys_days{dia} + std::chrono::days{1};
    }
}

/// The first position from lngDesde on, in a direction, whose row will do.
template <typename Cumple>
std::optional<int> fBuscar(const clsFilas &filas, int lngDesde, Sentido sentido,
                           const Cumple &fCumple)
{
    const auto &lstOrden = filas.fOrden();
    for (int lngPos = lngDesde; lngPos >= 0 && lngPos < filas.fCantidad();
         lngPos += static_cast<int>(sentido)) {
        if (fCumple(lstOrden[static_cast<std::size_t>(lngPos)])) {
            return lngPos;
        }
    }
    return {};
}

/// On to the first file of that date or a later one; a file without a date has an early one.
std::optional<int> fPrimeroDesde(const clsFilas &filas, int lngDesde, clsFecha fecha)
{
    return fBuscar(filas, lngDesde, Sentido::Adelante,
                   [&](std::uint32_t lngFila) { return filas.fDatFecha(lngFila) >= fecha; });
}

/// To the first file of a later unit, or to the last one of an earlier unit.
std::optional<int> fAvanzarFecha(const clsFilas &filas, int lngActual, clsFecha fecha, Avance modo,
                                 Sentido sentido)
{
    // Deliberate: on stops at the first file of a unit, back at the last one.
    const sys_days dia = fDia(fecha);
    if (sentido == Sentido::Adelante) {
        return fPrimeroDesde(filas, lngActual + 1, fMedianoche(fSiguiente(dia, modo)));
    }
    return fBuscar(filas, lngActual - 1, sentido,
                   [&, datInicio = fMedianoche(fInicio(dia, modo))](std::uint32_t lngFila) {
                       const clsFecha otra = filas.fDatFecha(lngFila);
                       return otra < datInicio && otra != clsFilas::datNinguna;
                   });
}

std::optional<int> fAvanzarCarpeta(const clsFilas &filas, int lngActual, Sentido sentido)
{
    // Folders of different numbers have different bytes.
    const auto fOtraCarpeta = [&](int lngDesde) {
        const auto fNumero = [&](std::uint32_t lngFila) { return filas.fNumeroCarpeta(lngFila); };
        const auto lngSuya = fNumero(filas.fOrden()[static_cast<std::size_t>(lngDesde)]);
        return fBuscar(filas, lngDesde, sentido,
                       [&](std::uint32_t lngFila) { return fNumero(lngFila) != lngSuya; });
    };
    const auto lngOtra = fOtraCarpeta(lngActual);
    if (!lngOtra || sentido == Sentido::Adelante) {
        return lngOtra;
    }
    // Deliberate: back never stops at the first file of the current folder.
    const auto lngAntes = fOtraCarpeta(*lngOtra);
    return lngAntes ? *lngAntes + 1 : 0;
}

} // namespace

std::string fTextoAvance(Avance modo)
{
    if (modo == Avance::Normal) {
        return {};
    }
    return "[Avance por " + fMayusculas(strModosAvance[static_cast<std::size_t>(modo)]) + ']';
}

std::optional<int> fAvanzar(const clsFilas &filas, int lngActual, Avance modo, Sentido sentido)
{
    if (modo == Avance::Normal || lngActual < 0 || lngActual >= filas.fCantidad()) {
        return {};
    }
    const bool bolAdelante = sentido == Sentido::Adelante;
    std::optional<int> lngHallada;
    const clsFecha fecha = filas.fDatFecha(filas.fOrden()[static_cast<std::size_t>(lngActual)]);
    if (modo == Avance::Carpeta) {
        lngHallada = fAvanzarCarpeta(filas, lngActual, sentido);
    } else if (fecha != clsFilas::datNinguna) {
        lngHallada = fAvanzarFecha(filas, lngActual, fecha, modo, sentido);
    } else {
        return {};
    }
    const int lngDestino = lngHallada.value_or(bolAdelante ? filas.fCantidad() - 1 : 0);
    return lngDestino == lngActual ? std::nullopt : std::optional(lngDestino);
}

std::optional<clsFecha> fLeerRespuestaFecha(std::string_view str)
{
    return fLeerFecha(str, "ddMMyyyy");
}

std::optional<int> fIrAFecha(const clsFilas &filas, int lngActual, clsFecha dia)
{
    const auto lngHallada = fPrimeroDesde(filas, 0, dia);
    return lngHallada ? lngHallada : fDestino(Movimiento::Ultimo, lngActual, filas.fCantidad() - 1);
}
