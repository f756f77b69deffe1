// Things that stand in the scenes. Every one is placed by the point where it touches the ground.
#pragma once

#include "lienzo.h"

namespace demo {

void fArbol(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colHoja);
void fPino(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colHoja,
           bool bolNevado);
void fPalmera(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colTinte);
void fCipres(clsLienzo &l, double dblX, double dblY, double dblAlto);
/// A peak of that width and height, with a shaded side and, if wanted, snow on top.
void fPico(clsLienzo &l, double dblX, double dblY, double dblAncho, double dblAlto,
           const QColor &colRoca, bool bolNieve);
void fFlor(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colPetalo);
void fSombrilla(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colTela);
void fVelero(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colCasco);
/// A house with a pitched roof; its light is on if the colour of the panes says so.
void fCasa(clsLienzo &l, double dblX, double dblY, double dblAncho, double dblAlto,
           const QColor &colPared, const QColor &colVentana);
/// A church with a bell tower.
void fIglesia(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colPiedra);
/// A hot-air balloon (placed by its basket) and a toy balloon (placed by its knot).
void fGlobo(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colTela);
void fGlobito(clsLienzo &l, double dblX, double dblY, double dblRadio, const QColor &colGoma);

struct clsRopa {
    QColor colCamisa;
    QColor colPantalon;
    QColor colPiel;
    QColor colPelo;
    bool bolFalda;
    bool bolMelena;
};

/// Clothes, skin and hair by chance; grey hair only where it suits, not on children.
clsRopa fRopa(clsLienzo &l, bool bolCanas = true);
void fPersona(clsLienzo &l, double dblX, double dblY, double dblAlto, const clsRopa &ropa);
/// The couple at a wedding; the bride stands on the left.
void fNovios(clsLienzo &l, double dblX, double dblY, double dblAlto);
void fMunecoDeNieve(clsLienzo &l, double dblX, double dblY, double dblAlto);
void fGato(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colPelo);

} // namespace demo
