#include "dates/correccion.h"

#include "catalogue/registro.h"
#include "shared/errores.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/archivo.h"
#include "sistema/cambios.h"
#include "sistema/carpeta.h"
#include "sistema/entorno.h"
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

/// The text of a box that lists files, as many as a screen has room for.
class clsRelacion {
public:
    explicit clsRelacion(std::string strTitulo) : m_strTexto(std::move(strTitulo)) {}
    /// @param strMotivo what is said of the file, if anything.
    void fAnadir(std::string_view strRuta, const std::string &strMotivo = {})
    {
        constexpr int intMaximo = 20;
        if (++m_intCuantos <= intMaximo) {
            m_strTexto += "\r\n" + fTextoPantalla(strRuta);
            m_strTexto += strMotivo.empty() ? "" : " (" + strMotivo + ")";
        }
        m_intDeMas = std::max(m_intCuantos - intMaximo, 0);
    }
    /// Empty when no file was added.
    [[nodiscard]] std::string fTexto() const
    {
        return m_intCuantos == 0 ? std::string()
               : m_intDeMas == 0 ? m_strTexto
                                 : m_strTexto + "\r\n... y " + std::to_string(m_intDeMas) + " más.";
    }

private:
    std::string m_strTexto;
    int m_intCuantos = 0;
    int m_intDeMas = 0;
};

/// EOVERFLOW when the system has no moment for that date.
clsError fFechaArchivo(const std::string &strRuta, clsFecha fecha, const clsDescriptor &raiz)
{
    const auto lngMomento = fMomento(fecha);
    return lngMomento ? fFechar(strRuta, *lngMomento, raiz) : EOVERFLOW;
}

std::string fAvisoSinNombre(const clsCorregido &fichero)
{
    return fTextoPantalla(fichero.strFilePath) + "\r\nno puede llamarse\r\n" +
           fTextoPantalla(fichero.strFilePathNew) + "\r\n" + fTextoError(fichero.errorNombre);
}

void fCorregirFichero(clsCorregido &fichero, clsFecha fecha, const clsDescriptor &raiz,
                      const clsFalloNombre &fFallo)
{
    // Deliberate: a file whose time cannot be set gets its new name all the same.
    fichero.errorFecha = fFechaArchivo(fichero.strFilePath, fecha, raiz);
    fichero.strFilePathNew = fRutaCorregida(fichero.strFilePath, fecha);
    fichero.errorNombre = fRenombrar(fichero.strFilePath, fichero.strFilePathNew);
    if (fichero.errorNombre) {
        const std::string strAviso = fAvisoSinNombre(fichero);
        fichero.strFilePathNew = fichero.strFilePath;
        if (fFallo) {
            fFallo(strAviso);
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
/// @return the error that ended the records; archivo knows those of its own.
clsError fReescribir(clsRegistros &registros, const clsDestinos &destinos, clsFecha fecha,
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
/// @param strCopia set to that name; empty on an error.
clsError fApartar(const std::string &strCatalogo, std::string &strCopia)
{
    constexpr int intNombres = 86'400; // a day of corrections, one a second
    int intIntentos = 3;               // others may take a free name, but not all of them
    clsFecha fecha = fFechaLocal(fAhora());
    clsError error = EEXIST;
    for (int intNombre = 0; intNombre < intNombres && intIntentos > 0; ++intNombre) {
        strCopia = strCatalogo + '.' + fEscribirFecha(fecha, "yyyyMMddHHmmss");
        ++fecha.lngSegundos;
        if (!fConsultar(strCopia, false)) {
            error = fRenombrar(strCatalogo, strCopia);
            intIntentos = error == EEXIST ? intIntentos - 1 : 0;
        }
    }
    if (error) {
        strCopia.clear();
    }
    return error;
}

/// Replaces the catalogue; the old one stays as a backup. On an error the old one keeps its name.
clsFinCorreccion fCorregirCatalogo(const std::string &strRuta, const clsDestinos &destinos,
                                   clsFecha fecha)
{
    clsFinCorreccion fin{Correccion::SinCatalogo, {}, {}};
    const auto viejo = fAbrirRegular(strRuta, false);
    if (!viejo) {
        fin.error = viejo.fError();
        return fin;
    }
    // Written and flushed before the old one is touched: a full disk is found out here.
    clsReemplazo archivo(strRuta, fConsultar(viejo->descriptor));
    clsRegistros registros(fBytesDe(viejo->descriptor));
    fin.error = fReescribir(registros, destinos, fecha, archivo);
    fin.error = fin.error ? fin.error : archivo.fVolcar();
    fin.error = fin.error ? fin.error : fApartar(strRuta, fin.strCopia);
    if (fin.error) {
        return fin;
    }
    fin.error = archivo.fConfirmar(true);
    if (!fin.error) {
        fin.correccion = Correccion::Hecha;
    } else if (!fRenombrar(fin.strCopia, strRuta)) {
        fin.strCopia.clear();
    }
    return fin;
}

std::string fMotivoSinFecha(clsError error)
{
    return error == EXDEV                          ? "El enlace lleva fuera de la carpeta"
           : error == ERANGE || error == EOVERFLOW ? "El disco no admite esta fecha"
                                                   : fTextoError(error);
}

} // namespace

std::string fRutaCorregida(std::string_view strRuta, clsFecha fecha)
{
    return std::string(fCarpetaDe(strRuta)) + fEscribirFecha(fecha, "yyyyMMdd_") +
           std::string(fNombreDe(strRuta));
}

std::string fAvisoSinFecha(const std::vector<clsCorregido> &lstFicheros)
{
    clsRelacion relacion("No se ha podido poner la fecha a:");
    for (const clsCorregido &fichero : lstFicheros) {
        if (fichero.errorFecha) {
            relacion.fAnadir(fichero.strFilePathNew, fMotivoSinFecha(fichero.errorFecha));
        }
    }
    return relacion.fTexto();
}

clsFinCorreccion fCorregir(const std::string &strRaiz, bool bolEscritura,
                           std::vector<clsCorregido> &lstFicheros, clsFecha fecha,
                           const clsFalloNombre &fFallo, const std::function<void()> &fPaso)
{
    if (!bolEscritura) {
        return {Correccion::SinPermiso, {}, {}};
    }
    const clsCerrojoArchivo cerrojo(strRaiz);
    if (!cerrojo.fTenido()) {
        return {Correccion::Ocupada, {}, {}};
    }
    for (clsCorregido &fichero : lstFicheros) {
        fCorregirFichero(fichero, fecha, cerrojo.fCarpeta(), fFallo);
        if (fPaso) {
            fPaso();
        }
    }
    return fCorregirCatalogo(strRaiz + std::string(strFicheroCatalogo), fDestinos(lstFicheros),
                             fecha);
}
