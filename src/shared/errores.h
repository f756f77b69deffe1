#pragma once

#include <string>

/// A POSIX error number in Spanish; the system's own words for the rare ones. UTF-8.
[[nodiscard]] std::string fDescripcionError(int intError);

/// The error number, ": " and its description.
[[nodiscard]] std::string fTextoError(int intError);
