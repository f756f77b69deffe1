#include "viewer/geometria.h"

#include <gtest/gtest.h>

namespace {

TEST(Disposicion, PutsListAndViewingPanelSideBySide)
{
    const clsDisposicion sitio = fDisponer({9000, 6000, 600, 3000, 2000});
    EXPECT_EQ(sitio.lista, (clsRect{0, 600, 3000, 5400}));
    EXPECT_EQ(sitio.fondo, (clsRect{3000, 600, 6000, 5400}));
    EXPECT_EQ(sitio.divisor.lngIzq, 2985);
    EXPECT_EQ(sitio.divisor.lngAlto, 5400);
    EXPECT_EQ(sitio.recuadro, (clsRect{3060, 660, 5880, 5280}));
    EXPECT_EQ(sitio.lngInfo3, 7000);
}

TEST(Disposicion, HasNoNegativeWidthOrHeightHoweverSmallTheWindow)
{
    struct clsCaso {
        const char *strFrase;
        clsVentana ventana;
        clsRect fondo, recuadro;
    };
    const clsCaso lstCasos[] = {
        {"too narrow", {2000, 6000, 600, 3000, 0}, {2000, 600, 0, 5400}, {2060, 660, 0, 5280}},
        {"too low", {9000, 500, 600, 3000, 0}, {3000, 600, 6000, 0}, {3060, 660, 5880, 0}},
        {"119 twips", {3119, 719, 600, 3000, 0}, {3000, 600, 119, 119}, {3060, 660, 0, 0}},
        {"121 twips", {3121, 721, 600, 3000, 0}, {3000, 600, 121, 121}, {3060, 660, 1, 1}},
        {"negative list", {900, 900, 0, -20, 0}, {0, 0, 900, 900}, {60, 60, 780, 780}},
        {"nothing", {}, {0, 0, 0, 0}, {60, 60, 0, 0}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const clsDisposicion sitio = fDisponer(caso.ventana);
        EXPECT_EQ(sitio.fondo, caso.fondo);
        EXPECT_EQ(sitio.recuadro, caso.recuadro);
        EXPECT_GE(sitio.lista.lngAncho, 0);
        EXPECT_GE(sitio.divisor.lngAlto, 0);
    }
}

TEST(Disposicion, GivesAStripTheLowerEdgeOfTheViewingPanel)
{
    const clsDisposicion sitio = fDisponer({9000, 6000, 600, 3000, 2000, 900});
    EXPECT_EQ(sitio.fondo, (clsRect{3000, 600, 6000, 4500}));
    EXPECT_EQ(sitio.recuadro, (clsRect{3060, 660, 5880, 4380}));
    EXPECT_EQ(sitio.franja, (clsRect{3000, 5100, 6000, 900}));
    EXPECT_EQ(sitio.lista, (clsRect{0, 600, 3000, 5400}));
    EXPECT_EQ(sitio.divisor.lngAlto, 5400);
    EXPECT_EQ(fDisponer({9000, 3300, 600, 3000, 2000, 900}).franja.lngAlto, 900);
    EXPECT_EQ(fDisponer({9000, 3299, 600, 3000, 2000, 900}).franja.lngAlto, 0); // too low
    EXPECT_EQ(fDisponer({9000, 3299, 600, 3000, 2000, 900}).fondo.lngAlto, 2699);
}

TEST(AnchoPanel, LeavesRoomForOneThumbnailAnd480Twips)
{
    EXPECT_EQ(fAnchoPanel(-1, 9000, 1000), 0);
    EXPECT_EQ(fAnchoPanel(3000, 9000, 2000), 3000);
    EXPECT_EQ(fAnchoPanel(7020, 9000, 1500), 7020); // exactly the reserve
    EXPECT_EQ(fAnchoPanel(7021, 9000, 1500), 7020);
    EXPECT_EQ(fAnchoPanel(8900, 9000, 1500), 7020);
    EXPECT_EQ(fAnchoPanel(100, 1000, 1000), 0);        // a window below the reserve
    EXPECT_EQ(fAnchoPanel(50000, 60000, 2000), 50000); // beyond 16 bits
}

} // namespace
