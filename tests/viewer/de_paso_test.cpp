#include "viewer/de_paso.h"

#include <gtest/gtest.h>

namespace {

using std::chrono::milliseconds;

TEST(DePaso, TellsHeldKeysFromSingleSteps)
{
    const struct {
        const char *strFrase;
        std::optional<milliseconds> desde;
        bool bolNitida;
        bool bolDePaso;
    } lstCasos[] = {
        {"the first step", std::nullopt, false, false},
        {"a held key", milliseconds(33), false, true},
        {"the same, the picture had been decoded ahead", milliseconds(33), true, true},
        {"the key has rested, and the picture is sharp", reposoUsual, true, false},
        {"a moment before", reposoUsual - milliseconds(1), true, true},
        {"pressed again before the picture was sharp", milliseconds(200), false, true},
        {"not so soon", 3 * reposoUsual, false, false},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fDePaso(caso.desde, caso.bolNitida), caso.bolDePaso) << caso.strFrase;
    }
    EXPECT_TRUE(fDePaso(milliseconds(900), true, milliseconds(1000)));
    EXPECT_FALSE(fDePaso(milliseconds(0), false, milliseconds(0))) << "nothing counts as held";
}

TEST(DePaso, TellsWhatIsWorthDecodingMeanwhile)
{
    constexpr std::int64_t lngMega = 1 << 20;
    EXPECT_TRUE(fEnteraDePaso(lngMega / 2));
    EXPECT_FALSE(fEnteraDePaso(lngMega / 2 + 1));
    EXPECT_TRUE(fOctavoDePaso(6 * lngMega, 1));
    EXPECT_FALSE(fOctavoDePaso(6 * lngMega + 1, 1)) << "too large";
    EXPECT_FALSE(fOctavoDePaso(lngMega, 10)) << "progressive: every scan is read";
}

} // namespace
