#include "filter/formulario_filtro.h"

#include "shared/texto.h"

#include <algorithm>

namespace {

constexpr std::string_view strPrimerDia = "01/01/1901";
constexpr std::string_view strUltimoDia = "31/12/2100";

/// "dd/mm/yyyy" from six characters, which need not be digits.
std::string fConSiglo(std::string_view strSeis)
{
    const std::string strDia(strSeis.substr(0, 2));
    const std::string strMes(strSeis.substr(2, 2));
    const std::string strAno(strSeis.substr(4));
    return strDia + '/' + strMes + '/' + (strAno >= "50" ? "19" : "20") + strAno;
}

std::vector<std::string> fPartir(std::string_view strTexto)
{
    std::vector<std::string> lstPalabras;
    // Nothing to split gives no word, not an empty one.
    while (!strTexto.empty()) {
        const std::size_t lngComa = strTexto.find(',');
        lstPalabras.emplace_back(strTexto.substr(0, lngComa));
        if (lngComa == std::string_view::npos) {
            break;
        }
        strTexto.remove_prefix(lngComa + 1);
        if (strTexto.empty()) {
            lstPalabras.emplace_back(); // what follows a comma at the end
        }
    }
    return lstPalabras;
}

std::string fTextoLimpio(std::string_view strTexto)
{
    strTexto = fSinBlancos(strTexto);
    if (strTexto.ends_with(',')) {
        strTexto.remove_suffix(1);
    }
    return std::string(strTexto);
}

} // namespace

std::string_view fMensajeFiltro(FalloFiltro fallo)
{
    switch (fallo) {
    case FalloFiltro::Ninguno:
        return {};
    case FalloFiltro::Formato:
        return "La fecha debe tener el formato: DDMMYY";
    case FalloFiltro::NoValida:
        return "Fecha no válida.";
    case FalloFiltro::SinFiltro:
        return "No has seleccionado ningún filtro.";
    case FalloFiltro::FinAntes:
        return "La fecha final es menor a la inicial.";
    case FalloFiltro::SinImagenes:
        return "No se ha encontrado ninguna imagen.";
    }
    return {};
}

FalloFiltro fFalloDe(ResultadoFiltro resultado)
{
    return resultado == ResultadoFiltro::Ninguno ? FalloFiltro::SinImagenes : FalloFiltro::Ninguno;
}

bool fAdmiteTecla(std::string_view strTexto)
{
    return std::all_of(strTexto.begin(), strTexto.end(), [](char chr) {
        return (chr >= '0' && chr <= '9') || chr == '\b' || chr == '\r' || chr == '\x1B';
    });
}

clsCajaFecha fDejarCaja(std::string_view strTexto, std::string_view strValida)
{
    if (strTexto.empty() || strTexto == strValida) {
        return {FalloFiltro::Ninguno, std::string(strTexto)};
    }
    if (fContarCaracteres(strTexto) != intLargoTecleada) {
        return {FalloFiltro::Formato, std::string(strTexto)};
    }
    const std::string strDia = fConSiglo(strTexto);
    if (!fLeerFecha(strDia, strFormaDia)) {
        return {FalloFiltro::NoValida, std::string(strTexto)};
    }
    return {FalloFiltro::Ninguno, strDia};
}

std::string fEditarCaja(std::string_view strTexto)
{
    std::string strSeis(strTexto);
    if (fLeerFecha(strTexto, strFormaDia)) {
        strSeis.erase(6, 2); // the century
        std::erase(strSeis, '/');
    }
    return strSeis;
}

clsPeticionFiltro fPedirFiltro(clsValoresFiltro &valores)
{
    clsPeticionFiltro peticion;
    clsFiltro &filtro = peticion.filtro;
    filtro.bolFechas = !valores.strFiltroDesde.empty() || !valores.strFiltroHasta.empty();
    // Deliberate: asked before the blanks go, so a text of blanks is a filter that all files pass.
    if (!filtro.bolFechas && valores.strFiltroTexto.empty()) {
        peticion.fallo = FalloFiltro::SinFiltro;
        return peticion;
    }
    const auto fDia = [](const std::string &strCaja, std::string_view strVacia) {
        return fLeerFecha(strCaja.empty() ? strVacia : strCaja, strFormaDia).value_or(clsFecha{});
    };
    filtro.datDesde = fDia(valores.strFiltroDesde, strPrimerDia);
    filtro.datHasta = fDia(valores.strFiltroHasta, strUltimoDia);
    if (filtro.datHasta < filtro.datDesde) {
        peticion.fallo = FalloFiltro::FinAntes;
        return peticion;
    }
    valores.strFiltroTexto = fTextoLimpio(valores.strFiltroTexto);
    filtro.lstPalabras = fPartir(valores.strFiltroTexto);
    filtro.bolCarpeta = valores.strFiltroCarpeta == "S";
    filtro.modo = static_cast<ModoTexto>(valores.intFiltroModo);
    return peticion;
}

std::string fTituloFiltro(int lngFilas)
{
    return "Filtro (" + std::to_string(lngFilas) + " archivos)";
}
