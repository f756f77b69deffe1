#pragma once

#include "catalogue/filas.h"
#include "shared/fecha.h"

#include <optional>
#include <string_view>

/// What the box that asks for the date says (UTF-8).
inline constexpr const char *strPreguntaFecha = "Ir a la fecha (ddmmyyyy):";

/// Reads the answer: exactly eight digits, day first, that name a real day of the years 100 to
/// 9999; nothing for any other text.
[[nodiscard]] std::optional<clsFecha> fLeerRespuestaFecha(std::string_view str);

/// The position of the first file on or after a day (its midnight), from the start of the list,
/// which may be the current one; the last position if there is none. Nothing when the list is
/// empty, and when there is none and the last file is the current one.
[[nodiscard]] std::optional<int> fIrAFecha(const clsFilas &filas, int lngActual, clsFecha dia);
