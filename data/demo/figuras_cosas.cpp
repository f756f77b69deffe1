// Sunshade, boat, buildings, balloons.
#include "figuras.h"

#include <algorithm>
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

namespace demo {

void fSombrilla(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colTela)
{
    l.pintor.save();
    l.pintor.translate(dblX, dblY);
    l.pintor.rotate(-9);
    fTrazo(l,
           {
               {0, 0       },
               {0, -dblAlto}
    },
           dblAlto * 0.025, QColor(235, 230, 220));
    l.pintor.setClipRect(QRectF(-dblAlto, -dblAlto * 1.1, dblAlto * 2, dblAlto * 0.45));
    const double lstAnchos[] = {0.62, 0.42, 0.14};
    for (int intI = 0; intI < 3; ++intI) { // the gores: nested half ellipses of two colours
        fElipse(l, 0, -dblAlto * 0.65, dblAlto * lstAnchos[intI], dblAlto * 0.36,
                intI % 2 == 0 ? colTela : QColor(252, 250, 244));
    }
    l.pintor.restore();
}

void fVelero(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colCasco)
{
    const double dblPie = dblY - dblAlto * 0.16;
    fTrazo(l,
           {
               {dblX, dblPie        },
               {dblX, dblY - dblAlto}
    },
           dblAlto * 0.02, QColor(110, 84, 60));
    fPoligono(l,
              {
                  {dblX + dblAlto * 0.03, dblY - dblAlto * 0.97},
                  {dblX + dblAlto * 0.4,  dblPie               },
                  {dblX + dblAlto * 0.03, dblPie               }
    },
              QColor(255, 253, 246));
    fPoligono(l,
              {
                  {dblX - dblAlto * 0.03, dblY - dblAlto * 0.88},
                  {dblX - dblAlto * 0.28, dblPie               },
                  {dblX - dblAlto * 0.03, dblPie               }
    },
              QColor(232, 232, 236));
    fPoligono(l,
              {
                  {dblX - dblAlto * 0.4,  dblY - dblAlto * 0.13},
                  {dblX + dblAlto * 0.45, dblY - dblAlto * 0.13},
                  {dblX + dblAlto * 0.32, dblY                 },
                  {dblX - dblAlto * 0.3,  dblY                 }
    },
              colCasco);
}

void fCasa(clsLienzo &l, double dblX, double dblY, double dblAncho, double dblAlto,
           const QColor &colPared, const QColor &colVentana)
{
    const double dblIzq = dblX - dblAncho / 2;
    const double dblTejado = dblAlto * 0.28;
    const double dblMuro = dblAlto - dblTejado;
    QLinearGradient degradado(dblIzq, 0, dblIzq + dblAncho, 0);
    degradado.setColorAt(0, colPared);
    degradado.setColorAt(1, colPared.darker(114));
    fCaja(l, dblIzq, dblY - dblMuro, dblAncho, dblMuro, degradado);
    const double dblAlero = dblAncho * 0.06;
    fPoligono(l,
              {
                  {dblIzq - dblAlero,            dblY - dblMuro},
                  {dblIzq + dblAncho * 0.2,      dblY - dblAlto},
                  {dblIzq + dblAncho * 0.8,      dblY - dblAlto},
                  {dblIzq + dblAncho + dblAlero, dblY - dblMuro}
    },
              fElegir(l, {QColor(186, 94, 62), QColor(170, 82, 58), QColor(198, 110, 72)}));
    const int intColumnas = std::max(2, static_cast<int>(dblAncho / (dblAlto * 0.4)));
    const double dblPaso = dblAncho / intColumnas;
    for (int intI = 0; intI < intColumnas; ++intI) {
        const double dblV = dblIzq + dblPaso * (intI + 0.33);
        fCaja(l, dblV, dblY - dblMuro * 0.86, dblPaso * 0.34, dblMuro * 0.27, colVentana);
        fTrazo(l,
               {
                   {dblV,                  dblY - dblMuro * 0.57},
                   {dblV + dblPaso * 0.34, dblY - dblMuro * 0.57}
        },
               dblMuro * 0.03, colPared.darker(150));
    }
    const double dblPuerta = dblIzq + dblPaso * 0.3;
    fCaja(l, dblPuerta, dblY - dblMuro * 0.42, dblPaso * 0.4, dblMuro * 0.42,
          fElegir(l, {QColor(48, 92, 130), QColor(112, 72, 46), QColor(52, 108, 84)}));
}

void fIglesia(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colPiedra)
{
    fCasa(l, dblX + dblAlto * 0.36, dblY, dblAlto * 0.6, dblAlto * 0.5, colPiedra,
          QColor(90, 96, 120));
    QLinearGradient degradado(dblX - dblAlto * 0.12, 0, dblX + dblAlto * 0.12, 0);
    degradado.setColorAt(0, colPiedra.lighter(106));
    degradado.setColorAt(1, colPiedra.darker(124));
    fCaja(l, dblX - dblAlto * 0.12, dblY - dblAlto * 0.78, dblAlto * 0.24, dblAlto * 0.78,
          degradado);
    fPoligono(l,
              {
                  {dblX - dblAlto * 0.14, dblY - dblAlto * 0.78},
                  {dblX,                  dblY - dblAlto * 0.98},
                  {dblX + dblAlto * 0.14, dblY - dblAlto * 0.78}
    },
              QColor(168, 88, 62));
    fTrazo(l,
           {
               {dblX, dblY - dblAlto * 1.06},
               {dblX, dblY - dblAlto * 0.97}
    },
           dblAlto * 0.012, QColor(60, 54, 50));
    fTrazo(l,
           {
               {dblX - dblAlto * 0.02, dblY - dblAlto * 1.03},
               {dblX + dblAlto * 0.02, dblY - dblAlto * 1.03}
    },
           dblAlto * 0.012, QColor(60, 54, 50));
    const QColor colHueco(62, 54, 58);
    fElipse(l, dblX, dblY - dblAlto * 0.66, dblAlto * 0.05, dblAlto * 0.055, colHueco);
    fCaja(l, dblX - dblAlto * 0.05, dblY - dblAlto * 0.66, dblAlto * 0.1, dblAlto * 0.08, colHueco);
    fElipse(l, dblX, dblY - dblAlto * 0.61, dblAlto * 0.03, dblAlto * 0.035, QColor(196, 160, 70));
}

void fGlobo(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colTela)
{
    const double dblRadio = dblAlto * 0.36;
    const double dblCentro = dblY - dblAlto * 0.64;
    fTrazo(l,
           {
               {dblX - dblRadio * 0.5, dblCentro + dblRadio * 0.9},
               {dblX - dblAlto * 0.06, dblY - dblAlto * 0.1      }
    },
           dblAlto * 0.006, QColor(70, 60, 50));
    fTrazo(l,
           {
               {dblX + dblRadio * 0.5, dblCentro + dblRadio * 0.9},
               {dblX + dblAlto * 0.06, dblY - dblAlto * 0.1      }
    },
           dblAlto * 0.006, QColor(70, 60, 50));
    QPainterPath tela;
    tela.addEllipse(QPointF(dblX, dblCentro), dblRadio, dblRadio);
    tela.moveTo(dblX - dblRadio * 0.94, dblCentro + dblRadio * 0.34);
    tela.lineTo(dblX - dblRadio * 0.28, dblY - dblAlto * 0.17);
    tela.lineTo(dblX + dblRadio * 0.28, dblY - dblAlto * 0.17);
    tela.lineTo(dblX + dblRadio * 0.94, dblCentro + dblRadio * 0.34);
    tela.setFillRule(Qt::WindingFill);
    l.pintor.save();
    l.pintor.setClipPath(tela);
    const double lstAnchos[] = {1.02, 0.78, 0.48, 0.16};
    for (int intI = 0; intI < 4; ++intI) {
        fElipse(l, dblX, dblCentro + dblRadio * 0.2, dblRadio * lstAnchos[intI], dblRadio * 1.9,
                intI % 2 == 0 ? colTela : QColor(253, 240, 205));
    }
    QRadialGradient sombra(dblX - dblRadio * 0.4, dblCentro - dblRadio * 0.4, dblRadio * 1.9);
    sombra.setColorAt(0, QColor(255, 255, 255, 70));
    sombra.setColorAt(1, QColor(30, 0, 40, 130));
    fElipse(l, dblX, dblCentro, dblRadio * 2, dblRadio * 2, sombra);
    l.pintor.restore();
    fCaja(l, dblX - dblAlto * 0.06, dblY - dblAlto * 0.1, dblAlto * 0.12, dblAlto * 0.1,
          QColor(140, 98, 58));
}

void fGlobito(clsLienzo &l, double dblX, double dblY, double dblRadio, const QColor &colGoma)
{
    QRadialGradient degradado(dblX - dblRadio * 0.35, dblY - dblRadio * 1.7, dblRadio * 1.5);
    degradado.setColorAt(0, colGoma.lighter(160));
    degradado.setColorAt(0.5, colGoma);
    degradado.setColorAt(1, colGoma.darker(135));
    QPainterPath hilo(QPointF(dblX, dblY));
    hilo.cubicTo(dblX + dblRadio * 0.4, dblY + dblRadio, dblX - dblRadio * 0.4,
                 dblY + dblRadio * 1.6, dblX, dblY + dblRadio * 2.6);
    l.pintor.strokePath(hilo, QPen(QColor(120, 110, 105, 190), 2));
    fPoligono(l,
              {
                  {dblX - dblRadio * 0.13, dblY + 4},
                  {dblX,                   dblY - 8},
                  {dblX + dblRadio * 0.13, dblY + 4}
    },
              colGoma.darker(125));
    fElipse(l, dblX, dblY - dblRadio * 1.15, dblRadio, dblRadio * 1.17, degradado);
}

} // namespace demo
