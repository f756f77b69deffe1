#include "duplicates/grupo.h"

#include <algorithm>
#include <set>
#include <tuple>

std::size_t fProponer(const std::vector<clsGemelo> &lstGemelos)
{
    const auto fLugar = [](const clsGemelo &uno) {
        return std::tuple(!uno.bolFechaBien, uno.strRuta.size(), std::string_view(uno.strRuta));
    };
    const auto it = std::min_element(
        lstGemelos.begin(), lstGemelos.end(),
        [&](const clsGemelo &uno, const clsGemelo &otro) { return fLugar(uno) < fLugar(otro); });
    return static_cast<std::size_t>(it - lstGemelos.begin());
}

bool fSobra(const clsGrupo &grupo, std::size_t lngCual)
{
    return grupo.lstGemelos[lngCual].identidad != grupo.lstGemelos[grupo.lngQueda].identidad;
}

std::vector<std::string> fSobrantes(const std::vector<clsGrupo> &lstGrupos)
{
    std::vector<std::string> lstRutas;
    for (const clsGrupo &grupo : lstGrupos) {
        for (std::size_t lngCual = 0; lngCual < grupo.lstGemelos.size(); ++lngCual) {
            if (fSobra(grupo, lngCual)) {
                lstRutas.push_back(grupo.lstGemelos[lngCual].strRuta);
            }
        }
    }
    return lstRutas;
}

clsSobra fSumarSobra(const std::vector<clsGrupo> &lstGrupos)
{
    clsSobra sobra;
    for (const clsGrupo &grupo : lstGrupos) {
        std::set<clsIdentidad> lstFicheros;
        for (std::size_t lngCual = 0; lngCual < grupo.lstGemelos.size(); ++lngCual) {
            if (fSobra(grupo, lngCual)) {
                ++sobra.intCopias;
                lstFicheros.insert(grupo.lstGemelos[lngCual].identidad);
            }
        }
        sobra.lngBytes += grupo.lstGemelos.front().huella.lngBytes *
                          static_cast<std::int64_t>(lstFicheros.size());
    }
    return sobra;
}
