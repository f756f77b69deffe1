// Files written byte by byte. Sources: TIFF 6.0 and Exif 2.3; the AVI RIFF File Reference; the
// QuickTime File Format.
#pragma once

#include "bytes.h"

#include <ctime>
#include <QSize>
#include <string>
#include <vector>

namespace demo {

struct clsExif {
    enmOrden ordenBytes;
    std::string strMarca;
    std::string strModelo;
    std::string strFecha;           // as Exif writes it
    int intOrientacion;             // 1 to 8
    QSize tamGuardado;              // of the stored pixels, before the orientation is applied
    quint32 lngExposicionEntre = 0; // exposure time: 1/this seconds
    quint32 lngDiafragmaDecimos;    // f-number times ten
    quint32 lngIso = 0;
    QByteArray datMiniatura = {}; // a small JPEG, or empty for none
};

/// The JPEG with an Exif segment as the first one after SOI. Throws std::runtime_error if that
/// would be too long.
QByteArray fConExif(const QByteArray &datJpeg, const clsExif &exif);

/// A whole film of Motion-JPEG from its frames, each of them a complete JPEG of the given size.
QByteArray fAvi(const std::vector<QByteArray> &lstCuadros, const QSize &tamCuadro,
                int intCuadrosPorSegundo);
QByteArray fMov(const std::vector<QByteArray> &lstCuadros, const QSize &tamCuadro,
                int intCuadrosPorSegundo, std::time_t datCreacion);

} // namespace demo
