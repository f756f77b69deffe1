#include "sistema/cambios.h"

#include "sistema/archivo.h"
#include "sistema/llamadas.h"

#include <array>
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

} // namespace

clsError fFechar(const std::string &strRuta, std::int64_t lngMomento)
{
    const auto huella = fConsultar(strRuta);
    if (!huella || huella->tipo != TipoArchivo::Archivo) {
        return !huella ? huella.fError() : huella->tipo == TipoArchivo::Carpeta ? EISDIR : EINVAL;
    }
    const std::array<timespec, 2> lstMomentos = {
        {{0, UTIME_OMIT}, {lngMomento, 0}}
    };
    return fErrorDe(fInsistir<&clsLlamadas::fFechar>(strRuta.c_str(), lstMomentos.data()));
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

clsError fSustituir(const std::string &strDe, const std::string &strA)
{
    const auto datos = fConsultar(strDe, false);
    const clsError error = fErrorDe(fLlamadas().fRenombrar(strDe.c_str(), strA.c_str()));
    return error && datos && fMovido(*datos, strDe, strA) ? clsError() : error;
}
