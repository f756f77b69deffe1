#include "filter/formulario_filtro.h"

#include <gtest/gtest.h>

TEST(FormularioFiltro, SaysWhyADateIsNotAccepted)
{
    struct clsCaso {
        const char *strTexto;
        const char *strMensaje;
        const char *strMuestra;
    };
    const clsCaso lstCasos[] = {
        {"", "", ""},
        {"050799", "", "05/07/1999"},
        {"050749", "", "05/07/2049"},
        {"010150", "", "01/01/1950"},
        {"290200", "", "29/02/2000"},
        {"14/07/2009", "", "14/07/2009"}, // accepted before
        {"15/07/2009", "La fecha debe tener el formato: DDMMYY", "15/07/2009"},
        {"05079", "La fecha debe tener el formato: DDMMYY", "05079"},
        {"0507999", "La fecha debe tener el formato: DDMMYY", "0507999"},
        {"310299", "Fecha no válida.", "310299"},
        {"290201", "Fecha no válida.", "290201"},
        {"000000", "Fecha no válida.", "000000"},
        {"071399", "Fecha no válida.", "071399"}, // day first only
        {"1/1/99", "Fecha no válida.", "1/1/99"},
        {"áéíóúñ", "Fecha no válida.", "áéíóúñ"},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strTexto);
        const clsCajaFecha caja = fDejarCaja(caso.strTexto, "14/07/2009");
        EXPECT_EQ(caja.strFallo, caso.strMensaje);
        EXPECT_EQ(caja.strTexto, caso.strMuestra);
    }
}

TEST(FormularioFiltro, OffersSixDigitsForEditing)
{
    const char *const lstCasos[][2] = {
        {"05/07/1999", "050799"}, {"05/07/2049", "050749"},     {"", ""},
        {"0507", "0507"},         {"31/02/1999", "31/02/1999"},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fEditarCaja(caso[0]), caso[1]);
    }
}

TEST(FormularioFiltro, TakesDigitsAndWhatEndsOrCorrects)
{
    for (const char *const strTecla : {"0", "9", "\b", "\r", "\x1B", ""}) {
        EXPECT_TRUE(fAdmiteTecla(strTecla)) << strTecla;
    }
    for (const char *const strTecla : {"/", "a", " ", "\x16", "\x01", "٣", "-"}) {
        EXPECT_FALSE(fAdmiteTecla(strTecla)) << strTecla;
    }
}

TEST(FormularioFiltro, TakesTheDigitsOfWhatIsPasted)
{
    EXPECT_EQ(fSoloCifras("05/07/99\n"), "050799");
    EXPECT_EQ(fSoloCifras("٣ mañana"), "");
}

TEST(FormularioFiltro, SaysWhyARequestIsNone)
{
    struct clsCaso {
        clsValoresFiltro valores;
        const char *strMensaje;
        const char *strTexto;
    };
    const clsCaso lstCasos[] = {
        {{"", "", "", "S", 2}, "No has seleccionado ningún filtro.", ""},
        {{"", "", " ", "N", 0}, "", ""},
        {{"", "", " a ,b, ", "N", 0}, "", "a ,b"},
        {{"", "", "a,,", "N", 0}, "", "a,"},
        {{"02/01/2009", "01/01/2009", "a,", "N", 0}, "La fecha final es menor a la inicial.", "a,"},
        {{"02/01/2009", "02/01/2009", "a,", "N", 0}, "", "a"},
        {{"020109", "", "a,", "N", 0}, "Fecha no válida.", "a,"}, // never no date
        {{"", "31/02/2009", "a,", "N", 0}, "Fecha no válida.", "a,"},
    };
    for (clsCaso caso : lstCasos) {
        SCOPED_TRACE(caso.valores.strFiltroTexto);
        EXPECT_EQ(fPedirFiltro(caso.valores).strFallo, caso.strMensaje);
        EXPECT_EQ(caso.valores.strFiltroTexto, caso.strTexto);
    }
}

TEST(FormularioFiltro, FillsTheOpenEndsOfARange)
{
    clsValoresFiltro desde{"05/07/1999", "", "", "N", 0};
    clsValoresFiltro hasta{"", "05/07/1999", "", "N", 0};
    EXPECT_EQ(fEscribirFecha(fPedirFiltro(desde).filtro.datHasta, strFormaUsuario),
              "31/12/2100 00:00:00");
    EXPECT_EQ(fEscribirFecha(fPedirFiltro(hasta).filtro.datDesde, strFormaUsuario),
              "01/01/1901 00:00:00");
    EXPECT_EQ(fEscribirFecha(fPedirFiltro(hasta).filtro.datHasta, strFormaUsuario),
              "05/07/1999 00:00:00");
    EXPECT_EQ(fTituloFiltro(200'000), "Filtro (200000 archivos)");
}
