#include "shared/medios.h"

#include "shared/rutas.h"
#include "shared/texto.h"

#include <cstddef>

namespace {

/// All of them, so that each list is a part of this one: raw photos, the other formats of photos,
/// the usual photos, the usual videos, the other formats of videos.
constexpr std::string_view strTodas = "/DNG/CR2/CR3/NEF/ARW/ORF/RW2/RAF"
                                      "/JPEG/JPE/PNG/WEBP/TIF/TIFF/BMP/GIF/HEIC/HEIF/AVIF"
                                      "/JPG/ /MPG/AVI/WMV/3GP/FLV/MOV/MP4"
                                      "/M4V/MKV/WEBM/MTS/M2TS/TS/MOD/VOB/OGV/";

/// From one extension to another, both included.
constexpr std::string_view fEntre(std::string_view strPrimera, std::string_view strUltima)
{
    const std::size_t lngInicio = strTodas.find(strPrimera);
    return strTodas.substr(lngInicio, strTodas.find(strUltima) + strUltima.size() - lngInicio);
}

constexpr std::string_view strCrudas = fEntre("/DNG/", "/RAF/");
constexpr std::string_view strVideos = fEntre("/MPG/", "/OGV/");
constexpr std::string_view strUsuales = fEntre("/JPG/", "/MP4/");

/// By whether the other formats are among them, and by the media kind.
constexpr std::string_view lstVisibles[2][3] = {
    {fEntre("/JPG/", "/JPG/"), fEntre("/MPG/", "/MP4/"),         strUsuales},
    {fEntre("/DNG/",              "/JPG/"),         strVideos,  strTodas}
};

} // namespace

std::string_view fExtensionesVisibles(Medios medios, bool bolFormatos)
{
    const auto lngCual = static_cast<std::size_t>(medios);
    return lngCual < 3 ? lstVisibles[bolFormatos ? 1 : 0][lngCual] : std::string_view();
}

bool fExtensionEn(std::string_view strRuta, std::string_view strExtensiones)
{
    const std::string_view strExtension = fExtensionDe(strRuta);
    // The blank between photos and videos is none.
    for (std::size_t lng = 1; strExtension != " " && lng < strExtensiones.size();) {
        const std::size_t lngFin = strExtensiones.find('/', lng);
        if (lngFin - lng == strExtension.size() &&
            fIgualSinCaja(strExtensiones.substr(lng, lngFin - lng), strExtension)) {
            return true;
        }
        lng = lngFin + 1;
    }
    return false;
}

bool fEsVideo(std::string_view strRuta) { return fExtensionEn(strRuta, strVideos); }

bool fEsCruda(std::string_view strRuta) { return fExtensionEn(strRuta, strCrudas); }

bool fEsOtroFormato(std::string_view strRuta)
{
    return fExtensionEn(strRuta, strTodas) && !fExtensionEn(strRuta, strUsuales);
}
