#pragma once

#include <algorithm>

/// Position of the first file of the page that holds a position.
/// @param intCeldas files on a page; fewer than 1 count as 1, which is the view of a single file.
[[nodiscard]] constexpr int fInicioPagina(int lngPos, int intCeldas)
{
    return lngPos - lngPos % std::max(intCeldas, 1);
}
