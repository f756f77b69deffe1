#include "shared/formato_fecha.h"

#include "shared/texto.h"
#include "sistema/entorno.h"

#include <cstdlib>

namespace {

/// The locale name that counts for dates, in the order POSIX gives the variables.
std::string fNombreLocale()
{
    for (const char *const strVariable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char *const strValor = std::getenv(strVariable);
        if (strValor != nullptr && *strValor != '\0') {
            return strValor;
        }
    }
    return "C";
}

bool fEsNeutro(std::string_view strNombre)
{
    return fIgualSinCaja(strNombre, "C") || fIgualSinCaja(strNombre, "POSIX") ||
           fIgualSinCaja(strNombre, "C.UTF-8") || fIgualSinCaja(strNombre, "C.utf8");
}

} // namespace

std::string fFormatoFechaCorto(std::string_view strDFmt)
{
    std::string strFormato;
    for (std::size_t lng = 0; lng < strDFmt.size(); ++lng) {
        if (strDFmt[lng] != '%' || lng + 1 == strDFmt.size()) {
            strFormato += strDFmt[lng];
            continue;
        }
        const char chr = strDFmt[++lng];
        strFormato += chr == 'd'                 ? "dd"
                      : chr == 'm'               ? "MM"
                      : chr == 'y' || chr == 'Y' ? "yyyy"
                                                 : std::string(1, chr);
    }
    return strFormato;
}

std::string fDFmtUsuario()
{
    const std::string strNombre = fNombreLocale();
    return fEsNeutro(strNombre) ? std::string() : fDFmtLocale(strNombre);
}

bool fFormatoFechaValido(std::string_view strDFmt)
{
    return strDFmt.empty() || fMayusculasAscii(fFormatoFechaCorto(strDFmt)) == "DD/MM/YYYY";
}
