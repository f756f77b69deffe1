#include "sistema/llamadas.h"

#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

constinit const clsLlamadas llamadasReales = {
    [](int intCarpeta, const char *strRuta, int intModo, mode_t modo) {
        return openat(intCarpeta, strRuta, intModo, modo);
    },
    close,
    read,
    pread,
    write,
    lseek,
    fsync,
    ftruncate,
    [](int intDe, int intA) { return ioctl(intA, FICLONE, intDe); },
    [](int intDe, int intA, std::size_t lngBytes) {
        return copy_file_range(intDe, nullptr, intA, nullptr, lngBytes, 0);
    },
    getdents64,
    readlink,
    fstatat,
    fchmod,
    [](int intFd, gid_t grupo) { return fchown(intFd, static_cast<uid_t>(-1), grupo); },
    utimensat,
    futimens,
    [](int intCarpeta, const char *strDe, const char *strA) {
        return renameat(intCarpeta, strDe, intCarpeta, strA);
    },
    [](int intCarpeta, const char *strDe, const char *strA) {
        return renameat2(intCarpeta, strDe, intCarpeta, strA, RENAME_NOREPLACE);
    },
    [](int intCarpeta, const char *strDe, const char *strA) {
        return linkat(intCarpeta, strDe, intCarpeta, strA, 0);
    },
    unlinkat,
    mkdir,
    flock,
    syncfs,
    [] { return std::time(nullptr); },
};
