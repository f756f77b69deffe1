#pragma once

#include <string>
#include <string_view>

/// "n de m" for the current file's position (from 0).
[[nodiscard]] std::string fTextoInfo1(int lngActual, int lngCantidad);

/// Path, date and size of the current file. A date that does not read is shown as it stands.
/// @param strRuta   full path as it is shown (UTF-8).
/// @param strFecha  date text of the list.
/// @param strTamano text of the size column.
[[nodiscard]] std::string fTextoInfo2(std::string_view strRuta, std::string_view strFecha,
                                      std::string_view strTamano);
