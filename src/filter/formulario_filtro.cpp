#include "filter/formulario_filtro.h"

#include "shared/texto.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view strPrimerDia = "01/01/1901";
constexpr std::string_view strUltimoDia = "31/12/2100";
constexpr std::string_view strNoEsFecha = "Fecha no válida.";

bool fEsCifra(char chr) { return chr >= '0' && chr <= '9'; }

/// "dd/mm/yyyy" from six characters, which need not be digits.
std::string fConSiglo(const std::string &strSeis)
{
    const std::string strAno = strSeis.substr(4);
    return strSeis.substr(0, 2) + '/' + strSeis.substr(2, 2) + (strAno >= "50" ? "/19" : "/20") +
           strAno;
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

bool fAdmiteTecla(std::string_view strTexto)
{
    return std::all_of(strTexto.begin(), strTexto.end(), [](char chr) {
        return fEsCifra(chr) || chr == '\b' || chr == '\r' || chr == '\x1B';
    });
}

std::string fSoloCifras(std::string_view strTexto)
{
    std::string strCifras;
    std::copy_if(strTexto.begin(), strTexto.end(), std::back_inserter(strCifras), fEsCifra);
    return strCifras;
}

clsCajaFecha fDejarCaja(std::string_view strTexto, std::string_view strValida)
{
    if (strTexto.empty() || strTexto == strValida) {
        return {{}, std::string(strTexto)};
    }
    if (fContarCaracteres(strTexto) != intLargoTecleada) {
        return {"La fecha debe tener el formato: DDMMYY", std::string(strTexto)};
    }
    const std::string strDia = fConSiglo(std::string(strTexto));
    if (!fLeerFecha(strDia, strFormaDia)) {
        return {strNoEsFecha, std::string(strTexto)};
    }
    return {{}, strDia};
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
        peticion.strFallo = "No has seleccionado ningún filtro.";
        return peticion;
    }
    const auto fDia = [](const std::string &strCaja, std::string_view strVacia) {
        return fLeerFecha(strCaja.empty() ? strVacia : strCaja, strFormaDia);
    };
    const auto datDesde = fDia(valores.strFiltroDesde, strPrimerDia);
    const auto datHasta = fDia(valores.strFiltroHasta, strUltimoDia);
    if (!datDesde || !datHasta || *datHasta < *datDesde) {
        peticion.strFallo =
            datDesde && datHasta ? "La fecha final es menor a la inicial." : strNoEsFecha;
        return peticion;
    }
    filtro.datDesde = *datDesde;
    filtro.datHasta = *datHasta;
    valores.strFiltroTexto = fTextoLimpio(valores.strFiltroTexto);
    filtro.lstPalabras = fPartir(valores.strFiltroTexto, ',');
    filtro.bolCarpeta = valores.strFiltroCarpeta == "S";
    filtro.modo = static_cast<ModoTexto>(valores.intFiltroModo);
    return peticion;
}

std::string fTituloFiltro(int lngFilas)
{
    return "Filtro (" + std::to_string(lngFilas) + " archivos)";
}
