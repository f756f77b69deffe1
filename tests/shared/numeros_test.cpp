#include "shared/numeros.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr std::int64_t lngMaximo = std::numeric_limits<std::int64_t>::max();

TEST(Numeros, RoundBytesToTheNearestKilobyteHalvesUp)
{
    EXPECT_EQ(fKilobytes(0), 0);
    EXPECT_EQ(fKilobytes(511), 0);
    EXPECT_EQ(fKilobytes(512), 1);
    EXPECT_EQ(fKilobytes(600), 1);
    EXPECT_EQ(fKilobytes(1535), 1);
    EXPECT_EQ(fKilobytes(1600), 2);
    EXPECT_EQ(fKilobytes(-5000), 0);
    EXPECT_EQ(fKilobytes(lngMaximo), std::int64_t{1} << 53);
}

TEST(Numeros, AreGroupedInThreesAndPaddedByCharacters)
{
    const clsSignos signos;
    const clsSignos signosFinos{"\u202F", ","}; // one character of three bytes
    EXPECT_EQ(fConGrupos(999, signos), "999");
    EXPECT_EQ(fConGrupos(-123456, signos), "-123.456");
    EXPECT_EQ(fConGrupos(-lngMaximo - 1, signos), "-9.223.372.036.854.775.808");
    EXPECT_EQ(fTextoKB(12 * 1024, signos), "         12 KB");
    EXPECT_EQ(fTextoKB(1234 * 1024, signosFinos), "      1\u202F234 KB");
    EXPECT_EQ(fTextoKB(999'999'999LL * 1024, signos), "999.999.999 KB");
    EXPECT_EQ(fTextoKB(1'000'000'000LL * 1024, signos), "1.000.000.000 KB"); // never cut
}

TEST(Numeros, HaveSpanishSignsWhereTheLocaleHasNone)
{
    setenv("LC_ALL", "C", 1);
    EXPECT_EQ(fSignosLocales().strGrupo, ".");
    EXPECT_EQ(fSignosLocales().strDecimal, ",");
    unsetenv("LC_ALL");
}

TEST(Numeros, AreReadStrictly)
{
    EXPECT_EQ(fLeerTamano(" 1534208 "), 1534208);
    EXPECT_EQ(fLeerTamano("\t+7"), 7);
    EXPECT_EQ(fLeerTamano("-2.9"), -2);
    EXPECT_EQ(fLeerTamano("9223372036854775807"), lngMaximo);
    for (const char *const strTexto :
         {"", " ", "x", "12 34", "12x", "1,5", "0x10", "+-7", "+", "inf", "nan", "1e400",
          "9300000000000000000", "/fotos/a.jpg"}) {
        EXPECT_FALSE(fLeerTamano(strTexto)) << strTexto;
    }
    EXPECT_EQ(fLeerEntero(" -3000 "), -3000);
    for (const char *const strTexto : {"", "3.5", "dos", "99999999999", "2;"}) {
        EXPECT_FALSE(fLeerEntero(strTexto)) << strTexto;
    }
}

} // namespace
