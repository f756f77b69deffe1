#include "catalogue/orden.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <tuple>

namespace {

/// Ranks by the bytes of the texts; texts of the same bytes share theirs.
std::vector<std::uint32_t> fRangosDeBytes(const std::vector<std::string_view> &lstTextos)
{
    std::map<std::string_view, std::uint32_t> mapRangos;
    for (const std::string_view strTexto : lstTextos) {
        mapRangos[strTexto] = 0;
    }
    std::uint32_t lngRango = 0;
    for (auto &[strTexto, lngValor] : mapRangos) {
        lngValor = lngRango++;
    }
    std::vector<std::uint32_t> lstRangos;
    for (const std::string_view strTexto : lstTextos) {
        lstRangos.push_back(mapRangos[strTexto]);
    }
    return lstRangos;
}

/// What a cell of the column shows: what the order goes by.
std::string fTexto(const clsFilas &filas, std::uint32_t lngFila, Columna columna)
{
    switch (columna) {
    case Columna::Nombre:
        return std::string(filas.fTextoNombre(lngFila));
    case Columna::Fecha:
        return filas.fTextoFecha(lngFila);
    case Columna::Tamano:
        return fTextoKB(filas.fBytes(lngFila), {});
    case Columna::Carpeta:
        return filas.fTextosCarpeta()[filas.fNumeroCarpeta(lngFila)];
    }
    return {};
}

std::vector<std::uint32_t> fEsperado(const clsFilas &filas, Columna columna, bool bolDescendente)
{
    std::vector<std::tuple<std::string, std::string, std::string, std::uint32_t>> lstClaves;
    for (const std::uint32_t lngFila : filas.fOrden()) {
        lstClaves.emplace_back(fTexto(filas, lngFila, columna),
                               fTexto(filas, lngFila, Columna::Nombre),
                               fTexto(filas, lngFila, Columna::Carpeta), lngFila);
    }
    std::sort(lstClaves.begin(), lstClaves.end());
    std::vector<std::uint32_t> lstOrden;
    for (const auto &clave : lstClaves) {
        lstOrden.push_back(std::get<3>(clave));
    }
    if (bolDescendente) {
        std::reverse(lstOrden.begin(), lstOrden.end());
    }
    return lstOrden;
}

/// Rows with many equal values in every column.
/// @param bolRaras with dates of other forms and sizes whose texts are wider than the column.
clsFilas fMuchas(int intFilas, bool bolRaras)
{
    std::mt19937 azar(20090714);
    const auto fHasta = [&azar](unsigned lngTope) { return static_cast<int>(azar() % lngTope); };
    const char *const lstRaras[] = {"", "ayer", "2009/07/14", "2009/07/14 18:03:22 ", "\xFF", "3"};
    clsFilas filas;
    for (int intFila = 0; intFila < intFilas; ++intFila) {
        std::string strTiempo = "2009/07/14 18:03:00";
        strTiempo[3] = static_cast<char>('0' + fHasta(10));
        strTiempo[12] = static_cast<char>('0' + fHasta(10));
        strTiempo[18] = static_cast<char>('0' + fHasta(10));
        std::int64_t lngBytes = std::int64_t{fHasta(40)} * fHasta(50'000'000);
        if (bolRaras && fHasta(10) == 0) {
            strTiempo = lstRaras[fHasta(6)];
            lngBytes = std::int64_t{fHasta(2000)} << 32;
        }
        filas.fAgregarFila("/f/" + std::to_string(fHasta(30)) + "/IMG_" +
                               std::to_string(fHasta(2000)) + ".jpg",
                           strTiempo, lngBytes);
    }
    return filas;
}

TEST(Orden, IsThatOfTheTextsThenOfNamesThenOfPathsBothWays)
{
    struct clsCaso {
        const char *strFrase;
        int intFilas;
        bool bolRaras;
    };
    const clsCaso lstCasos[] = {
        {"no rows", 0, false},
        {"one row", 1, false},
        {"many rows", 3000, false},
        {"many odd rows", 3000, true},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        clsFilas filas = fMuchas(caso.intFilas, caso.bolRaras);
        for (const Columna columna :
             {Columna::Nombre, Columna::Fecha, Columna::Tamano, Columna::Carpeta}) {
            SCOPED_TRACE(static_cast<int>(columna));
            for (const bool bolDescendente : {false, true}) {
                // Starts from the order that the sort before it has left.
                const auto lstEsperado = fEsperado(filas, columna, bolDescendente);
                fOrdenar(filas, columna, bolDescendente, fRangosDeBytes);
                EXPECT_TRUE(filas.fOrden() == lstEsperado) << (bolDescendente ? "down" : "up");
            }
        }
    }
}

TEST(Orden, OfSizesIsThatOfTheirTextsWhenOneIsWiderThanTheColumn)
{
    clsFilas filas;
    filas.fAgregarFila("/f/999 GB", "", 999'999'999LL * 1024);
    filas.fAgregarFila("/f/1 TB", "", 1'000'000'000LL * 1024);
    filas.fAgregarFila("/f/0", "", 0);
    fOrdenar(filas, Columna::Tamano, false, fRangosDeBytes);
    EXPECT_EQ(filas.fOrden(), (std::vector<std::uint32_t>{2, 1, 0})); // "1.000..." before "999..."
}

} // namespace
