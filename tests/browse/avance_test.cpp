#include "browse/avance.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <utility>

namespace {

constexpr Sentido Atras = Sentido::Atras;
constexpr Sentido Adelante = Sentido::Adelante;

/// Files of these days, in this order.
clsFilas fFilas(std::initializer_list<std::string> lstDias)
{
    clsFilas filas;
    for (const std::string &strDia : lstDias) {
        filas.fAgregarFila("/f/a.jpg", strDia + " 23:59:59", 1);
    }
    return filas;
}

/// Files of these folders, in this order.
clsFilas fCarpetas(std::initializer_list<std::string> lstCarpetas)
{
    clsFilas filas;
    for (const std::string &strCarpeta : lstCarpetas) {
        filas.fAgregarFila(strCarpeta + "/a.jpg", "", 1);
    }
    return filas;
}

TEST(Avance, GoesRoundThroughSixModesAndNamesThem)
{
    const char *const lstTextos[] = {"",
                                     "[Avance por CARPETA]",
                                     "[Avance por DÍA]",
                                     "[Avance por SEMANA]",
                                     "[Avance por MES]",
                                     "[Avance por AÑO]"};
    Avance modo = Avance::Normal;
    for (const char *const strTexto : lstTextos) {
        EXPECT_EQ(fTextoAvance(modo), strTexto);
        modo = fSiguienteAvance(modo);
    }
    EXPECT_EQ(modo, Avance::Normal);
}

TEST(Avance, AimsAtTheEdgeOfTheUnit)
{
    struct clsCaso {
        Avance modo;
        Sentido sentido;
        const char *strActual;
        const char *strAntes; ///< the last day that is too early going on, or far enough back
        const char *strDesde; ///< the day after it
    };
    const clsCaso lstCasos[] = {
        {Avance::Dia, Adelante, "2010/02/28", "2010/02/28", "2010/03/01"},
        {Avance::Dia, Atras, "2008/03/01", "2008/02/29", "2008/03/01"},
        {Avance::Semana, Adelante, "2017/05/07", "2017/05/07", "2017/05/08"}, // from a Sunday
        {Avance::Semana, Adelante, "2017/05/08", "2017/05/14", "2017/05/15"},
        {Avance::Semana, Atras, "2017/05/08", "2017/05/07", "2017/05/08"},
        {Avance::Semana, Atras, "2017/05/14", "2017/05/07", "2017/05/08"},
        {Avance::Semana, Adelante, "2009/12/31", "2010/01/03", "2010/01/04"},
        {Avance::Mes, Adelante, "2010/12/31", "2010/12/31", "2011/01/01"},
        {Avance::Mes, Adelante, "2010/01/31", "2010/01/31", "2010/02/01"},
        {Avance::Mes, Atras, "2010/03/03", "2010/02/28", "2010/03/01"},
        {Avance::Mes, Atras, "2008/03/03", "2008/02/29", "2008/03/01"},
        {Avance::Mes, Atras, "2010/01/01", "2009/12/31", "2010/01/01"},
        {Avance::Ano, Adelante, "2010/12/05", "2010/12/31", "2011/01/01"},
        {Avance::Ano, Atras, "2008/02/29", "2007/12/31", "2008/01/01"},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strActual);
        const bool bolAdelante = caso.sentido == Adelante;
        // A file on either side of the edge, and one behind them that a miss leads to.
        const clsFilas filas =
            bolAdelante ? fFilas({caso.strActual, caso.strAntes, caso.strDesde, "0100/01/01"})
                        : fFilas({"9999/12/31", caso.strAntes, caso.strDesde, caso.strActual});
        EXPECT_EQ(fAvanzar(filas, bolAdelante ? 0 : 3, caso.modo, caso.sentido),
                  bolAdelante ? 2 : 1);
    }
}

TEST(Avance, GoesBackToTheLastFileOfADayAndOnToTheFirst)
{
    const clsFilas filas = fFilas({"2010/05/01", "2010/05/03", "2010/05/03", "2010/05/07"});
    EXPECT_EQ(fAvanzar(filas, 3, Avance::Dia, Atras), 2);
    EXPECT_EQ(fAvanzar(filas, 2, Avance::Dia, Atras), 0);
    EXPECT_EQ(fAvanzar(filas, 0, Avance::Dia, Adelante), 1);
    EXPECT_EQ(fAvanzar(filas, 1, Avance::Dia, Adelante), 3);
}

TEST(Avance, EndsAtTheEndsOfTheList)
{
    for (const Avance modo :
         {Avance::Carpeta, Avance::Dia, Avance::Semana, Avance::Mes, Avance::Ano}) {
        SCOPED_TRACE(static_cast<int>(modo));
        // The ends of the calendar, too: what lies beyond is found nowhere.
        for (const char *const strDia : {"2010/05/07", "9999/12/31", "0100/01/01"}) {
            const clsFilas filas = fFilas({strDia, strDia, strDia});
            EXPECT_EQ(fAvanzar(filas, 1, modo, Atras), 0);
            EXPECT_EQ(fAvanzar(filas, 1, modo, Adelante), 2);
            EXPECT_EQ(fAvanzar(filas, 0, modo, Atras), std::nullopt);
            EXPECT_EQ(fAvanzar(filas, 2, modo, Adelante), std::nullopt);
        }
        EXPECT_EQ(fAvanzar(clsFilas(), 0, modo, Adelante), std::nullopt);
    }
}

