#pragma once

#include <cstddef>
#include <ctime>
#include <sys/types.h>

/// The system calls by which this program copies and changes files, and the clock. Each behaves as
/// the call itself does, errno included. A table, so that tests can make one fail or die at it.
struct clsDisco {
    int (*fAbrir)(const char *strRuta, int intModo, mode_t modo);
    ssize_t (*fEscribir)(int intFd, const void *bytDatos, std::size_t lngBytes);
    int (*fVolcar)(int intFd);                                        ///< fsync
    int (*fFechar)(const char *strRuta, const timespec *lstMomentos); ///< utimensat, links followed
    int (*fRenombrar)(const char *strDe, const char *strA);           ///< rename: replaces silently
    int (*fRenombrarLibre)(const char *strDe, const char *strA);      ///< renameat2, never replaces
    int (*fEnlazar)(const char *strDe, const char *strA); ///< linkat, links not followed
    int (*fBorrar)(const char *strRuta);                  ///< unlink
    std::time_t (*fAhora)();
    ssize_t (*fLeer)(int intFd, void *bytDatos, std::size_t lngBytes);
    ssize_t (*fTrasladar)(int intDe, int intA, std::size_t lngBytes); ///< copy_file_range
    int (*fClonar)(int intDe, int intA);                              ///< FICLONE: the whole file
    int (*fAlargar)(int intFd, off_t lngBytes);                       ///< ftruncate
    int (*fPermitir)(int intFd, mode_t modo);                         ///< fchmod
    int (*fFecharAbierto)(int intFd, const timespec *lstMomentos);    ///< futimens
    int (*fCerrar)(int intFd);                                        ///< close
};

/// The real ones.
extern const clsDisco discoReal;
