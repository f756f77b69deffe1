#pragma once

#include <vector>

/// How wide a column should be, and how narrow it may become, in pixels.
struct clsAncho {
    int intIdeal = 0;
    int intMinimo = 0; ///< as wide as intIdeal: it stays so
};

/// The widths of columns in a window: as they should be, and the last one takes the rest; where
/// there is less room, all give up the same part of what they can.
[[nodiscard]] std::vector<int> fAnchos(const std::vector<clsAncho> &lstColumnas, int intSitio);