TEST(Avance, PassesOverRowsWithoutADate)
{
    clsFilas filas;
    for (const char *const strFecha :
         {"2010/05/01 10:00:00", "", "2010/05/32 10:00:00", "2010/05/02 24:00:00",
          "0099/05/02 10:00:00", "mayo", " 2010/05/02 10:00:00 ", "2010/05/03 10:00:00"}) {
        filas.fAgregarFila("/f/a.jpg", strFecha, 1);
    }
    EXPECT_EQ(fAvanzar(filas, 0, Avance::Dia, Adelante), 6);
    EXPECT_EQ(fAvanzar(filas, 6, Avance::Dia, Atras), 0);
    EXPECT_EQ(fAvanzar(filas, 2, Avance::Dia, Adelante), std::nullopt); // nowhere to go from
    EXPECT_EQ(fAvanzar(filas, 1, Avance::Ano, Atras), std::nullopt);
}

TEST(Avance, TakesTheOrderOfTheListAsItStands)
{
    clsFilas filas = fFilas({"2010/05/01", "2010/05/02", "2010/05/03"});
    filas.fReordenar({2, 0, 1});
    EXPECT_EQ(fAvanzar(filas, 0, Avance::Dia, Adelante), 2); // nothing later: the last
    EXPECT_EQ(fAvanzar(filas, 1, Avance::Dia, Adelante), 2);
    EXPECT_EQ(fAvanzar(filas, 2, Avance::Dia, Atras), 1);
    EXPECT_EQ(fAvanzar(filas, 1, Avance::Dia, Atras), 0); // nothing earlier: the first
}

TEST(Avance, GoesFromFolderToFolder)
{
    const clsFilas filas = fCarpetas({"/a", "/a", "/b", "/b", "/B", "/a", "/a", "/a/b"});
    const std::pair<int, int> lstAtras[] = {
        {1, 0}, {2, 0}, {3, 0}, // never the first file of the current folder
        {4, 2}, {5, 4},         // another case is another folder
        {6, 4}, {7, 5},
    };
    for (const auto &[lngActual, lngDestino] : lstAtras) {
        EXPECT_EQ(fAvanzar(filas, lngActual, Avance::Carpeta, Atras), lngDestino) << lngActual;
    }
    EXPECT_EQ(fAvanzar(filas, 0, Avance::Carpeta, Adelante), 2);
    EXPECT_EQ(fAvanzar(filas, 3, Avance::Carpeta, Adelante), 4);
    EXPECT_EQ(fAvanzar(filas, 5, Avance::Carpeta, Adelante), 7);
    EXPECT_EQ(fAvanzar(filas, 7, Avance::Carpeta, Adelante), std::nullopt);
}

TEST(IrAFecha, AcceptsEightDigitsThatNameADay)
{
    EXPECT_EQ(fLeerRespuestaFecha("07052010"), fFechaDe({2010, 5, 7}));
    EXPECT_EQ(fLeerRespuestaFecha("29022008"), fFechaDe({2008, 2, 29}));
    EXPECT_EQ(fLeerRespuestaFecha("31129999"), fFechaDe({9999, 12, 31}));
    for (const char *const strRespuesta :
         {"", "7052010", "070520100", "31022010", "29022010", "00052010", "07132010", "07050099",
          "siete de", "07/05/10", "0705201O", " 7052010", "+7052010", "-7052010", "ñ052010"}) {
        SCOPED_TRACE(strRespuesta);
        EXPECT_EQ(fLeerRespuestaFecha(strRespuesta), std::nullopt);
    }
}

TEST(IrAFecha, LeadsToTheFirstFileOnOrAfterTheDay)
{
    clsFilas filas;
    for (const char *const strFecha :
         {"2010/05/03 10:00:00", "sin fecha", "2010/05/07 00:00:00", "2010/05/07 12:00:00"}) {
        filas.fAgregarFila("/f/a.jpg", strFecha, 1);
    }
    struct clsCaso {
        const char *strRespuesta;
        int lngActual;
        std::optional<int> lngDestino;
    };
    const clsCaso lstCasos[] = {
        {"01011990", 3, 0}, // before all files
        {"03052010", 0, 0}, // the current one
        {"04052010", 0, 2},
        {"07052010", 3, 2},
        {"08052010", 0, 3},            // after all files
        {"08052010", 3, std::nullopt}, // and there already
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strRespuesta);
        const auto dia = fLeerRespuestaFecha(caso.strRespuesta);
        ASSERT_TRUE(dia);
        EXPECT_EQ(fIrAFecha(filas, caso.lngActual, *dia), caso.lngDestino);
        EXPECT_EQ(fIrAFecha(clsFilas(), 0, *dia), std::nullopt);
    }
}

} // namespace
