#include "viewer/geometria.h"

#include <algorithm>

clsDisposicion fDisponer(const clsVentana &ventana)
{
    constexpr int lngMargen = 60;
    const int lngPanel = std::clamp(ventana.lngPanel, 0, fNoNegativo(ventana.lngAncho));
    const int lngAlto = fNoNegativo(ventana.lngAlto - ventana.lngArriba);
    clsDisposicion sitio;
    sitio.lista = {0, ventana.lngArriba, lngPanel, lngAlto};
    sitio.fondo = {lngPanel, ventana.lngArriba, fNoNegativo(ventana.lngAncho - lngPanel), lngAlto};
    sitio.divisor = {lngPanel - intTwipsPixel, ventana.lngArriba, 0, lngAlto};
    sitio.recuadro = {sitio.fondo.lngIzq + lngMargen, sitio.fondo.lngArriba + lngMargen,
                      fNoNegativo(sitio.fondo.lngAncho - 2 * lngMargen),
                      fNoNegativo(sitio.fondo.lngAlto - 2 * lngMargen)};
    sitio.lngInfo3 = ventana.lngAncho - ventana.lngAnchoInfo3;
    return sitio;
}

int fAnchoPanel(int lngPedido, int lngVentana, int lngCelda)
{
    if (lngPedido < 0) {
        return 0;
    }
    const int lngReserva = lngCelda + 480;
    return lngVentana - lngPedido < lngReserva ? fNoNegativo(lngVentana - lngReserva) : lngPedido;
}
