#include "dates/cabecera.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t lngTrozoMinimo = 64 * 1024;
constexpr std::size_t lngTrozoMaximo = 1024 * 1024;

unsigned fByte(std::string_view strBytes, std::size_t lngPos)
{
    return static_cast<unsigned char>(strBytes[lngPos]);
}

/// Position of the first pair FF chrMarca or FF DA in the bytes; npos when there is none.
std::size_t fBuscarPar(std::string_view strBytes, char chrMarca)
{
    std::size_t lngPos = strBytes.find('\xFF');
    while (lngPos != std::string_view::npos && lngPos + 1 < strBytes.size()) {
        const char chr = strBytes[lngPos + 1];
        if (chr == chrMarca || chr == '\xDA') {
            return lngPos;
        }
        lngPos = strBytes.find('\xFF', lngPos + 1);
    }
    return std::string_view::npos;
}

/// Position of a marker, or -1.
///
/// Deliberate: every byte from offset 2 up to the first FF DA is looked at, those inside segments
/// too, and no segment length is followed.
std::int64_t fBuscarMarca(clsLector &lector, char chrMarca)
{
    std::int64_t lngDesde = 2;
    std::string strTrozo;
    std::string_view strBytes = lector.fMirar(lngDesde, clsLector::lngVentana - 2);
    for (std::size_t lngTrozo = lngTrozoMinimo; strBytes.size() > 1;
         lngTrozo = std::min(lngTrozo * 2, lngTrozoMaximo)) {
        const std::size_t lngPar = fBuscarPar(strBytes, chrMarca);
        if (lngPar != std::string_view::npos) {
            const bool bolHallada = strBytes[lngPar + 1] == chrMarca;
            return bolHallada ? lngDesde + static_cast<std::int64_t>(lngPar) : -1;
        }
        // The last byte may be the first one of a pair.
        lngDesde += static_cast<std::int64_t>(strBytes.size()) - 1;
        strTrozo = lector.fCopiar(lngDesde, lngTrozo);
        strBytes = strTrozo;
    }
    return -1;
}

} // namespace

std::uint32_t fCorto(std::string_view strBytes, Orden orden)
{
    if (strBytes.size() < 2) {
        return 0;
    }
    return orden == Orden::MM ? fByte(strBytes, 0) << 8 | fByte(strBytes, 1)
                              : fByte(strBytes, 1) << 8 | fByte(strBytes, 0);
}

std::uint32_t fLargo(std::string_view strBytes, Orden orden)
{
    if (strBytes.size() < 4) {
        return 0;
    }
    const std::uint32_t lngUno = fCorto(strBytes, orden);
    const std::uint32_t lngOtro = fCorto(strBytes.substr(2), orden);
    return orden == Orden::MM ? lngUno << 16 | lngOtro : lngOtro << 16 | lngUno;
}

std::string_view fPasoJpeg(clsLector &lector, Busqueda busqueda, clsMarcas &marcas)
{
    if (lector.fMirar(0, 2) != "\xFF\xD8") {
        return "File is not JPEG format";
    }
    if (busqueda == Busqueda::Completa) {
        marcas.lngApp0 = fBuscarMarca(lector, '\xE0');
        if (marcas.lngApp0 >= 0) {
            marcas.intLongitudApp0 =
                static_cast<int>(fCorto(lector.fMirar(marcas.lngApp0 + 2, 2), Orden::MM));
        }
    }
    marcas.lngApp1 = fBuscarMarca(lector, '\xE1');
    if (marcas.lngApp1 < 0) {
        return "No EXIF data found";
    }
    // Exif 2.32, section 4.7.2: marker, length, "Exif", two zero bytes, then the TIFF data.
    const std::string_view strCabeza = lector.fMirar(marcas.lngApp1 + 2, 6);
    marcas.intLongitudApp1 = static_cast<int>(fCorto(strCabeza, Orden::MM));
    marcas.lngInicioTiff = marcas.lngApp1 + 10;
    if (strCabeza.size() < 6 || strCabeza.substr(2) != "Exif") {
        return "APP1 marker found, but doesn't contain EXIF data";
    }
    return {};
}

std::string_view fCabeceraTiff(clsLector &lector, clsMarcas &marcas, Orden &orden)
{
    // TIFF 6.0, section 2: byte order, the number 42, offset of the first IFD.
    const std::string_view strCabeza = lector.fMirar(marcas.lngInicioTiff, 8);
    const std::string_view strInicio = strCabeza.substr(0, 4);
    if (strInicio == std::string_view("MM\0*", 4)) {
        orden = Orden::MM;
    } else if (strInicio == std::string_view("II*\0", 4)) {
        orden = Orden::II;
    } else {
        return "File is not TIFF format";
    }
    marcas.lngIfd0 = fLargo(strCabeza.substr(4), orden);
    return {};
}

std::string_view fLeerCabecera(clsLector &lector, Busqueda busqueda, clsMarcas &marcas,
                               Orden &orden)
{
    const std::string_view strInicio = lector.fMirar(0, 2);
    if (strInicio == "MM" || strInicio == "II") {
        marcas.lngInicioTiff = 0;
    } else if (strInicio != "\xFF\xD8") {
        return "Unrecognised image format";
    } else if (const std::string_view strMensaje = fPasoJpeg(lector, busqueda, marcas);
               !strMensaje.empty()) {
        return strMensaje;
    }
    return fCabeceraTiff(lector, marcas, orden);
}
