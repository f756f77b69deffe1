// Which files are alike, which of them is to stay, and what is said of them.
#include "duplicates/busqueda_copias.h"
#include "duplicates/candidatos.h"
#include "duplicates/textos_duplicados.h"
#include "soporte/arbol.h"
#include "soporte/fallos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <utility>

namespace {

using clsNombres = std::vector<std::string>;

/// A file of a group: its path, a number that says which file it is, whether its date is right.
clsGemelo fGemelo(const char *strRuta, std::uint64_t lngNumero, bool bolFechaBien = false)
{
    return {strRuta, {1, lngNumero}, {.lngBytes = 3000 * 1024}, bolFechaBien};
}

/// What came of a search: the names of each group, and which of them is to stay.
struct clsHallado {
    std::vector<clsNombres> lstGrupos;
    clsNombres lstQuedan;
    clsOmitidos omitidos;
};

clsHallado fBuscarCopias(const clsArbol &arbol, const clsNombres &lstNombres)
{
    clsCandidatos candidatos;
    for (const std::string &strNombre : lstNombres) {
        candidatos.lstRutas.push_back(arbol.fRuta(strNombre));
    }
    clsHallado hallado;
    const auto fNombre = [&](const clsGemelo &uno) {
        return uno.strRuta.substr(arbol.fRaiz().size());
    };
    clsBusquedaCopias busqueda(
        candidatos,
        {.fFechaBien =
             [](const std::string &strRuta) { return strRuta.find("bien") != std::string::npos; },
         .fGrupo =
             [&](const clsGrupo &grupo) {
                 hallado.lstGrupos.emplace_back();
                 for (const clsGemelo &uno : grupo.lstGemelos) {
                     hallado.lstGrupos.back().push_back(fNombre(uno));
                 }
                 hallado.lstQuedan.push_back(fNombre(grupo.lstGemelos[grupo.lngQueda]));
             },
         .fAvance = [] {}});
    busqueda.fEmpezar();
    while (busqueda.fBuscando() && busqueda.fAtender(std::chrono::seconds(10))) {
        EXPECT_LE(busqueda.fHechos(), busqueda.fTodos());
    }
    EXPECT_FALSE(busqueda.fBuscando());
    EXPECT_FALSE(busqueda.fAtender(std::chrono::milliseconds(0))) << "more was ordered";
    std::sort(hallado.lstGrupos.begin(), hallado.lstGrupos.end());
    std::sort(hallado.lstQuedan.begin(), hallado.lstQuedan.end());
    hallado.omitidos = busqueda.fOmitidos();
    return hallado;
}

/// Bytes of a file that is long enough to be read in several pieces.
std::string fLargo(char chrUltimo)
{
    std::string strBytes(5 << 20, 'a');
    strBytes.back() = chrUltimo;
    return strBytes;
}

/// Reads fail behind the first megabytes of files.
ssize_t fLeerPoco(int intFd, void *bytDatos, std::size_t lngBytes, off_t lngPos)
{
    if (lngPos > (1 << 20)) {
        errno = EIO;
        return -1;
    }
    return llamadasReales.fLeerEn(intFd, bytDatos, lngBytes, lngPos);
}

} // namespace

TEST(Duplicados, PicksRowsOfEqualSizeBelowTheRoot)
{
    const struct {
        const char *strRuta;
        std::int64_t lngBytes;
    } lstFilas[] = {{"/r/a.jpg", 5}, {"/r/b.jpg", 7},    {"/r/c.jpg", 5},
                    {"/r/d.jpg", 9}, {"/otra/e.jpg", 7}, {"/r/f.jpg", 5}};
    clsFilas filas;
    filas.fFijarRaiz("/r/");
    for (const auto &fila : lstFilas) {
        filas.fAgregarFila(fila.strRuta, "2009/07/14 18:03:22", fila.lngBytes);
    }
    const clsCandidatos candidatos = fCandidatos(filas);
    EXPECT_EQ(candidatos.lstRutas, (clsNombres{"/r/a.jpg", "/r/c.jpg", "/r/f.jpg", "/r/b.jpg"}));
    EXPECT_EQ(candidatos.intFuera, 1);
    EXPECT_TRUE(fCandidatos({}).lstRutas.empty());
}

