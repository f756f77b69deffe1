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

/// One line at the start of a text.
struct clsLinea {
    std::string_view strTexto; ///< without its end
    std::string_view strFin;   ///< CR LF, LF, or nothing at the end of the file
};

/// Takes the first line from a text that is not empty.
clsLinea fTomarLinea(std::string_view &strResto)
{
    const std::size_t lngLinea = std::min(strResto.find('\n'), strResto.size() - 1) + 1;
    const std::string_view strLinea = strResto.substr(0, lngLinea);
    strResto.remove_prefix(lngLinea);
    const int intFin = strLinea.ends_with("\r\n") ? 2 : strLinea.ends_with('\n') ? 1 : 0;
    const std::size_t lngTexto = lngLinea - static_cast<std::size_t>(intFin);
    return {strLinea.substr(0, lngTexto), strLinea.substr(lngTexto)};
}

/// Writes a catalogue anew: the records of corrected files with their present path and the date,
/// everything else byte by byte, an incomplete record at the end too.
void fReescribir(std::string_view strCatalogo, const clsDestinos &destinos, clsFecha fecha,
                 clsReemplazo &archivo)
{
    const std::string strFecha = fEscribirFecha(fecha);
    std::string_view strResto = strCatalogo;
    std::size_t lngCopiados = 0;
    const auto fPosicion = [&] { return strCatalogo.size() - strResto.size(); };
    while (!strResto.empty()) {
        const std::size_t lngRegistro = fPosicion();
        const clsLinea ruta = fTomarLinea(strResto);
        const clsLinea linea2 = strResto.empty() ? clsLinea{} : fTomarLinea(strResto);
        if (strResto.empty()) {
            break;
        }
        const std::size_t lngTamano = fPosicion();
        fTomarLinea(strResto);
        const auto destino = destinos.find(ruta.strTexto);
        if (destino != destinos.end()) {
            archivo.fEscribir(strCatalogo.substr(lngCopiados, lngRegistro - lngCopiados));
            std::string strLineas(destino->second);
            strLineas.append(ruta.strFin).append(strFecha).append(linea2.strFin);
            archivo.fEscribir(strLineas);
            lngCopiados = lngTamano;
        }
    }
    archivo.fEscribir(strCatalogo.substr(lngCopiados));
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
    const auto strCatalogo = fLeerArchivo(strRuta, fin.intError);
    if (!strCatalogo) {
        return fin;
    }
    // Written and flushed before the old one is touched: a full disk is found out here.
    clsReemplazo archivo(strRuta, disco);
    fReescribir(*strCatalogo, destinos, fecha, archivo);
    fin.intError = archivo.fVolcar();
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
