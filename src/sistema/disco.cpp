#include "sistema/disco.h"

#include <cstdio>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

constinit const clsDisco discoReal = {
    [](const char *strRuta, int intModo, mode_t modo) { return open(strRuta, intModo, modo); },
    [](int intFd, const void *bytDatos, std::size_t lngBytes) {
        return write(intFd, bytDatos, lngBytes);
    },
    [](int intFd) { return fsync(intFd); },
    [](const char *strRuta, const timespec *lstMomentos) {
        return utimensat(AT_FDCWD, strRuta, lstMomentos, 0);
    },
    [](const char *strDe, const char *strA) { return rename(strDe, strA); },
    [](const char *strDe, const char *strA) {
        return renameat2(AT_FDCWD, strDe, AT_FDCWD, strA, RENAME_NOREPLACE);
    },
    [](const char *strDe, const char *strA) { return linkat(AT_FDCWD, strDe, AT_FDCWD, strA, 0); },
    [](const char *strRuta) { return unlink(strRuta); },
    [] { return time(nullptr); },
    [](int intFd, void *bytDatos, std::size_t lngBytes) { return read(intFd, bytDatos, lngBytes); },
    [](int intDe, int intA, std::size_t lngBytes) {
        return copy_file_range(intDe, nullptr, intA, nullptr, lngBytes, 0);
    },
    [](int intDe, int intA) { return ioctl(intA, FICLONE, intDe); },
    [](int intFd, off_t lngBytes) { return ftruncate(intFd, lngBytes); },
    [](int intFd, mode_t modo) { return fchmod(intFd, modo); },
    [](int intFd, const timespec *lstMomentos) { return futimens(intFd, lstMomentos); },
    [](int intFd) { return close(intFd); },
};
