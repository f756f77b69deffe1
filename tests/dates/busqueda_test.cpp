#include "dates/busqueda.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

/// A search over files named by their position, of which some are wrong.
class clsBusqueda {
public:
    explicit clsBusqueda(std::set<int> lstMalas) : m_lstMalas(std::move(lstMalas)) {}

    std::optional<int> fBuscar(int lngDesde, int intHilos = 0)
    {
        clsPreguntas preguntas;
        preguntas.fRuta = [](int lngPos) { return std::to_string(lngPos); };
        preguntas.fCorrecta = [cuenta = lngPreguntadas,
                               lstMalas = m_lstMalas](const std::string &strRuta) {
            ++*cuenta;
            return lstMalas.count(std::stoi(strRuta)) == 0;
        };
        preguntas.fPaso = [this](int lngPos) {
            if (lstPasos.empty() || lstPasos.back() != lngPos) {
                lstPasos.push_back(lngPos);
            }
            return lngPos != lngFinEn;
        };
        return fBuscarIncorrecta(lngDesde, preguntas, intHilos);
    }

    std::vector<int> lstPasos;
    std::shared_ptr<std::atomic<int>> lngPreguntadas = std::make_shared<std::atomic<int>>(0);
    int lngFinEn = -1;

private:
    std::set<int> m_lstMalas;
};

} // namespace

TEST(Busqueda, GoesUpwardsFromTheCurrentFileAndTakesTheFirstWrongOne)
{
    struct clsCaso {
        const char *strFrase;
        std::set<int> lstMalas;
        int lngDesde;
        std::optional<int> lngHallada;
    };
    const clsCaso lstCasos[] = {
        {"the current file counts", {5, 3}, 5, 5},
        {"the nearest above, not the first", {7, 3, 1}, 5, 3},
        {"the first row counts", {0}, 5, 0},
        {"those below are not looked at", {6, 9}, 5, {}},
        {"all are right", {}, 5, {}},
        {"beyond what is asked ahead", {2}, 500, 2},
    };
    for (const clsCaso &caso : lstCasos) {
        for (const int intHilos : {1, 3, 0}) {
            SCOPED_TRACE(caso.strFrase);
            EXPECT_EQ(clsBusqueda(caso.lstMalas).fBuscar(caso.lngDesde, intHilos), caso.lngHallada);
        }
    }
}

TEST(Busqueda, TellsEveryFileInOrderAndAsksEachOnce)
{
    clsBusqueda busqueda({});
    EXPECT_FALSE(busqueda.fBuscar(199));
    ASSERT_EQ(busqueda.lstPasos.size(), 200U);
    EXPECT_EQ(busqueda.lstPasos.front(), 199);
    EXPECT_TRUE(std::is_sorted(busqueda.lstPasos.rbegin(), busqueda.lstPasos.rend()));
    EXPECT_EQ(*busqueda.lngPreguntadas, 200);
}

TEST(Busqueda, StopsWhenToldTo)
{
    clsBusqueda busqueda({10});
    busqueda.lngFinEn = 150;
    EXPECT_FALSE(busqueda.fBuscar(199));
    EXPECT_EQ(busqueda.lstPasos.back(), 150);
    EXPECT_LT(*busqueda.lngPreguntadas, 199) << "it does not ask on behind the user's back";
}
