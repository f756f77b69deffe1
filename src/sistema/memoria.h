#pragma once

#include <cstddef>
#include <span>

/// Gives the memory of a large block back whose content nobody wants any more, piece by piece. To
/// free it at once would hold up all threads that want some, 100 megapixels for 25 ms. The block is
/// still to be freed; what it reads as now is not known.
void fDesocupar(std::span<std::byte> bloque);
