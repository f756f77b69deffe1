#pragma once

#include "catalogue/filas.h"

#include <optional>

/// The first position from lngDesde towards the end of the list whose date is a given one or later.
/// Rows without a date are passed over. Nothing is assumed about the order of the list.
[[nodiscard]] std::optional<int> fPrimeroDesde(const clsFilas &filas, int lngDesde, clsFecha fecha);

/// The first position from lngDesde towards the start of the list whose date is earlier than a
/// given one; otherwise the same.
[[nodiscard]] std::optional<int> fPrimeroAntes(const clsFilas &filas, int lngDesde, clsFecha fecha);
