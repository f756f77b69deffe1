#pragma once

#include "sistema/archivo.h"
#include "viewer/mensaje_hijo.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace hijo {

/// A frame of a video, upright.
struct clsFotograma {
    EstadoHijo estado = EstadoHijo::SinImagen;
    int intAncho = 0; ///< pixels; 0 without an image
    int intAlto = 0;
    std::vector<std::uint32_t> lstPuntos; ///< 0xffRRGGBB, row by row
};

/// Takes one frame near a tenth of a video's length: the key frame before it, else the first frame
/// that decodes. Proportions are those of the shown picture, turned by the rotation that the file
/// asks for. Neither side is longer than the box or than the video's own.
/// @param intLado  side of the box in pixels, greater than 0.
/// @param fAnulado asked at every read of the file; true gives up.
[[nodiscard]] clsFotograma fTomarFotograma(const clsAbierto &video, int intLado,
                                           const std::function<bool()> &fAnulado);

} // namespace hijo
