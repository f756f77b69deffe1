#include "sistema/cambios.h"

#include <array>
#include <cerrno>
#include <sys/stat.h>

namespace {

int fError(int intResultado) { return intResultado == 0 ? 0 : errno; }

/// Whether linking failed because there are no links, not because of this file or name.
bool fSinEnlaces(int intError)
{
    return intError == EPERM || intError == EOPNOTSUPP || intError == ENOSYS || intError == EMLINK;
}

/// For file systems without any call of their own that refuses a taken name.
int fMirarYRenombrar(const char *strDe, const char *strA, const clsDisco &disco)
{
    struct stat datos {};
    if (lstat(strA, &datos) == 0) {
        return EEXIST;
    }
    return errno == ENOENT ? fError(disco.fRenombrar(strDe, strA)) : errno;
}

/// Two steps, but the file has a name at every moment.
int fEnlazarYBorrar(const char *strDe, const char *strA, const clsDisco &disco)
{
    const int intError = fError(disco.fEnlazar(strDe, strA));
    if (fSinEnlaces(intError)) {
        return fMirarYRenombrar(strDe, strA, disco);
    }
    if (intError != 0) {
        return intError;
    }
    const int intBorrado = fError(disco.fBorrar(strDe));
    if (intBorrado != 0) {
        disco.fBorrar(strA); // the name made a moment ago; the old one stands
    }
    return intBorrado;
}

} // namespace

int fFechar(const std::string &strRuta, std::int64_t lngMomento, const clsDisco &disco)
{
    struct stat datos {};
    if (stat(strRuta.c_str(), &datos) != 0) {
        return errno;
    }
    if (!S_ISREG(datos.st_mode)) {
        return S_ISDIR(datos.st_mode) ? EISDIR : EINVAL;
    }
    const std::array<timespec, 2> lstMomentos = {
        {{0, UTIME_OMIT}, {lngMomento, 0}}
    };
    return fError(disco.fFechar(strRuta.c_str(), lstMomentos.data()));
}

int fRenombrar(const std::string &strDe, const std::string &strA, const clsDisco &disco)
{
    struct stat datos {};
    if (lstat(strDe.c_str(), &datos) != 0) {
        return errno;
    }
    if (S_ISDIR(datos.st_mode)) {
        return EISDIR;
    }
    const int intError = fError(disco.fRenombrarLibre(strDe.c_str(), strA.c_str()));
    if (intError != EINVAL && intError != ENOSYS) {
        return intError;
    }
    return fEnlazarYBorrar(strDe.c_str(), strA.c_str(), disco);
}
