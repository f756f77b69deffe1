#include "shared/giros.h"

#include <array>

namespace {

constexpr int intVuelta = 4;

} // namespace

void clsGiros::fGirar(const std::string &strRuta, int intCuartos)
{
    const int intNuevos = (fCuartos(strRuta) + intCuartos % intVuelta + intVuelta) % intVuelta;
    if (intNuevos == 0 || strRuta.empty()) {
        m_mapCuartos.erase(strRuta);
    } else {
        m_mapCuartos[strRuta] = intNuevos;
    }
}

int clsGiros::fCuartos(const std::string &strRuta) const
{
    const auto it = m_mapCuartos.find(strRuta);
    return it == m_mapCuartos.end() ? 0 : it->second;
}

std::string_view fTextoGiro(int intCuartos)
{
    constexpr std::array<std::string_view, intVuelta> lstTextos{
        "", "girada a la derecha", "girada media vuelta", "girada a la izquierda"};
    return lstTextos.at(static_cast<std::size_t>(intCuartos));
}
