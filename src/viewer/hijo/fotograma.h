#pragma once

#include "sistema/archivo.h"
#include "viewer/hijo/servicio.h"

#include <functional>

namespace hijo {

/// Takes one frame near a tenth of a video's length: the key frame before it, else the first frame
/// that decodes. Proportions are those of the shown picture, turned by the rotation that the file
/// asks for. Neither side is longer than the box or than the video's own.
/// @param intLado  side of the box in pixels, greater than 0.
/// @param fAnulado asked at every read of the file; true gives up.
[[nodiscard]] clsFotograma fTomarFotograma(const clsAbierto &video, int intLado,
                                           const std::function<bool()> &fAnulado);

} // namespace hijo
