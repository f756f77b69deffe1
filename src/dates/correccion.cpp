#include "dates/correccion.h"

#include "catalogue/registro.h"
#include "dates/faena.h"
#include "dates/reanudacion.h"
#include "shared/rutas.h"
#include "sistema/carpeta.h"

#include <cerrno>
#include <utility>

namespace {

clsMeta fMeta(const clsCorregido &fichero, clsMomentosLocales &momentos)
{
    const std::string &strRuta = fichero.strFilePath;
    const auto lngMomento = momentos.fMomento(fichero.fecha);
    return {fichero.bolNombre ? fRutaCorregida(strRuta, fichero.fecha) : strRuta,
            lngMomento ? std::optional(clsHuella{0, *lngMomento, 0}) : std::nullopt};
}

std::vector<clsMeta> fMetas(const std::vector<clsCorregido> &lstFicheros)
{
    std::vector<clsMeta> lstMetas;
    lstMetas.reserve(lstFicheros.size());
    clsMomentosLocales momentos;
    for (const clsCorregido &fichero : lstFicheros) {
        lstMetas.push_back(fMeta(fichero, momentos));
    }
    return lstMetas;
}

clsDestinos fDestinosDe(const std::vector<clsCorregido> &lstFicheros)
{
    clsDestinos destinos;
    destinos.reserve(lstFicheros.size());
    for (const clsCorregido &fichero : lstFicheros) {
        // The first of two equal paths counts: it was the one that could be renamed.
        if (fichero.bolTratado) {
            destinos.emplace(fichero.strFilePath,
                             clsDestino{fichero.strFilePathNew, fichero.fecha});
        }
    }
    return destinos;
}

/// Keeps the journal of what was done. Where it has no room as it should be, it stays as it is:
/// taking back looks for itself. Where it cannot get its name, the next start tries again.
void fGuardar(clsFaena &faena, const std::string &strCopia)
{
    std::vector<clsAnotacion> lstHechas = fHecho(faena);
    if (lstHechas.empty()) {
        fBorrarDiario(faena.strRaiz);
        return;
    }
    clsDiario hecho{std::string(fNombreDe(strCopia)), std::move(lstHechas)};
    const bool bolIgual = hecho.strCopia == faena.diario.strCopia &&
                          hecho.lstAnotaciones == faena.diario.lstAnotaciones;
    if (!bolIgual) {
        static_cast<void>(fEscribirDiario(faena.strRaiz, hecho));
    }
    static_cast<void>(fGuardarDiario(faena.strRaiz, hecho));
}

} // namespace

std::string fRutaCorregida(std::string_view strRuta, clsFecha fecha)
{
    return std::string(fCarpetaDe(strRuta)) + fEscribirFecha(fecha, "yyyyMMdd_") +
           std::string(fNombreDe(strRuta));
}

clsFinCorreccion fCorregir(const std::string &strRaiz, bool bolEscritura,
                           std::vector<clsCorregido> &lstFicheros, const clsFalloNombre &fFallo,
                           const clsSeguir &fSeguir)
{
    if (!bolEscritura) {
        return {Correccion::SinPermiso, {}, {}};
    }
    const clsCerrojoArchivo cerrojo(strRaiz);
    if (!cerrojo.fTenido()) {
        return {Correccion::Ocupada, {}, {}};
    }
    if (!cerrojo.fCarpeta().fAbierto()) { // nothing below it could be changed
        return {Correccion::Imposible, EIO, {}};
    }
    if (const clsError error = fReanudar(strRaiz)) { // its journal would be lost
        return {Correccion::Imposible, error, {}};
    }
    const std::string strCatalogo = strRaiz + std::string(strFicheroCatalogo);
    const std::string strCopia = fCopiaLibre(strCatalogo);
    clsCatalogoCorregido catalogo(strCatalogo, strCatalogo);
    const auto fDestinos = [&] { return fDestinosDe(lstFicheros); };
    clsFaena faena{strRaiz,  cerrojo.fCarpeta(), lstFicheros, fMetas(lstFicheros),
                   catalogo, fDestinos,          strCopia};
    faena.diario.strCopia = fNombreDe(strCopia);
    clsFinCorreccion fin = fHacerFaena(faena, fFallo, fSeguir);
    if (!fin.error) {
        fGuardar(faena, fin.strCopia);
    }
    return fin;
}

void fTerminarCorreccion(const std::string &strRaiz)
{
    if (!fHuella(strRaiz + std::string(strFicheroDiario), false)) {
        return;
    }
    const clsCerrojoArchivo cerrojo(strRaiz);
    if (cerrojo.fTenido()) {
        static_cast<void>(fReanudar(strRaiz)); // on an error the next start tries again
    }
}
