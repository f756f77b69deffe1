#include "dates/reanudacion.h"

#include "catalogue/diario.h"
#include "catalogue/registro.h"
#include "dates/catalogo_corregido.h"
#include "shared/rutas.h"

#include <algorithm>
#include <cerrno>
#include <deque>

namespace {

/// Whether both paths are names of the file, the new one since the correction: killed in between.
bool fConDosNombres(const std::string &strRaiz, const clsAnotacion &anotacion)
{
    const auto vieja = fVer(strRaiz + anotacion.strDe);
    const auto nueva = fVer(strRaiz + anotacion.strA);
    return anotacion.strA != anotacion.strDe && vieja && nueva &&
           vieja->identidad == nueva->identidad && nueva->lngNombres > anotacion.antes.lngNombres &&
           fParecida(nueva->huella, anotacion.despues);
}

/// What became of a file.
clsAnotacion fHallada(const std::string &strRaiz, clsAnotacion anotacion)
{
    if (anotacion.fIntacta() || fRenombrado(strRaiz, anotacion) ||
        fConDosNombres(strRaiz, anotacion)) {
        return anotacion;
    }
    anotacion.strA = anotacion.strDe;
    // The time comes first: it may have been killed between the two.
    const auto visto = fVer(strRaiz + anotacion.strDe);
    if (!visto || !fParecida(visto->huella, anotacion.despues)) {
        anotacion.despues = anotacion.antes.huella;
    }
    return anotacion;
}

std::vector<clsAnotacion> fHalladas(const std::string &strRaiz, const clsDiario &diario)
{
    std::vector<clsAnotacion> lstHalladas;
    for (const clsAnotacion &anotacion : diario.lstAnotaciones) {
        clsAnotacion hallada = fHallada(strRaiz, anotacion);
        if (!hallada.fIntacta()) {
            lstHalladas.push_back(std::move(hallada));
        }
    }
    return lstHalladas;
}

/// What the records of these files should get.
clsDestinos fDestinosDe(const std::string &strRaiz, const std::vector<clsAnotacion> &lstHalladas,
                        std::deque<std::string> &lstRutas)
{
    clsDestinos destinos;
    const auto fRuta = [&](const std::string &strRelativa) -> std::string_view {
        return lstRutas.emplace_back(strRaiz + strRelativa);
    };
    for (const clsAnotacion &anotacion : lstHalladas) {
        // With two names the file is still listed by the old one.
        const bool bolDos = fConDosNombres(strRaiz, anotacion);
        const std::string_view strDe = fRuta(anotacion.strDe);
        destinos.emplace(strDe,
                         clsDestino{bolDos ? strDe : fRuta(anotacion.strA), anotacion.fecha});
    }
    return destinos;
}

/// Sees to it that the journal knows a free name for the backup: killed, that is where to look.
clsError fAsegurarCopia(const std::string &strRaiz, clsDiario &diario)
{
    if (!fConsultar(strRaiz + diario.strCopia, false)) {
        return {};
    }
    diario.strCopia = fNombreDe(fCopiaLibre(strRaiz + std::string(strFicheroCatalogo)));
    return fEscribirDiario(strRaiz, diario);
}

/// Writes the catalogue by what became of the files.
clsError fCompletar(const std::string &strRaiz, clsDiario &diario,
                    const std::vector<clsAnotacion> &lstHalladas)
{
    const std::string strCatalogo = strRaiz + std::string(strFicheroCatalogo);
    // Killed between two renames, the catalogue has the name of its backup only.
    const bool bolFalta = !diario.bolDeshace && fConsultar(strCatalogo, false).fError() == ENOENT;
    std::string strCopia = strRaiz + diario.strCopia;
    clsCatalogoCorregido catalogo(strCatalogo, bolFalta ? strCopia : strCatalogo);
    std::deque<std::string> lstRutas;
    clsError error = catalogo.fErrorViejo();
    error = error ? error : catalogo.fEscribir(fDestinosDe(strRaiz, lstHalladas, lstRutas));
    if (!error && (bolFalta || catalogo.fCambia())) {
        const bool bolCopia = !bolFalta && !diario.bolDeshace;
        error = bolCopia ? fAsegurarCopia(strRaiz, diario) : clsError();
        strCopia = bolCopia ? strRaiz + diario.strCopia : std::string();
        error = error ? error : catalogo.fPublicar(strCopia);
    }
    // Without any catalogue, the next one is built anew.
    return error == ENOENT ? clsError() : error;
}

} // namespace

clsError fReanudar(const std::string &strRaiz)
{
    auto diario = fLeerDiario(strRaiz);
    if (!diario) {
        return {};
    }
    const std::vector<clsAnotacion> lstHalladas = fHalladas(strRaiz, *diario);
    if (const clsError error = fCompletar(strRaiz, *diario, lstHalladas)) {
        return error;
    }
    if (diario->bolDeshace || lstHalladas.empty()) {
        fBorrarDiario(strRaiz);
        return {};
    }
    if (lstHalladas != diario->lstAnotaciones) {
        // Where there is no room for that, taking back looks for itself.
        static_cast<void>(fEscribirDiario(strRaiz, {diario->strCopia, lstHalladas}));
    }
    return fGuardarDiario(strRaiz, *diario);
}
