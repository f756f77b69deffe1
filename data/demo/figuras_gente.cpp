// People.
#include "figuras.h"

#include <QPainterPath>

namespace demo {

namespace {

/// Long hair hangs behind neck and shoulders, so it is painted before them.
void fMelena(clsLienzo &l, double dblX, double dblY, double dblRadio, const QColor &colPelo)
{
    const QRectF zona(dblX - dblRadio * 1.2, dblY - dblRadio * 1.1, dblRadio * 2.4, dblRadio * 2.7);
    l.pintor.setBrush(colPelo.darker(110));
    l.pintor.drawRoundedRect(zona, dblRadio, dblRadio);
}

/// Head with hair, eyes and a smile, around its middle.
void fCabeza(clsLienzo &l, double dblX, double dblY, double dblRadio, const clsRopa &ropa)
{
    fElipse(l, dblX, dblY, dblRadio, dblRadio * 1.06, ropa.colPiel);
    QPainterPath pelo;
    pelo.moveTo(dblX - dblRadio * 1.05, dblY + dblRadio * 0.1);
    pelo.arcTo(
        QRectF(dblX - dblRadio * 1.06, dblY - dblRadio * 1.18, dblRadio * 2.12, dblRadio * 2.3),
        180, -180);
    pelo.quadTo(dblX + dblRadio * 0.7, dblY - dblRadio * 0.5, dblX + dblRadio * 0.1,
                dblY - dblRadio * 0.5);
    pelo.quadTo(dblX - dblRadio * 0.8, dblY - dblRadio * 0.45, dblX - dblRadio * 1.05,
                dblY + dblRadio * 0.1);
    l.pintor.setBrush(ropa.colPelo);
    l.pintor.drawPath(pelo);
    for (const double dblLado : {-0.36, 0.36}) {
        fElipse(l, dblX + dblLado * dblRadio, dblY + dblRadio * 0.05, dblRadio * 0.09,
                dblRadio * 0.12, QColor(45, 35, 32));
        fElipse(l, dblX + dblLado * 1.5 * dblRadio, dblY + dblRadio * 0.38, dblRadio * 0.17,
                dblRadio * 0.12, QColor(235, 110, 100, 90));
    }
    QPainterPath sonrisa(QPointF(dblX - dblRadio * 0.36, dblY + dblRadio * 0.42));
    sonrisa.quadTo(dblX, dblY + dblRadio * 0.85, dblX + dblRadio * 0.36, dblY + dblRadio * 0.42);
    l.pintor.strokePath(sonrisa,
                        QPen(QColor(150, 50, 45), dblRadio * 0.1, Qt::SolidLine, Qt::RoundCap));
}

} // namespace

clsRopa fRopa(clsLienzo &l, bool bolCanas)
{
    clsRopa ropa;
    ropa.colCamisa = fElegir(l, {QColor(206, 66, 58), QColor(52, 112, 178), QColor(240, 190, 66),
                                 QColor(74, 150, 96), QColor(238, 236, 228), QColor(226, 120, 150),
                                 QColor(130, 92, 168)});
    ropa.colPantalon = fElegir(
        l, {QColor(54, 72, 112), QColor(94, 84, 74), QColor(60, 60, 66), QColor(150, 124, 92)});
    ropa.colPiel =
        fElegir(l, {QColor(240, 200, 168), QColor(226, 178, 142), QColor(204, 152, 116)});
    ropa.colPelo = fElegir(
        l, {QColor(62, 42, 32), QColor(104, 70, 44), QColor(30, 26, 28), QColor(176, 132, 76)});
    if (bolCanas && l.azar.fMoneda(0.2)) {
        ropa.colPelo = QColor(190, 188, 186);
    }
    ropa.bolFalda = l.azar.fMoneda(0.4);
    ropa.bolMelena = ropa.bolFalda || l.azar.fMoneda(0.2);
    return ropa;
}

void fPersona(clsLienzo &l, double dblX, double dblY, double dblAlto, const clsRopa &ropa)
{
    const double dblCadera = dblY - dblAlto * 0.4;
    const double dblHombro = dblY - dblAlto * 0.74;
    fElipse(l, dblX, dblY, dblAlto * 0.17, dblAlto * 0.025, QColor(20, 20, 30, 70));
    if (ropa.bolMelena) {
        fMelena(l, dblX, dblY - dblAlto * 0.87, dblAlto * 0.115, ropa.colPelo);
    }
    const QColor colPierna = ropa.bolFalda ? ropa.colPiel : ropa.colPantalon;
    for (const double dblLado : {-1.0, 1.0}) {
        const double dblPie = dblX + dblLado * dblAlto * 0.06;
        fTrazo(l,
               {
                   {dblPie, dblCadera            },
                   {dblPie, dblY - dblAlto * 0.03}
        },
               dblAlto * 0.085, colPierna);
        fElipse(l, dblPie + dblLado * dblAlto * 0.015, dblY - dblAlto * 0.015, dblAlto * 0.055,
                dblAlto * 0.025, QColor(66, 48, 42));
        const QPointF mano(dblX + dblLado * dblAlto * 0.19, dblCadera);
        fTrazo(l,
               {
                   {dblX + dblLado * dblAlto * 0.11, dblHombro + dblAlto * 0.05},
                   mano
        },
               dblAlto * 0.06, ropa.colCamisa.darker(112));
        fElipse(l, mano.x(), mano.y(), dblAlto * 0.032, dblAlto * 0.032, ropa.colPiel);
    }
    l.pintor.setBrush(ropa.colCamisa);
    l.pintor.drawRoundedRect(
        QRectF(dblX - dblAlto * 0.13, dblHombro, dblAlto * 0.26, dblAlto * 0.37), dblAlto * 0.06,
        dblAlto * 0.06);
    if (ropa.bolFalda) {
        fPoligono(l,
                  {
                      {dblX - dblAlto * 0.11, dblCadera - dblAlto * 0.03},
                      {dblX + dblAlto * 0.11, dblCadera - dblAlto * 0.03},
                      {dblX + dblAlto * 0.19, dblY - dblAlto * 0.2      },
                      {dblX - dblAlto * 0.19, dblY - dblAlto * 0.2      }
        },
                  ropa.colPantalon.lighter(120));
    }
    fCaja(l, dblX - dblAlto * 0.035, dblHombro - dblAlto * 0.05, dblAlto * 0.07, dblAlto * 0.07,
          ropa.colPiel.darker(108));
    fCabeza(l, dblX, dblY - dblAlto * 0.87, dblAlto * 0.115, ropa);
}

void fNovios(clsLienzo &l, double dblX, double dblY, double dblAlto)
{
    clsRopa novio = fRopa(l, false);
    novio.colCamisa = QColor(48, 50, 62);
    novio.colPantalon = QColor(42, 44, 54);
    novio.bolFalda = false;
    novio.bolMelena = false;
    const double dblEl = dblX + dblAlto * 0.19;
    fPersona(l, dblEl, dblY, dblAlto, novio);
    fPoligono(l,
              {
                  {dblEl - dblAlto * 0.05, dblY - dblAlto * 0.74},
                  {dblEl + dblAlto * 0.05, dblY - dblAlto * 0.74},
                  {dblEl,                  dblY - dblAlto * 0.55}
    },
              QColor(250, 250, 250));

    clsRopa novia = fRopa(l, false);
    novia.colCamisa = QColor(252, 250, 246);
    novia.colPantalon = novia.colCamisa;
    novia.bolFalda = false;
    novia.bolMelena = true;
    const double dblElla = dblX - dblAlto * 0.19;
    fPoligono(l, // the veil falls behind her
              {
                  {dblElla,                  dblY - dblAlto * 0.97},
                  {dblElla + dblAlto * 0.2,  dblY - dblAlto * 0.3 },
                  {dblElla - dblAlto * 0.34, dblY - dblAlto * 0.04}
    },
              QColor(255, 255, 255, 170));
    fPersona(l, dblElla, dblY, dblAlto * 0.95, novia);
    QPainterPath vestido(QPointF(dblElla - dblAlto * 0.1, dblY - dblAlto * 0.45));
    vestido.lineTo(dblElla + dblAlto * 0.1, dblY - dblAlto * 0.45);
    vestido.quadTo(dblElla + dblAlto * 0.16, dblY - dblAlto * 0.1, dblElla + dblAlto * 0.24, dblY);
    vestido.lineTo(dblElla - dblAlto * 0.26, dblY);
    vestido.quadTo(dblElla - dblAlto * 0.16, dblY - dblAlto * 0.1, dblElla - dblAlto * 0.1,
                   dblY - dblAlto * 0.45);
    l.pintor.setBrush(QColor(250, 247, 241));
    l.pintor.drawPath(vestido);
    for (int intI = 0; intI < 12; ++intI) { // the bouquet
        const double dblRx = l.azar.fEntre(-0.05, 0.05) * dblAlto;
        const double dblRy = l.azar.fEntre(-0.05, 0.05) * dblAlto;
        fElipse(l, dblX - dblAlto * 0.04 + dblRx, dblY - dblAlto * 0.45 + dblRy, dblAlto * 0.025,
                dblAlto * 0.025, intI % 3 == 0 ? QColor(90, 150, 80) : QColor(230, 90, 120));
    }
}

} // namespace demo
