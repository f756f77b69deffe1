#include "sistema/cambios.h"

#include "sistema/llamadas.h"

#include <array>
#include <climits>
#include <fcntl.h>

namespace {

clsError fErrorDe(int intResultado) { return intResultado == 0 ? 0 : errno; }

/// Whether linking failed because there are no links, not because of this file or name.
bool fSinEnlaces(clsError error)
{
    return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK;
}

/// Whether deleting was refused, not begun.
bool fRechazo(clsError error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

/// Whether a name is one of this file, as it was before its names were changed.
bool fEsSuyo(const clsDatosArchivo &archivo, const clsResultado<clsDatosArchivo> &datos)
{
    return datos && datos->identidad == archivo.identidad && datos->huella == archivo.huella;
}

bool fEsSuyo(const clsDatosArchivo &archivo, const std::string &strRuta)
{
    return fEsSuyo(archivo, fConsultar(strRuta, false));
}

/// Whether a file has moved although the call failed: a server that is asked again, because its
/// answer was lost, refuses what it has done the first time.
bool fMovido(const clsDatosArchivo &archivo, const std::string &strDe, const std::string &strA)
{
    const auto viejo = fConsultar(strDe, false);
    return !viejo && viejo.fError() == ENOENT && fEsSuyo(archivo, strA);
}

/// Takes the old name from a file that has got the new one. On an error it keeps one of them or
/// both.
clsError fSoltar(const clsDatosArchivo &archivo, const std::string &strDe, const std::string &strA)
{
    const clsError error = fBorrar(strDe);
    if (!error || !fEsSuyo(archivo, strDe) || !fEsSuyo(archivo, strA)) {
        return error;
    }
    // Only what was refused can be undone: anything else may be done yet, when the other name would
    // be the only one.
    return fRechazo(error) ? (fBorrar(strA), error) : fBorrar(strDe);
}

/// For file systems without a call of their own that refuses a taken name: a link to the file, then
/// its old name goes, so that it has one at every moment. Without links, looking has to do.
clsError fMirarYRenombrar(const clsDatosArchivo &archivo, const std::string &strDe,
                          const std::string &strA)
{
    const auto antes = fConsultar(strA, false);
    if (antes || antes.fError() != ENOENT) {
        return antes ? EEXIST : antes.fError();
    }
    const clsError error = fErrorDe(fLlamadas().fEnlazar(strDe.c_str(), strA.c_str()));
    const auto despues = error ? fConsultar(strA, false) : clsError();
    // A name that the file had before, and that was not seen, is none more than there were.
    if (!error || (fEsSuyo(archivo, despues) && despues->lngNombres > archivo.lngNombres)) {
        return fSoltar(archivo, strDe, strA);
    }
    if (!fSinEnlaces(error) || despues) {
        return despues ? EEXIST : error;
    }
    return fErrorDe(fLlamadas().fRenombrar(strDe.c_str(), strA.c_str()));
}

/// A path to what is open, which needs no right to read it.
std::string fRutaAbierto(const clsDescriptor &abierto)
{
    return "/proc/self/fd/" + std::to_string(abierto.fFd());
}

/// Where what is open lies now.
clsResultado<std::string> fLugar(const clsDescriptor &abierto)
{
    std::string strLugar(PATH_MAX, '\0'); // the system tells no longer ones
    const ssize_t lngLargo = fInsistir<&clsLlamadas::fLeerEnlace>(fRutaAbierto(abierto).c_str(),
                                                                  strLugar.data(), strLugar.size());
    if (lngLargo < 0) {
        return clsError(errno);
    }
    strLugar.resize(static_cast<std::size_t>(lngLargo));
    return strLugar;
}

/// EXDEV when what is open does not lie below an open folder.
clsError fEstaEn(const clsDescriptor &abierto, const clsDescriptor &carpeta)
{
    const auto strLugar = fLugar(abierto);
    const auto strCarpeta = fLugar(carpeta);
    if (!strLugar || !strCarpeta) {
        return strLugar ? strCarpeta.fError() : strLugar.fError();
    }
    const bool bolBarra = strCarpeta->ends_with('/'); // of the file system's own root
    return strLugar->starts_with(*strCarpeta + (bolBarra ? "" : "/")) ? 0 : EXDEV;
}

clsError fPonerFecha(const clsDescriptor &abierto, std::int64_t lngMomento, long lngNanosegundos)
{
    constexpr std::int64_t lngHolgura = 2; // FAT has even seconds only
    const std::array<timespec, 2> lstMomentos = {
        {{0, UTIME_OMIT}, {lngMomento, lngNanosegundos}}
    };
    const clsError error = fErrorDe(
        fInsistir<&clsLlamadas::fFechar>(fRutaAbierto(abierto).c_str(), lstMomentos.data()));
    const auto datos = error ? clsError() : fConsultar(abierto);
    const std::int64_t lngPuesto = datos ? datos->huella.lngSegundos : lngMomento;
    const bool bolCerca =
        lngPuesto >= lngMomento - lngHolgura && lngPuesto <= lngMomento + lngHolgura;
    return bolCerca ? error : ERANGE;
}

} // namespace

clsError fFechar(const std::string &strRuta, std::int64_t lngMomento, const clsDescriptor &raiz,
                 long lngNanosegundos)
{
    // What is looked at is what is changed, whatever becomes of its names meanwhile.
    const clsDescriptor archivo{
        fInsistir<&clsLlamadas::fAbrir>(AT_FDCWD, strRuta.c_str(), O_PATH | O_CLOEXEC, mode_t{})};
    if (!archivo.fAbierto()) {
        return errno;
    }
    const auto huella = fConsultar(archivo);
    if (!huella || huella->tipo != TipoArchivo::Archivo) {
        return !huella ? huella.fError() : huella->tipo == TipoArchivo::Carpeta ? EISDIR : EINVAL;
    }
    const clsError error = fEstaEn(archivo, raiz);
    return error ? error : fPonerFecha(archivo, lngMomento, lngNanosegundos);
}

clsError fRenombrar(const std::string &strDe, const std::string &strA)
{
    const auto datos = fConsultar(strDe, false);
    if (!datos || datos->tipo == TipoArchivo::Carpeta) {
        return datos ? EISDIR : datos.fError();
    }
    clsError error = fErrorDe(fLlamadas().fRenombrarLibre(strDe.c_str(), strA.c_str()));
    if (error == EINVAL || error == ENOSYS) {
        error = fMirarYRenombrar(*datos, strDe, strA);
    }
    return error && fMovido(*datos, strDe, strA) ? clsError() : error;
}

clsError fSoltarNombre(const std::string &strRuta, const std::string &strOtro)
{
    const auto datos = fConsultar(strRuta, false);
    if (!datos || datos->tipo == TipoArchivo::Carpeta) {
        return datos ? EISDIR : datos.fError();
    }
    return datos->lngNombres > 1 && fEsSuyo(*datos, strOtro) ? fBorrar(strRuta) : EEXIST;
}

clsError fSustituir(const std::string &strDe, const std::string &strA)
{
    const auto datos = fConsultar(strDe, false);
    const clsError error = fErrorDe(fLlamadas().fRenombrar(strDe.c_str(), strA.c_str()));
    return error && datos && fMovido(*datos, strDe, strA) ? clsError() : error;
}
