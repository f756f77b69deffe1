#include "dates/correccion.h"

#include "catalogue/registro.h"
#include "shared/rutas.h"
#include "sistema/cambios.h"
#include "sistema/cerrojo.h"
#include "sistema/reemplazo.h"

#include <algorithm>
#include <cerrno>
#include <unordered_map>

namespace {

/// Where the corrected files are now, by the path the catalogue has for them.
using clsDestinos = std::unordered_map<std::string_view, std::string_view>;

clsDestinos fDestinos(const std::vector<clsCorregido> &lstFicheros)
{
    clsDestinos destinos;
    destinos.reserve(lstFicheros.size());
    for (const clsCorregido &fichero : lstFicheros) {
        // The first of two equal paths counts: it was the one that could be renamed.
        destinos.emplace(fichero.strFilePath, fichero.strFilePathNew);
    }
    return destinos;
}

/// EOVERFLOW when the system has no moment for that date.
int fFechaArchivo(const std::string &strRuta, clsFecha fecha, const clsDisco &disco)
{
    const auto lngMomento = fMomento(fecha);
    return lngMomento ? fFechar(strRuta, *lngMomento, disco) : EOVERFLOW;
}

void fCorregirFichero(clsCorregido &fichero, clsFecha fecha, const clsFalloNombre &fFallo,
                      const clsDisco &disco)
{
    // Deliberate: a file whose time cannot be set gets its new name all the same.
    fichero.intErrorFecha = fFechaArchivo(fichero.strFilePath, fecha, disco);
    fichero.strFilePathNew = fRutaCorregida(fichero.strFilePath, fecha);
    fichero.intErrorNombre = fRenombrar(fichero.strFilePath, fichero.strFilePathNew, disco);
    if (fichero.intErrorNombre != 0) {
        fichero.strFilePathNew = fichero.strFilePath;
        if (fFallo) {
            fFallo(fichero.strFilePath, fichero.intErrorNombre);
        }
    }
}

/// Appends a record: that of a corrected file with its present path and the date, any other byte by
/// byte, an incomplete one at the end too.
void fAnadirCorregido(std::string &strSalida, const clsRegistro &registro,
                      const clsDestinos &destinos, std::string_view strFecha)
{
    const auto &[ruta, fecha, tamano] = registro.lstLineas;
    const bool bolEntero = registro.lngLineas == registro.lstLineas.size();
    const auto destino = bolEntero ? destinos.find(ruta.strTexto) : destinos.end();
    if (destino == destinos.end()) {
        strSalida.append(registro.strBytes);
        return;
    }
    strSalida.append(destino->second).append(ruta.strFin);
    strSalida.append(strFecha).append(fecha.strFin);
    strSalida.append(tamano.strTexto).append(tamano.strFin);
}

/// Writes a catalogue anew.
/// @return 0 or the number of the error that ended the records; archivo knows those of its own.
int fReescribir(clsRegistros &registros, const clsDestinos &destinos, clsFecha fecha,
                clsReemplazo &archivo)
{
    constexpr std::size_t lngTramo = 1 << 18;
    const std::string strFecha = fEscribirFecha(fecha);
    std::string strPendiente;
    while (const clsRegistro *const registro = registros.fSiguiente()) {
        fAnadirCorregido(strPendiente, *registro, destinos, strFecha);
        if (strPendiente.size() >= lngTramo) {
            archivo.fEscribir(strPendiente);
            strPendiente.clear();
        }
    }
    archivo.fEscribir(strPendiente);
    return registros.fError();
}

/// Gives the catalogue the name of a backup: the present second, or the next one that is free.
/// @return 0 or the error number; strCopia is empty then.
int fApartar(const std::string &strCatalogo, std::string &strCopia, const clsDisco &disco)
{
    constexpr int intIntentos = 86'400; // a day of corrections, one a second
    clsFecha fecha = fFechaLocal(disco.fAhora());
    int intError = EEXIST;
    for (int intVez = 0; intVez < intIntentos && intError == EEXIST; ++intVez) {
        strCopia = strCatalogo + '.' + fEscribirFecha(fecha, "yyyyMMddHHmmss");
        intError = fRenombrar(strCatalogo, strCopia, disco);
        ++fecha.lngSegundos;
    }
    if (intError != 0) {
        strCopia.clear();
    }
    return intError;
}

/// Replaces the catalogue; the old one stays as a backup. On an error the old one keeps its name.
clsFinCorreccion fCorregirCatalogo(const std::string &strRuta, const clsDestinos &destinos,
                                   clsFecha fecha, const clsDisco &disco)
{
    clsFinCorreccion fin{Correccion::SinCatalogo, 0, {}};
    const clsDescriptor viejo = fAbrirRegular(strRuta, fin.intError);
    if (!viejo.fAbierto()) {
        return fin;
    }
    // Written and flushed before the old one is touched: a full disk is found out here.
    clsReemplazo archivo(strRuta, disco);
    clsRegistros registros(fBytesDe(viejo));
    fin.intError = fReescribir(registros, destinos, fecha, archivo);
    if (fin.intError == 0) {
        fin.intError = archivo.fVolcar();
    }
    if (fin.intError == 0) {
        fin.intError = fApartar(strRuta, fin.strCopia, disco);
    }
    if (fin.intError != 0) {
        return fin;
    }
    fin.intError = archivo.fConfirmar(true);
    if (fin.intError == 0) {
        fin.correccion = Correccion::Hecha;
    } else if (fRenombrar(fin.strCopia, strRuta, disco) == 0) {
        fin.strCopia.clear();
    }
    return fin;
}

} // namespace

std::string fRutaCorregida(std::string_view strRuta, clsFecha fecha)
{
    return std::string(fCarpetaDe(strRuta)) + fEscribirFecha(fecha, "yyyyMMdd_") +
           std::string(fNombreDe(strRuta));
}

clsFinCorreccion fCorregir(const std::string &strRaiz, bool bolEscritura,
                           std::vector<clsCorregido> &lstFicheros, clsFecha fecha,
                           const clsFalloNombre &fFallo, const std::function<void()> &fPaso,
                           const clsDisco &disco)
{
    if (!bolEscritura) {
        return {Correccion::SinPermiso, 0, {}};
    }
    const clsCerrojoArchivo cerrojo(strRaiz);
    if (!cerrojo.fTenido()) {
        return {Correccion::Ocupada, 0, {}};
    }
    for (clsCorregido &fichero : lstFicheros) {
        fCorregirFichero(fichero, fecha, fFallo, disco);
        if (fPaso) {
            fPaso();
        }
    }
    return fCorregirCatalogo(strRaiz + std::string(strFicheroCatalogo), fDestinos(lstFicheros),
                             fecha, disco);
}
