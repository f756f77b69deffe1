#pragma once

#include <string>
#include <string_view>

/// A locale's date format (LC_TIME's D_FMT, see strftime) as a short-date picture: %d as "dd", %m
/// as "MM", %y and %Y both as "yyyy"; any other conversion by its letter, other signs as they are.
[[nodiscard]] std::string fFormatoFechaCorto(std::string_view strDFmt);

/// D_FMT of the user's locale. Empty when the user has set none: C, POSIX and C.UTF-8, and a locale
/// that is not installed.
[[nodiscard]] std::string fDFmtUsuario();

/// Whether dates are written day first with slashes. No setting of the user (empty) passes.
[[nodiscard]] bool fFormatoFechaValido(std::string_view strDFmt);
