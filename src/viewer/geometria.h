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
};

/// Where the controls of the two panels go.
struct clsDisposicion {
    clsRect lista;    ///< lstFotos
    clsRect fondo;    ///< lblFondo: the viewing panel
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
