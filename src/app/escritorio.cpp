#include "app/escritorio.h"

#include "shared/numeros.h"
#include "sistema/carpeta.h"
#include "sistema/entorno.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace {

constexpr clsRectEscritorio menor{0, 0, 320, 240};
constexpr int intTitulo = 48; ///< more than any title bar is high

/// The five numbers of a text, separated by single blanks; nothing when it is anything else.
std::optional<std::array<int, 5>> fCincoNumeros(std::string_view strTexto)
{
    std::array<int, 5> lstNumeros{};
    for (int &intNumero : lstNumeros) {
        const bool bolUltimo = &intNumero == &lstNumeros.back();
        const std::size_t lngFin = bolUltimo ? strTexto.size() : strTexto.find(' ');
        const auto intLeido = fLeerEntero(strTexto.substr(0, lngFin));
        if (lngFin == std::string_view::npos || !intLeido) {
            return {};
        }
        intNumero = *intLeido;
        strTexto.remove_prefix(std::min(lngFin + 1, strTexto.size()));
    }
    return lstNumeros;
}

/// How much of a stretch lies within another.
std::int64_t fComun(std::int64_t lngUno, int intLargo, std::int64_t lngOtro, int intOtroLargo)
{
    return std::min(lngUno + intLargo, lngOtro + intOtroLargo) - std::max(lngUno, lngOtro);
}

std::int64_t fComun(const clsRectEscritorio &uno, const clsRectEscritorio &otro)
{
    const auto lngAncho = fComun(uno.intX, uno.intAncho, otro.intX, otro.intAncho);
    const auto lngAlto = fComun(uno.intY, uno.intAlto, otro.intY, otro.intAlto);
    return lngAncho > 0 && lngAlto > 0 ? lngAncho * lngAlto : 0;
}

/// Four fifths of a screen, in its middle.
clsRectEscritorio fDePrimeras(const clsRectEscritorio &pantalla)
{
    return {pantalla.intX + pantalla.intAncho / 10, pantalla.intY + pantalla.intAlto / 10,
            pantalla.intAncho * 4 / 5, pantalla.intAlto * 4 / 5};
}

/// The window's own rectangle where it lies on a screen as a whole; else moved there, with room for
/// a title bar, and made smaller where it does not fit.
clsRectEscritorio fEnPantalla(clsRectEscritorio rect, const clsRectEscritorio &pantalla)
{
    rect.intAncho = std::max(rect.intAncho, menor.intAncho);
    rect.intAlto = std::max(rect.intAlto, menor.intAlto);
    if (fComun(rect, pantalla) == std::int64_t{rect.intAncho} * rect.intAlto) {
        return rect;
    }
    rect.intAncho = std::min(rect.intAncho, pantalla.intAncho);
    rect.intAlto = std::min(rect.intAlto, pantalla.intAlto - intTitulo);
    rect.intX =
        std::clamp(rect.intX, pantalla.intX, pantalla.intX + pantalla.intAncho - rect.intAncho);
    rect.intY = std::clamp(rect.intY, pantalla.intY + intTitulo,
                           pantalla.intY + pantalla.intAlto - rect.intAlto);
    return rect;
}

} // namespace

std::string fFicheroEscritorio()
{
    const std::string strEstado = fCarpetaEstado();
    const std::string strCarpeta = strEstado + "miravel/";
    return !strEstado.empty() && fAsegurarCarpeta(strCarpeta) ? strCarpeta + "escritorio.ini" : "";
}

clsSitio fSitio(std::string_view strGuardado, std::span<const clsRectEscritorio> lstPantallas)
{
    const auto lstNumeros = fCincoNumeros(strGuardado);
    if (!lstNumeros) {
        return {fDePrimeras(lstPantallas.front())};
    }
    const auto [intX, intY, intAncho, intAlto, intMaximizada] = *lstNumeros;
    const clsRectEscritorio rect{intX, intY, intAncho, intAlto};
    const auto pantalla = std::max_element(
        lstPantallas.begin(), lstPantallas.end(),
        [&](const auto &una, const auto &otra) { return fComun(rect, una) < fComun(rect, otra); });
    return {fEnPantalla(rect, *pantalla), intMaximizada != 0};
}

std::string fTextoSitio(const clsSitio &sitio)
{
    std::string strTexto;
    for (const int intNumero :
         {sitio.normal.intX, sitio.normal.intY, sitio.normal.intAncho, sitio.normal.intAlto}) {
        strTexto += std::to_string(intNumero) + ' ';
    }
    return strTexto + (sitio.bolMaximizada ? '1' : '0');
}
