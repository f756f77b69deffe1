#pragma once

/// Lengths of the main window are twips, 15 to a logical pixel.
inline constexpr int intTwipsPixel = 15;

/// The value, or 0 when it is negative.
[[nodiscard]] constexpr int fNoNegativo(int intValor) { return intValor < 0 ? 0 : intValor; }
