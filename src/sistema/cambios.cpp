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

/// For file systems without any call of their own that refuses a taken name.
clsError fMirarYRenombrar(const std::string &strDe, const std::string &strA)
{
    const auto hay = fConsultar(strA, false);
    if (hay || hay.fError() != ENOENT) {
        return hay ? EEXIST : hay.fError();
    }
    return fErrorDe(fLlamadas().fRenombrar(strDe.c_str(), strA.c_str()));
}

/// Two steps, but the file has a name at every moment.
clsError fEnlazarYBorrar(const std::string &strDe, const std::string &strA)
{
    const clsError error = fErrorDe(fLlamadas().fEnlazar(strDe.c_str(), strA.c_str()));
    if (fSinEnlaces(error)) {
        return fMirarYRenombrar(strDe, strA);
    }
    if (error) {
        return error;
    }
    const clsError borrado = fBorrar(strDe);
    if (borrado) {
        fBorrar(strA); // the name made a moment ago; the old one stands
    }
    return borrado;
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
    const clsError error = fErrorDe(fLlamadas().fRenombrarLibre(strDe.c_str(), strA.c_str()));
    return error == EINVAL || error == ENOSYS ? fEnlazarYBorrar(strDe, strA) : error;
}
