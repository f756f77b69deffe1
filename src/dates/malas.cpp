#include "dates/malas.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

/// Whether there is a file of that name and date.
bool fHay(const std::multimap<clsFecha, std::string> &carpeta, clsFecha fecha,
          std::string_view strNombre)
{
    auto cual = carpeta.lower_bound(fecha);
    while (cual != carpeta.end() && cual->first == fecha && cual->second != strNombre) {
        ++cual;
    }
    return cual != carpeta.end() && cual->first == fecha;
}

} // namespace

void clsMalas::fAnotar(const clsFilas &filas, int lngPos)
{
    const clsFecha fecha = filas.fDatFecha(filas.fOrden()[static_cast<std::size_t>(lngPos)]);
    clsCarpeta &carpeta = m_mapCarpetas[std::string(filas.fCarpeta(lngPos))];
    if (!fHay(carpeta, fecha, filas.fNombre(lngPos))) {
        carpeta.emplace(fecha, filas.fNombre(lngPos));
        ++m_lngCuantas;
    }
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
            lstMalas[lngFila] =
                fHay(*carpeta, filas.fDatFecha(lngFila), filas.fTextoNombre(lngFila));
        }
    }
    return lstMalas;
}
