#pragma once

/// What the program calls itself.
inline constexpr const char *strPrograma = "Miravel";
inline constexpr const char *strVersion = "1.3";
