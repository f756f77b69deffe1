#include "repair/nombre_reparado.h"

#include "dates/correccion.h"
#include "dates/fecha_nombre.h"
#include "shared/rutas.h"

#include <algorithm>
#include <functional>

std::string fRutaReparada(std::string_view strRuta, clsFecha fecha, NombreReparado nombre)
{
    if (nombre == NombreReparado::SinCambio) {
        return std::string(strRuta);
    }
    const auto principio = fFechaAlPrincipio(fNombreDe(strRuta));
    const bool bolYa = principio && fDia(principio->fecha) == fDia(fecha);
    return bolYa ? std::string(strRuta) : fRutaCorregida(strRuta, fecha);
}

clsClaveRuta fClaveRuta(std::string_view strRuta)
{
    static_assert(sizeof(std::size_t) == sizeof(clsClaveRuta));
    return std::max<clsClaveRuta>(std::hash<std::string_view>()(strRuta), 1);
}

void clsNombresNuevos::fSaber(clsClaveRuta clave, bool bolExiste)
{
    m_lstSabidas.emplace_back(clave, bolExiste);
}

/// Puts what was found out last where it belongs.
void clsNombresNuevos::fOrdenar()
{
    const auto fAntes = [](const auto &una, const auto &otra) { return una.first < otra.first; };
    const auto nuevas = m_lstSabidas.begin() + static_cast<std::ptrdiff_t>(m_lngOrdenadas);
    std::stable_sort(nuevas, m_lstSabidas.end(), fAntes);
    std::inplace_merge(m_lstSabidas.begin(), nuevas, m_lstSabidas.end(), fAntes);
    // Of equal ones the last was found out last.
    const auto primera =
        std::unique(m_lstSabidas.rbegin(), m_lstSabidas.rend(),
                    [](const auto &una, const auto &otra) { return una.first == otra.first; });
    m_lstSabidas.erase(m_lstSabidas.begin(), primera.base());
    m_lngOrdenadas = m_lstSabidas.size();
}

std::vector<clsNombresNuevos::clsMirada>
clsNombresNuevos::fMirar(const std::vector<clsClaveRuta> &lstNuevas)
{
    fOrdenar();
    std::vector<std::pair<clsClaveRuta, std::uint32_t>> lstOrden;
    for (std::uint32_t lng = 0; lng < lstNuevas.size(); ++lng) {
        if (lstNuevas[lng] != 0) {
            lstOrden.emplace_back(lstNuevas[lng], lng);
        }
    }
    std::sort(lstOrden.begin(), lstOrden.end());
    std::vector<clsMirada> lstMiradas(lstNuevas.size());
    auto sabida = m_lstSabidas.cbegin();
    for (auto desde = lstOrden.cbegin(); desde != lstOrden.cend();) {
        const clsClaveRuta clave = desde->first;
        const auto hasta = std::find_if(desde, lstOrden.cend(),
                                        [&](const auto &una) { return una.first != clave; });
        sabida = std::find_if(sabida, m_lstSabidas.cend(),
                              [&](const auto &una) { return una.first >= clave; });
        const bool bolSabido = sabida != m_lstSabidas.cend() && sabida->first == clave;
        const clsMirada mirada{bolSabido && sabida->second ? Choque::Existe
                               : hasta - desde > 1         ? Choque::Repetido
                                                           : Choque::Ninguno,
                               bolSabido};
        for (; desde != hasta; ++desde) {
            lstMiradas[desde->second] = mirada;
        }
    }
    return lstMiradas;
}
