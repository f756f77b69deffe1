#include "viewer/encaje.h"

#include <algorithm>

namespace {

constexpr double dblMuerta = 190;
constexpr double dblPaso = 480;

double fPaso(double dblPos, double dblTam, double dblRecuadro, double dblDelta)
{
    if (dblTam <= dblRecuadro) {
        return dblPos;
    }
    if (dblDelta > dblMuerta) {
        return std::min(dblPos + dblPaso, 0.0);
    }
    if (dblDelta < -dblMuerta) {
        return std::max(dblPos - dblPaso, dblRecuadro - dblTam);
    }
    return dblPos;
}

} // namespace

clsEncaje fEncajar(clsTam recuadro, clsTam natural, int intZoom)
{
    if (natural.dblAncho <= 0 || natural.dblAlto <= 0) {
        return {};
    }
    clsEncaje foto;
    if (intZoom != 0) {
        foto.dblAncho = natural.dblAncho * intZoom / 100;
        foto.dblAlto = natural.dblAlto * intZoom / 100;
    } else if (natural.dblAncho * recuadro.dblAlto > recuadro.dblAncho * natural.dblAlto) {
        foto.dblAncho = recuadro.dblAncho;
        foto.dblAlto = recuadro.dblAncho * natural.dblAlto / natural.dblAncho;
    } else {
        foto.dblAlto = recuadro.dblAlto;
        foto.dblAncho = recuadro.dblAlto * natural.dblAncho / natural.dblAlto;
    }
    foto.dblIzq = (recuadro.dblAncho - foto.dblAncho) / 2;
    foto.dblArriba = (recuadro.dblAlto - foto.dblAlto) / 2;
    foto.bolArrastrable = intZoom != 0 && (foto.dblIzq < 0 || foto.dblArriba < 0);
    return foto;
}

bool fSePuedeArrastrar(clsTam recuadro, const clsEncaje &foto)
{
    return foto.dblAncho > recuadro.dblAncho || foto.dblAlto > recuadro.dblAlto;
}

clsEncaje fArrastrar(clsTam recuadro, const clsEncaje &foto, double dblDx, double dblDy)
{
    clsEncaje nueva = foto;
    nueva.dblIzq = fPaso(foto.dblIzq, foto.dblAncho, recuadro.dblAncho, dblDx);
    nueva.dblArriba = fPaso(foto.dblArriba, foto.dblAlto, recuadro.dblAlto, dblDy);
    return nueva;
}
