#pragma once

#include "dates/fecha_fuente.h"
#include "dates/ifd.h"

struct clsFechasExif;

/// The dates in TIFF data: tags 9003, 9004 and 0132 with their sub-seconds and zones, GPS date and
/// time.
/// @param exif gets the two dates that judge the file.
[[nodiscard]] clsFuentes fLeerFuentesExif(const clsDatosTiff &tiff, std::uint32_t lngIfd0,
                                          clsFechasExif &exif);
