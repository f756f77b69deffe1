#include "viewer/encaje.h"

#include <gtest/gtest.h>

namespace {

TEST(Encaje, FitsOrScalesAndAlwaysCentres)
{
    struct clsCaso {
        const char *strFrase;
        clsTam natural;
        int intZoom;
        clsEncaje foto;
    };
    const clsCaso lstCasos[] = {
        {"fit enlarges a small one", {100, 100}, 0, {100, 0, 400, 400, false}},
        {"fit of a wider picture", {1200, 100}, 0, {0, 175, 600, 50, false}},
        {"fit of equal proportions", {1200, 800}, 0, {0, 0, 600, 400, false}},
        {"smaller than the frame", {100, 50}, 100, {250, 175, 100, 50, false}},
        {"exactly the frame", {600, 400}, 100, {0, 0, 600, 400, false}},
        {"too wide shows the middle", {1000, 200}, 100, {-200, 100, 1000, 200, true}},
        {"12 % of 4000", {4000, 1000}, 12, {60, 140, 480, 120, false}},
        {"parts of a twip stay", {10, 10}, 25, {298.75, 198.75, 2.5, 2.5, false}},
        {"no picture", {0, 0}, 100, {0, 0, 0, 0, false}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const clsEncaje foto = fEncajar({600, 400}, caso.natural, caso.intZoom);
        EXPECT_DOUBLE_EQ(foto.dblIzq, caso.foto.dblIzq);
        EXPECT_DOUBLE_EQ(foto.dblArriba, caso.foto.dblArriba);
        EXPECT_DOUBLE_EQ(foto.dblAncho, caso.foto.dblAncho);
        EXPECT_DOUBLE_EQ(foto.dblAlto, caso.foto.dblAlto);
        EXPECT_EQ(foto.bolArrastrable, caso.foto.bolArrastrable);
    }
    EXPECT_EQ(fEncajar({0, 0}, {100, 100}, 0).dblAncho, 0); // a frame without room
}

TEST(Arrastre, StepsBeyondTheDeadZoneAndNeverBaresAnEdge)
{
    struct clsCaso {
        const char *strFrase;
        double dblIzq, dblDx, dblEsperada;
    };
    const clsCaso lstCasos[] = {
        {"within the dead zone", -1000, 190, -1000},
        {"one twip beyond it", -1000, 191, -520},
        {"however far, one step", -1000, 9000, -520},
        {"leftwards within the dead zone", -1000, -190, -1000},
        {"leftwards", -1000, -191, -1480},
        {"not beyond the left edge", -100, 500, 0},
        {"already at the left edge", 0, 500, 0},
        {"not beyond the right edge", -1900, -500, -2000},
    };
    for (const clsCaso &caso : lstCasos) {
        // Wider than the frame, not higher.
        const clsEncaje nueva =
            fArrastrar({1000, 1000}, {caso.dblIzq, 100, 3000, 800, true}, caso.dblDx, 500);
        EXPECT_EQ(nueva.dblIzq, caso.dblEsperada) << caso.strFrase;
        EXPECT_EQ(nueva.dblArriba, 100) << caso.strFrase;
    }
    EXPECT_FALSE(fSePuedeArrastrar({600, 400}, {0, 0, 600, 400, false}));
    EXPECT_TRUE(fSePuedeArrastrar({600, 400}, {0, 0, 601, 10, true}));
    EXPECT_TRUE(fSePuedeArrastrar({600, 400}, {0, 0, 10, 401, true}));
}

TEST(Zoom, DoublesAndHalvesBetweenItsEnds)
{
    struct clsCaso {
        int intZoom, intMayor, intMenor;
    };
    const clsCaso lstCasos[] = {
        {0, 100, 100}, {100, 200, 50}, {400, 400, 200}, {25, 50, 12}, {12, 24, 12}, {384, 768, 192},
    };
    for (const clsCaso &caso : lstCasos) {
        EXPECT_EQ(fZoomMayor(caso.intZoom), caso.intMayor);
        EXPECT_EQ(fZoomMenor(caso.intZoom), caso.intMenor);
    }
}

} // namespace
