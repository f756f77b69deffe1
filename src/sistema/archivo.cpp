#include "sistema/archivo.h"

#include "sistema/llamadas.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace {

TipoArchivo fTipoDe(mode_t modo)
{
    return S_ISREG(modo)   ? TipoArchivo::Archivo
           : S_ISDIR(modo) ? TipoArchivo::Carpeta
           : S_ISLNK(modo) ? TipoArchivo::Enlace
                           : TipoArchivo::Otro;
}

clsResultado<clsDatosArchivo> fConsultarDesde(int intCarpeta, const std::string &strRuta,
                                              int intModo)
{
    struct stat datos {};
    if (fInsistir<&clsLlamadas::fConsultar>(intCarpeta, strRuta.c_str(), &datos, intModo) != 0) {
        return clsError(errno);
    }
    constexpr std::int64_t lngBloque = 512; // the unit of st_blocks, whatever the file system
    return clsDatosArchivo{
        fTipoDe(datos.st_mode),
        {datos.st_size, datos.st_mtim.tv_sec, datos.st_mtim.tv_nsec},
        {datos.st_dev,             datos.st_ino                     },
        datos.st_mode & 07777U,
        datos.st_uid,
        datos.st_gid,
        datos.st_blocks * lngBloque,
        datos.st_nlink
    };
}

int fModo(bool bolSeguir) { return bolSeguir ? 0 : AT_SYMLINK_NOFOLLOW; }

/// As a value or an error what a call gave that counts bytes.
clsResultado<std::size_t> fCuenta(ssize_t lngBytes)
{
    if (lngBytes < 0) {
        return clsError(errno);
    }
    return static_cast<std::size_t>(lngBytes);
}

/// Opens a file that was not there for writing; else errno tells why not.
clsDescriptor fCrearNuevo(const std::string &strRuta)
{
    constexpr int intModo = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    return clsDescriptor{
        fInsistir<&clsLlamadas::fAbrir>(AT_FDCWD, strRuta.c_str(), intModo, mode_t{0666})};
}

} // namespace

clsError clsDescriptor::fCerrar()
{
    const int intFd = std::exchange(m_intFd, -1);
    return intFd >= 0 && fLlamadas().fCerrar(intFd) != 0 ? errno : 0;
}

clsResultado<clsDatosArchivo> fConsultar(const std::string &strRuta, bool bolSeguir)
{
    return fConsultarDesde(AT_FDCWD, strRuta, fModo(bolSeguir));
}

clsResultado<clsDatosArchivo> fConsultar(const clsDescriptor &abierto)
{
    return fConsultarDesde(abierto.fFd(), "", AT_EMPTY_PATH);
}

clsResultado<clsDatosArchivo> fConsultarEn(const clsDescriptor &carpeta,
                                           const std::string &strNombre, bool bolSeguir)
{
    return fConsultarDesde(carpeta.fFd(), strNombre, fModo(bolSeguir));
}

clsResultado<clsHuella> fHuella(const std::string &strRuta, bool bolSeguir)
{
    const auto datos = fConsultar(strRuta, bolSeguir);
    if (!datos || datos->tipo != TipoArchivo::Archivo) {
        return datos ? clsError(EINVAL) : datos.fError();
    }
    return datos->huella;
}

bool fExisteArchivo(const std::string &strRuta) { return fHuella(strRuta).has_value(); }

bool fExisteCarpeta(const std::string &strRuta)
{
    const auto datos = fConsultar(strRuta);
    return datos && datos->tipo == TipoArchivo::Carpeta;
}

bool fEjecutable(const std::string &strRuta) { return access(strRuta.c_str(), X_OK) == 0; }

std::string fRutaReal(const std::string &strRuta)
{
    const std::unique_ptr<char, void (*)(void *)> strReal(realpath(strRuta.c_str(), nullptr),
                                                          std::free);
    return strReal ? strReal.get() : std::string();
}

