#include "catalogue/orden.h"

#include <algorithm>
#include <utility>

namespace {

/// Orders the rows by what fClave gives for each; texts of UTF-8 compare as their code points do.
template <typename Clave>
void fOrdenarPor(clsFilas &filas, bool bolDescendente, const Clave &fClave)
{
    std::vector<std::pair<decltype(fClave(0U)), std::uint32_t>> lstClaves;
    lstClaves.reserve(filas.fOrden().size());
    for (const std::uint32_t lngFila : filas.fOrden()) {
        lstClaves.emplace_back(fClave(lngFila), lngFila);
    }
    std::stable_sort(lstClaves.begin(), lstClaves.end(), [=](const auto &una, const auto &otra) {
        return bolDescendente ? otra.first < una.first : una.first < otra.first;
    });
    std::vector<std::uint32_t> lstOrden(lstClaves.size());
    std::transform(lstClaves.begin(), lstClaves.end(), lstOrden.begin(),
                   [](const auto &clave) { return clave.second; });
    filas.fReordenar(std::move(lstOrden));
}

void fOrdenarFechas(clsFilas &filas, bool bolDescendente)
{
    if (filas.fFechasExactas()) {
        fOrdenarPor(filas, bolDescendente,
                    [&](std::uint32_t lngFila) { return filas.fDatFecha(lngFila); });
    } else {
        fOrdenarPor(filas, bolDescendente,
                    [&](std::uint32_t lngFila) { return filas.fTextoFecha(lngFila); });
    }
}

// As long as the numbers of kilobytes are padded to the same width, their texts compare as they do.
// The widest padded one has nine digits and two group signs.
constexpr std::int64_t lngAlineados = 999'999'999;

void fOrdenarTamanos(clsFilas &filas, bool bolDescendente)
{
    const auto fKB = [&](std::uint32_t lngFila) { return fKilobytes(filas.fBytes(lngFila)); };
    if (std::all_of(filas.fOrden().begin(), filas.fOrden().end(),
                    [&](std::uint32_t lngFila) { return fKB(lngFila) <= lngAlineados; })) {
        fOrdenarPor(filas, bolDescendente, fKB);
    } else {
        fOrdenarPor(filas, bolDescendente,
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
    fOrdenarPor(filas, bolDescendente, [&](std::uint32_t lngFila) { return lstRangos[lngFila]; });
}

void fOrdenarCarpetas(clsFilas &filas, bool bolDescendente, const clsRangos &fRangos)
{
    const auto &lstCarpetas = filas.fTextosCarpeta();
    const std::vector<std::uint32_t> lstRangos =
        fRangos(std::vector<std::string_view>(lstCarpetas.begin(), lstCarpetas.end()));
    fOrdenarPor(filas, bolDescendente,
                [&](std::uint32_t lngFila) { return lstRangos[filas.fNumeroCarpeta(lngFila)]; });
}

} // namespace

void fOrdenar(clsFilas &filas, Columna columna, bool bolDescendente, const clsRangos &fRangos)
{
    switch (columna) {
    case Columna::Nombre:
        return fOrdenarNombres(filas, bolDescendente, fRangos);
    case Columna::Fecha:
        return fOrdenarFechas(filas, bolDescendente);
    case Columna::Tamano:
        return fOrdenarTamanos(filas, bolDescendente);
    case Columna::Carpeta:
        return fOrdenarCarpetas(filas, bolDescendente, fRangos);
    }
}
