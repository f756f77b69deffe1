#include "browse/avance.h"

#include "browse/dias.h"
#include "shared/texto.h"

#include <chrono>
#include <string_view>

namespace {

using std::chrono::days;
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

/// The first day of the next unit.
year_month_day fDiaSiguiente(year_month_day dia, Avance modo)
{
    switch (modo) {
    case Avance::Semana:
        return sys_days{dia} + days{8 - static_cast<int>(std::chrono::weekday{dia}.iso_encoding())};
    case Avance::Mes:
        return (dia.year() / dia.month() + std::chrono::months{1}) / std::chrono::day{1};
    case Avance::Ano:
        return (dia.year() + std::chrono::years{1}) / std::chrono::January / std::chrono::day{1};
    default:
        return sys_days{dia} + days{1};
    }
}

/// The last day of the unit before.
year_month_day fDiaAnterior(year_month_day dia, Avance modo)
{
    switch (modo) {
    case Avance::Semana:
        return sys_days{dia} - days{std::chrono::weekday{dia}.iso_encoding()};
    case Avance::Mes:
        return sys_days{dia.year() / dia.month() / std::chrono::day{1}} - days{1};
    case Avance::Ano:
        return (dia.year() - std::chrono::years{1}) / std::chrono::December / std::chrono::day{31};
    default:
        return sys_days{dia} - days{1};
    }
}

/// The first position from lngDesde on, in a direction, that lies in another folder than the one
/// of that number. Folders of different numbers have different bytes.
std::optional<int> fOtraCarpeta(const clsFilas &filas, int lngDesde, Sentido sentido,
                                std::uint32_t lngCarpeta)
{
    const auto &lstOrden = filas.fOrden();
    for (int lngPos = lngDesde; lngPos >= 0 && lngPos < filas.fCantidad();
         lngPos += static_cast<int>(sentido)) {
        if (filas.fClave(lstOrden[static_cast<std::size_t>(lngPos)]).lngCarpeta != lngCarpeta) {
            return lngPos;
        }
    }
    return {};
}

std::optional<int> fAvanzarCarpeta(const clsFilas &filas, int lngActual, Sentido sentido)
{
    const auto fCarpeta = [&](int lngPos) {
        return filas.fClave(filas.fOrden()[static_cast<std::size_t>(lngPos)]).lngCarpeta;
    };
    const auto lngOtra = fOtraCarpeta(filas, lngActual, sentido, fCarpeta(lngActual));
    if (!lngOtra || sentido == Sentido::Adelante) {
        return lngOtra;
    }
    // Deliberate: back never stops at the first file of the current folder.
    const auto lngAntes = fOtraCarpeta(filas, *lngOtra, sentido, fCarpeta(*lngOtra));
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
    if (modo == Avance::Carpeta) {
        lngHallada = fAvanzarCarpeta(filas, lngActual, sentido);
    } else if (const auto dia = fDia(filas, lngActual)) {
        // Deliberate: on stops at the first file of a unit, back at the last one.
        lngHallada = bolAdelante ? fPrimeroDesde(filas, lngActual + 1, fDiaSiguiente(*dia, modo))
                                 : fPrimeroHasta(filas, lngActual - 1, fDiaAnterior(*dia, modo));
    } else {
        return {};
    }
    const int lngDestino = lngHallada.value_or(bolAdelante ? filas.fCantidad() - 1 : 0);
    return lngDestino == lngActual ? std::nullopt : std::optional(lngDestino);
}
