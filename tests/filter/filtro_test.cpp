#include "filter/filtro.h"

#include "filter/formulario_filtro.h"
#include "shared/texto.h"
#include "soporte/arbol.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace {

/// Tells by what it adds that it was asked.
std::string fMayusculas(std::string_view strTexto) { return fMayusculasAscii(strTexto) + "?"; }

clsFiltro fPalabras(const std::string &strTexto, ModoTexto modo = ModoTexto::And,
                    bool bolCarpeta = false)
{
    clsValoresFiltro valores{"", "", strTexto, bolCarpeta ? "S" : "N", static_cast<int>(modo)};
    return fPedirFiltro(valores).filtro;
}

clsFiltro fFechas(const char *strDesde, const char *strHasta)
{
    clsValoresFiltro valores{strDesde, strHasta, "no such word", "N", 0};
    return fPedirFiltro(valores).filtro;
}

clsFiltrado fFiltrarTodo(const clsFilas &filas, const clsFiltro &filtro)
{
    return fFiltrar(filas, filtro, fMayusculas, [](int) { return true; }).value();
}

bool fPasa(const std::string &strRuta, const clsFiltro &filtro)
{
    clsFilas filas;
    filas.fAgregarFila(strRuta, "2009/07/14 18:03:22", 1);
    return clsBuscaTexto(filtro, fMayusculas).fPasa(filas, 0);
}

clsFilas fMuchas(int lngFilas)
{
    clsFilas filas;
    for (int lngFila = 0; lngFila < lngFilas; ++lngFila) {
        filas.fAgregarFila("/no/such/folder/" + std::to_string(lngFila) +
                               (lngFila % 2 == 0 ? "_par.jpg" : "_non.jpg"),
                           "2009/07/14 18:03:22", 5LL << 30);
    }
    return filas;
}

constexpr auto And = ModoTexto::And;
constexpr auto Or = ModoTexto::Or;
constexpr auto Nor = ModoTexto::Nor;

} // namespace

TEST(FiltroTexto, LooksForTheWordsInWhatIsLeftOfTheName)
{
    struct clsCaso {
        const char *strRuta;
        const char *strTexto;
        ModoTexto modo;
        bool bolCarpeta;
        bool bolPasa;
    };
    const clsCaso lstCasos[] = {
        {"/f/Playa y sol.jpg", "playa , SOL", And, false, true},
        {"/f/Playa.jpg", "playa , SOL", And, false, false},
        {"/f/Playa.jpg", "playa,sol", Or, false, true},
        {"/f/nieve.jpg", "playa,sol", Or, false, false},
        {"/f/nieve.jpg", "playa,sol", Nor, false, true},
        {"/f/sol.jpg", "playa,sol", Nor, false, false},
        {"/f/casa.jpg", "casa,", And, false, true}, // that comma does not count
        {"/f/a.jpg", "", Nor, false, true},
        {"/f/a.jpg", " ", Nor, false, true},
        {"/f/a.jpg", ",", Nor, false, true},
        {"/f/a.jpg", " , ", Nor, false, true},
        {"/f/a.jpg", ",,", And, false, true}, // two empty words
        {"/f/a.jpg", ",,", Or, false, true},
        {"/f/a.jpg", ",,", Nor, false, false},
        {"/f/x.jpg", "a,,b", Nor, false, false},
        {"/f/x.jpg", "a,,b", Or, false, true},
        {"/2009/boda.jpg", "2009", And, false, false},
        {"/2009/boda.jpg", "2009/bo", And, true, true},
        {"/2009/boda.jpg", "jpg", And, true, false},
        {"/f/boda.jpeg", "boda.", And, false, true}, // four characters
        {"/f/boda.jpeg", "boda.j", And, false, false},
        {"/f/a.b", "a", And, false, false},
        {"/fin/b", "/fi", And, true, false}, // "n/b" and "i" are cut off
        {"/fin/b", "/f", And, true, true},
        {"/f/CANCIÓN ñ.jpg", "canción Ñ", And, false, true},
        {"/f/Cancio\u0301n.jpg", "canción", And, false, true},
        {"/f/Canción.jpg", "cancio\u0301n", And, false, true},
        {"/Cancio\u0301n/a.jpg", "CIÓN/A", And, true, true},
        {"/f/Canci\xF3n.jpg", "canción", And, false, true},         // Windows-1252
        {"/f/a.jp\xF3", "a", And, false, true},                     // cut as it shows
        {"/F\xF3/Canci\u00F3n.jpg", "fó/canción", And, true, true}, // each in its own way
        {"/f/5÷3.jpg", "5÷3", And, false, true},
        {"/f/5×3.jpg", "5÷3", And, false, false},
        {"/f/Ω.jpg", "?", And, false, true},
        {"/f/u\u0308\u0304.jpg", "?", And, false, true},
        {"/f/ÿ.jpg", "?", And, false, true},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(std::string(caso.strRuta) + " | " + caso.strTexto);
        EXPECT_EQ(fPasa(caso.strRuta, fPalabras(caso.strTexto, caso.modo, caso.bolCarpeta)),
                  caso.bolPasa);
    }
}

