// A disk that stops answering: in a program that preloads this, calls that name something below the
// folder DISCO wait as long as the file PARADO exists, which is no longer empty then.
#undef _FORTIFY_SOURCE // has definitions of its own for these calls
#include <array>
#include <cstdarg>
#include <cstdlib>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool fEnElDisco(int intCarpeta, const std::string &strRuta)
{
    const char *const strDisco = std::getenv("DISCO");
    std::string strEntera = strRuta;
    if (intCarpeta != AT_FDCWD && !strRuta.starts_with('/')) {
        std::array<char, 4096> chrCarpeta{};
        const std::string strEnlace = "/proc/self/fd/" + std::to_string(intCarpeta);
        if (readlink(strEnlace.c_str(), chrCarpeta.data(), chrCarpeta.size() - 1) > 0) {
            strEntera = std::string(chrCarpeta.data()) + '/' + strRuta;
        }
    }
    return strDisco != nullptr && strEntera.starts_with(strDisco);
}

/// The system's own call, once the disk answers.
template <typename Llamada>
Llamada *fReal(const char *strNombre, int intCarpeta, const char *strRuta)
{
    const char *const strParado = std::getenv("PARADO");
    const bool bolEspera = strParado != nullptr && strRuta != nullptr &&
                           access(strParado, F_OK) == 0 && fEnElDisco(intCarpeta, strRuta);
    if (bolEspera && truncate(strParado, 1) != 0) { // tells that somebody waits
        _exit(1);
    }
    while (bolEspera && access(strParado, F_OK) == 0) {
        usleep(10'000);
    }
    return reinterpret_cast<Llamada *>(dlsym(RTLD_NEXT, strNombre));
}

} // namespace

extern "C" {

int openat64(int intCarpeta, const char *strRuta, int intModo, ...)
{
    va_list lstResto;
    va_start(lstResto, intModo);
    const auto modo = va_arg(lstResto, mode_t);
    va_end(lstResto);
    return fReal<decltype(openat64)>("openat64", intCarpeta, strRuta)(intCarpeta, strRuta, intModo,
                                                                      modo);
}

int open64(const char *strRuta, int intModo, ...)
{
    va_list lstResto;
    va_start(lstResto, intModo);
    const auto modo = va_arg(lstResto, mode_t);
    va_end(lstResto);
    return fReal<decltype(open64)>("open64", AT_FDCWD, strRuta)(strRuta, intModo, modo);
}

int fstatat64(int intCarpeta, const char *strRuta, struct stat64 *datos, int intModo)
{
    return fReal<decltype(fstatat64)>("fstatat64", intCarpeta, strRuta)(intCarpeta, strRuta, datos,
                                                                        intModo);
}

int stat64(const char *strRuta, struct stat64 *datos)
{
    return fReal<decltype(stat64)>("stat64", AT_FDCWD, strRuta)(strRuta, datos);
}

int statx(int intCarpeta, const char *strRuta, int intModo, unsigned intMascara,
          struct statx *datos)
{
    return fReal<decltype(statx)>("statx", intCarpeta, strRuta)(intCarpeta, strRuta, intModo,
                                                                intMascara, datos);
}
}
