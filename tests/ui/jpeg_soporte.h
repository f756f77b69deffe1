#pragma once

#include <QImage>

#include <cstdint>
#include <string>

/// A JPEG file with an EXIF segment that holds an orientation and a thumbnail.
struct clsJpegConMini {
    QImage imagen;
    QImage miniatura;
    int intOrientacion = 1;
    std::uint32_t lngMas = 0;   ///< added to the thumbnail's offset
    std::uint32_t lngLargo = 0; ///< claimed length of the thumbnail; 0: the true one
    bool bolProgresivo = false;
    std::string strMini{}; ///< bytes of the thumbnail, instead of the picture
    [[nodiscard]] std::string fBytes() const;
};

/// A CMYK JPEG of 24 x 16 red pixels.
[[nodiscard]] std::string fJpegCmyk();
