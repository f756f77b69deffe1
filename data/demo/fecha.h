// Dates of the plan: written as "2009-07-14 12:03:11", meant as local time.
#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace demo {

/// The instant of a local date. Throws std::runtime_error if the text is no such date.
std::time_t fInstante(std::string_view strFecha);

/// The same date as Exif writes it: "2009:07:14 12:03:11" (Exif 2.3, DateTime).
std::string fFechaExif(std::string_view strFecha);

} // namespace demo