TEST(FiltroTexto, CutsTheWholeExtensionWhereOtherFormatsAreListed)
{
    struct clsCaso {
        const char *strRuta;
        const char *strTexto;
        bool bolSin, bolCon; ///< passes without and with the other formats
    };
    const clsCaso lstCasos[] = {
        {"/f/boda.jpeg", "boda.", true, false}, {"/f/boda.jpeg", "boda", true, true},
        {"/f/boda.HEIC", "boda.", true, false}, {"/f/boda.ts", "boda", false, true},
        {"/f/boda.ts", "boda.", false, false},  {"/f/boda.jpg", "boda", true, true},
        {"/f/boda.png", "png", false, false},   {"/f/boda.texto", "boda.t", true, true},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(std::string(caso.strRuta) + " | " + caso.strTexto);
        clsFiltro filtro = fPalabras(caso.strTexto);
        EXPECT_EQ(fPasa(caso.strRuta, filtro), caso.bolSin);
        filtro.bolFormatos = true;
        EXPECT_EQ(fPasa(caso.strRuta, filtro), caso.bolCon);
    }
}

TEST(FiltroFechas, ReadsTheDiskAndNotTheList)
{
    const clsZona zona("Europe/Madrid");
    const clsArbol arbol;
    const auto fMomentoDe = [](const char *str) {
        return fMomento(fLeerFecha(str).value()).value();
    };
    arbol.fCrear("antes.jpg", "x", fMomentoDe("1999/07/04 23:59:59"));
    arbol.fCrear("primero.jpg", "x", fMomentoDe("1999/07/05 00:00:00"));
    arbol.fCrear("tarde.jpg", std::string(3000, 'x'), fMomentoDe("1999/07/05 00:00:01"));
    arbol.fCrear("ultimo.jpg", "x", fMomentoDe("1999/07/06 00:00:00"));
    arbol.fCrear("despues.jpg", "x", fMomentoDe("1999/07/06 00:00:01"));
    clsFilas filas;
    for (const char *const strNombre : {"ultimo", "gone", "tarde", "antes", "primero", "despues"}) {
        filas.fAgregarFila(arbol.fRuta(strNombre) + ".jpg", "1999/07/05 12:00:00", 1);
    }
    struct clsCaso {
        const char *strDesde;
        const char *strHasta;
        std::vector<int> lstPosiciones;
    };
    const clsCaso lstCasos[] = {
        {"05/07/1999", "06/07/1999", {0, 2, 4}},
        {"05/07/1999", "05/07/1999", {4}},
        {"05/07/1999", "", {0, 2, 4, 5}},
        {"", "05/07/1999", {3, 4}},
        {"07/07/1999", "", {}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(std::string(caso.strDesde) + " to " + caso.strHasta);
        const clsFiltrado filtrado = fFiltrarTodo(filas, fFechas(caso.strDesde, caso.strHasta));
        std::vector<int> lstPosiciones;
        for (const clsConservada &conservada : filtrado.lstFilas) {
            lstPosiciones.push_back(conservada.lngPos);
        }
        EXPECT_EQ(lstPosiciones, caso.lstPosiciones);
    }
    const clsFiltrado filtrado = fFiltrarTodo(filas, fFechas("05/07/1999", "06/07/1999"));
    EXPECT_EQ(filtrado.lngTotalKB, 2) << "3,002 bytes";
    filas.fMarcar(2, true);
    filas.fConservar(filtrado.lstFilas);
    ASSERT_EQ(filas.fCantidad(), 3);
    EXPECT_EQ(filas.fRuta(1), arbol.fRuta("tarde.jpg"));
    EXPECT_EQ(filas.fFecha(1), "1999/07/05 00:00:01");
    EXPECT_EQ(filas.fTamano(1), 3000);
    EXPECT_EQ(filas.fContarMarcados(), 0);
}

TEST(Filtro, KeepsTheRowsOfFilesThatAreGoneByTheirWords)
{
    constexpr int lngFilas = 200'000;
    clsFilas filas = fMuchas(lngFilas);
    const clsFiltrado todas = fFiltrarTodo(filas, fPalabras("_"));
    EXPECT_EQ(todas.lstFilas.size(), lngFilas);
    EXPECT_EQ(todas.lngTotalKB, lngFilas * (5LL << 20));
    EXPECT_TRUE(fFiltrarTodo(filas, fPalabras("zzz")).lstFilas.empty());
    const clsFiltrado mitad = fFiltrarTodo(filas, fPalabras("NON"));
    filas.fConservar(mitad.lstFilas);
    ASSERT_EQ(filas.fCantidad(), lngFilas / 2);
    EXPECT_EQ(filas.fNombre(99'999), "199999_non.jpg") << "list order";
    EXPECT_EQ(filas.fFecha(99'999), "2009/07/14 18:03:22");
    EXPECT_EQ(filas.fTamano(99'999), 5LL << 30);
    EXPECT_EQ(fFiltrarTodo(filas, fPalabras("199999")).lstFilas.front().lngPos, 99'999);
}

TEST(Filtro, EndsAtTheNextStepWhenItIsToldToOrTheListHasChanged)
{
    for (const bool bolCambiar : {false, true}) {
        clsFilas filas;
        for (int lngFila = 0; lngFila < 2000; ++lngFila) {
            filas.fAgregarFila("/f/Ω" + std::to_string(lngFila) + ".jpg", "", 1);
        }
        // Composing takes so long that there are steps.
        const auto fLentas = [](std::string_view) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            return std::string("Ω");
        };
        int intPasos = 0;
        const auto fPaso = [&](int) {
            ++intPasos;
            if (bolCambiar) {
                filas.fVaciar();
            }
            return bolCambiar;
        };
        EXPECT_FALSE(fFiltrar(filas, fPalabras("Ω"), fLentas, fPaso).has_value());
        EXPECT_EQ(intPasos, 1);
    }
}
