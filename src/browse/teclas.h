#pragma once

#include <cstdint>

/// Keys go by the numbers of the command table: those of virtual keys on a Spanish keyboard
/// (letters and digits by their capital's code: 'A').
inline constexpr int intTeclaEnter = 13;
inline constexpr int intTeclaEsc = 27;
inline constexpr int intTeclaMas = 107;   ///< numeric pad
inline constexpr int intTeclaMenos = 109; ///< numeric pad
inline constexpr int intTeclaF4 = 115;
inline constexpr int intTeclaF11 = 122;
inline constexpr int intTeclaF12 = 123;
inline constexpr int intTeclaMenor = 226; ///< the key left of Z, with < and >

/// Shift state bits.
inline constexpr int intMayus = 1;
inline constexpr int intCtrl = 2;
inline constexpr int intAlt = 4;
inline constexpr int intSuper = 8;

/// The number of a key.
/// @param intQt       Qt::Key value of the event.
/// @param bolNumerico the key belongs to the numeric pad.
/// @param lngScan     native scan code (evdev code + 8), 0 when unknown.
/// @return 0 for a key that has no number here.
[[nodiscard]] int fNumeroTecla(int intQt, bool bolNumerico, std::uint32_t lngScan);

/// The key that a notch of the mouse wheel over the viewing panel stands for.
/// @param bolArriba the wheel turns away from the user.
[[nodiscard]] int fTeclaDeRueda(bool bolArriba, bool bolCtrl);

/// Counts the notches of a mouse wheel. Touchpads tell of small parts of one.
class clsMuescas {
public:
    static constexpr int intMuesca = 120; ///< of a turn in eighths of a degree

    /// @param intGiro how far the wheel has turned; above 0 is away from the user.
    /// @return whole notches, with the turn's sign. What is left over counts for the next turn the
    ///         same way.
    [[nodiscard]] int fContar(int intGiro);

private:
    int m_intResto = 0;
};

/// Whether the focused control never sees a key of this number.
[[nodiscard]] bool fTragada(int intTecla);
