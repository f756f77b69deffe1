#pragma once

#include "catalogue/filas.h"

#include <chrono>
#include <optional>

/// Day of a row's date; nothing when its text is no date. The position must be below fCantidad.
[[nodiscard]] std::optional<std::chrono::year_month_day> fDia(const clsFilas &filas, int lngPos);

/// The first position from lngDesde towards the end of the list whose day is on or after a day.
/// Rows without a date are passed over. Nothing is assumed about the order of the list.
/// @param dia of a year from 1 to 16383, so that one beyond the valid years is simply not found.
[[nodiscard]] std::optional<int> fPrimeroDesde(const clsFilas &filas, int lngDesde,
                                               std::chrono::year_month_day dia);

/// The first position from lngDesde towards the start of the list whose day is on or before a day;
/// otherwise the same.
[[nodiscard]] std::optional<int> fPrimeroHasta(const clsFilas &filas, int lngDesde,
                                               std::chrono::year_month_day dia);
