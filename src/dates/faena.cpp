#include "dates/faena.h"

#include "shared/errores.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/recinto.h"

#include <algorithm>
#include <cerrno>

namespace {

std::string fAvisoSinNombre(const clsCorregido &fichero)
{
    return fTextoPantalla(fichero.strFilePath) + "\r\nno puede llamarse\r\n" +
           fTextoPantalla(fichero.strFilePathNew) + "\r\n" + fTextoError(fichero.errorNombre);
}

clsError fPonerNombre(clsRecinto &recinto, const std::string &strRuta, const clsMeta &meta)
{
    const std::string_view strNombre = fNombreDe(meta.strRuta);
    return meta.strRuta == strRuta ? clsError()
           : meta.bolSoltar        ? recinto.fSoltarNombre(strRuta, strNombre)
                                   : recinto.fRenombrar(strRuta, strNombre);
}

void fTratar(clsCorregido &fichero, const clsMeta &meta, clsRecinto &recinto,
             const clsFalloNombre &fFallo)
{
    const std::string &strRuta = fichero.strFilePath;
    fichero.bolTratado = true;
    // Deliberate: a file whose time cannot be set gets its new name all the same.
    if (meta.bolFechar) {
        fichero.errorFecha =
            meta.hora ? recinto.fFechar(strRuta, meta.hora->lngSegundos, meta.hora->lngNanosegundos,
                                        meta.visto && meta.visto->bolArchivo)
                      : EOVERFLOW;
    }
    fichero.strFilePathNew = meta.strRuta;
    fichero.errorNombre = fPonerNombre(recinto, strRuta, meta);
    if (fichero.errorNombre) {
        const std::string strAviso = fAvisoSinNombre(fichero);
        fichero.strFilePathNew = strRuta;
        if (fFallo) {
            fFallo(strAviso);
        }
    }
}

/// Has all files seem treated, or none.
void fSuponer(clsFaena &faena, bool bolTratados)
{
    for (std::size_t lng = 0; lng < faena.lstFicheros.size(); ++lng) {
        clsCorregido &fichero = faena.lstFicheros[lng];
        fichero.bolTratado = bolTratados;
        fichero.strFilePathNew = bolTratados ? faena.lstMetas[lng].strRuta : fichero.strFilePath;
    }
}

/// What is in mind with a file; of one that is not there, nothing.
clsAnotacion fPlan(const std::string &strRaiz, const clsCorregido &fichero, const clsMeta &meta)
{
    clsAnotacion anotacion{fichero.strFilePath.substr(strRaiz.size()), {}, fichero.fecha, {}, {}};
    anotacion.strA = meta.visto ? meta.strRuta.substr(strRaiz.size()) : anotacion.strDe;
    anotacion.antes = meta.visto.value_or(clsVisto());
    anotacion.despues = meta.visto && meta.bolFechar ? meta.hora.value_or(meta.visto->huella)
                                                     : anotacion.antes.huella;
    anotacion.despues.lngBytes = anotacion.antes.huella.lngBytes;
    return anotacion;
}

/// Writes down what is in mind, as far as the catalogue can have the files.
clsError fEscribirPlan(clsFaena &faena)
{
    clsRecinto recinto(faena.strRaiz, faena.carpeta);
    faena.lstAnotados.reserve(faena.lstFicheros.size());
    faena.diario.lstAnotaciones.reserve(faena.lstFicheros.size());
    for (std::size_t lng = 0; lng < faena.lstFicheros.size(); ++lng) {
        const std::string &strRuta = faena.lstFicheros[lng].strFilePath;
        clsMeta &meta = faena.lstMetas[lng];
        if (fBajoRaiz(strRuta, faena.strRaiz) &&
            strRuta.find_first_of("\r\n") == std::string::npos) {
            if (!meta.visto) {
                meta.visto = fVer(strRuta, recinto.fConsultar(strRuta));
            }
            faena.lstAnotados.push_back(lng);
            faena.diario.lstAnotaciones.push_back(
                fPlan(faena.strRaiz, faena.lstFicheros[lng], meta));
        }
    }
    return fEscribirDiario(faena.strRaiz, faena.diario);
}

/// Makes room for what will be written, and writes down what is about to be done, before the first
/// file is touched. No catalogue: there is nothing to be written.
clsError fPreparar(clsFaena &faena)
{
    if (faena.catalogo.fErrorViejo()) {
        return faena.catalogo.fErrorViejo() == ENOENT ? 0 : faena.catalogo.fErrorViejo();
    }
    fSuponer(faena, true);
    const clsError error = faena.catalogo.fEscribir(faena.fDestinos());
    return error ? error : fEscribirPlan(faena);
}

/// Puts the catalogue of the files in the place of the old one.
clsFinCorreccion fPublicar(clsFaena &faena)
{
    clsFinCorreccion fin{Correccion::SinCatalogo, faena.catalogo.fErrorViejo(), {}};
    const bool bolTodo = std::all_of(faena.lstFicheros.begin(), faena.lstFicheros.end(),
                                     [](const clsCorregido &fichero) { return fichero.fBien(); });
    if (!fin.error && !bolTodo) {
        fin.error = faena.catalogo.fEscribir(faena.fDestinos());
    }
    if (!fin.error) {
        fin.strCopia = faena.strCopia;
        fin.error = faena.catalogo.fPublicar(fin.strCopia);
    }
    fin.correccion = fin.error ? Correccion::SinCatalogo : Correccion::Hecha;
    return fin;
}

} // namespace

clsFinCorreccion fHacerFaena(clsFaena &faena, const clsFalloNombre &fFallo,
                             const clsSeguir &fSeguir)
{
    const clsError error = fPreparar(faena);
    fSuponer(faena, false);
    if (error) {
        fBorrarDiario(faena.strRaiz);
        return {Correccion::Imposible, error, {}};
    }
    clsRecinto recinto(faena.strRaiz, faena.carpeta);
    for (std::size_t lng = 0; lng < faena.lstFicheros.size(); ++lng) {
        fTratar(faena.lstFicheros[lng], faena.lstMetas[lng], recinto, fFallo);
        if (fSeguir && !fSeguir()) {
            break;
        }
    }
    return fPublicar(faena);
}

std::vector<clsAnotacion> fHecho(const clsFaena &faena)
{
    std::vector<clsAnotacion> lstHechas;
    for (std::size_t lng = 0; lng < faena.lstAnotados.size(); ++lng) {
        const clsCorregido &fichero = faena.lstFicheros[faena.lstAnotados[lng]];
        if (!fichero.bolTratado) {
            continue;
        }
        clsAnotacion anotacion = faena.diario.lstAnotaciones[lng];
        anotacion.strA = fichero.strFilePathNew.substr(faena.strRaiz.size());
        if (fichero.errorFecha) { // the disk may have taken another one
            const auto visto = fVer(fichero.strFilePathNew);
            anotacion.despues = visto ? visto->huella : anotacion.antes.huella;
            anotacion.despues.lngBytes = anotacion.antes.huella.lngBytes;
        }
        lstHechas.push_back(std::move(anotacion));
    }
    return lstHechas;
}
