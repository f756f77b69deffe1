#include "viewer/enderezar.h"

#include <QTransform>

QImage fEnderezar(const QImage &imagen, int intOrientacion)
{
    if (intOrientacion <= 1 || intOrientacion > 8) {
        return imagen;
    }
    const bool bolEspejo =
        intOrientacion == 2 || intOrientacion == 4 || intOrientacion == 5 || intOrientacion == 7;
    constexpr int lstGiros[] = {0, 0, 0, 180, 180, 270, 90, 90, 270};
    const int intGiro = lstGiros[intOrientacion];
    const QImage espejo = bolEspejo ? imagen.mirrored(true, false) : imagen;
    return intGiro == 0 ? espejo : espejo.transformed(QTransform().rotate(intGiro));
}
