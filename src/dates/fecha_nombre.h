#pragma once

#include "dates/fecha_fuente.h"

/// The dates that stand in a file's name, in their order: a run of yyyyMMdd, yyyy-MM-dd or
/// dd-MM-yyyy (between blanks, "_" and "." as well), or of ddMMyyyy, with a time of day behind it
/// or without: hhmmss, hh.mm.ss, hh-mm-ss, hh:mm:ss, 18h03m22s, perhaps with milliseconds, "AM" or
/// "PM", after a separator, "T", " at " or " a las ". Years are 1800 to 2199. A run with more
/// digits around it is no date, and a day or time that does not exist none either.
///
/// Unlike fFechasDeNombre, by which a file is judged, this looks at adjacent digits, anywhere.
/// @return local dates of source Nombre, at most lngMaximoNombre.
[[nodiscard]] clsFuentes fFechasEnNombre(std::string_view strNombre);
inline constexpr std::size_t lngMaximoNombre = 4;

/// The date that a name begins with.
[[nodiscard]] std::optional<clsFechaFuente> fFechaAlPrincipio(std::string_view strNombre);

/// The day that a file's folders tell: that of the innermost folder that has one in its name, or
/// three folders year, month and day (2009/07/14).
/// @param strCarpeta the folders below the archive's root, with "/" between them.
/// @return a day of source Carpeta.
[[nodiscard]] std::optional<clsFechaFuente> fFechaEnCarpeta(std::string_view strCarpeta);
