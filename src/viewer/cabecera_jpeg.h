#pragma once

#include "dates/origen.h"

/// What the head of a JPEG file tells about its picture.
struct clsCabeceraJpeg {
    int intAncho = 0; ///< size of the picture as it is stored, in pixels; 0: not found
    int intAlto = 0;
    int intOrientacion = 1;         ///< EXIF orientation, 1 to 8
    std::int64_t lngMiniatura = 0;  ///< where the EXIF thumbnail starts in the file
    std::uint32_t lngBytesMini = 0; ///< and its length, all of it inside the file; 0: none
};

/// Reads the segments of a JPEG file up to the start of the frame. Whatever they claim, only bytes
/// that exist are asked for. Sources: ISO/IEC 10918-1 annex B; Exif 2.32, 4.5 and 4.6.
/// @return false when it is no JPEG file.
[[nodiscard]] bool fLeerCabeceraJpeg(clsLector &lector, clsCabeceraJpeg &cabecera);

/// Whether a thumbnail can stand for its picture in a box: it has the picture's proportions, give
/// or take a pixel, and as many pixels as the box shows of the picture.
/// @param intLado side of the box in pixels.
[[nodiscard]] bool fMiniaturaSirve(int intAnchoMini, int intAltoMini,
                                   const clsCabeceraJpeg &cabecera, int intLado);
