// The scenes. Each one fills the whole canvas, in whatever proportions; what varies (colours,
// places, numbers) comes from the canvas's own generator.
#pragma once

#include "lienzo.h"

namespace demo {

using fnEscena = void (*)(clsLienzo &);

void fPintarPlaya(clsLienzo &l);
void fPintarAtardecer(clsLienzo &l);
void fPintarBarcas(clsLienzo &l);
void fPintarMontanas(clsLienzo &l);
void fPintarNieve(clsLienzo &l);
void fPintarGlobos(clsLienzo &l);
void fPintarBosque(clsLienzo &l);
void fPintarCamino(clsLienzo &l);
void fPintarJardin(clsLienzo &l);
void fPintarPueblo(clsLienzo &l);
void fPintarCiudad(clsLienzo &l);
void fPintarNoria(clsLienzo &l);
void fPintarBoda(clsLienzo &l);
void fPintarTarta(clsLienzo &l);
void fPintarFamilia(clsLienzo &l);
void fPintarNavidad(clsLienzo &l);
void fPintarGato(clsLienzo &l);

} // namespace demo
