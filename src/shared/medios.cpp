#include "shared/medios.h"

#include "shared/rutas.h"
#include "shared/texto.h"

#include <cstddef>

namespace {
constexpr std::string_view strFotos = "/JPG/";
constexpr std::string_view strVideos = "/MPG/AVI/WMV/3GP/FLV/MOV/MP4/";
constexpr std::string_view strTodos = "/JPG/ /MPG/AVI/WMV/3GP/FLV/MOV/MP4/";
} // namespace

std::string_view fExtensionesVisibles(Medios medios)
{
    return medios == Medios::Fotos    ? strFotos
           : medios == Medios::Videos ? strVideos
           : medios == Medios::Todos  ? strTodos
                                      : std::string_view();
}

bool fExtensionEn(std::string_view strRuta, std::string_view strExtensiones)
{
    // Every extension known here has three characters, between two bars.
    constexpr std::size_t lngLargo = 3;
    const std::string_view strExtension = fExtensionDe(strRuta);
    if (strExtension.size() != lngLargo) {
        return false;
    }
    for (std::size_t lng = 0; lng + lngLargo + 1 < strExtensiones.size(); ++lng) {
        if (strExtensiones[lng] == '/' && strExtensiones[lng + lngLargo + 1] == '/' &&
            fIgualSinCaja(strExtensiones.substr(lng + 1, lngLargo), strExtension)) {
            return true;
        }
    }
    return false;
}

bool fEsVideo(std::string_view strRuta) { return fExtensionEn(strRuta, strVideos); }
