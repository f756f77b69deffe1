#include "catalogue/orden.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace {

struct clsPar {
    std::uint64_t lngClave;
    std::uint32_t lngFila;
};

/// Stable radix sort by the low 48 bits of the keys.
void fOrdenarPares(std::vector<clsPar> &lstPares)
{
    constexpr unsigned intBits = 12;
    constexpr std::uint64_t lngMascara = (1U << intBits) - 1;
    constexpr std::size_t lngPasos = 4;
    constexpr std::size_t lngPocos = 4096;
    if (lstPares.size() < lngPocos) {
        std::stable_sort(
            lstPares.begin(), lstPares.end(),
            [](const clsPar &uno, const clsPar &otro) { return uno.lngClave < otro.lngClave; });
        return;
    }
    std::vector<std::array<std::uint32_t, lngMascara + 1>> lstCuentas(lngPasos);
    for (const clsPar &par : lstPares) {
        for (std::size_t lngPaso = 0; lngPaso < lngPasos; ++lngPaso) {
            ++lstCuentas[lngPaso][(par.lngClave >> (intBits * lngPaso)) & lngMascara];
        }
    }
    std::vector<clsPar> lstOtros(lstPares.size());
    for (std::size_t lngPaso = 0; lngPaso < lngPasos; ++lngPaso) {
        auto &lstCuenta = lstCuentas[lngPaso];
        const auto fCifra = [lngPaso](const clsPar &par) {
            return (par.lngClave >> (intBits * lngPaso)) & lngMascara;
        };
        if (lstCuenta[fCifra(lstPares.front())] == lstPares.size()) {
            continue; // all alike in this digit
        }
        std::exclusive_scan(lstCuenta.begin(), lstCuenta.end(), lstCuenta.begin(), 0U);
        for (const clsPar &par : lstPares) {
            lstOtros[lstCuenta[fCifra(par)]++] = par;
        }
        lstPares.swap(lstOtros);
    }
}

constexpr std::uint64_t lngMaximo = (std::uint64_t{1} << 48) - 1;

void fOrdenarPorClave(clsFilas &filas, bool bolDescendente,
                      const std::function<std::uint64_t(std::uint32_t)> &fClave)
{
    std::vector<clsPar> lstPares;
    lstPares.reserve(filas.fOrden().size());
    for (const std::uint32_t lngFila : filas.fOrden()) {
        const std::uint64_t lngClave = fClave(lngFila);
        lstPares.push_back({bolDescendente ? lngMaximo - lngClave : lngClave, lngFila});
    }
    fOrdenarPares(lstPares);
    std::vector<std::uint32_t> lstOrden(lstPares.size());
    std::transform(lstPares.begin(), lstPares.end(), lstOrden.begin(),
                   [](const clsPar &par) { return par.lngFila; });
    filas.fReordenar(std::move(lstOrden));
}

void fOrdenarPorTexto(clsFilas &filas, bool bolDescendente,
                      const std::function<std::string(std::uint32_t)> &fTexto)
{
    std::vector<std::pair<std::string, std::uint32_t>> lstTextos;
    lstTextos.reserve(filas.fOrden().size());
    for (const std::uint32_t lngFila : filas.fOrden()) {
        lstTextos.emplace_back(fTexto(lngFila), lngFila);
    }
    // Bytes of UTF-8 compare as their code points do.
    std::stable_sort(lstTextos.begin(), lstTextos.end(), [&](const auto &uno, const auto &otro) {
        return bolDescendente ? otro.first < uno.first : uno.first < otro.first;
    });
    std::vector<std::uint32_t> lstOrden(lstTextos.size());
    std::transform(lstTextos.begin(), lstTextos.end(), lstOrden.begin(),
                   [](const auto &par) { return par.second; });
    filas.fReordenar(std::move(lstOrden));
}

bool fTodas(const clsFilas &filas, const std::function<bool(const clsFilas::clsClave &)> &fCumple)
{
    return std::all_of(filas.fOrden().begin(), filas.fOrden().end(),
                       [&](std::uint32_t lngFila) { return fCumple(filas.fClave(lngFila)); });
}

void fOrdenarFechas(clsFilas &filas, bool bolDescendente)
{
    // Texts of one form compare as the number their digits make.
    if (fTodas(filas, [](const auto &clave) { return clave.bolEmpaquetada; })) {
        fOrdenarPorClave(filas, bolDescendente,
                         [&](std::uint32_t lngFila) { return filas.fClave(lngFila).lngFecha; });
    } else {
        fOrdenarPorTexto(filas, bolDescendente,
                         [&](std::uint32_t lngFila) { return filas.fTextoFecha(lngFila); });
    }
}

void fOrdenarTamanos(clsFilas &filas, bool bolDescendente)
{
    // As long as the numbers are padded to the same width, their texts compare as they do. The
    // widest padded one has nine digits and two group signs.
    constexpr std::int64_t lngAlineados = 999'999'999;
    if (fTodas(filas,
               [](const auto &clave) { return fKilobytes(clave.lngBytes) <= lngAlineados; })) {
        fOrdenarPorClave(filas, bolDescendente, [&](std::uint32_t lngFila) {
            return static_cast<std::uint64_t>(fKilobytes(filas.fClave(lngFila).lngBytes));
        });
    } else {
        fOrdenarPorTexto(filas, bolDescendente, [&](std::uint32_t lngFila) {
            return fTextoKB(filas.fClave(lngFila).lngBytes, {});
        });
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
    fOrdenarPorClave(filas, bolDescendente,
                     [&](std::uint32_t lngFila) { return lstRangos[lngFila]; });
}

void fOrdenarCarpetas(clsFilas &filas, bool bolDescendente, const clsRangos &fRangos)
{
    const auto &lstCarpetas = filas.fTextosCarpeta();
    const std::vector<std::uint32_t> lstRangos =
        fRangos(std::vector<std::string_view>(lstCarpetas.begin(), lstCarpetas.end()));
    fOrdenarPorClave(filas, bolDescendente, [&](std::uint32_t lngFila) {
        return lstRangos[filas.fClave(lngFila).lngCarpeta];
    });
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
