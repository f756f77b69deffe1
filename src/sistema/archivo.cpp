#include "sistema/archivo.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

clsHuella fHuellaDe(const struct stat &datos)
{
    return {datos.st_size, datos.st_mtim.tv_sec, datos.st_mtim.tv_nsec};
}

} // namespace

clsDescriptor::~clsDescriptor() { fCerrar(); }

int clsDescriptor::fCerrar()
{
    const int intFd = std::exchange(m_intFd, -1);
    return intFd >= 0 && close(intFd) != 0 ? errno : 0;
}

clsDescriptor fAbrirRegular(const std::string &strRuta, int &intError, clsHuella *huella)
{
    clsDescriptor archivo{open(strRuta.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)};
    struct stat datos {};
    if (!archivo.fAbierto() || fstat(archivo.fFd(), &datos) != 0) {
        intError = errno;
        return {};
    }
    if (!S_ISREG(datos.st_mode)) {
        intError = S_ISDIR(datos.st_mode) ? EISDIR : EINVAL;
        return {};
    }
    if (huella != nullptr) {
        *huella = fHuellaDe(datos);
    }
    return archivo;
}

std::optional<clsHuella> fHuella(const std::string &strRuta, int *intError)
{
    struct stat datos {};
    const int intFallo = stat(strRuta.c_str(), &datos) != 0 ? errno : EINVAL;
    if (intFallo == EINVAL && S_ISREG(datos.st_mode)) {
        return fHuellaDe(datos);
    }
    if (intError != nullptr) {
        *intError = intFallo;
    }
    return {};
}

bool fExisteArchivo(const std::string &strRuta) { return fHuella(strRuta).has_value(); }

bool fExisteCarpeta(const std::string &strRuta)
{
    struct stat datos {};
    return stat(strRuta.c_str(), &datos) == 0 && S_ISDIR(datos.st_mode);
}

std::optional<std::string> fLeerArchivo(const std::string &strRuta, int &intError)
{
    clsHuella huella;
    const clsDescriptor archivo = fAbrirRegular(strRuta, intError, &huella);
    if (!archivo.fAbierto()) {
        return {};
    }
    // One byte more than the size, so that the last read sees the end without another call.
    std::string strBytes(static_cast<std::size_t>(huella.lngBytes) + 1, '\0');
    std::size_t lngLeidos = 0;
    while (true) {
        if (lngLeidos == strBytes.size()) {
            strBytes.resize(strBytes.size() * 2);
        }
        const ssize_t lngTrozo =
            read(archivo.fFd(), strBytes.data() + lngLeidos, strBytes.size() - lngLeidos);
        if (lngTrozo < 0 && errno == EINTR) {
            continue;
        }
        if (lngTrozo < 0) {
            intError = errno;
            return {};
        }
        if (lngTrozo == 0) {
            break;
        }
        lngLeidos += static_cast<std::size_t>(lngTrozo);
    }
    strBytes.resize(lngLeidos);
    return strBytes;
}

int fEscribirTodo(int intFd, std::string_view strBytes, const clsDisco &disco)
{
    while (!strBytes.empty()) {
        const ssize_t lngEscritos = disco.fEscribir(intFd, strBytes.data(), strBytes.size());
        if (lngEscritos <= 0 && (lngEscritos == 0 || errno != EINTR)) {
            return lngEscritos == 0 ? EIO : errno;
        }
        strBytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(lngEscritos, 0)));
    }
    return 0;
}