clsResultado<clsAbierto> fAbrirRegular(const std::string &strRuta, bool bolSeguir)
{
    const int intModo = O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY | (bolSeguir ? 0 : O_NOFOLLOW);
    clsDescriptor archivo{
        fInsistir<&clsLlamadas::fAbrir>(AT_FDCWD, strRuta.c_str(), intModo, mode_t{})};
    if (!archivo.fAbierto()) {
        return clsError(!bolSeguir && errno == ELOOP ? ENOENT : errno);
    }
    const auto datos = fConsultar(archivo);
    if (!datos) {
        return datos.fError();
    }
    if (datos->tipo != TipoArchivo::Archivo) {
        return clsError(datos->tipo == TipoArchivo::Carpeta ? EISDIR : EINVAL);
    }
    return clsAbierto{std::move(archivo), datos->huella};
}

clsResultado<std::size_t> fLeer(const clsDescriptor &abierto, void *bytDatos, std::size_t lngBytes)
{
    return fCuenta(fInsistir<&clsLlamadas::fLeer>(abierto.fFd(), bytDatos, lngBytes));
}

clsResultado<std::size_t> fLeerEn(const clsDescriptor &abierto, std::int64_t lngPos, void *bytDatos,
                                  std::size_t lngBytes)
{
    return fCuenta(
        fInsistir<&clsLlamadas::fLeerEn>(abierto.fFd(), bytDatos, lngBytes, off_t{lngPos}));
}

void fAnunciarLectura(const clsDescriptor &abierto)
{
    static_cast<void>(posix_fadvise(abierto.fFd(), 0, 0, POSIX_FADV_SEQUENTIAL));
}

clsResultado<std::string> fLeerArchivo(const std::string &strRuta)
{
    const auto archivo = fAbrirRegular(strRuta);
    return archivo ? fLeerArchivo(*archivo) : archivo.fError();
}

clsResultado<std::string> fLeerArchivo(const clsAbierto &archivo)
{
    // None that is read as a whole is longer; a damaged one may claim any length.
    constexpr std::size_t lngMaximo = std::size_t{1} << 20;
    // One byte more than the size, so that the last read sees the end without another call.
    std::string strBytes(
        std::min<std::size_t>(static_cast<std::size_t>(archivo.huella.lngBytes), lngMaximo) + 1,
        '\0');
    std::size_t lngLeidos = 0;
    while (lngLeidos <= lngMaximo) {
        if (lngLeidos == strBytes.size()) {
            strBytes.resize(lngMaximo + 1);
        }
        const auto lngTrozo =
            fLeer(archivo.descriptor, strBytes.data() + lngLeidos, strBytes.size() - lngLeidos);
        if (!lngTrozo) {
            return lngTrozo.fError();
        }
        if (*lngTrozo == 0) {
            strBytes.resize(lngLeidos);
            return strBytes;
        }
        lngLeidos += *lngTrozo;
    }
    return clsError(EFBIG);
}

clsError fEscribirTodo(const clsDescriptor &abierto, std::string_view strBytes)
{
    while (!strBytes.empty()) {
        const ssize_t lngEscritos = fInsistir<&clsLlamadas::fEscribir>(
            abierto.fFd(), static_cast<const void *>(strBytes.data()), strBytes.size());
        if (lngEscritos <= 0) {
            return lngEscritos == 0 ? EIO : errno;
        }
        strBytes.remove_prefix(static_cast<std::size_t>(lngEscritos));
    }
    return {};
}

clsError fCrearVacio(const std::string &strRuta)
{
    clsDescriptor archivo = fCrearNuevo(strRuta);
    return archivo.fAbierto() ? archivo.fCerrar() : errno;
}

clsError fProbarCrear(const std::string &strRuta)
{
    clsDescriptor prueba = fCrearNuevo(strRuta);
    if (!prueba.fAbierto()) {
        return errno;
    }
    const clsError error = prueba.fCerrar();
    fBorrar(strRuta);
    return error;
}

clsError fBorrar(const std::string &strRuta)
{
    return fLlamadas().fBorrar(AT_FDCWD, strRuta.c_str(), 0) == 0 ? 0 : errno;
}
