#include "fechas_desnudas.h"

#include <cstddef>
#include <fcntl.h>
#include <unistd.h>

namespace {

struct clsTrozo {
    unsigned char lstBytes[4096];
    std::size_t lngHay;
    std::size_t lngTiff;
    bool bolMM;

    [[nodiscard]] unsigned fNumero(std::size_t lngPos, unsigned intBytes) const
    {
        unsigned intValor = 0;
        for (unsigned intCual = 0; intCual < intBytes && lngPos + intBytes <= lngHay; ++intCual) {
            intValor =
                intValor << 8 | lstBytes[lngPos + (bolMM ? intCual : intBytes - 1 - intCual)];
        }
        return intValor;
    }

    void fIfd(std::size_t lngIfd, clsFechasDesnudas &fechas) const
    {
        const std::size_t lngEntradas = fNumero(lngTiff + lngIfd, 2);
        for (std::size_t lng = 0; lng < lngEntradas; ++lng) {
            const std::size_t lngPos = lngTiff + lngIfd + 2 + lng * 12;
            const unsigned intCodigo = fNumero(lngPos, 2);
            const std::size_t lngValor = lngTiff + fNumero(lngPos + 8, 4);
            if (intCodigo == 0x8769 && lngIfd + lngTiff < lngValor) {
                fIfd(lngValor - lngTiff, fechas);
            } else if ((intCodigo == 0x0132 || intCodigo == 0x9003) && lngValor + 19 <= lngHay) {
                (intCodigo == 0x0132 ? fechas.strFecha : fechas.strTomada)
                    .assign(reinterpret_cast<const char *>(lstBytes) + lngValor, 19);
            }
        }
    }
};

} // namespace

clsFechasDesnudas fFechasDesnudas(const char *strRuta)
{
    clsFechasDesnudas fechas;
    clsTrozo trozo;
    const int intFd = open(strRuta, O_RDONLY | O_CLOEXEC);
    const ssize_t lngLeidos = read(intFd, trozo.lstBytes, sizeof trozo.lstBytes);
    close(intFd);
    trozo.lngHay = lngLeidos > 0 ? static_cast<std::size_t>(lngLeidos) : 0;
    for (std::size_t lng = 2; lng + 18 < trozo.lngHay; ++lng) {
        if (trozo.lstBytes[lng] == 0xFF && trozo.lstBytes[lng + 1] == 0xE1) {
            trozo.lngTiff = lng + 10;
            trozo.bolMM = trozo.lstBytes[lng + 10] == 'M';
            trozo.fIfd(trozo.fNumero(lng + 14, 4), fechas);
            break;
        }
    }
    return fechas;
}
