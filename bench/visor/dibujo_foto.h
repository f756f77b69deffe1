#pragma once

#include <QImage>

#include <cmath>
#include <cstdint>

/// A picture of that size: soft shapes with fine grain, so that its files have the size that photos
/// of a camera have.
inline QImage fFoto(QSize tam, unsigned intSemilla)
{
    QImage imagen(tam, QImage::Format_RGB32);
    std::uint32_t lngAzar = intSemilla * 2654435761U + 1;
    const double dblFase = intSemilla * 0.7;
    for (int intY = 0; intY < tam.height(); ++intY) {
        auto *const linea = reinterpret_cast<QRgb *>(imagen.scanLine(intY));
        for (int intX = 0; intX < tam.width(); ++intX) {
            lngAzar = lngAzar * 1664525U + 1013904223U;
            const int intGrano = static_cast<int>(lngAzar >> 28) - 8;
            const double dblOnda = std::sin(intX * 0.004 + dblFase) * std::cos(intY * 0.006);
            const int intLuz = 128 + static_cast<int>(90 * dblOnda) + intGrano;
            linea[intX] = qRgb(qBound(0, intLuz + 20, 255), qBound(0, intLuz, 255),
                               qBound(0, 230 - intLuz + intGrano, 255));
        }
    }
    return imagen;
}
