#pragma once

#include "dates/origen.h"

#include <optional>

/// What the head of a JPEG file tells about its picture.
struct clsCabeceraJpeg {
    int intAncho = 0; ///< size of the picture as it is stored, in pixels; 0: not found
    int intAlto = 0;
    int intOrientacion = 1;           ///< EXIF orientation, 1 to 8
    std::int64_t lngMiniatura = 0;    ///< where the EXIF thumbnail starts in the file
    std::uint32_t lngBytesMini = 0;   ///< and its length, all of it inside the file; 0: none
    std::int64_t lngPerfil = 0;       ///< where the colour profile starts
    std::uint32_t lngBytesPerfil = 0; ///< and its length, when one segment holds it; 0: none
    bool bolPerfilPartido = false;    ///< it is spread over several segments
};

/// Reads the segments of a JPEG file up to the start of the frame. Whatever they claim, only bytes
/// that exist are asked for. Sources: ISO/IEC 10918-1 annex B; Exif 2.32, 4.5 and 4.6.
/// @return false when it is no JPEG file.
[[nodiscard]] bool fLeerCabeceraJpeg(clsLector &lector, clsCabeceraJpeg &cabecera);

/// What a JPEG file asks of whoever decodes it.
struct clsEsfuerzoJpeg {
    std::int64_t lngPixeles = 0;
    /// Bytes of the coefficients, where the decoder keeps all of them until the last scan: of a
    /// progressive picture, and of one whose components come in scans of their own. Else 0.
    std::int64_t lngCoeficientes = 0;
    int intPasadas = 0; ///< scans; 1 where the coefficients are not kept
};

/// Follows the markers of a JPEG file as decoders do, passing over bytes that are none, up to the
/// first scan or, where the coefficients are kept, up to the end of the picture. Source: ISO/IEC
/// 10918-1, annexes A.1.1 and B.
/// @return nothing when it is no JPEG file, has no frame or scan, or more than 4,096 segments.
[[nodiscard]] std::optional<clsEsfuerzoJpeg> fMedirJpeg(clsLector &lector);

/// Whether decoding it is worth it: a picture of up to two gigapixels that takes no more than so
/// many bytes of coefficients and about a second for them, and no huge one in a file of a few
/// bytes.
/// @param lngBytes length of the file.
[[nodiscard]] bool fDecodificable(const clsEsfuerzoJpeg &esfuerzo, std::int64_t lngBytes);

/// Bytes of coefficients a picture may take: 100 megapixels without any subsampling.
inline constexpr std::int64_t lngMaximoCoeficientes = std::int64_t{608} << 20;
