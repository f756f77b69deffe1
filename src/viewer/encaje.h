#pragma once

/// Placing the picture in its frame; lengths are twips in floating point.

struct clsTam {
    double dblAncho = 0;
    double dblAlto = 0;
};

/// Where the picture stands in the frame; left and top may be negative.
struct clsEncaje {
    double dblIzq = 0;
    double dblArriba = 0;
    double dblAncho = 0;
    double dblAlto = 0;
    bool bolArrastrable = false; ///< the pointer tells that the picture can be dragged
};

/// @param recuadro size of the frame.
/// @param natural  natural size of the upright picture.
/// @param intZoom  percentage; 0 fits the picture to the frame, enlarging a small one.
[[nodiscard]] clsEncaje fEncajar(clsTam recuadro, clsTam natural, int intZoom);

/// Whether a press on the picture starts panning: it is larger than the frame in one direction.
[[nodiscard]] bool fSePuedeArrastrar(clsTam recuadro, const clsEncaje &foto);

/// One step of panning. The pointer has to be more than 190 twips from where it was pressed; a step
/// is 480 twips and never bares the frame's edge.
/// @param dblDx, dblDy pointer minus press point.
[[nodiscard]] clsEncaje fArrastrar(clsTam recuadro, const clsEncaje &foto, double dblDx,
                                   double dblDy);

/// The next zoom for + and -; the same one at the ends. From fit both lead to 100.
[[nodiscard]] constexpr int fZoomMayor(int intZoom)
{
    if (intZoom == 0) {
        return 100;
    }
    return intZoom >= 400 ? intZoom : intZoom * 2;
}
[[nodiscard]] constexpr int fZoomMenor(int intZoom)
{
    if (intZoom == 0) {
        return 100;
    }
    return intZoom <= 12 ? intZoom : intZoom / 2; // 25 halves to 12: whole numbers only
}

/// Percentages of the zoom menu by index; other indexes are no zoom.
inline constexpr int lstZooms[] = {400, 200, 100, 50, 25, 12};
