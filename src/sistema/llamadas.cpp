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
    [](const char *strRuta, const timespec *lstMomentos) {
        return utimensat(AT_FDCWD, strRuta, lstMomentos, 0);
    },
    futimens,
    rename,
    [](const char *strDe, const char *strA) {
        return renameat2(AT_FDCWD, strDe, AT_FDCWD, strA, RENAME_NOREPLACE);
    },
    [](const char *strDe, const char *strA) { return linkat(AT_FDCWD, strDe, AT_FDCWD, strA, 0); },
    unlinkat,
    mkdir,
    flock,
    syncfs,
    [] { return std::time(nullptr); },
};
