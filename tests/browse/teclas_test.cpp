#include "browse/teclas.h"

#include <gtest/gtest.h>
#include <string_view>

namespace {

TEST(Teclas, HaveTheNumbersOfASpanishKeyboard)
{
    struct clsCaso {
        const char *strFrase;
        int intQt;
        bool bolNumerico;
        std::uint32_t lngScan;
        int intTecla;
    };
    const clsCaso lstCasos[] = {
        {"a letter", 'J', false, 0, 74},
        {"a digit", '5', false, 0, 53},
        {"a digit of the pad", '5', true, 0, 101},
        {"+ of the pad", '+', true, 86, 107},
        {"+ of the letters is another", '+', false, 35, 187},
        {"- of the pad", '-', true, 82, 109},
        {"* of the pad", '*', true, 63, 106},
        {". of the pad", '.', true, 129, 110},
        {"/ of the pad", '/', true, 106, 111},
        {"a comma is a comma", ',', true, 0, 188},
        {"the digits' neighbour is no digit", ':', true, 0, 0},
        {"Return", 0x01000004, false, 36, 13},
        {"Enter of the pad", 0x01000005, true, 104, 13},
        {"Escape", 0x01000000, false, 9, 27},
        {"F1", 0x01000030, false, 0, 112},
        {"F11", 0x0100003a, false, 0, 122},
        {"F12", 0x0100003b, false, 0, 123},
        {"F24", 0x01000047, false, 0, 135},
        {"F25 has none", 0x01000048, false, 0, 0},
        {"< on any layout", '<', false, 0, 226},
        {"> on any layout", '>', false, 60, 226},
        {"the key left of Z by its place", '\\', false, 94, 226},
        {"Ctrl", 0x01000021, false, 0, 17},
        {"Page Down", 0x01000017, false, 0, 34},
        {"Page Down of the pad", 0x01000017, true, 0, 34},
        {"an unknown key", 0x01ffffff, false, 0, 0},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fNumeroTecla(caso.intQt, caso.bolNumerico, caso.lngScan), caso.intTecla);
    }
}

TEST(Teclas, AreSwallowedByTheCodesOfTheListsSearchCharacters)
{
    // In Windows-1252, since the numbers are its codes.
    constexpr std::string_view strTragadas =
        "ABCDEFGHIJKLMN\xD1OPQRSTUVWXYZ0123456789\xBA\xAA!@\xB7#$%&()='\xBF\xA1`^[]+\xA8\xB4{}\xE7"
        "-_.,;\x80";
    for (int intTecla = 0; intTecla < 256; ++intTecla) {
        SCOPED_TRACE(intTecla);
        const bool bolEsta = intTecla != 0 && strTragadas.find(static_cast<char>(intTecla)) !=
                                                  std::string_view::npos;
        EXPECT_EQ(fTragada(intTecla), bolEsta);
    }
}

TEST(Teclas, TheWheelStandsForThoseThatStepAndEnlarge)
{
    EXPECT_EQ(fTeclaDeRueda(false, false), intTeclaF12);
    EXPECT_EQ(fTeclaDeRueda(true, false), intTeclaF11);
    EXPECT_EQ(fTeclaDeRueda(true, true), intTeclaMas);
    EXPECT_EQ(fTeclaDeRueda(false, true), intTeclaMenos);
}

TEST(Teclas, NotchesOfTheWheelAddUp)
{
    const struct {
        const char *strFrase;
        int intGiro;
        int intMuescas;
    } lstGiros[] = {
        {"one", 120, 1},
        {"two at once, the other way", -240, -2},
        {"half of one", -60, 0},
        {"the other half", -60, -1},
        {"more than one", 130, 1},
        {"with what was left over", 110, 1},
        {"half of one", 60, 0},
        {"a turn the other way forgets it", -70, 0},
        {"and begins anew", -50, -1},
        {"sideways", 0, 0},
    };
    clsMuescas muescas;
    for (const auto &giro : lstGiros) {
        SCOPED_TRACE(giro.strFrase);
        EXPECT_EQ(muescas.fContar(giro.intGiro), giro.intMuescas);
    }
}

} // namespace
