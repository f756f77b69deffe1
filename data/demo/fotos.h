// From a row of the plan to the bytes of its photo.
#pragma once

#include "plan.h"

#include <QByteArray>
#include <QImage>
#include <string>

namespace demo {

/// The scene in this size. The same seed gives the same picture; the time moves it within a film.
QImage fPintar(fnEscena fPintarEscena, const QSize &tamImagen, const std::string &strSemilla,
               double dblTiempo);

/// Throws std::runtime_error if the image cannot be encoded.
QByteArray fJpeg(const QImage &imgFoto, int intCalidad);

/// The finished file: painted, turned as its orientation demands, encoded, with Exif.
QByteArray fFoto(const clsCamara *pCamara, const clsFilaFoto &fila, const std::string &strRuta);

} // namespace demo
