#include "shared/medios.h"

#include "shared/rutas.h"
#include "shared/texto.h"

#include <algorithm>
#include <array>

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
    const std::string_view strExtension = fExtensionDe(strRuta);
    if (strExtension.size() != 3) {
        return false;
    }
    std::array<char, 5> lstBuscada = {'/', 0, 0, 0, '/'};
    std::transform(strExtension.begin(), strExtension.end(), lstBuscada.begin() + 1, fMayuscula);
    return strExtensiones.find({lstBuscada.data(), lstBuscada.size()}) != std::string_view::npos;
}

bool fEsVideo(std::string_view strRuta) { return fExtensionEn(strRuta, strVideos); }
