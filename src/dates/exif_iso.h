#pragma once

#include "dates/origen.h"

#include <memory>

// EXIF data in files that are made of boxes. Whatever these claim, only bytes that exist are asked
// for; nullptr: there are none.

/// HEIC, AVIF: an item of its own, which begins with the distance from there to the TIFF data.
/// Source: ISO/IEC 23008-12, annex A.
/// @param origen what lector reads; must outlive what is returned.
[[nodiscard]] std::unique_ptr<clsOrigen> fExifDeHeif(clsOrigen &origen, clsLector &lector);

/// Canon CR3: in a box of its own inside of moov, IFD0 and the Exif IFD are TIFF files each. They
/// are given as one, with its own bytes.
[[nodiscard]] std::unique_ptr<clsOrigen> fExifDeCr3(clsLector &lector);
