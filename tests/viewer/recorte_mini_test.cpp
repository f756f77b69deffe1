#include "viewer/recorte_mini.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(RecorteMini, CutsTheMiddleToTheProportionsOfThePhoto)
{
    const struct {
        const char *strFrase;
        clsLados mini;
        clsLados foto;
        std::optional<clsRecorte> recorte;
    } lstCasos[] = {
        {"the same", {160, 120}, {4000, 3000}, clsRecorte{0, 0, 160, 120}},
        {"a pixel off", {160, 119}, {4000, 3000}, clsRecorte{0, 0, 160, 119}},
        {"3:2 in 4:3", {160, 120}, {6000, 4000}, clsRecorte{0, 7, 160, 106}},
        {"16:9 in 4:3", {160, 120}, {1920, 1080}, clsRecorte{0, 15, 160, 90}},
        {"square in 4:3", {160, 120}, {3000, 3000}, clsRecorte{20, 0, 120, 120}},
        {"2:3 in 4:3", {160, 120}, {4000, 6000}, clsRecorte{40, 0, 80, 120}},
        {"4:3 in 3:2", {180, 120}, {4000, 3000}, clsRecorte{10, 0, 160, 120}},
        {"a panorama", {160, 120}, {30000, 2000}, clsRecorte{0, 55, 160, 10}},
        {"nothing left", {160, 120}, {65535, 1}, std::nullopt},
        {"the largest", {65535, 65535}, {65535, 1}, clsRecorte{0, 32767, 65535, 1}},
        {"no thumbnail", {0, 120}, {4000, 3000}, std::nullopt},
        {"no photo", {160, 120}, {0, 0}, std::nullopt},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fRecorteMini(caso.mini, caso.foto), caso.recorte) << caso.strFrase;
    }
}

TEST(RecorteMini, TellsBarsFromPictures)
{
    constexpr std::size_t lngTodos = 160;
    const auto fFranja = [](std::uint32_t lngFondo, std::size_t lngOtros, std::uint32_t lngOtro) {
        std::vector<std::uint32_t> lstPuntos(lngTodos, 0xff000000 | lngFondo);
        std::fill_n(lstPuntos.begin(), lngOtros, 0xff000000 | lngOtro);
        return fOscura(lstPuntos);
    };
    EXPECT_TRUE(fFranja(0x000000, 0, 0));
    EXPECT_TRUE(fFranja(0x101820, 10, 0x808080)) << "noise";
    EXPECT_FALSE(fFranja(0x101820, 11, 0x808080)) << "more than noise";
    EXPECT_FALSE(fFranja(0x0000a0, 0, 0)) << "blue";
    EXPECT_FALSE(fFranja(0x500000, 0, 0)) << "red";
    EXPECT_FALSE(fFranja(0x005000, 0, 0)) << "green";
    EXPECT_FALSE(fFranja(0xffffff, 0, 0));
}

TEST(RecorteMini, KnowsWhenPixelsAreEnough)
{
    EXPECT_TRUE(fBastanPixeles({160, 106}, {6000, 4000}, 133));
    EXPECT_TRUE(fBastanPixeles({106, 160}, {4000, 6000}, 160));
    EXPECT_FALSE(fBastanPixeles({120, 120}, {3000, 3000}, 133));
    EXPECT_TRUE(fBastanPixeles({120, 120}, {120, 120}, 133)) << "it has no more";
}

} // namespace
