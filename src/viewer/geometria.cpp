#include "viewer/geometria.h"

#include <algorithm>

// What frame and cells keep from the edges of the viewing panel.
constexpr int lngMargen = 60;

clsDisposicion fDisponer(const clsVentana &ventana)
{
    const int lngPanel = std::clamp(ventana.lngPanel, 0, fNoNegativo(ventana.lngAncho));
    const int lngAlto = fNoNegativo(ventana.lngAlto - ventana.lngArriba);
    clsDisposicion sitio;
    sitio.lista = {0, ventana.lngArriba, lngPanel, lngAlto};
    const int lngFranja = ventana.lngFranja <= lngAlto / 3 ? ventana.lngFranja : 0;
    sitio.fondo = {lngPanel, ventana.lngArriba, fNoNegativo(ventana.lngAncho - lngPanel),
                   lngAlto - lngFranja};
    sitio.franja = {lngPanel, sitio.fondo.lngArriba + sitio.fondo.lngAlto, sitio.fondo.lngAncho,
                    lngFranja};
    sitio.divisor = {lngPanel - intTwipsPixel, ventana.lngArriba, 0, lngAlto};
    sitio.recuadro = {sitio.fondo.lngIzq + lngMargen, sitio.fondo.lngArriba + lngMargen,
                      fNoNegativo(sitio.fondo.lngAncho - 2 * lngMargen),
                      fNoNegativo(sitio.fondo.lngAlto - 2 * lngMargen)};
    sitio.lngInfo3 = ventana.lngAncho - ventana.lngAnchoInfo3;
    return sitio;
}

int fAnchoPanel(int lngPedido, int lngVentana, int lngCelda)
{
    return fNoNegativo(std::min(lngPedido, lngVentana - lngCelda - 480));
}

clsRejilla fDisponerRejilla(const clsRect &fondo, int intTam)
{
    clsRejilla rejilla;
    rejilla.lngCelda = lstTamMini[intTam] + lngMargenCelda;
    rejilla.lngIzq = fondo.lngIzq + lngMargen;
    rejilla.lngArriba = fondo.lngArriba + lngMargen;
    const int intColumnas = fondo.lngAncho / rejilla.lngCelda;
    const int intFilas = fondo.lngAlto / rejilla.lngCelda;
    // Where one of the two is 0, their sum is the other: the line that there is room for.
    rejilla.intCeldas =
        intColumnas * intFilas > 0 ? intColumnas * intFilas : std::max(1, intColumnas + intFilas);
    rejilla.intColumnas = std::max(1, intColumnas);
    return rejilla;
}

clsRect fCelda(const clsRejilla &rejilla, int intCelda)
{
    return {rejilla.lngIzq + intCelda % rejilla.intColumnas * rejilla.lngCelda,
            rejilla.lngArriba + intCelda / rejilla.intColumnas * rejilla.lngCelda, rejilla.lngCelda,
            rejilla.lngCelda};
}
