#include "timeline/tira.h"

#include "timeline/lista_fechas.h"
#include "timeline/rotulos.h"
#include "timeline/textos_tiempo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace {

using namespace std::chrono_literals;
using std::chrono::days;
using std::chrono::sys_days;

/// A strip of a list; 1000 pixels of it are the axis.
clsTira fTira(const std::vector<std::string> &lstFechas, double dblSinFecha = 50)
{
    clsTira tira;
    const clsDias dias = fContarDias(fListaFechas(lstFechas));
    tira.fMostrar(dias);
    tira.fDisponer({0, 1000 + (dias.lngSinFecha > 0 ? dblSinFecha : 0)}, dblSinFecha);
    return tira;
}

/// A date in every month of so many.
std::vector<std::string> fCadaMes(std::chrono::year_month primero, int intMeses)
{
    std::vector<std::string> lstFechas;
    for (int intMes = 0; intMes < intMeses; ++intMes) {
        lstFechas.push_back(
            fEscribirFecha(fMedianoche((primero + std::chrono::months{intMes}) / 1), "yyyy/MM/dd"));
    }
    return lstFechas;
}

/// And one besides, before them.
std::vector<std::string> fTras(std::string strFecha, std::vector<std::string> lstFechas)
{
    lstFechas.insert(lstFechas.begin(), std::move(strFecha));
    return lstFechas;
}

TEST(Eje, FoldsGapsThatAreLongerThanTheRest)
{
    struct clsCaso {
        const char *strFrase;
        std::vector<std::string> lstFechas;
        std::vector<std::string> lstPliegues;
    };
    const clsCaso lstCasos[] = {
        {"no gap", {"2009/07/14", "2009/07/15"}, {}},
        {"to scale", {"2005/01/01", "2006/01/01", "2007/01/01"}, {}},
        {"a date before cameras had the right one",
         fTras("1980/01/01", fCadaMes(2003y / 1, 200)),
         {"de febrero de 1980 a diciembre de 2002"}},
        {"what is longer than the rest without a longer one",
         fTras("1601/01/01", fTras("1980/01/01", fCadaMes(2003y / 1, 200))),
         {"de febrero de 1601 a diciembre de 1979", "de febrero de 1980 a diciembre de 2002"}},
        {"days", {"2009/07/01", "2009/07/12"}, {"del 2 de julio de 2009 al 11 de julio de 2009"}},
        {"as long as the rest", {"2009/07/01", "2009/07/04"}, {}},
        {"without a date", {"?"}, {}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const clsTira tira = fTira(caso.lstFechas);
        std::vector<std::string> lstPliegues;
        double dblHasta = 0;
        for (const clsTrecho &trecho : tira.fEje().fTrechos()) {
            EXPECT_EQ(trecho.dblDesde, dblHasta); // nothing between them
            dblHasta = trecho.dblHasta;
            if (trecho.bolPlegado) {
                lstPliegues.push_back(fTextoPeriodo(trecho.periodo));
            }
        }
        EXPECT_EQ(lstPliegues, caso.lstPliegues);
    }
}

TEST(Eje, GivesTheDayOfEveryPlaceAndThePlaceOfEveryDay)
{
    const clsTira tira = fTira({"1980/01/01", "2003/01/01", "2004/05/01"});
    const clsEje &eje = tira.fEje();
    for (sys_days dia = 1980y / 1 / 1; dia <= sys_days{2004y / 6 / 1}; dia += days{1}) {
        ASSERT_EQ(eje.fDiaEn(eje.fLugar(dia)), dia) << fTextoPeriodo({dia, dia + days{1}});
    }
    EXPECT_EQ(eje.fLugar(1979y / 1 / 1), 0);
    EXPECT_EQ(eje.fLugar(2010y / 1 / 1), eje.fLargo());
}

TEST(Tira, TellsWhatLiesAtAPoint)
{
    struct clsCaso {
        const char *strFrase;
        clsTira tira;
        double dblX;
        const char *strTexto;
        const char *strDesde; ///< where one comes to from there
    };
    const clsTira meses = fTira({"?", "2008/01/01", "2008/10/01", "2009/07/14", "2009/07/15"});
    const clsTira plegada = fTira({"1970/01/01", "2009/07/14"});
    const clsTira dias = fTira({"2009/07/01", "2009/07/04"}); // 250 pixels a day
    const clsCaso lstCasos[] = {
        {"left of the axis", meses, 49, "sin fecha: 1 archivo", "sin fecha: 1 archivo"},
        {"its first month", meses, 50, "enero de 2008: 1 archivo", "enero de 2008: 1 archivo"},
        {"a month without", meses, 150, "febrero de 2008: ningún archivo",
         "octubre de 2008: 1 archivo"},
        {"its last", meses, 1049, "julio de 2009: 2 archivos", "julio de 2009: 2 archivos"},
        {"beyond", meses, 2000, "julio de 2009: 2 archivos", "julio de 2009: 2 archivos"},
        {"a fold", plegada, 500, "de febrero de 1970 a junio de 2009: ningún archivo",
         "julio de 2009: 1 archivo"},
        {"a day", dias, 249, "1 de julio de 2009: 1 archivo", "1 de julio de 2009: 1 archivo"},
        {"the next", dias, 250, "2 de julio de 2009: ningún archivo",
         "4 de julio de 2009: 1 archivo"},
        {"without dates", fTira({"?"}), 500, "sin fecha: 1 archivo", "sin fecha: 1 archivo"},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fTextoBarra(caso.tira.fEn(caso.dblX)), caso.strTexto);
        const int lngDesde = caso.tira.fDesde(caso.dblX);
        EXPECT_EQ(fTextoBarra(caso.tira.fBarras().at(static_cast<std::size_t>(lngDesde))),
                  caso.strDesde);
    }
    EXPECT_EQ(clsTira().fDesde(10), -1);
    EXPECT_EQ(clsTira().fEn(10), clsBarra());
}

