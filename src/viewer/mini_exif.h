#pragma once

#include "viewer/cabecera_jpeg.h"

#include <QImage>
#include <QSize>

#include <string>

// What the head of a JPEG photo tells of its picture.

/// Size of the upright picture in pixels; empty when it was not found.
[[nodiscard]] QSize fTamDerecho(const clsCabeceraJpeg &cabecera);

/// The EXIF thumbnail as it is stored, with the proportions of the picture: without the bars it may
/// have. Null where there is none that can stand for the picture.
[[nodiscard]] QImage fMiniExif(clsLector &lector, const clsCabeceraJpeg &cabecera);

/// A thumbnail's JPEG file; null when it is none, or takes more than a thumbnail may.
[[nodiscard]] QImage fLeerJpeg(const std::string &strBytes);
