#include "catalogue/orden.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace {

// A key and a position share one number, so that sorting moves 8 bytes a row.
constexpr unsigned intBitsClave = 40;
constexpr unsigned intBitsPosicion = 64 - intBitsClave;

/// Stable radix sort by the keys, which are the high bits.
void fOrdenarNumeros(std::vector<std::uint64_t> &lstNumeros)
{
    constexpr unsigned intBits = 10;
    constexpr std::uint64_t lngMascara = (1U << intBits) - 1;
    constexpr std::size_t lngPasos = intBitsClave / intBits;
    const auto fCifra = [](std::uint64_t lngNumero, std::size_t lngPaso) {
        return (lngNumero >> (intBitsPosicion + intBits * lngPaso)) & lngMascara;
    };
    std::array<std::array<std::uint32_t, lngMascara + 1>, lngPasos> lstCuentas{};
    for (const std::uint64_t lngNumero : lstNumeros) {
        for (std::size_t lngPaso = 0; lngPaso < lngPasos; ++lngPaso) {
            ++lstCuentas[lngPaso][fCifra(lngNumero, lngPaso)];
        }
    }
    std::vector<std::uint64_t> lstOtros(lstNumeros.size());
    for (std::size_t lngPaso = 0; lngPaso < lngPasos; ++lngPaso) {
        auto &lstCuenta = lstCuentas[lngPaso];
        if (lstCuenta[fCifra(lstNumeros.front(), lngPaso)] == lstNumeros.size()) {
            continue; // all alike in this digit
        }
        std::exclusive_scan(lstCuenta.begin(), lstCuenta.end(), lstCuenta.begin(), 0U);
        for (const std::uint64_t lngNumero : lstNumeros) {
            lstOtros[lstCuenta[fCifra(lngNumero, lngPaso)]++] = lngNumero;
        }
        lstNumeros.swap(lstOtros);
    }
}

/// Orders by numbers below 2 to the power of intBitsClave.
template <typename Clave>
void fOrdenarPorClave(clsFilas &filas, bool bolDescendente, const Clave &fClave)
{
    std::vector<std::uint32_t> lstOrden = filas.fOrden();
    constexpr std::size_t lngPocas = 1024;
    constexpr std::size_t lngMuchas = std::size_t{1} << intBitsPosicion;
    if (lstOrden.size() < lngPocas || lstOrden.size() > lngMuchas) {
        std::stable_sort(lstOrden.begin(), lstOrden.end(),
                         [&](std::uint32_t lngUna, std::uint32_t lngOtra) {
                             return bolDescendente ? fClave(lngOtra) < fClave(lngUna)
                                                   : fClave(lngUna) < fClave(lngOtra);
                         });
        filas.fReordenar(std::move(lstOrden));
        return;
    }
    constexpr std::uint64_t lngClaveMayor = (std::uint64_t{1} << intBitsClave) - 1;
    std::vector<std::uint64_t> lstNumeros;
    lstNumeros.reserve(lstOrden.size());
    for (const std::uint32_t lngFila : lstOrden) {
        const std::uint64_t lngClave = fClave(lngFila);
        lstNumeros.push_back((bolDescendente ? lngClaveMayor - lngClave : lngClave)
                                 << intBitsPosicion |
                             lstNumeros.size());
    }
    fOrdenarNumeros(lstNumeros);
    std::transform(lstNumeros.begin(), lstNumeros.end(), lstOrden.begin(),
                   [&anterior = filas.fOrden()](std::uint64_t lngNumero) {
                       return anterior[lngNumero & (lngMuchas - 1)];
                   });
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

template <typename Condicion> bool fTodas(const clsFilas &filas, const Condicion &fCumple)
{
    return std::all_of(filas.fOrden().begin(), filas.fOrden().end(),
                       [&](std::uint32_t lngFila) { return fCumple(filas.fClave(lngFila)); });
}

void fOrdenarFechas(clsFilas &filas, bool bolDescendente)
{
    // Texts of one form compare as the numbers they are packed in.
    if (fTodas(filas, [](const auto &clave) { return clave.bolEmpaquetada; })) {
        fOrdenarPorClave(filas, bolDescendente,
                         [&](std::uint32_t lngFila) { return filas.fClave(lngFila).lngFecha; });
    } else {
        fOrdenarPorTexto(filas, bolDescendente,
                         [&](std::uint32_t lngFila) { return filas.fTextoFecha(lngFila); });
    }
}

// As long as the numbers of kilobytes are padded to the same width, their texts compare as they do.
// The widest padded one has nine digits and two group signs.
constexpr std::int64_t lngAlineados = 999'999'999;

void fOrdenarTamanos(clsFilas &filas, bool bolDescendente)
{
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
