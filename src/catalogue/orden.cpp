#include "catalogue/orden.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

/// Orders rows that compare equal by name, then by path. Only their names are ranked: as a rule
/// few files are of the same second.
/// @param lstIguales where each run of them begins and ends in lstOrden.
void fDesempatar(const clsFilas &filas, const clsRangos &fRangos,
                 const std::vector<std::pair<std::size_t, std::size_t>> &lstIguales,
                 std::vector<std::uint32_t> &lstOrden)
{
    std::vector<std::string_view> lstNombres;
    for (const auto &[lngDesde, lngHasta] : lstIguales) {
        for (std::size_t lng = lngDesde; lng < lngHasta; ++lng) {
            lstNombres.push_back(filas.fTextoNombre(lstOrden[lng]));
        }
    }
    const std::vector<std::uint32_t> lstRangos = fRangos(lstNombres);
    auto rango = lstRangos.begin();
    std::vector<std::tuple<std::uint32_t, std::string_view, std::uint32_t>> lstClaves;
    for (const auto &[lngDesde, lngHasta] : lstIguales) {
        lstClaves.clear();
        for (std::size_t lng = lngDesde; lng < lngHasta; ++lng) {
            const std::uint32_t lngFila = lstOrden[lng];
            lstClaves.emplace_back(*rango++, filas.fTextosCarpeta()[filas.fNumeroCarpeta(lngFila)],
                                   lngFila);
        }
        std::sort(lstClaves.begin(), lstClaves.end());
        std::transform(lstClaves.begin(), lstClaves.end(),
                       lstOrden.begin() + static_cast<std::ptrdiff_t>(lngDesde),
                       [](const auto &clave) { return std::get<2>(clave); });
    }
}

/// Orders the rows by what fClave gives for each; texts of UTF-8 compare as their code points do.
template <typename Clave>
void fOrdenarPor(clsFilas &filas, bool bolDescendente, const clsRangos &fRangos,
                 const Clave &fClave)
{
    std::vector<std::pair<decltype(fClave(0U)), std::uint32_t>> lstClaves;
    lstClaves.reserve(filas.fOrden().size());
    for (const std::uint32_t lngFila : filas.fOrden()) {
        lstClaves.emplace_back(fClave(lngFila), lngFila);
    }
    const auto fMenor = [](const auto &una, const auto &otra) { return una.first < otra.first; };
    std::sort(lstClaves.begin(), lstClaves.end());
    std::vector<std::uint32_t> lstOrden(lstClaves.size());
    std::transform(lstClaves.begin(), lstClaves.end(), lstOrden.begin(),
                   [](const auto &clave) { return clave.second; });
    std::vector<std::pair<std::size_t, std::size_t>> lstIguales;
    for (std::size_t lngDesde = 0, lng = 1; lng <= lstClaves.size(); ++lng) {
        if (lng == lstClaves.size() || fMenor(lstClaves[lngDesde], lstClaves[lng])) {
            if (lng - lngDesde > 1) {
                lstIguales.emplace_back(lngDesde, lng);
            }
            lngDesde = lng;
        }
    }
    fDesempatar(filas, fRangos, lstIguales, lstOrden);
    if (bolDescendente) {
        std::reverse(lstOrden.begin(), lstOrden.end());
    }
    filas.fReordenar(std::move(lstOrden));
}

void fOrdenarFechas(clsFilas &filas, bool bolDescendente, const clsRangos &fRangos)
{
    if (filas.fFechasExactas()) {
        fOrdenarPor(filas, bolDescendente, fRangos,
                    [&](std::uint32_t lngFila) { return filas.fDatFecha(lngFila); });
    } else {
        fOrdenarPor(filas, bolDescendente, fRangos,
                    [&](std::uint32_t lngFila) { return filas.fTextoFecha(lngFila); });
    }
}

// As long as the numbers of kilobytes are padded to the same width, their texts compare as they do.
// The widest padded one has nine digits and two group signs.
constexpr std::int64_t lngAlineados = 999'999'999;

void fOrdenarTamanos(clsFilas &filas, bool bolDescendente, const clsRangos &fRangos)
{
    const auto fKB = [&](std::uint32_t lngFila) { return fKilobytes(filas.fBytes(lngFila)); };
    if (std::all_of(filas.fOrden().begin(), filas.fOrden().end(),
                    [&](std::uint32_t lngFila) { return fKB(lngFila) <= lngAlineados; })) {
        fOrdenarPor(filas, bolDescendente, fRangos, fKB);
    } else {
        fOrdenarPor(filas, bolDescendente, fRangos,
                    [&](std::uint32_t lngFila) { return fTextoKB(filas.fBytes(lngFila), {}); });
    }
}

void fOrdenarNombres(clsFilas &filas, bool bolDescendente, const clsRangos &fRangos)
{
    std::vector<std::string_view> lstTextos;
    lstTextos.reserve(filas.fOrden().size());
    for (std::uint32_t lngFila = 0; lngFila < filas.fOrden().size(); ++lngFila) {
        lstTextos.push_back(filas.fTextoNombre(lngFila));
    }
    const std::vector<std::uint32_t> lstRangos = fRangos(lstTextos);
    fOrdenarPor(filas, bolDescendente, fRangos,
                [&](std::uint32_t lngFila) { return lstRangos[lngFila]; });
}

void fOrdenarCarpetas(clsFilas &filas, bool bolDescendente, const clsRangos &fRangos)
{
    const auto &lstCarpetas = filas.fTextosCarpeta();
    const std::vector<std::uint32_t> lstRangos =
        fRangos(std::vector<std::string_view>(lstCarpetas.begin(), lstCarpetas.end()));
    fOrdenarPor(filas, bolDescendente, fRangos,
                [&](std::uint32_t lngFila) { return lstRangos[filas.fNumeroCarpeta(lngFila)]; });
}

} // namespace

void fOrdenar(clsFilas &filas, Columna columna, bool bolDescendente, const clsRangos &fRangos)
{
    switch (columna) {
    case Columna::Nombre:
        return fOrdenarNombres(filas, bolDescendente, fRangos);
    case Columna::Fecha:
        return fOrdenarFechas(filas, bolDescendente, fRangos);
    case Columna::Tamano:
        return fOrdenarTamanos(filas, bolDescendente, fRangos);
    case Columna::Carpeta:
        return fOrdenarCarpetas(filas, bolDescendente, fRangos);
    }
}
