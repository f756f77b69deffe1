#include "shared/rutas.h"

#include <cstring>

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
    const char *const chrFin = strRuta.data() + strRuta.size();
    const char *chrDesde = strRuta.data();
    while (chrDesde != chrFin) {
        const void *const pos =
            std::memchr(chrDesde, '_', static_cast<std::size_t>(chrFin - chrDesde));
        if (pos == nullptr) {
            return false;
        }
        const char *const chrRaya = static_cast<const char *>(pos);
        if (chrRaya - strRuta.data() >= 2 && (chrRaya[-1] == 'X' || chrRaya[-1] == 'x') &&
            chrRaya[-2] == '/') {
            return true;
        }
        chrDesde = chrRaya + 1;
    }
    return false;
}

std::string fRutaAbsoluta(std::string_view strRuta, std::string_view strCarpeta)
{
    if (strRuta.starts_with('/')) {
        return std::string(strRuta);
    }
    return fBarraFinal(strCarpeta, false) + std::string(strRuta);
}
