#pragma once

#include <QPixmap>

/// The pictures that stand for a thumbnail, drawn to be read on the dark ground of the panel,
/// whatever the desktop's colours.
/// @param intLado side of the box in pixels.
/// @param dblDpr  device pixels per pixel.

/// imgErrorLista: the file is not there any more.
[[nodiscard]] QPixmap fErrorLista(int intLado, double dblDpr);

/// imgVacio: there is no thumbnail of the file.
/// @param bolVideo a strip of film in place of a sheet.
[[nodiscard]] QPixmap fVacio(int intLado, double dblDpr, bool bolVideo);
