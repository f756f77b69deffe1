#include "shared/medios.h"

#include "shared/rutas.h"
#include "shared/texto.h"

#include <string>

namespace {
constexpr std::string_view strFotos = "/JPG/";
constexpr std::string_view strVideos = "/MPG/AVI/WMV/3GP/FLV/MOV/MP4/";
constexpr std::string_view strTodos = "/JPG/ /MPG/AVI/WMV/3GP/FLV/MOV/MP4/";
} // namespace

std::string_view fExtensionesVisibles(Medios medios)
{
    switch (medios) {
    case Medios::Fotos:
        return strFotos;
    case Medios::Videos:
        return strVideos;
    case Medios::Todos:
        return strTodos;
    }
    return {};
}

bool fExtensionEn(std::string_view strRuta, std::string_view strExtensiones)
{
    const std::string_view strExtension = fExtensionDe(strRuta);
    // Every extension known here has three characters: the common "no" costs no allocation.
    if (strExtension.size() != 3) {
        return false;
    }
    const std::string strBuscada = '/' + fMayusculasAscii(strExtension) + '/';
    return strExtensiones.find(strBuscada) != std::string_view::npos;
}

bool fEsVideo(std::string_view strRuta) { return fExtensionEn(strRuta, strVideos); }
