#include "browse/mover.h"

#include <gtest/gtest.h>

namespace {

constexpr Movimiento Primero = Movimiento::Primero;
constexpr Movimiento Anterior = Movimiento::Anterior;
constexpr Movimiento Siguiente = Movimiento::Siguiente;
constexpr Movimiento Ultimo = Movimiento::Ultimo;

TEST(Mover, GoesByFilesOrPagesAndStopsAtTheEnds)
{
    struct clsCaso {
        const char *strFrase;
        Movimiento movimiento;
        int lngActual;
        int lngUltimo;
        int intCeldas;
        std::optional<int> lngDestino;
    };
    const clsCaso lstCasos[] = {
        {"to the first", Primero, 5, 9, 1, 0},
        {"first already", Primero, 0, 9, 1, std::nullopt},
        {"one back", Anterior, 1, 9, 1, 0},
        {"no further back", Anterior, 0, 9, 1, std::nullopt},
        {"beyond 16 bits", Siguiente, 99999, 200000, 1, 100000},
        {"no further on", Siguiente, 9, 9, 1, std::nullopt},
        {"to the last", Ultimo, 0, 9, 4, 9},
        {"last already", Ultimo, 0, 0, 1, std::nullopt},
        {"an empty list", Siguiente, 0, -1, 1, std::nullopt},
        {"an empty list, back", Anterior, 5, -1, 1, std::nullopt},
        {"a page on from the middle of one", Siguiente, 17, 30, 12, 24},
        {"a page on to a last one of a single file", Siguiente, 12, 24, 12, 24},
        {"no page on from a full last one", Siguiente, 13, 23, 12, std::nullopt},
        {"a page back from the middle of one", Anterior, 30, 40, 12, 12},
        {"no page back from the first one", Anterior, 11, 40, 12, std::nullopt},
        {"no cell counts as one", Siguiente, 3, 9, 0, 4},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fDestino(caso.movimiento, caso.lngActual, caso.lngUltimo, caso.intCeldas),
                  caso.lngDestino);
    }
}

TEST(Mover, KnowsWhatThePanelShows)
{
    EXPECT_EQ(fTramoPagina(23, 30, 12), (clsTramo{12, 24}));
    EXPECT_EQ(fTramoPagina(24, 30, 12), (clsTramo{24, 30}));
    EXPECT_EQ(fTramoPagina(24, 30), (clsTramo{24, 25}));
    EXPECT_EQ(fTramoPagina(0, 0, 12), (clsTramo{0, 0}));
}

} // namespace