TEST(Duplicados, ProposeWhatStays)
{
    const struct {
        const char *strFrase;
        std::vector<clsGemelo> lstGemelos;
        const char *strQueda;
    } lstCasos[] = {
        {"a right date comes first", {fGemelo("/a", 1), fGemelo("/largo/b", 2, true)}, "/largo/b"},
        {"then the shorter path", {fGemelo("/largo/a", 1), fGemelo("/b", 2)}, "/b"},
        {"among right dates, too", {fGemelo("/largo/a", 1, true), fGemelo("/b", 2, true)}, "/b"},
        {"of equal length the first", {fGemelo("/c", 1), fGemelo("/b", 2)}, "/b"},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(caso.lstGemelos[fProponer(caso.lstGemelos)].strRuta, caso.strQueda)
            << caso.strFrase;
    }
}

TEST(Duplicados, AnotherNameOfWhatStaysIsNoCopy)
{
    // b and c are one file; d and e are copies, another one.
    clsGrupo grupo{
        {fGemelo("/a", 1), fGemelo("/b", 2), fGemelo("/c", 2), fGemelo("/d", 3), fGemelo("/e", 3)},
        1};
    EXPECT_EQ(fSobrantes({grupo}), (clsNombres{"/a", "/d", "/e"}));
    EXPECT_EQ(fSumarSobra({grupo}).intCopias, 3);
    EXPECT_EQ(fSumarSobra({grupo}).lngBytes, 2 * 3000 * 1024);
    grupo.lngQueda = 0;
    EXPECT_EQ(fSobrantes({grupo}), (clsNombres{"/b", "/c", "/d", "/e"}));
}

TEST(Duplicados, AreFoundByTheirContent)
{
    const clsArbol arbol;
    const std::pair<const char *, std::string> lstFicheros[] = {
        {"a/uno.jpg", "same bytes"},
        {"b/uno.jpg", "same bytes"},
        {"b/otro.jpg", "other byte"}, // of the same size
        {"solo.jpg", "nobody's size"},
        {"vacio1.jpg", ""},
        {"vacio2.jpg", ""},
        {"largo1.mov", fLargo('x')}, // differ in their last byte only
        {"largo2.mov", fLargo('y')},
        {"largo3.mov", fLargo('x')},
        {"bien4.mov", fLargo('y')},
        {"largo5.mov", fLargo('z')},
        {"largo6.mov", fLargo('x')},
    };
    clsNombres lstNombres{"falta.jpg", "a"};
    for (const auto &[strNombre, strBytes] : lstFicheros) {
        arbol.fCrear(strNombre, strBytes);
        lstNombres.emplace_back(strNombre);
    }
    std::filesystem::create_hard_link(arbol.fRuta("solo.jpg"), arbol.fRuta("solo2.jpg"));
    std::filesystem::create_hard_link(arbol.fRuta("b/uno.jpg"), arbol.fRuta("b/uno2.jpg"));
    lstNombres.insert(lstNombres.end(), {"solo2.jpg", "b/uno2.jpg"});
    const clsHallado hallado = fBuscarCopias(arbol, lstNombres);
    EXPECT_EQ(hallado.lstGrupos,
              (std::vector<clsNombres>{{"a/uno.jpg", "b/uno.jpg", "b/uno2.jpg"},
                                       {"bien4.mov", "largo2.mov"},
                                       {"largo1.mov", "largo3.mov", "largo6.mov"}}));
    EXPECT_EQ(hallado.lstQuedan, (clsNombres{"a/uno.jpg", "bien4.mov", "largo1.mov"}));
    EXPECT_EQ(hallado.omitidos.intFaltan, 1);
    EXPECT_EQ(hallado.omitidos.intIlegibles, 1); // a folder
    EXPECT_EQ(hallado.omitidos.intVacios, 2);
    EXPECT_EQ(hallado.omitidos.intOtroNombre, 2);
    EXPECT_TRUE(fBuscarCopias(arbol, {}).lstGrupos.empty());
    EXPECT_TRUE(fBuscarCopias(arbol, {"solo.jpg", "solo2.jpg"}).lstGrupos.empty());
}

