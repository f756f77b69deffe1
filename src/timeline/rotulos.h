#pragma once

#include "timeline/tira.h"

#include <functional>
#include <string>
#include <vector>

/// A text under the axis.
struct clsRotulo {
    double dblX = 0;      ///< where its left edge is, and its day
    std::string strTexto; ///< UTF-8
};

/// The years under a strip of months, the months under one of days: as many as find room, in equal
/// steps; no two overlap, and none goes beyond the strip. What begins before its part of the axis
/// is told where that part begins.
/// @param fAncho width of a text in pixels.
[[nodiscard]] std::vector<clsRotulo>
fRotulos(const clsTira &tira, const std::function<double(const std::string &)> &fAncho);
