#include "viewer/teselas.h"

#include <gtest/gtest.h>

namespace {

using clsLista = std::vector<clsTesela>;

TEST(Teselas, AreGivenOutOnceEachAndCutAtTheEdges)
{
    clsTeselas teselas(600, 300); // three by two of them
    const struct {
        const char *strFrase;
        clsTesela parte;
        clsLista lstNuevas;
    } lstPasos[] = {
        {"no part", {100, 100, 0, 0}, {}},
        {"a pixel", {255, 255, 1, 1}, {{0, 0, 256, 256}}},
        {"the same one", {0, 0, 256, 256}, {}},
        {"over their borders",
         {255, 255, 2, 2},
         {{256, 0, 256, 256}, {0, 256, 256, 44}, {256, 256, 256, 44}}},
        {"beyond the picture", {-50, 290, 9000, 9000}, {{512, 256, 88, 44}}},
        {"beside it", {600, 0, 50, 50}, {}},
        {"below it", {512, 300, 50, 50}, {}},
        {"above it", {512, -50, 50, 50}, {}},
        {"all of it", {0, 0, 600, 300}, {{512, 0, 88, 256}}},
        {"none are left", {0, 0, 600, 300}, {}},
    };
    for (const auto &paso : lstPasos) {
        EXPECT_EQ(teselas.fNuevas(paso.parte), paso.lstNuevas) << paso.strFrase;
    }
}

TEST(Teselas, TellWhichWereGivenOut)
{
    clsTeselas teselas(600, 300);
    static_cast<void>(teselas.fNuevas({256, 256, 1, 1}));
    EXPECT_TRUE(teselas.fDada(256, 299));
    EXPECT_TRUE(teselas.fDada(511, 256));
    EXPECT_FALSE(teselas.fDada(512, 256));
    EXPECT_FALSE(teselas.fDada(256, 255));
    EXPECT_FALSE(teselas.fDada(255, 256));
    EXPECT_TRUE(clsTeselas(0, 0).fNuevas({0, 0, 9, 9}).empty());
}

} // namespace
