#pragma once

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <ctime>
#include <sys/stat.h>
#include <sys/types.h>

/// The calls by which this program reads and changes files and folders, and the clock. Each behaves
/// as the call itself does, errno included. A table, so that tests can make any of them fail, or
/// die at it. Only the files of this folder and tests know it.
struct clsLlamadas {
    int (*fAbrir)(int intCarpeta, const char *strRuta, int intModo, mode_t modo); ///< openat
    int (*fCerrar)(int intFd);
    ssize_t (*fLeer)(int intFd, void *bytDatos, std::size_t lngBytes);
    ssize_t (*fLeerEn)(int intFd, void *bytDatos, std::size_t lngBytes, off_t lngPos); ///< pread
    ssize_t (*fEscribir)(int intFd, const void *bytDatos, std::size_t lngBytes);
    off_t (*fIr)(int intFd, off_t lngPos, int intDesde);              ///< lseek
    int (*fVolcar)(int intFd);                                        ///< fsync
    int (*fAlargar)(int intFd, off_t lngBytes);                       ///< ftruncate
    int (*fClonar)(int intDe, int intA);                              ///< FICLONE: the whole file
    ssize_t (*fTrasladar)(int intDe, int intA, std::size_t lngBytes); ///< copy_file_range
    ssize_t (*fListar)(int intFd, void *bytDatos, std::size_t lngBytes); ///< getdents64
    ssize_t (*fLeerEnlace)(const char *strRuta, char *strDestino, std::size_t lngBytes);
    int (*fConsultar)(int intCarpeta, const char *strRuta, struct stat *datos, int intModo);
    int (*fPermitir)(int intFd, mode_t modo); ///< fchmod
    int (*fAgrupar)(int intFd, gid_t grupo);  ///< fchown, group only
    int (*fFechar)(int intCarpeta, const char *strRuta, const timespec *lstMomentos,
                   int intModo);                                   ///< utimensat
    int (*fFecharAbierto)(int intFd, const timespec *lstMomentos); ///< futimens
    // Both names in one folder: renameat, which replaces silently; renameat2, which never does;
    // linkat, links not followed.
    int (*fRenombrar)(int intCarpeta, const char *strDe, const char *strA);
    int (*fRenombrarLibre)(int intCarpeta, const char *strDe, const char *strA);
    int (*fEnlazar)(int intCarpeta, const char *strDe, const char *strA);
    int (*fBorrar)(int intCarpeta, const char *strRuta, int intModo); ///< unlinkat
    int (*fCrearCarpeta)(const char *strRuta, mode_t modo);
    int (*fBloquear)(int intFd, int intModo); ///< flock
    int (*fVolcarSistema)(int intFd);         ///< syncfs
    std::time_t (*fAhora)();
};

/// The real ones.
extern const clsLlamadas llamadasReales;

/// The ones that are made.
inline constinit std::atomic<const clsLlamadas *> llamadasEnUso{&llamadasReales};
[[nodiscard]] inline const clsLlamadas &fLlamadas() { return *llamadasEnUso.load(); }

/// Makes a call again as long as a signal interrupts it. Not for closing, which happens even then,
/// and not for changing names: what was done already would be refused the second time.
template <auto fLlamada, typename... Argumentos> auto fInsistir(Argumentos... argumentos)
{
    auto lngResultado = (fLlamadas().*fLlamada)(argumentos...);
    while (lngResultado < 0 && errno == EINTR) {
        lngResultado = (fLlamadas().*fLlamada)(argumentos...);
    }
    return lngResultado;
}
