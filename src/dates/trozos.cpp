#include "dates/trozos.h"

#include "dates/cabecera.h"

namespace {

std::optional<clsTrozo> fTrozoPng(clsLector &lector, std::int64_t lngPos, std::int64_t /*lngFin*/)
{
    const std::string_view strCabeza = lector.fMirar(lngPos, 8);
    if (strCabeza.size() < 8) {
        return {};
    }
    return clsTrozo{std::string(strCabeza.substr(4)), lngPos + 8, fLargo(strCabeza, Orden::MM)};
}

std::optional<clsTrozo> fTrozoRiff(clsLector &lector, std::int64_t lngPos, std::int64_t /*lngFin*/)
{
    const std::string_view strCabeza = lector.fMirar(lngPos, 8);
    if (strCabeza.size() < 8) {
        return {};
    }
    return clsTrozo{std::string(strCabeza.substr(0, 4)), lngPos + 8,
                    fLargo(strCabeza.substr(4), Orden::II)};
}

/// ISO/IEC 14496-12, 4.2: a size of 1 is followed by one of 64 bits, one of 0 means all there is.
std::optional<clsTrozo> fCajaIso(clsLector &lector, std::int64_t lngPos, std::int64_t lngFin)
{
    const std::string_view strCabeza = lector.fMirar(lngPos, 16);
    if (strCabeza.size() < 8 || lngPos + 8 > lngFin) {
        return {};
    }
    const std::uint32_t lngLargo = fLargo(strCabeza, Orden::MM);
    std::int64_t lngCabeza = 8;
    std::int64_t lngCaja = lngLargo == 0 ? lngFin - lngPos : std::int64_t{lngLargo};
    if (lngLargo == 1 && strCabeza.size() == 16) {
        lngCabeza = 16;
        lngCaja = std::int64_t{fLargo(strCabeza.substr(8), Orden::MM) & 0x7FFFFFFF} << 32 |
                  fLargo(strCabeza.substr(12), Orden::MM);
    }
    if (lngCaja < lngCabeza || lngCaja > lngFin - lngPos) {
        return {};
    }
    return clsTrozo{std::string(strCabeza.substr(4, 4)), lngPos + lngCabeza, lngCaja - lngCabeza};
}

} // namespace

const clsFormaTrozos formaPng{fTrozoPng, 4, 1};
const clsFormaTrozos formaRiff{fTrozoRiff, 0, 2};
const clsFormaTrozos formaIso{fCajaIso, 0, 1};

std::optional<clsTrozo> fBuscarTrozo(clsLector &lector, const clsFormaTrozos &forma,
                                     std::pair<std::int64_t, std::int64_t> tramo,
                                     std::string_view strTipo)
{
    std::int64_t lngPos = tramo.first;
    for (int intTrozo = 0; intTrozo < intMaximoTrozos && lngPos < tramo.second; ++intTrozo) {
        auto trozo = forma.fLeer(lector, lngPos, tramo.second);
        if (!trozo || trozo->strTipo == strTipo) {
            return trozo;
        }
        const std::int64_t lngPares = (trozo->lngBytes + forma.intPar - 1) / forma.intPar;
        lngPos = trozo->lngContenido + lngPares * forma.intPar + forma.intCola;
    }
    return {};
}
