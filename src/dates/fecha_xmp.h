#pragma once

#include "dates/fecha_fuente.h"

/// The date in an XMP packet: exif:DateTimeOriginal, else photoshop:DateCreated, else
/// xmp:CreateDate, each as an attribute or an element, under whatever prefix the packet gives to
/// its namespace. This reads what programs write, and takes any bytes.
[[nodiscard]] std::optional<clsFechaFuente> fLeerFechaXmp(std::string_view strPaquete);
