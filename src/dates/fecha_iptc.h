#pragma once

#include "dates/fecha_fuente.h"

/// The date in Photoshop's image resources (the content of a JPEG file's APP13 behind its name):
/// that of resource 0404. Any bytes are taken.
[[nodiscard]] std::optional<clsFechaFuente> fLeerFechaRecursos(std::string_view strRecursos);

/// The date in IPTC records: 2:55 "CCYYMMDD" with 2:60 "HHMMSS+HHMM", without which it is a day.
[[nodiscard]] std::optional<clsFechaFuente> fLeerFechaIptc(std::string_view strRegistros);