TEST(Tira, TakesWholeMonthsBetweenTwoPoints)
{
    const clsTira tira = fTira({"?", "2008/01/01", "2008/02/01", "2008/12/01", "2009/07/14"});
    const double dblEnero = tira.fSitio(tira.fBarras()[1]).dblDesde + 1;
    const double dblFebrero = tira.fSitio(tira.fBarras()[2]).dblHasta - 1;
    struct clsCaso {
        double dblX, dblOtra;
        const char *strTexto;
    };
    const clsCaso lstCasos[] = {
        {dblEnero, dblFebrero, "de enero de 2008 a febrero de 2008: 2 archivos"},
        {dblFebrero, dblEnero, "de enero de 2008 a febrero de 2008: 2 archivos"},
        {dblFebrero, dblFebrero, "febrero de 2008: 1 archivo"},
        {dblFebrero + 10, dblFebrero + 10, "marzo de 2008: ningún archivo"},
        {0, 2000, "de enero de 2008 a julio de 2009: 4 archivos"}, // none without a date
        {-5, 3, "enero de 2008: 1 archivo"},
    };
    for (const clsCaso &caso : lstCasos) {
        EXPECT_EQ(fTextoBarra(tira.fEntre(caso.dblX, caso.dblOtra)), caso.strTexto);
    }
}

TEST(Tira, IsEnlargedAboutThePointer)
{
    clsTira tira = fTira(fCadaMes(2000y / 1, 120));
    const sys_days dia = tira.fDiaEn(400);
    tira.fAmpliar(400, 4);
    EXPECT_EQ(tira.fDiaEn(400), dia);
    EXPECT_EQ(tira.fUnidad(), Unidad::Mes);
    tira.fAmpliar(400, 4);
    EXPECT_EQ(tira.fDiaEn(400), dia);
    EXPECT_EQ(tira.fUnidad(), Unidad::Dia); // less than a year is shown
    tira.fAmpliar(400, 1e9);
    EXPECT_EQ((tira.fDiaEn(1000) - tira.fDiaEn(0)).count(), 14);
    tira.fAmpliar(400, 1e-9);
    EXPECT_EQ(tira.fDiaEn(0), sys_days{2000y / 1 / 1});
    EXPECT_EQ(tira.fDiaEn(1000), sys_days{2010y / 1 / 1});
    EXPECT_EQ(tira.fUnidad(), Unidad::Mes);
    clsTira vacia;
    vacia.fAmpliar(10, 2);
    vacia.fCorrer(10);
    EXPECT_TRUE(vacia.fBarras().empty());
}

TEST(Tira, MovesToWhatIsToBeSeen)
{
    clsTira tira = fTira(fCadaMes(2000y / 1, 120));
    const std::vector<clsBarra> lstBarras = tira.fBarras();
    tira.fAmpliar(0, 10);
    EXPECT_GT(tira.fSitio(lstBarras[60]).dblDesde, 1000);
    tira.fIncluir(lstBarras[60]);
    EXPECT_GT(tira.fSitio(lstBarras[60]).dblDesde, 0);
    EXPECT_LT(tira.fSitio(lstBarras[60]).dblHasta, 1000);
    const auto antes = tira.fSitio(lstBarras[60]);
    tira.fIncluir(lstBarras[61]); // it is
    EXPECT_EQ(tira.fSitio(lstBarras[60]), antes);
    tira.fIncluir(lstBarras[119]);
    EXPECT_LE(tira.fSitio(lstBarras[119]).dblHasta, 1000.001);
    tira.fCorrer(-1e9);
    EXPECT_EQ(tira.fDiaEn(0), sys_days{2000y / 1 / 1});
    tira.fCorrer(100);
    EXPECT_GT(tira.fDiaEn(0), sys_days{2000y / 1 / 1});
}

