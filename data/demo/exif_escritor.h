// Puts an Exif segment into a JPEG file. Sources: TIFF 6.0 for the directories, Exif 2.3 for the
// tags and the APP1 segment.
#pragma once

#include "bytes.h"

#include <QByteArray>
#include <QSize>
#include <string>

namespace demo {

struct clsExif {
    enmOrden ordenBytes;
    std::string strMarca;
    std::string strModelo;
    std::string strFecha;        // as Exif writes it
    int intOrientacion;          // 1 to 8
    QSize tamGuardado;           // of the stored pixels, before the orientation is applied
    quint32 lngExposicionEntre;  // exposure time: 1/this seconds
    quint32 lngDiafragmaDecimos; // f-number times ten
    quint32 lngIso;
    QByteArray datMiniatura; // a small JPEG, or empty for none
};

/// The JPEG with the segment as the first one after SOI. Throws std::runtime_error if the bytes are
/// no JPEG or if the segment would be too long.
QByteArray fConExif(const QByteArray &datJpeg, const clsExif &exif);

} // namespace demo
