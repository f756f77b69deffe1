#pragma once

#include "sistema/resultado.h"

#include <string>

/// The number of an error, ": " and what it means in Spanish; the system's own words for the rare
/// ones. UTF-8.
[[nodiscard]] std::string fTextoError(clsError error);
