#include "viewer/rejilla.h"

#include <algorithm>

clsRejilla fDisponerRejilla(const clsRect &fondo, int intTam)
{
    constexpr int lngMargen = 60;
    clsRejilla rejilla;
    rejilla.lngCelda = lstTamMini[intTam] + lngMargenCelda;
    rejilla.lngIzq = fondo.lngIzq + lngMargen;
    rejilla.lngArriba = fondo.lngArriba + lngMargen;
    const int intColumnas = fondo.lngAncho / rejilla.lngCelda;
    const int intFilas = fondo.lngAlto / rejilla.lngCelda;
    // Where one of the two is 0, their sum is the other: the line that there is room for.
    const int intLinea = std::max(1, intColumnas + intFilas);
    rejilla.intCeldas = intColumnas * intFilas > 0 ? intColumnas * intFilas : intLinea;
    rejilla.intColumnas = std::max(1, intColumnas);
    return rejilla;
}

clsRect fCelda(const clsRejilla &rejilla, int intCelda)
{
    return {rejilla.lngIzq + intCelda % rejilla.intColumnas * rejilla.lngCelda,
            rejilla.lngArriba + intCelda / rejilla.intColumnas * rejilla.lngCelda, rejilla.lngCelda,
            rejilla.lngCelda};
}
