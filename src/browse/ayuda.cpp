#include "browse/ayuda.h"

#include "browse/ayuda_texto.h"
#include "shared/programa.h"
#include "shared/texto.h"
#include "sistema/reemplazo.h"

#include <algorithm>
#include <string_view>

namespace {

void fLinea(std::string &strPagina, std::string_view strLinea)
{
    strPagina.append(strLinea).append("\r\n");
}

/// Adds one paragraph of the prose, see ayuda_texto.h.
void fParrafo(std::string &strPagina, std::string strParrafo)
{
    std::replace(strParrafo.begin(), strParrafo.end(), '\n', ' ');
    const bool bolTitulo = strParrafo.starts_with("# ");
    const std::string strTexto(fSinBlancos(strParrafo.substr(bolTitulo ? 2 : 0)));
    fLinea(strPagina, bolTitulo ? "<b>" + strTexto + "<br><br></b>" : strTexto + "<br><br>");
}

std::string fNombreAyuda() { return std::string("Ayuda_") + strPrograma; }

} // namespace

std::string fRutaAyuda(const std::string &strRaiz) { return strRaiz + fNombreAyuda() + ".htm"; }

std::string fTextoAyuda()
{
    constexpr std::string_view strEntre = "\n\n";
    std::string strPagina;
    fLinea(strPagina, "<html><head><title>" + fNombreAyuda() + "</title></head>");
    fLinea(strPagina, "<body style='font-family: Arial'><div align='center'><center>");
    fLinea(strPagina, "<table border='0' width='500' cellspacing='0' cellpadding='0'><tr>"
                      "<td width='100%'>");
    fParrafo(strPagina, "");
    fParrafo(strPagina, "# " + fMayusculasAscii(std::string(strPrograma) + ' ' + strVersion));
    std::string_view strTexto = strTextoAyuda;
    for (std::size_t lngFin = 0; lngFin != std::string_view::npos;) {
        lngFin = strTexto.find(strEntre);
        fParrafo(strPagina, std::string(strTexto.substr(0, lngFin)));
        strTexto.remove_prefix(lngFin == std::string_view::npos ? 0 : lngFin + strEntre.size());
    }
    fLinea(strPagina, "</td></tr></table></center></div></body></html>");
    return strPagina;
}

clsError fEscribirAyuda(const std::string &strRaiz)
{
    clsReemplazo archivo(fRutaAyuda(strRaiz));
    archivo.fEscribir(fTextoAyuda());
    return archivo.fConfirmar(false);
}