TEST(Duplicados, MoreThanAreOpenAtATimeAreOneGroup)
{
    const clsArbol arbol;
    clsNombres lstNombres;
    for (int intCual = 100; intCual < 200; ++intCual) {
        lstNombres.push_back(std::to_string(intCual) + ".jpg");
        arbol.fCrear(lstNombres.back(), intCual % 3 == 0 ? "one content" : "another one");
    }
    const clsHallado hallado = fBuscarCopias(arbol, lstNombres);
    ASSERT_EQ(hallado.lstGrupos.size(), 2U);
    EXPECT_EQ(hallado.lstGrupos[0].size(), 67U);
    EXPECT_EQ(hallado.lstGrupos[1].size(), 33U);
}

TEST(Duplicados, WhatCannotBeReadToItsEndIsNoCopy)
{
    const clsArbol arbol;
    arbol.fCrear("a.mov", fLargo('x'));
    arbol.fCrear("b.mov", fLargo('x'));
    clsLlamadas llamadas = llamadasReales;
    llamadas.fLeerEn = fLeerPoco;
    const clsOtrasLlamadas otras(llamadas);
    const clsHallado hallado = fBuscarCopias(arbol, {"a.mov", "b.mov"});
    EXPECT_TRUE(hallado.lstGrupos.empty());
    EXPECT_EQ(hallado.omitidos.intIlegibles, 1); // the other one was not needed any more
}

TEST(Duplicados, ASizeThatHasChangedIsNotCompared)
{
    const clsArbol arbol;
    arbol.fCrear("a.mov", "bytes");
    arbol.fCrear("b.mov", "bytes");
    clsComparacion comparacion({arbol.fRuta("a.mov"), arbol.fRuta("b.mov")}, 4);
    EXPECT_TRUE(comparacion.fTurno(clsAnulado(false)));
    EXPECT_TRUE(comparacion.fClases().empty());
    EXPECT_EQ(comparacion.fIlegibles(), 1); // the other one has nothing to be compared with
}

TEST(Duplicados, AreToldInWords)
{
    const clsGrupo grupo{
        {fGemelo("/r/2009/Playa/a.jpg", 1, true), fGemelo("/r/b.jpg", 2), fGemelo("/r/c.jpg", 1)},
        0};
    const char *const lstTextos[][intColumnasDuplicados] = {
        {"se queda", "a.jpg", "2009/Playa", "01/01/1970 00:00:00", "sí", "3.000 KB"},
        {"copia", "b.jpg", "", "01/01/1970 00:00:00", "no", "3.000 KB"},
        {"otro nombre", "c.jpg", "", "01/01/1970 00:00:00", "no", "3.000 KB"},
    };
    const clsZona zona("UTC");
    for (std::size_t lngCual = 0; lngCual < 3; ++lngCual) {
        for (int intColumna = 0; intColumna < intColumnasDuplicados; ++intColumna) {
            EXPECT_EQ(
                fTextoDuplicado(grupo, lngCual, static_cast<ColumnaDuplicados>(intColumna), "/r/"),
                lstTextos[lngCual][intColumna]);
        }
    }
    EXPECT_EQ(fTextoHallados({}, {}, true), "");
    EXPECT_EQ(fTextoHallados({}, {}, false), "No hay archivos duplicados.");
    EXPECT_EQ(fTextoHallados({grupo}, {.intFaltan = 1, .intVacios = 2}, true),
              "1 grupo, 1 copia (3.000 KB). Sin comparar: 1 no existe, 2 están vacíos.");
    EXPECT_EQ(fTextoMarcar(0), "&Marcar las copias");
    EXPECT_EQ(fTextoMarcar(1234), "&Marcar las copias (1.234)");
}