TEST(Tira, KeepsItsPartWhileTheAxisIsTheSame)
{
    clsTira tira = fTira(fCadaMes(2000y / 1, 120));
    tira.fAmpliar(500, 2);
    const sys_days dia = tira.fDiaEn(0);
    tira.fMostrar(fContarDias(fListaFechas(fTras("2005/06/15", fCadaMes(2000y / 1, 120)))));
    EXPECT_EQ(tira.fDiaEn(0), dia);
    EXPECT_EQ(tira.fMayor(), 2);
    tira.fMostrar(fContarDias(fListaFechas(fCadaMes(2001y / 1, 108))));
    EXPECT_EQ(tira.fDiaEn(0), sys_days{2001y / 1 / 1});
    EXPECT_EQ(tira.fDiaEn(1000), sys_days{2010y / 1 / 1});
}

TEST(Rotulos, FindRoomAndNeverOverlap)
{
    constexpr double dblLetra = 8;
    const auto fAncho = [](const std::string &strTexto) {
        return dblLetra * static_cast<double>(strTexto.size());
    };
    struct clsCaso {
        const char *strFrase;
        clsTira tira;
        std::vector<std::string> lstTextos; ///< from the left
    };
    clsTira ampliada = fTira(fCadaMes(2008y / 1, 24));
    ampliada.fAmpliar(0, 8); // a quarter of a year
    const clsCaso lstCasos[] = {
        {"every year", fTira(fCadaMes(2003y / 1, 48)), {"2003", "2004", "2005", "2006"}},
        {"the rest of the first year", fTira(fCadaMes(2003y / 5, 32)), {"2003", "2004", "2005"}},
        {"too little of it",
         fTira(fCadaMes(2003y / 12, 721)),
         {"2005", "2010", "2015", "2020", "2025", "2030", "2035", "2040", "2045", "2050", "2055",
          "2060"}},
        {"within a year", fTira(fCadaMes(2008y / 2, 22)), {"2008", "2009"}},
        {"beside a fold",
         fTira(fTras("1980/01/01", fCadaMes(2003y / 1, 37))),
         {"1980", "2003", "2004", "2005"}}, // before the edge there is no room for 2006
        {"months", fTira(fCadaMes(2009y / 1, 4)), {"ene. 2009", "feb. 2009", "mar. 2009"}},
        {"months that have no room",
         fTira(fTras("2009/12/31", fCadaMes(2009y / 1, 12))),
         {"ene. 2009", "abr. 2009", "jul. 2009", "oct. 2009"}},
        {"enlarged", ampliada, {"ene. 2008", "feb. 2008", "mar. 2008"}},
        {"days of one month", fTira({"2009/07/04", "2009/07/09"}), {"jul. 2009"}},
        {"after the files without a date", fTira({"?", "2009/07/04"}), {"jul. 2009"}},
        {"without dates", fTira({"?"}), {}},
        {"nothing listed", fTira({}), {}},
        {"no room at all", fTira({"?"}, 2000), {}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        auto lstRotulos = fRotulos(caso.tira, fAncho);
        std::sort(lstRotulos.begin(), lstRotulos.end(),
                  [](const auto &uno, const auto &otro) { return uno.dblX < otro.dblX; });
        std::vector<std::string> lstTextos;
        double dblHasta = caso.tira.fSitioEje().dblDesde;
        for (const clsRotulo &rotulo : lstRotulos) {
            EXPECT_GE(rotulo.dblX, dblHasta);
            dblHasta = rotulo.dblX + fAncho(rotulo.strTexto);
            lstTextos.push_back(rotulo.strTexto);
        }
        EXPECT_LE(dblHasta, std::max(caso.tira.fSitioEje().dblHasta, 0.0));
        EXPECT_EQ(lstTextos, caso.lstTextos);
    }
}

TEST(TextosTiempo, NameWhatABarStandsFor)
{
    const auto fEntre = [](sys_days desde, sys_days hasta, int lngArchivos, int lngMalos = 0) {
        return fTextoBarra({{desde, hasta}, lngArchivos, lngMalos});
    };
    EXPECT_EQ(fEntre(2009y / 7 / 1, 2009y / 8 / 1, 214), "julio de 2009: 214 archivos");
    EXPECT_EQ(fEntre(2009y / 12 / 1, 2010y / 1 / 1, 12345, 1),
              "diciembre de 2009: 12.345 archivos, 1 con la fecha incorrecta");
    EXPECT_EQ(fEntre(2009y / 7 / 14, 2009y / 7 / 15, 1), "14 de julio de 2009: 1 archivo");
    EXPECT_EQ(fEntre(2009y / 7 / 14, 2009y / 8 / 3, 0),
              "del 14 de julio de 2009 al 2 de agosto de 2009: ningún archivo");
    EXPECT_EQ(fTextoBarra({.lngArchivos = 3}), "sin fecha: 3 archivos");
    EXPECT_EQ(fTextoMesCorto(2009y / 9 / 30), "sept. 2009");
}

} // namespace
