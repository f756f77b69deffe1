#include "dates/correccion.h"

#include "catalogue/diario.h"
#include "catalogue/registro.h"
#include "dates/catalogo_corregido.h"
#include "shared/errores.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/archivo.h"
#include "sistema/cambios.h"
#include "sistema/carpeta.h"

#include <algorithm>
#include <cerrno>
#include <deque>

namespace {

clsDestinos fDestinos(const std::vector<clsCorregido> &lstFicheros, clsFecha fecha)
{
    clsDestinos destinos;
    destinos.reserve(lstFicheros.size());
    for (const clsCorregido &fichero : lstFicheros) {
        // The first of two equal paths counts: it was the one that could be renamed.
        destinos.emplace(fichero.strFilePath, clsDestino{fichero.strFilePathNew, fecha});
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

/// What a correction has in mind with its files, as far as the catalogue can have them.
std::vector<clsAnotacion> fPlan(const std::string &strRaiz,
                                const std::vector<clsCorregido> &lstFicheros, clsFecha fecha)
{
    std::vector<clsAnotacion> lstAnotaciones;
    for (const clsCorregido &fichero : lstFicheros) {
        const std::string &strRuta = fichero.strFilePath;
        const auto nombre = fConsultar(strRuta, false);
        if (!nombre || !fBajoRaiz(strRuta, strRaiz) ||
            strRuta.find_first_of("\r\n") != std::string::npos) {
            continue;
        }
        const auto archivo = nombre->tipo == TipoArchivo::Enlace ? fConsultar(strRuta) : nombre;
        clsHuella antes = archivo ? archivo->huella : nombre->huella;
        antes.lngBytes = nombre->huella.lngBytes;
        lstAnotaciones.push_back({strRuta.substr(strRaiz.size()),
                                  fichero.strFilePathNew.substr(strRaiz.size()), fecha, antes,
                                  nombre->identidad});
    }
    return lstAnotaciones;
}

/// Makes room for what a correction will write, and writes down what it is about to do, before the
/// first file is touched. No catalogue: there is nothing to be written.
clsError fPreparar(const std::string &strRaiz, std::vector<clsCorregido> lstFicheros,
                   clsFecha fecha, clsCatalogoCorregido &catalogo, const std::string &strCopia)
{
    for (clsCorregido &fichero : lstFicheros) {
        fichero.strFilePathNew = fRutaCorregida(fichero.strFilePath, fecha);
    }
    if (catalogo.fErrorViejo()) {
        return catalogo.fErrorViejo() == ENOENT ? 0 : catalogo.fErrorViejo();
    }
    // As it will be when all goes well.
    clsError error = catalogo.fEscribir(fDestinos(lstFicheros, fecha));
    const std::string strNombre(fNombreDe(strCopia));
    return error ? error
                 : fEscribirDiario(strRaiz, {strNombre, fPlan(strRaiz, lstFicheros, fecha)});
}

/// Puts the catalogue of the corrected files in the place of the old one.
clsFinCorreccion fTerminar(const std::vector<clsCorregido> &lstFicheros, clsFecha fecha,
                           clsCatalogoCorregido &catalogo, std::string strCopia)
{
    clsFinCorreccion fin{Correccion::SinCatalogo, catalogo.fErrorViejo(), {}};
    const bool bolTodos =
        std::none_of(lstFicheros.begin(), lstFicheros.end(),
                     [](const clsCorregido &fichero) { return bool(fichero.errorNombre); });
    if (!fin.error && !bolTodos) {
        fin.error = catalogo.fEscribir(fDestinos(lstFicheros, fecha));
    }
    if (!fin.error) {
        fin.strCopia = std::move(strCopia);
        fin.error = catalogo.fPublicar(fin.strCopia);
    }
    fin.correccion = fin.error ? Correccion::SinCatalogo : Correccion::Hecha;
    return fin;
}

/// What the records of the files of a killed correction should get, by what became of the files.
clsDestinos fHallados(const std::string &strRaiz, const clsDiario &diario,
                      std::deque<std::string> &lstRutas)
{
    clsDestinos destinos;
    const auto fRuta = [&](const std::string &strRelativa) -> std::string_view {
        return lstRutas.emplace_back(strRaiz + strRelativa);
    };
    for (const clsAnotacion &anotacion : diario.lstAnotaciones) {
        const std::string_view strDe = fRuta(anotacion.strDe);
        if (fRenombrado(strRaiz, anotacion)) {
            destinos.emplace(strDe, clsDestino{fRuta(anotacion.strA), anotacion.fecha});
        } else if (const auto huella = fHuella(std::string(strDe));
                   huella && huella->lngSegundos == fMomento(anotacion.fecha)) {
            destinos.emplace(strDe, clsDestino{strDe, anotacion.fecha}); // killed between the two
        }
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

/// Finishes the catalogue of a correction that was killed, while the root's lock is held.
clsError fReanudar(const std::string &strRaiz)
{
    auto diario = fLeerDiario(strRaiz);
    if (!diario) {
        return {};
    }
    const std::string strCatalogo = strRaiz + std::string(strFicheroCatalogo);
    // Killed between two renames, the catalogue has the name of its backup only.
    const bool bolFalta = fConsultar(strCatalogo, false).fError() == ENOENT;
    std::string strCopia = strRaiz + diario->strCopia;
    clsCatalogoCorregido catalogo(strCatalogo, bolFalta ? strCopia : strCatalogo);
    std::deque<std::string> lstRutas;
    clsError error = catalogo.fErrorViejo();
    error = error ? error : catalogo.fEscribir(fHallados(strRaiz, *diario, lstRutas));
    if (!error && (bolFalta || catalogo.fCambia())) {
        error = bolFalta ? clsError() : fAsegurarCopia(strRaiz, *diario);
        strCopia = bolFalta ? std::string() : strRaiz + diario->strCopia;
        error = error ? error : catalogo.fPublicar(strCopia);
    }
    // Without any catalogue, the next one is built anew.
    if (!error || error == ENOENT) {
        fBorrarDiario(strRaiz);
        return {};
    }
    return error;
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
    const std::string strCatalogo = strRaiz + std::string(strFicheroCatalogo);
    if (const clsError error = fReanudar(strRaiz)) { // its journal would be lost
        return {Correccion::Imposible, error, {}};
    }
    const std::string strCopia = fCopiaLibre(strCatalogo);
    clsCatalogoCorregido catalogo(strCatalogo, strCatalogo);
    if (const clsError error = fPreparar(strRaiz, lstFicheros, fecha, catalogo, strCopia)) {
        fBorrarDiario(strRaiz);
        return {Correccion::Imposible, error, {}};
    }
    for (clsCorregido &fichero : lstFicheros) {
        fCorregirFichero(fichero, fecha, cerrojo.fCarpeta(), fFallo);
        if (fPaso) {
            fPaso();
        }
    }
    clsFinCorreccion fin = fTerminar(lstFicheros, fecha, catalogo, strCopia);
    if (!fin.error) {
        fBorrarDiario(strRaiz);
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

std::string fMotivoSinCatalogo(const clsFinCorreccion &fin,
                               const std::vector<clsCorregido> &lstFicheros)
{
    if (fin.correccion == Correccion::Imposible) {
        return fTextoError(fin.error) + "\r\nNo se ha cambiado ningún fichero.";
    }
    if (fin.correccion != Correccion::SinCatalogo) {
        return {};
    }
    clsRelacion relacion("\r\nYa tienen su nombre nuevo:");
    for (const clsCorregido &fichero : lstFicheros) {
        if (!fichero.errorNombre) {
            relacion.fAnadir(fichero.strFilePathNew);
        }
    }
    return fTextoError(fin.error) + relacion.fTexto();
}
