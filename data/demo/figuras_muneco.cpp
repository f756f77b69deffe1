// The snowman and the cat.
#include "figuras.h"

#include <QPainterPath>
#include <QRadialGradient>

namespace demo {

void fMunecoDeNieve(clsLienzo &l, double dblX, double dblY, double dblAlto)
{
    const double lstRadios[] = {0.27, 0.2, 0.14};
    const double lstAlturas[] = {0.25, 0.58, 0.83};
    for (const double dblLado : {-1.0, 1.0}) {
        const double dblBrazo = dblX + dblLado * dblAlto * 0.36;
        fTrazo(l,
               {
                   {dblX + dblLado * dblAlto * 0.15, dblY - dblAlto * 0.6 },
                   {dblBrazo,                        dblY - dblAlto * 0.74}
        },
               dblAlto * 0.02, QColor(90, 62, 44));
    }
    for (int intI = 0; intI < 3; ++intI) {
        const double dblR = lstRadios[intI] * dblAlto;
        const double dblCy = dblY - lstAlturas[intI] * dblAlto;
        QRadialGradient degradado(dblX - dblR * 0.4, dblCy - dblR * 0.4, dblR * 1.6);
        degradado.setColorAt(0, QColor(255, 255, 255));
        degradado.setColorAt(1, QColor(176, 198, 226));
        fElipse(l, dblX, dblCy, dblR, dblR, degradado);
    }
    const double dblCara = dblY - dblAlto * 0.85;
    for (const double dblLado : {-0.05, 0.05}) {
        fElipse(l, dblX + dblLado * dblAlto, dblCara, dblAlto * 0.016, dblAlto * 0.016,
                QColor(30, 30, 36));
    }
    fPoligono(l,
              {
                  {dblX,                  dblCara + dblAlto * 0.015},
                  {dblX + dblAlto * 0.13, dblCara + dblAlto * 0.045},
                  {dblX,                  dblCara + dblAlto * 0.055}
    },
              QColor(238, 128, 44));
    for (const double dblBoton : {0.5, 0.58, 0.66}) {
        fElipse(l, dblX, dblY - dblAlto * dblBoton, dblAlto * 0.015, dblAlto * 0.015,
                QColor(40, 40, 48));
    }
    const QColor colBufanda =
        fElegir(l, {QColor(200, 48, 52), QColor(40, 110, 170), QColor(50, 140, 80)});
    fTrazo(l,
           {
               {dblX - dblAlto * 0.11, dblY - dblAlto * 0.73},
               {dblX + dblAlto * 0.11, dblY - dblAlto * 0.73}
    },
           dblAlto * 0.06, colBufanda);
    fTrazo(l,
           {
               {dblX + dblAlto * 0.08, dblY - dblAlto * 0.72},
               {dblX + dblAlto * 0.1,  dblY - dblAlto * 0.54}
    },
           dblAlto * 0.06, colBufanda.darker(112));
    fCaja(l, dblX - dblAlto * 0.15, dblY - dblAlto * 0.955, dblAlto * 0.3, dblAlto * 0.025,
          QColor(38, 36, 46));
    fCaja(l, dblX - dblAlto * 0.1, dblY - dblAlto * 1.1, dblAlto * 0.2, dblAlto * 0.15,
          QColor(44, 42, 54));
}

void fGato(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colPelo)
{
    QPainterPath cola(QPointF(dblX + dblAlto * 0.18, dblY - dblAlto * 0.06));
    cola.cubicTo(dblX + dblAlto * 0.5, dblY, dblX + dblAlto * 0.5, dblY - dblAlto * 0.3,
                 dblX + dblAlto * 0.38, dblY - dblAlto * 0.42);
    l.pintor.setBrush(Qt::NoBrush);
    l.pintor.strokePath(cola,
                        QPen(colPelo.darker(115), dblAlto * 0.08, Qt::SolidLine, Qt::RoundCap));
    QRadialGradient lomo(dblX - dblAlto * 0.1, dblY - dblAlto * 0.45, dblAlto * 0.6);
    lomo.setColorAt(0, colPelo.lighter(118));
    lomo.setColorAt(1, colPelo.darker(125));
    fElipse(l, dblX, dblY - dblAlto * 0.28, dblAlto * 0.25, dblAlto * 0.3, lomo);
    fElipse(l, dblX, dblY - dblAlto * 0.24, dblAlto * 0.12, dblAlto * 0.2,
            QColor(250, 246, 238, 210));
    const double dblCara = dblY - dblAlto * 0.68;
    const double dblR = dblAlto * 0.2;
    for (const double dblLado : {-1.0, 1.0}) {
        fPoligono(l,
                  {
                      {dblX + dblLado * dblR * 0.95, dblCara - dblR * 0.2},
                      {dblX + dblLado * dblR * 0.85, dblCara - dblR * 1.5},
                      {dblX + dblLado * dblR * 0.15, dblCara - dblR * 0.8}
        },
                  colPelo.darker(110));
        fElipse(l, dblX + dblLado * dblAlto * 0.09, dblY - dblAlto * 0.03, dblAlto * 0.07,
                dblAlto * 0.04, colPelo.lighter(110));
    }
    fElipse(l, dblX, dblCara, dblR * 1.12, dblR * 0.98, lomo);
    for (const double dblLado : {-1.0, 1.0}) {
        const double dblOjo = dblX + dblLado * dblR * 0.45;
        fElipse(l, dblOjo, dblCara - dblR * 0.08, dblR * 0.2, dblR * 0.23, QColor(196, 206, 90));
        fElipse(l, dblOjo, dblCara - dblR * 0.08, dblR * 0.07, dblR * 0.2, QColor(24, 24, 20));
        for (const double dblBaja : {0.3, 0.45}) {
            fTrazo(l,
                   {
                       {dblX + dblLado * dblR * 0.35, dblCara + dblR * 0.38   },
                       {dblX + dblLado * dblR * 1.5,  dblCara + dblR * dblBaja}
            },
                   dblR * 0.025, QColor(245, 240, 232, 220));
        }
    }
    fPoligono(l,
              {
                  {dblX - dblR * 0.12, dblCara + dblR * 0.25},
                  {dblX + dblR * 0.12, dblCara + dblR * 0.25},
                  {dblX,               dblCara + dblR * 0.4 }
    },
              QColor(220, 120, 120));
}

} // namespace demo
