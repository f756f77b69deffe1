#include "viewer/cabecera_jpeg.h"

#include "dates/ifd.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr std::uint32_t intMarcaApp1 = 0xE1;
constexpr std::uint32_t lngOrientacion = 0x0112;
constexpr std::uint32_t lngDesdeMini = 0x0201;
constexpr std::uint32_t lngLargoMini = 0x0202;
constexpr std::uint32_t lngTipoCorto = 3;
// A file has a dozen segments before its frame; they bound the time for those that lie.
constexpr int intMaximoSegmentos = 4096;

/// Start of a frame, of whatever coding: it holds the size.
bool fEsMarco(std::uint32_t lngMarca)
{
    return lngMarca >= 0xC0 && lngMarca <= 0xCF && lngMarca != 0xC4 && lngMarca != 0xC8 &&
           lngMarca != 0xCC;
}

/// Start of the picture's data, or end of the file: no frame comes any more.
bool fEsFinal(std::uint32_t lngMarca) { return lngMarca == 0xD9 || lngMarca == 0xDA; }

/// Markers without a length.
bool fEstaSola(std::uint32_t lngMarca)
{
    return lngMarca == 0x01 || (lngMarca >= 0xD0 && lngMarca <= 0xD8);
}

std::uint32_t fNumero(const clsEntradaIfd &entrada, Orden orden)
{
    return entrada.lngTipo == lngTipoCorto ? fCorto(entrada.strCampo, orden)
                                           : fLargo(entrada.strCampo, orden);
}

void fLeerExif(clsLector &lector, std::int64_t lngInicio, clsCabeceraJpeg &cabecera)
{
    const std::string strCabecera = lector.fCopiar(lngInicio, 8);
    const std::string_view strBytes = strCabecera;
    if (strBytes.size() < 8 || (strBytes.substr(0, 2) != "II" && strBytes.substr(0, 2) != "MM")) {
        return;
    }
    const Orden orden = strBytes[0] == 'I' ? Orden::II : Orden::MM;
    std::uint32_t lngDesde = 0;
    std::uint32_t lngLargo = 0;
    bool bolOrientacion = false;
    fRecorrerIfds({lector, lngInicio, orden}, fLargo(strBytes.substr(4), orden),
                  [&](const clsEntradaIfd &entrada) {
                      const std::uint32_t lngNumero = fNumero(entrada, orden);
                      if (entrada.lngCodigo == lngOrientacion && !bolOrientacion) {
                          bolOrientacion = true; // the thumbnail's own one comes later
                          cabecera.intOrientacion =
                              lngNumero >= 1 && lngNumero <= 8 ? static_cast<int>(lngNumero) : 1;
                      } else if (entrada.lngCodigo == lngDesdeMini) {
                          lngDesde = lngNumero;
                      } else if (entrada.lngCodigo == lngLargoMini) {
                          lngLargo = lngNumero;
                      }
                      return lngDesde == 0 || lngLargo == 0;
                  });
    const std::int64_t lngPrincipio = lngInicio + lngDesde;
    if (lngDesde != 0 && lngLargo != 0 && lngPrincipio + lngLargo <= lector.fTamano()) {
        cabecera.lngMiniatura = lngPrincipio;
        cabecera.lngBytesMini = lngLargo;
    }
}

} // namespace

bool fLeerCabeceraJpeg(clsLector &lector, clsCabeceraJpeg &cabecera)
{
    cabecera = {};
    if (lector.fMirar(0, 2) != "\xFF\xD8") {
        return false;
    }
    bool bolExif = false;
    std::int64_t lngPos = 2;
    for (int intSegmento = 0; intSegmento < intMaximoSegmentos; ++intSegmento) {
        // Marker, length (which counts itself) and the first bytes of what follows.
        const std::string strSegmento = lector.fCopiar(lngPos, 10);
        if (strSegmento.size() < 4 || strSegmento[0] != '\xFF') {
            break;
        }
        const std::string_view strBytes = strSegmento;
        const std::uint32_t lngMarca = fCorto(strBytes, Orden::MM) & 0xFF;
        if (lngMarca == 0xFF || fEstaSola(lngMarca)) {
            lngPos += lngMarca == 0xFF ? 1 : 2; // fill bytes may stand before a marker
            continue;
        }
        if (fEsMarco(lngMarca) && strBytes.size() >= 9) {
            cabecera.intAlto = static_cast<int>(fCorto(strBytes.substr(5), Orden::MM));
            cabecera.intAncho = static_cast<int>(fCorto(strBytes.substr(7), Orden::MM));
        }
        if (fEsMarco(lngMarca) || fEsFinal(lngMarca)) {
            break;
        }
        if (lngMarca == intMarcaApp1 && !bolExif &&
            strBytes.substr(4) == std::string_view("Exif\0\0", 6)) {
            bolExif = true;
            fLeerExif(lector, lngPos + 10, cabecera);
        }
        lngPos += 2 + std::max<std::int64_t>(2, fCorto(strBytes.substr(2), Orden::MM));
    }
    return true;
}

bool fMiniaturaSirve(int intAnchoMini, int intAltoMini, const clsCabeceraJpeg &cabecera,
                     int intLado)
{
    const std::int64_t lngAncho = cabecera.intAncho;
    const std::int64_t lngAlto = cabecera.intAlto;
    if (intAnchoMini <= 0 || intAltoMini <= 0 || lngAncho <= 0 || lngAlto <= 0) {
        return false;
    }
    // Cross products: how far each side is from the one that the other side asks for.
    const std::int64_t lngResto = std::abs(intAnchoMini * lngAlto - intAltoMini * lngAncho);
    const std::int64_t lngMayor = std::max(lngAncho, lngAlto);
    const int intMayorMini = std::max(intAnchoMini, intAltoMini);
    return lngResto <= lngMayor && intMayorMini >= std::min<std::int64_t>(lngMayor, intLado);
}
