#pragma once

#include "sistema/resultado.h"

#include <string>

/// An error in Spanish; the system's own words for the rare ones. UTF-8.
[[nodiscard]] std::string fDescripcionError(clsError error);

/// Its number, ": " and its description.
[[nodiscard]] std::string fTextoError(clsError error);
