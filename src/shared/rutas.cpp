#include "shared/rutas.h"

#include <algorithm>

std::string fBarraFinal(std::string_view strRuta, bool bolQuitar)
{
    const bool bolBarra = strRuta.ends_with('/');
    if (bolQuitar) {
        return bolBarra ? std::string(strRuta.substr(0, strRuta.size() - 1)) : std::string();
    }
    return bolBarra ? std::string(strRuta) : std::string(strRuta) + '/';
}

std::string_view fNombreDe(std::string_view strRuta)
{
    const std::size_t lngBarra = strRuta.rfind('/');
    return lngBarra == std::string_view::npos ? strRuta : strRuta.substr(lngBarra + 1);
}

std::string_view fCarpetaDe(std::string_view strRuta)
{
    return strRuta.substr(0, strRuta.size() - fNombreDe(strRuta).size());
}

std::string_view fExtensionDe(std::string_view strRuta)
{
    for (std::size_t lng = strRuta.size(); lng-- > 0 && strRuta[lng] != '/';) {
        if (strRuta[lng] == '.') {
            return strRuta.substr(lng + 1);
        }
    }
    return {};
}

bool fRutaOculta(std::string_view strRuta)
{
    // The underscore is the rarest of the three, so it is the one looked for.
    for (std::size_t lng = 0; (lng = strRuta.find('_', lng)) != std::string_view::npos; ++lng) {
        if (lng >= 2 && (strRuta[lng - 1] == 'X' || strRuta[lng - 1] == 'x') &&
            strRuta[lng - 2] == '/') {
            return true;
        }
    }
    return false;
}

bool fBajoRaiz(std::string_view strRuta, std::string_view strRaiz)
{
    if (!strRuta.starts_with(strRaiz) || strRuta.find('\0') != std::string_view::npos) {
        return false;
    }
    for (std::size_t lngDesde = strRaiz.size(); lngDesde <= strRuta.size();) {
        const std::size_t lngBarra = std::min(strRuta.find('/', lngDesde), strRuta.size());
        const std::string_view strParte = strRuta.substr(lngDesde, lngBarra - lngDesde);
        if (strParte == "." || strParte == "..") {
            return false;
        }
        lngDesde = lngBarra + 1;
    }
    return true;
}

std::string fRutaAbsoluta(std::string_view strRuta, std::string_view strCarpeta)
{
    return (strRuta.starts_with('/') ? "" : fBarraFinal(strCarpeta, false)) + std::string(strRuta);
}
