#include "corte_desnudo.h"

#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

std::vector<std::string_view> fCortarDesnudo(const std::string &strRuta)
{
    std::vector<std::string_view> lstLineas;
    const int intFd = open(strRuta.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat datos {};
    if (intFd < 0 || fstat(intFd, &datos) != 0 || datos.st_size == 0) {
        return lstLineas;
    }
    const auto lngBytes = static_cast<std::size_t>(datos.st_size);
    void *const pos = mmap(nullptr, lngBytes, PROT_READ, MAP_PRIVATE, intFd, 0);
    close(intFd);
    if (pos == MAP_FAILED) {
        return lstLineas;
    }
    const char *chrDesde = static_cast<const char *>(pos);
    const char *const chrFin = chrDesde + lngBytes;
    const auto fLinea = [&](std::string_view &strLinea) {
        const void *const posSalto =
            std::memchr(chrDesde, '\n', static_cast<std::size_t>(chrFin - chrDesde));
        if (posSalto == nullptr) {
            return false;
        }
        const char *const chrSalto = static_cast<const char *>(posSalto);
        const auto lngLargo = static_cast<std::size_t>(chrSalto - chrDesde);
        const bool bolRetorno = lngLargo > 0 && chrSalto[-1] == '\r';
        strLinea = {chrDesde, bolRetorno ? lngLargo - 1 : lngLargo};
        chrDesde = chrSalto + 1;
        return true;
    };
    std::string_view lstRegistro[3];
    while (fLinea(lstRegistro[0]) && fLinea(lstRegistro[1]) && fLinea(lstRegistro[2])) {
        for (const std::string_view strLinea : lstRegistro) {
            lstLineas.push_back(strLinea);
        }
    }
    return lstLineas;
}
