#pragma once

#include "shared/fecha.h"

#include <string_view>

/// The dates that a file's name may mean, at midnight; zero where it means none.
struct clsFechasNombre {
    clsFecha datAnoPrimero; ///< the digits as year, month, day
    clsFecha datDiaPrimero; ///< the same digits as day, month, year
};

/// Reads the first eight digits of a name. They need not be adjacent, and those of the extension
/// count too. Only 0 to 9 are digits.
[[nodiscard]] clsFechasNombre fFechasDeNombre(std::string_view strNombre);
