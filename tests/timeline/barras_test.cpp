#include "timeline/barras.h"

#include "browse/avance.h"
#include "timeline/lista_fechas.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace std::chrono_literals;
using std::chrono::days;
using std::chrono::sys_days;

clsPeriodo fMes(int intAno, unsigned intMes)
{
    return fPeriodo(std::chrono::year{intAno} / std::chrono::month{intMes} / 15, Unidad::Mes);
}

TEST(Barras, CountTheFilesOfTheirMonthOrDay)
{
    struct clsCaso {
        const char *strFrase;
        clsFilas filas;
        Unidad unidad;
        std::vector<clsBarra> lstBarras;
    };
    const sys_days dia = 2009y / 7 / 14;
    const clsCaso lstCasos[] = {
        {"nothing listed", {}, Unidad::Mes, {}},
        {"the last second of a month and the first of the next",
         fListaFechas({"2009/07/31 23:59:59", "2009/08/01", "2009/07/01"}),
         Unidad::Mes,
         {{fMes(2009, 7), 2}, {fMes(2009, 8), 1}}},
        {"a December and a leap year's February",
         fListaFechas({"2007/12/31 12:00:00", "2008/02/29"}),
         Unidad::Mes,
         {{fMes(2007, 12), 1}, {fMes(2008, 2), 1}}},
        {"days",
         fListaFechas({"2009/07/14 01:00:00", "2009/07/16", "2009/07/14 23:59:59"}),
         Unidad::Dia,
         {{{dia, dia + days{1}}, 2}, {{dia + days{2}, dia + days{3}}, 1}}},
        {"before day 0", fListaFechas({"1850/01/01 23:59:59"}), Unidad::Mes, {{fMes(1850, 1), 1}}},
        {"texts that are no dates stand before all others",
         fListaFechas({"2009/07/14", "?", "2009/02/31"}),
         Unidad::Mes,
         {{.lngArchivos = 2}, {fMes(2009, 7), 1}}},
        {"nothing but such", fListaFechas({"?"}), Unidad::Dia, {{.lngArchivos = 1}}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fBarras(fContarDias(caso.filas), caso.unidad), caso.lstBarras);
    }
}

TEST(Barras, TellHowManyAreKnownToBeWrong)
{
    const clsFilas filas = fListaFechas({"2009/07/14", "2009/07/15", "2009/07/16", "2009/08/01"});
    const auto lstBarras = fBarras(fContarDias(filas, {true, false, true, false}), Unidad::Mes);
    EXPECT_EQ(lstBarras, (std::vector<clsBarra>{{fMes(2009, 7), 3, 2}, {fMes(2009, 8), 1, 0}}));
}

TEST(Barras, AreDaysForAYearAtMost)
{
    EXPECT_EQ(fUnidad(days{365}), Unidad::Dia);
    EXPECT_EQ(fUnidad(days{366}), Unidad::Mes);
}

TEST(Barras, AreFoundByADate)
{
    const auto lstBarras =
        fBarras(fContarDias(fListaFechas({"?", "2009/07/14", "2010/01/01"})), Unidad::Mes);
    const auto lstFechadas = fBarras(fContarDias(fListaFechas({"2009/07/14"})), Unidad::Mes);
    struct clsCaso {
        const char *strFrase;
        const std::vector<clsBarra> &lstBarras;
        sys_days dia;
        int lngDe, lngDesde;
    };
    const std::vector<clsBarra> lstNinguna;
    const clsCaso lstCasos[] = {
        {"before all", lstBarras, 2009y / 6 / 30, -1, 1},
        {"its first day", lstBarras, 2009y / 7 / 1, 1, 1},
        {"its last day", lstBarras, 2009y / 7 / 31, 1, 1},
        {"between two: the next", lstBarras, 2009y / 8 / 1, -1, 2},
        {"after all: the last", lstBarras, 2010y / 2 / 1, -1, 2},
        {"no bar", lstNinguna, 2010y / 2 / 1, -1, -1},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fBarraDe(caso.lstBarras, fMedianoche(caso.dia)), caso.lngDe);
        EXPECT_EQ(fBarraDesde(caso.lstBarras, caso.dia), caso.lngDesde);
    }
    EXPECT_EQ(fBarraDe(lstBarras, clsFilas::datNinguna), 0);
    EXPECT_EQ(fBarraDe(lstFechadas, clsFilas::datNinguna), -1);
    EXPECT_EQ(fBarraDe(lstNinguna, clsFilas::datNinguna), -1);
}

TEST(Barras, LeadToTheirFirstFileAsGoingToADateDoes)
{
    clsFilas filas =
        fListaFechas({"?", "2009/07/14", "2009/07/20", "2009/09/01", "2010/01/01 10:00:00"});
    const auto lstBarras = fBarras(fContarDias(filas), Unidad::Mes);
    for (const clsBarra &barra : lstBarras) {
        if (!barra.fSinFecha()) {
            EXPECT_EQ(fPrimera(filas, barra),
                      fIrAFecha(filas, 0, fMedianoche(barra.periodo.desde)));
        }
    }
    EXPECT_EQ(fPrimera(filas, lstBarras[0]), 0);
    filas.fReordenar({4, 3, 2, 1, 0}); // the latest first
    const int lstPosiciones[] = {4, 2, 1, 0};
    for (std::size_t lng = 0; lng < lstBarras.size(); ++lng) {
        EXPECT_EQ(fPrimera(filas, lstBarras[lng]), lstPosiciones[lng]);
    }
    EXPECT_FALSE(fPrimera(filas, {fMes(2009, 8)}));
}

TEST(Barras, AreAsHighAsTheSquareRootOfTheirFiles)
{
    EXPECT_EQ(fAltura(100, 100, 40), 40);
    EXPECT_EQ(fAltura(25, 100, 40), 20);
    EXPECT_EQ(fAltura(1, 100, 40), 4);
    EXPECT_EQ(fAltura(0, 100, 40), 0);
    EXPECT_EQ(fAltura(0, 0, 40), 0);
}

} // namespace
