#pragma once

#include "dates/origen.h"

#include <functional>

/// A segment of a JPEG file's head.
struct clsSegmento {
    std::uint32_t lngMarca = 0;    ///< second byte of its marker
    std::int64_t lngContenido = 0; ///< where its content begins, behind the length
    std::uint32_t lngBytes = 0;    ///< of the content, as the length says; the file may hold fewer
};

/// Whether a marker starts a frame, of whatever coding: that holds the size.
[[nodiscard]] bool fEsMarco(std::uint32_t lngMarca);

/// Whether a marker stands alone, without a length.
[[nodiscard]] bool fMarcaSola(std::uint32_t lngMarca);

/// Visits the segments of a JPEG file one behind the other, each by the length of the one before
/// it, as long as fVisitar returns true, up to the picture's data.
/// @return false: this is no JPEG file.
bool fRecorrerSegmentos(clsLector &lector,
                        const std::function<bool(const clsSegmento &)> &fVisitar);
