#include "viewer/geometria.h"

#include <gtest/gtest.h>

namespace {

TEST(Rejilla, HoldsAsManyCellsAsThePanelsFullSize)
{
    struct clsCaso {
        const char *strFrase;
        int lngAncho, lngAlto, intTam;
        int intColumnas, intCeldas;
    };
    const clsCaso lstCasos[] = {
        {"medium cells", 7000, 3500, 1, 4, 8},
        {"too low: one line", 5000, 1000, 1, 2, 2},
        {"too narrow: one column", 1000, 7000, 1, 1, 4},
        {"smaller than a cell", 1000, 1000, 2, 1, 1},
        {"nothing at all", 0, 0, 0, 1, 1},
        {"the inset is not taken off", 2480, 1240, 0, 2, 2},
        {"a twip less", 2479, 1240, 0, 1, 1},
        {"a large screen and small cells", 57600, 32400, 0, 46, 1196},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const clsRejilla rejilla =
            fDisponerRejilla({3000, 600, caso.lngAncho, caso.lngAlto}, caso.intTam);
        EXPECT_EQ(rejilla.intColumnas, caso.intColumnas);
        EXPECT_EQ(rejilla.intCeldas, caso.intCeldas);
    }
}

TEST(Rejilla, PlacesCellsLineByLineWithoutGaps)
{
    const clsRejilla rejilla = fDisponerRejilla({3000, 600, 7000, 3500}, 1);
    EXPECT_EQ(fCelda(rejilla, 0), (clsRect{3060, 660, 1740, 1740}));
    EXPECT_EQ(fCelda(rejilla, 3), (clsRect{8280, 660, 1740, 1740}));
    EXPECT_EQ(fCelda(rejilla, 4), (clsRect{3060, 2400, 1740, 1740}));
    EXPECT_EQ(fLadoMini(0) + fLadoMini(1) + fLadoMini(2), 66 + 100 + 133);
}

} // namespace
