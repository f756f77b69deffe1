#pragma once

#include "viewer/geometria.h"

/// What a cell needs beyond its thumbnail box on each axis: the border, and room for the caption.
inline constexpr int lngMargenCelda = 240;

/// How a page of thumbnails lies on the viewing panel. Twips; see geometria.h for the boxes.
struct clsRejilla {
    int intColumnas = 1; ///< cells in a line
    int intCeldas = 1;   ///< cells of a page, never fewer than one
    int lngCelda = 0;    ///< side of a cell
    int lngIzq = 0;      ///< top left corner of the first cell
    int lngArriba = 0;
};

/// Lays out a page. Columns and rows are what the panel's full width and height hold, so that the
/// last ones may overhang its edge by the inset of 60 twips. A panel that is too small for a cell
/// in one direction has one line of cells along the other.
/// @param fondo  the viewing panel.
/// @param intTam index of the thumbnail size, 0 to 2.
[[nodiscard]] clsRejilla fDisponerRejilla(const clsRect &fondo, int intTam);

/// Where a cell of the page lies; cells abut, line by line from left to right.
[[nodiscard]] clsRect fCelda(const clsRejilla &rejilla, int intCelda);

/// Side in pixels of the thumbnails of a size.
[[nodiscard]] constexpr int fLadoMini(int intTam) { return lstTamMini[intTam] / intTwipsPixel; }
