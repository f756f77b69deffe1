#pragma once

#include "shared/twips.h"

/// A rectangle in twips, counted from the top left corner of the main window's client area.
struct clsRect {
    int lngIzq = 0;
    int lngArriba = 0;
    int lngAncho = 0;
    int lngAlto = 0;
    friend bool operator==(const clsRect &, const clsRect &) = default;
};

/// Sides of a thumbnail box for the three sizes, and what a cell needs beyond it.
inline constexpr int lstTamMini[] = {1000, 1500, 2000};

/// What the panel layout is computed from.
struct clsVentana {
    int lngAncho = 0;      ///< client width
    int lngAlto = 0;       ///< client height
    int lngArriba = 0;     ///< top of list and viewing panel
    int lngPanel = 0;      ///< panel width: width of the list, left edge of the viewing panel
    int lngAnchoInfo3 = 0; ///< width of the box at the right edge
    int lngFranja = 0;     ///< height of a strip along the lower edge of the viewing panel
};

/// Where the controls of the two panels go.
struct clsDisposicion {
    clsRect lista;    ///< lstFotos
    clsRect fondo;    ///< lblFondo: the viewing panel, without the strip
    clsRect franja;   ///< the strip; of no height where the panel is too low for both
    clsRect divisor;  ///< cmdAncho; its width is the control's own
    clsRect recuadro; ///< frmRecuadro
    int lngInfo3 = 0; ///< left edge of txtInfo3
};

/// Lays out the panels. No width or height is negative, however small the window. A panel width
/// beyond the window is taken as the window's width.
[[nodiscard]] clsDisposicion fDisponer(const clsVentana &ventana);

/// The panel width that results when the user asks for one: never negative, and the viewing panel
/// keeps room for one thumbnail of the current size and 480 twips more.
/// @param lngPedido  asked width.
/// @param lngVentana client width.
/// @param lngCelda   side of the current thumbnail box (1000, 1500 or 2000).
[[nodiscard]] int fAnchoPanel(int lngPedido, int lngVentana, int lngCelda);

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
