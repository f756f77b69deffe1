// Pictures of people: the wedding, the family together.
#include "escenas.h"
#include "figuras.h"

#include <algorithm>
#include <cmath>
#include <QPainterPath>

namespace demo {

namespace {

void fPortada(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colPiedra)
{
    const double dblAncho = dblAlto * 0.62;
    for (int intArco = 0; intArco < 4; ++intArco) { // archivolts, one inside the other
        const double dblMitad = dblAncho * (0.5 - 0.07 * intArco);
        const double dblCima = dblY - dblAlto * 0.62;
        QPainterPath arco(QPointF(dblX - dblMitad, dblY));
        arco.lineTo(dblX - dblMitad, dblCima);
        arco.quadTo(dblX - dblMitad * 0.9, dblCima - dblMitad * 0.9, dblX,
                    dblCima - dblMitad * 1.3);
        arco.quadTo(dblX + dblMitad * 0.9, dblCima - dblMitad * 0.9, dblX + dblMitad, dblCima);
        arco.lineTo(dblX + dblMitad, dblY);
        l.pintor.setBrush(intArco == 3 ? QColor(70, 44, 32) : colPiedra.darker(106 + 12 * intArco));
        l.pintor.drawPath(arco);
    }
    fTrazo(l,
           {
               {dblX, dblY                 },
               {dblX, dblY - dblAlto * 0.85}
    },
           4, QColor(40, 26, 20));
}

} // namespace

void fPintarBoda(clsLienzo &l)
{
    const double dblSuelo = l.dblAlto * 0.84;
    const QColor colPiedra =
        fElegir(l, {QColor(228, 206, 168), QColor(216, 196, 172), QColor(236, 220, 188)});
    fFondo(l, 0, dblSuelo, QColor(110, 176, 228), QColor(224, 238, 246));
    fNubes(l, l.fCuantos(2), 60, 200, QColor(255, 255, 255));
    const double dblX = l.dblAncho * l.azar.fEntre(0.45, 0.55);
    const double dblTecho = l.dblAlto * 0.12;
    fPoligono(l,
              {
                  {dblX - 520, dblSuelo      },
                  {dblX - 520, dblTecho + 170},
                  {dblX,       dblTecho - 40 },
                  {dblX + 520, dblTecho + 170},
                  {dblX + 520, dblSuelo      }
    },
              colPiedra);
    for (double dblY = dblTecho + 190; dblY < dblSuelo; dblY += 42) { // courses of ashlar
        for (int intI = 0; intI < 14; ++intI) {
            const double dblAncho = l.azar.fEntre(50, 78);
            const QColor colSillar =
                fMezcla(colPiedra, QColor(170, 140, 100), l.azar.fEntre(0, 0.3));
            fCaja(l, dblX - 518 + intI * 74.0, dblY, dblAncho, 38, colSillar);
        }
    }
    fElipse(l, dblX, dblTecho + 150, 80, 80, colPiedra.darker(125)); // the rose window
    for (int intI = 0; intI < 10; ++intI) {
        const double dblGiro = intI * 6.2832 / 10;
        fElipse(l, dblX + std::cos(dblGiro) * 48, dblTecho + 150 + std::sin(dblGiro) * 48, 15, 15,
                QColor::fromHsv(intI * 36, 120, 190));
    }
    fElipse(l, dblX, dblTecho + 150, 24, 24, QColor(240, 200, 90));
    fPortada(l, dblX, dblSuelo, std::min(520.0, l.dblAlto * 0.52), colPiedra);
    fCipres(l, dblX - 610, dblSuelo, 480);
    fCipres(l, dblX + 610, dblSuelo, 460);
    fFondo(l, dblSuelo, l.dblAlto, QColor(206, 190, 164), QColor(176, 158, 132));
    const int intInvitados = l.azar.fEntero(1, 2);
    for (int intI = 0; intI < intInvitados; ++intI) {
        const double dblAparte = 310 + 150.0 * intI;
        fPersona(l, dblX - dblAparte, l.dblAlto * 0.91, l.azar.fEntre(300, 350), fRopa(l));
        fPersona(l, dblX + dblAparte, l.dblAlto * 0.91, l.azar.fEntre(300, 350), fRopa(l));
    }
    fNovios(l, dblX, l.dblAlto * 0.95, 420);
    for (int intI = 0; intI < 190; ++intI) { // rice and petals
        const double dblPx = dblX + l.azar.fEntre(-430, 430);
        const double dblPy = l.azar.fEntre(0.25, 0.97) * l.dblAlto;
        fElipse(l, dblPx, dblPy, 5, 3,
                fElegir(l, {QColor(255, 255, 255), QColor(250, 180, 196), QColor(240, 120, 150)}));
    }
}

void fPintarFamilia(clsLienzo &l)
{
    const double dblSuelo = l.dblAlto * l.azar.fEntre(0.6, 0.66);
    fFondo(l, 0, dblSuelo, QColor(120, 188, 234), QColor(236, 246, 250));
    fNubes(l, l.fCuantos(3), 70, dblSuelo * 0.5, QColor(255, 255, 255));
    fLoma(l, dblSuelo - 40, 30, QColor(120, 166, 120), QColor(96, 146, 90));
    for (int intI = 0; intI < l.fCuantos(5); ++intI) {
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblAlto = l.azar.fEntre(240, 400);
        fArbol(l, dblX, dblSuelo + 10, dblAlto,
               fElegir(l, {QColor(80, 140, 70), QColor(110, 160, 74), QColor(66, 120, 74)}));
    }
    fFondo(l, dblSuelo, l.dblAlto, QColor(146, 194, 92), QColor(72, 140, 56));
    fHierba(l, dblSuelo + 20, l.dblAlto * 1.02, l.fCuantos(700), QColor(80, 146, 58),
            QColor(176, 212, 104));
    const int intAdultos = std::max(2, l.fCuantos(l.azar.fEntre(2.2, 3.2)));
    const double dblPaso = std::min(250.0, l.dblAncho * 0.86 / intAdultos);
    const double dblInicio = l.dblAncho * 0.5 - dblPaso * (intAdultos - 1) / 2;
    for (int intI = 0; intI < intAdultos; ++intI) {
        fPersona(l, dblInicio + dblPaso * intI, l.dblAlto * 0.88, l.azar.fEntre(480, 560),
                 fRopa(l));
    }
    for (int intI = 0; intI + 1 < intAdultos; ++intI) { // the children stand in front, in the gaps
        if (l.azar.fMoneda(0.75)) {
            const double dblX = dblInicio + dblPaso * (intI + 0.5);
            fPersona(l, dblX, l.dblAlto * 0.95, l.azar.fEntre(270, 370), fRopa(l, false));
        }
    }
}

} // namespace demo
