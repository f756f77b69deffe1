#include "dates/segmentos.h"

#include "dates/cabecera.h"

#include <algorithm>

namespace {

// A file has a dozen segments before its picture; they bound the time for those that lie.
constexpr int intMaximoSegmentos = 4096;

/// Start of the picture's data, or end of the file.
bool fEsFinal(std::uint32_t lngMarca) { return lngMarca == 0xD9 || lngMarca == 0xDA; }

} // namespace

bool fMarcaSola(std::uint32_t lngMarca)
{
    return lngMarca == 0x01 || (lngMarca >= 0xD0 && lngMarca <= 0xD8);
}

bool fEsMarco(std::uint32_t lngMarca)
{
    return lngMarca >= 0xC0 && lngMarca <= 0xCF && lngMarca != 0xC4 && lngMarca != 0xC8 &&
           lngMarca != 0xCC;
}

bool fRecorrerSegmentos(clsLector &lector, const std::function<bool(const clsSegmento &)> &fVisitar)
{
    if (lector.fMirar(0, 2) != "\xFF\xD8") {
        return false;
    }
    std::int64_t lngPos = 2;
    for (int intSegmento = 0; intSegmento < intMaximoSegmentos; ++intSegmento) {
        // Marker, and length, which counts itself.
        const std::string_view strBytes = lector.fMirar(lngPos, 4);
        if (strBytes.size() < 4 || strBytes[0] != '\xFF') {
            break;
        }
        const std::uint32_t lngMarca = fCorto(strBytes, Orden::MM) & 0xFF;
        if (lngMarca == 0xFF || fMarcaSola(lngMarca)) {
            lngPos += lngMarca == 0xFF ? 1 : 2; // fill bytes may stand before a marker
            continue;
        }
        const std::uint32_t lngLargo =
            std::max<std::uint32_t>(2, fCorto(strBytes.substr(2), Orden::MM));
        if (fEsFinal(lngMarca) || !fVisitar({lngMarca, lngPos + 4, lngLargo - 2})) {
            break;
        }
        lngPos += 2 + lngLargo;
    }
    return true;
}
