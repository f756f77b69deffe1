#include "catalogue/mudanza.h"

#include "catalogue/registro.h"
#include "shared/rutas.h"
#include "sistema/carpeta.h"
#include "sistema/reemplazo.h"

#include <algorithm>
#include <cerrno>
#include <vector>

namespace {

constexpr std::size_t lngMuestras = 8;           ///< files that are looked for
constexpr std::size_t lngHallazgos = 3;          ///< of which so many have to be found
constexpr std::size_t lngRegistrosMax = 1 << 16; ///< that are read to find samples

using Existe = std::function<bool(const std::string &)>;

/// Paths of a catalogue that does not begin below strRaiz: the first of as many folders as there
/// are samples; of fewer folders, more of each.
std::vector<std::string> fMuestras(clsRegistros &registros, const std::string &strRaiz)
{
    std::vector<std::string> lstMuestras;
    std::vector<std::string> lstOtras;
    std::string strCarpeta;
    for (std::size_t lng = 0; lng < lngRegistrosMax && lstMuestras.size() < lngMuestras; ++lng) {
        const clsRegistro *const registro = registros.fSiguiente();
        const std::string strRuta(registro != nullptr ? registro->lstLineas[0].strTexto : "");
        if (registro == nullptr || (lng == 0 && strRuta.starts_with(strRaiz))) {
            break;
        }
        if (!fBajoRaiz(strRuta, "/")) {
            continue;
        }
        if (fCarpetaDe(strRuta) != strCarpeta) {
            strCarpeta = fCarpetaDe(strRuta);
            lstMuestras.push_back(strRuta);
        } else if (lstOtras.size() < lngMuestras) {
            lstOtras.push_back(strRuta);
        }
    }
    const std::size_t lngFaltan = std::min(lngMuestras - lstMuestras.size(), lstOtras.size());
    lstMuestras.insert(lstMuestras.end(), lstOtras.begin(),
                       lstOtras.begin() + static_cast<std::ptrdiff_t>(lngFaltan));
    return lstMuestras;
}

/// The old root by one file: what stands before the longest tail of its path that exists below the
/// new root; empty when none does.
std::string fRaizPor(const std::string &strRuta, const std::string &strRaiz, const Existe &fExiste)
{
    for (std::size_t lng = 0; lng != std::string::npos; lng = strRuta.find('/', lng + 1)) {
        if (fExiste(strRaiz + strRuta.substr(lng + 1))) {
            return strRuta.substr(0, lng + 1);
        }
    }
    return {};
}

/// Whether enough of the samples are found by it: some, or of a few most.
bool fConfirmada(const std::vector<std::string> &lstMuestras, const clsMudanza &mudanza,
                 const Existe &fExiste)
{
    std::size_t lngFaltan = std::min(lngHallazgos, lstMuestras.size() / 2 + 1);
    for (const std::string &strRuta : lstMuestras) {
        if (strRuta.starts_with(mudanza.strDe) && fExiste(mudanza.fRuta(strRuta)) &&
            --lngFaltan == 0) {
            return true;
        }
    }
    return false;
}

} // namespace

std::string clsMudanza::fRuta(std::string_view strRuta) const
{
    return fHay() && strRuta.starts_with(strDe) ? strA + std::string(strRuta.substr(strDe.size()))
                                                : std::string(strRuta);
}

clsMudanza fBuscarMudanza(const std::string &strCatalogo, const std::string &strRaiz,
                          const Existe &fExiste)
{
    const auto archivo = fAbrirRegular(strCatalogo, false);
    if (!archivo) {
        return {};
    }
    clsRegistros registros(fBytesDe(archivo->descriptor));
    const std::vector<std::string> lstMuestras = fMuestras(registros, strRaiz);
    for (const std::string &strRuta : lstMuestras) {
        clsMudanza mudanza{fRaizPor(strRuta, strRaiz, fExiste), strRaiz};
        if (mudanza.fHay() && fConfirmada(lstMuestras, mudanza, fExiste)) {
            return mudanza;
        }
    }
    return {};
}

clsError fMudarCatalogo(const std::string &strCatalogo, const clsMudanza &mudanza)
{
    const clsCerrojoArchivo cerrojo(mudanza.strA);
    const auto viejo = fAbrirRegular(strCatalogo, false);
    if (!cerrojo.fTenido() || !viejo) {
        return cerrojo.fTenido() ? viejo.fError() : EBUSY;
    }
    clsReemplazo nuevo(strCatalogo, fConsultar(viejo->descriptor));
    clsRegistros registros(fBytesDe(viejo->descriptor));
    while (const clsRegistro *const registro = registros.fSiguiente()) {
        // Any of the lines: where one is missing, paths stand elsewhere in the records behind.
        for (std::size_t lng = 0; lng < registro->lngLineas; ++lng) {
            const clsLinea &linea = registro->lstLineas[lng];
            const bool bolSuya = linea.strTexto.starts_with(mudanza.strDe);
            nuevo.fEscribir(bolSuya ? std::string_view(mudanza.strA) : "");
            nuevo.fEscribir(linea.strTexto.substr(bolSuya ? mudanza.strDe.size() : 0));
            nuevo.fEscribir(linea.strFin);
        }
    }
    return registros.fError() ? registros.fError() : nuevo.fConfirmar(true);
}
