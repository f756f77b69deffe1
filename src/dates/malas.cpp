#include "dates/malas.h"

#include <algorithm>
#include <iterator>

void clsMalas::fAnotar(const clsFilas &filas, int lngPos)
{
    const clsFecha fecha = filas.fDatFecha(filas.fOrden()[static_cast<std::size_t>(lngPos)]);
    clsCarpeta &carpeta = m_mapCarpetas[std::string(filas.fCarpeta(lngPos))];
    const auto [cual, bolNueva] = carpeta.try_emplace(std::string(filas.fNombre(lngPos)), fecha);
    m_lngCuantas += bolNueva || cual->second != fecha ? 1 : 0;
    cual->second = fecha;
}

std::vector<bool> clsMalas::fEn(const clsFilas &filas) const
{
    if (m_lngCuantas == 0) {
        return {};
    }
    std::vector<const clsCarpeta *> lstCarpetas;
    std::transform(filas.fTextosCarpeta().begin(), filas.fTextosCarpeta().end(),
                   std::back_inserter(lstCarpetas), [this](const std::string &strCarpeta) {
                       const auto cual = m_mapCarpetas.find(strCarpeta);
                       return cual == m_mapCarpetas.end() ? nullptr : &cual->second;
                   });
    std::vector<bool> lstMalas(static_cast<std::size_t>(filas.fCantidad()));
    for (std::uint32_t lngFila = 0; lngFila < lstMalas.size(); ++lngFila) {
        if (const clsCarpeta *const carpeta = lstCarpetas[filas.fNumeroCarpeta(lngFila)]) {
            const auto cual = carpeta->find(filas.fTextoNombre(lngFila));
            lstMalas[lngFila] = cual != carpeta->end() && cual->second == filas.fDatFecha(lngFila);
        }
    }
    return lstMalas;
}
