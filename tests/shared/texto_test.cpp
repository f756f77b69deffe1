#include "shared/texto.h"

#include <gtest/gtest.h>

namespace {

TEST(Texto, KnowsWellFormedUtf8)
{
    for (const char *const strBytes :
         {"", "\u00D1", "\U0001F600", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(fEsUtf8(strBytes)) << strBytes;
    }
    struct clsCaso {
        const char *strFrase, *strBytes;
    };
    const clsCaso lstCasos[] = {
        {"a continuation alone", "\x80"},
        {"a slash in two bytes", "\xC0\xAF"},
        {"overlong in three bytes", "\xE0\x9F\xBF"},
        {"overlong in four bytes", "\xF0\x8F\xBF\xBF"},
        {"half a surrogate pair", "\xED\xA0\x80"},
        {"beyond the last point", "\xF4\x90\x80\x80"},
        {"cut in the last sequence", "a\xE2\x82"},
        {"a byte that never occurs", "\xFF"},
    };
    for (const clsCaso &caso : lstCasos) {
        EXPECT_FALSE(fEsUtf8(caso.strBytes)) << caso.strFrase;
    }
}

TEST(Texto, ForTheScreenIsUtf8OrElseWindows1252AsAWhole)
{
    EXPECT_EQ(fTextoPantalla("an\u0303o \U0001F600"), "an\u0303o \U0001F600");
    EXPECT_EQ(fTextoPantalla("A\xF1o"), "A\u00F1o");
    EXPECT_EQ(fTextoPantalla("\x80\x93\x9F"), "\u20AC\u201C\u0178");
    EXPECT_EQ(fTextoPantalla("\x81"), "\xC2\x81"); // unassigned
    EXPECT_EQ(fTextoPantalla("\u00F1\xFF"), "\u00C3\u00B1\u00FF");
}

TEST(Texto, IsNotTurnedByControlCharacters)
{
    const std::pair<const char *, const char *> lstCasos[] = {
        {"foto\u202Egpj.exe", "foto\uFFFDgpj.exe"},
        {"\u2067a\u2069\u200F", "\uFFFDa\uFFFD\uFFFD"},
        {"\u061C", "\uFFFD"},
        {"a\u00F1o \u05D0 \u20AC \u2026 \u2070", "a\u00F1o \u05D0 \u20AC \u2026 \u2070"},
        {"", ""},
    };
    for (const auto &[strTexto, strLimpio] : lstCasos) {
        EXPECT_EQ(fSinGiros(strTexto), strLimpio);
    }
}

TEST(Texto, IsMeasuredAndComparedByItsCharacters)
{
    EXPECT_EQ(fContarCaracteres("A\u00F1o\U0001F600"), 4);
    EXPECT_TRUE(fIgualSinCaja("Ancho", "ANCHO"));
    EXPECT_FALSE(fIgualSinCaja("Ancho", "ANCH"));
    EXPECT_FALSE(fIgualSinCaja("\u00F1", "\u00D1")); // only A to Z
    EXPECT_EQ(fMayusculasAscii("az\u00F1`{"), "AZ\u00F1`{");
    EXPECT_EQ(fSinBlancos(" \ta b\t "), "a b");
    EXPECT_EQ(fSinBlancos(" \t "), "");
}

} // namespace
