#include "browse/ayuda.h"

#include "browse/ayuda_texto.h"
#include "shared/programa.h"
#include "shared/texto.h"
#include "sistema/reemplazo.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view strFinLinea = "\r\n";

std::string fEscaparHtml(std::string_view strTexto)
{
    std::string strHtml;
    for (const char chr : strTexto) {
        switch (chr) {
        case '&':
            strHtml += "&amp;";
            break;
        case '<':
            strHtml += "&lt;";
            break;
        case '>':
            strHtml += "&gt;";
            break;
        default:
            strHtml += chr;
        }
    }
    return strHtml;
}

void fLinea(std::string &strPagina, std::string_view strLinea)
{
    strPagina.append(strLinea).append(strFinLinea);
}

void fParrafo(std::string &strPagina, std::string_view strTexto)
{
    fLinea(strPagina, fEscaparHtml(fSinBlancos(strTexto)) + "<br><br>");
}

void fTitulo(std::string &strPagina, std::string_view strTexto)
{
    fLinea(strPagina, "<b>" + fEscaparHtml(fSinBlancos(strTexto)) + "<br><br></b>");
}

/// Writes one paragraph of the prose, see ayuda_texto.h.
void fParrafoDeTexto(std::string &strPagina, std::string strParrafo)
{
    std::replace(strParrafo.begin(), strParrafo.end(), '\n', ' ');
    if (strParrafo.starts_with("# ")) {
        fTitulo(strPagina, strParrafo.substr(2));
    } else {
        fParrafo(strPagina, strParrafo);
    }
}

void fTexto(std::string &strPagina, std::string_view strTexto)
{
    constexpr std::string_view strEntre = "\n\n";
    for (std::size_t lngFin = 0; lngFin != std::string_view::npos;) {
        lngFin = strTexto.find(strEntre);
        fParrafoDeTexto(strPagina, std::string(strTexto.substr(0, lngFin)));
        strTexto.remove_prefix(lngFin == std::string_view::npos ? 0 : lngFin + strEntre.size());
    }
}

std::string fNombreAyuda() { return std::string("Ayuda_") + strPrograma; }

} // namespace

std::string fRutaAyuda(const std::string &strRaiz) { return strRaiz + fNombreAyuda() + ".htm"; }

std::string fTextoAyuda()
{
    std::string strPagina;
    fLinea(strPagina, "<html><head><title>" + fNombreAyuda() + "</title></head>");
    fLinea(strPagina, "<body style='font-family: Arial'><div align='center'><center>");
    fLinea(strPagina, "<table border='0' width='500' cellspacing='0' cellpadding='0'><tr>"
                      "<td width='100%'>");
    fParrafo(strPagina, "");
    fTitulo(strPagina, fMayusculasAscii(std::string(strPrograma) + ' ' + strVersion));
    fTexto(strPagina, strTextoAyuda);
    fLinea(strPagina, "</td></tr></table></center></div></body></html>");
    return strPagina;
}

clsError fEscribirAyuda(const std::string &strRaiz)
{
    clsReemplazo archivo(fRutaAyuda(strRaiz));
    archivo.fEscribir(fTextoAyuda());
    return archivo.fConfirmar(false);
}
