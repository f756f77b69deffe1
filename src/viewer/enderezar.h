#pragma once

#include <QImage>

/// Turns a stored picture upright. Source of the numbers: Exif 2.32, tag Orientation.
/// @param intOrientacion 1 to 8; any other leaves it as it is.
[[nodiscard]] QImage fEnderezar(const QImage &imagen, int intOrientacion);
