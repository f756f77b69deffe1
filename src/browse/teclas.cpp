#include "browse/teclas.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

struct clsParTecla {
    int intQt;    // Qt::Key, see the Qt documentation of enum Qt::Key
    int intTecla; // virtual key number
};

constexpr clsParTecla lstTeclas[] = {
    {0x01000000, 27 }, // Escape
    {0x01000001, 9  }, // Tab
    {0x01000003, 8  }, // Backspace
    {0x01000004, 13 }, // Return
    {0x01000005, 13 }, // Enter
    {0x01000006, 45 }, // Insert
    {0x01000007, 46 }, // Delete
    {0x01000010, 36 }, // Home
    {0x01000011, 35 }, // End
    {0x01000012, 37 }, // Left
    {0x01000013, 38 }, // Up
    {0x01000014, 39 }, // Right
    {0x01000015, 40 }, // Down
    {0x01000016, 33 }, // Page Up
    {0x01000017, 34 }, // Page Down
    {0x01000020, 16 }, // Shift
    {0x01000021, 17 }, // Control
    {0x01000023, 18 }, // Alt
    {0x01000022, 91 }, // Meta
    {0x01000053, 91 }, // Super, left
    {0x01000055, 93 }, // Menu
    {0x20,       32 }, // Space
    {0x27,       219}, // '
    {0x2b,       187}, // +
    {0x2c,       188}, // comma
    {0x2d,       189}, // -
    {0x2e,       190}, // period
    {0x3c,       226}, // <
    {0x3e,       226}, // >
    {0xa1,       221}, // inverted exclamation mark
    {0xba,       220}, // masculine ordinal
    {0xc7,       191}, // C cedilla
    {0xd1,       192}, // N tilde
};

// The character codes of the letters, digits and signs that must not start the list's search. That
// other keys share a number with one of them (38, Up, with &) is deliberate.
constexpr std::u32string_view strTragadas =
    U"!#$%&'()+,-.0123456789;=@ABCDEFGHIJKLMNOPQRSTUVWXYZ[]^_`{}\u0080¡¨ª´·º¿Ñç";

constexpr std::uint32_t lngScanIzquierdaDeZ = 94;

} // namespace

int fNumeroTecla(int intQt, bool bolNumerico, std::uint32_t lngScan)
{
    constexpr int intF1 = 0x01000030;
    constexpr int intF24 = intF1 + 23;
    if (lngScan == lngScanIzquierdaDeZ) {
        return intTeclaMenor;
    }
    if (bolNumerico && intQt >= '*' && intQt <= '9' && intQt != ',') {
        return intQt < '0' ? intQt - '*' + 106 : intQt - '0' + 96;
    }
    if ((intQt >= 'A' && intQt <= 'Z') || (intQt >= '0' && intQt <= '9')) {
        return intQt;
    }
    if (intQt >= intF1 && intQt <= intF24) {
        return intQt - intF1 + 112;
    }
    const auto it = std::find_if(std::begin(lstTeclas), std::end(lstTeclas),
                                 [intQt](const clsParTecla &par) { return par.intQt == intQt; });
    return it == std::end(lstTeclas) ? 0 : it->intTecla;
}

int fTeclaDeRueda(bool bolArriba, bool bolCtrl)
{
    if (bolCtrl) {
        return bolArriba ? intTeclaMas : intTeclaMenos;
    }
    return bolArriba ? intTeclaF11 : intTeclaF12;
}

int clsMuescas::fContar(int intGiro)
{
    const bool bolOtroSentido = (intGiro < 0) != (m_intResto < 0);
    const int intTodo = (bolOtroSentido ? 0 : m_intResto) + intGiro;
    m_intResto = intTodo % intMuesca;
    return intTodo / intMuesca;
}

bool fTragada(int intTecla)
{
    return strTragadas.find(static_cast<char32_t>(intTecla)) != std::u32string_view::npos;
}
