// Indoors: Christmas, the cat at the window.
#include "escenas.h"
#include "figuras.h"

#include <QPainterPath>

namespace demo {

namespace {

/// The frame of a window around whatever was painted inside.
void fMarco(clsLienzo &l, const QRectF &hueco, const QColor &colMadera)
{
    l.pintor.setBrush(Qt::NoBrush);
    l.pintor.setPen(QPen(colMadera, 22, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    l.pintor.drawRect(hueco);
    l.pintor.setPen(QPen(colMadera, 13));
    l.pintor.drawLine(QPointF(hueco.center().x(), hueco.top()),
                      QPointF(hueco.center().x(), hueco.bottom()));
    l.pintor.drawLine(QPointF(hueco.left(), hueco.center().y()),
                      QPointF(hueco.right(), hueco.center().y()));
    l.pintor.setPen(Qt::NoPen);
}

void fVentanaNevada(clsLienzo &l, const QRectF &hueco)
{
    l.pintor.save();
    l.pintor.setClipRect(hueco);
    QLinearGradient noche(0, hueco.top(), 0, hueco.bottom());
    noche.setColorAt(0, QColor(18, 28, 70));
    noche.setColorAt(1, QColor(70, 96, 150));
    fCaja(l, hueco.x(), hueco.y(), hueco.width(), hueco.height(), noche);
    fElipse(l, hueco.center().x(), hueco.bottom() + 60, hueco.width(), 110, QColor(228, 238, 252));
    fPino(l, hueco.left() + 60, hueco.bottom() - 20, 150, QColor(40, 80, 76), true);
    for (int intI = 0; intI < 60; ++intI) {
        const double dblX = l.azar.fEntre(hueco.left(), hueco.right());
        const double dblY = l.azar.fEntre(hueco.top(), hueco.bottom());
        fElipse(l, dblX, dblY, 4, 4, QColor(255, 255, 255, 220));
    }
    l.pintor.restore();
    fMarco(l, hueco, QColor(244, 240, 232));
}

void fRegalo(clsLienzo &l, double dblX, double dblY, double dblTam, const QColor &colPapel)
{
    const QColor colCinta =
        fElegir(l, {QColor(250, 214, 90), QColor(250, 250, 250), QColor(210, 50, 60)});
    const double dblAlto = dblTam * l.azar.fEntre(0.6, 0.95);
    fElipse(l, dblX, dblY, dblTam * 0.62, dblTam * 0.08, QColor(30, 10, 10, 80));
    QLinearGradient degradado(dblX - dblTam / 2, 0, dblX + dblTam / 2, 0);
    degradado.setColorAt(0, colPapel.lighter(112));
    degradado.setColorAt(1, colPapel.darker(118));
    fCaja(l, dblX - dblTam / 2, dblY - dblAlto, dblTam, dblAlto, degradado);
    fCaja(l, dblX - dblTam * 0.54, dblY - dblAlto, dblTam * 1.08, dblAlto * 0.18,
          colPapel.darker(108));
    fCaja(l, dblX - dblTam * 0.07, dblY - dblAlto, dblTam * 0.14, dblAlto, colCinta);
    for (const double dblLado : {-1.0, 1.0}) {
        fPoligono(l,
                  {
                      {dblX,                           dblY - dblAlto                },
                      {dblX + dblLado * dblTam * 0.3,  dblY - dblAlto - dblTam * 0.24},
                      {dblX + dblLado * dblTam * 0.34, dblY - dblAlto - dblTam * 0.02}
        },
                  colCinta.darker(106));
    }
}

void fAbeto(clsLienzo &l, double dblX, double dblY, double dblAlto)
{
    fCaja(l, dblX - dblAlto * 0.035, dblY - dblAlto * 0.12, dblAlto * 0.07, dblAlto * 0.12,
          QColor(92, 60, 38));
    for (int intPiso = 0; intPiso < 5; ++intPiso) {
        const double dblMitad = dblAlto * (0.33 - 0.055 * intPiso);
        const double dblPie = dblY - dblAlto * (0.09 + 0.17 * intPiso);
        QPainterPath rama(QPointF(dblX, dblPie - dblAlto * 0.3));
        rama.quadTo(dblX + dblMitad * 0.35, dblPie - dblAlto * 0.08, dblX + dblMitad, dblPie);
        rama.quadTo(dblX, dblPie + dblAlto * 0.05, dblX - dblMitad, dblPie);
        rama.quadTo(dblX - dblMitad * 0.35, dblPie - dblAlto * 0.08, dblX, dblPie - dblAlto * 0.3);
        QLinearGradient degradado(0, dblPie - dblAlto * 0.3, 0, dblPie);
        degradado.setColorAt(0, QColor(52, 122, 70));
        degradado.setColorAt(1, QColor(20, 74, 46));
        l.pintor.setBrush(degradado);
        l.pintor.drawPath(rama);
        std::vector<QPointF> lstEspumillon;
        for (int intI = 0; intI <= 12; ++intI) {
            const double dblParte = intI / 6.0 - 1;
            lstEspumillon.emplace_back(dblX + dblParte * dblMitad * 0.78,
                                       dblPie - dblAlto * (0.035 + 0.03 * dblParte * dblParte));
        }
        fTrazo(l, lstEspumillon, 6, QColor(250, 220, 120, 190));
        for (int intI = 0; intI < 6 - intPiso / 2; ++intI) { // baubles and lights
            const double dblLado = l.azar.fEntre(-0.7, 0.7);
            const double dblBx = dblX + dblLado * dblMitad;
            const double dblBy = dblPie - dblAlto * l.azar.fEntre(0, 0.07);
            const QColor colBola = fElegir(l, {QColor(214, 40, 48), QColor(244, 190, 60),
                                               QColor(60, 120, 210), QColor(220, 90, 170)});
            fElipse(l, dblBx, dblBy, dblAlto * 0.018, dblAlto * 0.018, colBola);
            fElipse(l, dblBx - dblAlto * 0.006, dblBy - dblAlto * 0.006, dblAlto * 0.005,
                    dblAlto * 0.005, QColor(255, 255, 255, 220));
            const double dblLuzX = dblX - dblLado * dblMitad * 0.8;
            fHalo(l, dblLuzX, dblPie - dblAlto * 0.05, 24, QColor(255, 244, 190, 255));
        }
    }
}

void fEstrella(clsLienzo &l, double dblX, double dblY, double dblRadio)
{
    fHalo(l, dblX, dblY, dblRadio * 3, QColor(255, 236, 150, 200));
    l.pintor.save();
    l.pintor.translate(dblX, dblY);
    for (int intI = 0; intI < 5; ++intI) {
        fPoligono(l,
                  {
                      {-dblRadio * 0.33, 0        },
                      {0,                -dblRadio},
                      {dblRadio * 0.33,  0        }
        },
                  QColor(255, 220, 80));
        l.pintor.rotate(72);
    }
    l.pintor.restore();
}

void fCortina(clsLienzo &l, double dblX, double dblAncho, const QColor &colTela)
{
    constexpr int intPliegues = 5;
    const double dblPaso = dblAncho / intPliegues;
    for (int intI = 0; intI < intPliegues; ++intI) {
        QLinearGradient pliegue(dblX + dblPaso * intI, 0, dblX + dblPaso * (intI + 1), 0);
        pliegue.setColorAt(0, colTela.darker(122));
        pliegue.setColorAt(0.45, colTela.lighter(108));
        pliegue.setColorAt(1, colTela.darker(122));
        fCaja(l, dblX + dblPaso * intI, 0, dblPaso + 1, l.dblAlto * 0.86, pliegue);
    }
}

} // namespace

void fPintarNavidad(clsLienzo &l)
{
    const QColor colPared = fElegir(l, {QColor(172, 60, 56), QColor(196, 150, 98),
                                        QColor(104, 130, 112), QColor(150, 110, 120)});
    const double dblSuelo = l.dblAlto * 0.78;
    fFondo(l, 0, dblSuelo, colPared.darker(118), colPared);
    for (double dblX = 20; dblX < l.dblAncho; dblX += 80) { // wallpaper
        fCaja(l, dblX, 0, 30, dblSuelo, fConAlfa(colPared.lighter(130), 60));
    }
    fFondo(l, dblSuelo, l.dblAlto, QColor(150, 98, 58), QColor(104, 62, 36));
    fCaja(l, 0, dblSuelo - 18, l.dblAncho, 18, QColor(240, 230, 212));
    const bool bolDerecha = l.azar.fMoneda();
    const double dblArbol = l.dblAncho * (bolDerecha ? 0.64 : 0.36);
    const double dblVentana = l.dblAncho * (bolDerecha ? 0.2 : 0.8);
    fVentanaNevada(l, QRectF(dblVentana - 130, l.dblAlto * 0.14, 260, 330));
    fElipse(l, dblArbol, l.dblAlto * 0.88, 370, 60, QColor(186, 50, 54));
    fElipse(l, dblArbol, l.dblAlto * 0.88, 310, 46, QColor(220, 190, 140));
    fHalo(l, dblArbol, l.dblAlto * 0.5, 560, QColor(255, 220, 150, 120));
    const double dblAlto = l.dblAlto * 0.72;
    fAbeto(l, dblArbol, l.dblAlto * 0.88, dblAlto);
    fEstrella(l, dblArbol, l.dblAlto * 0.88 - dblAlto * 1.06, 44);
    const int intRegalos = l.azar.fEntero(4, 7);
    for (int intI = 0; intI < intRegalos; ++intI) {
        const double dblX = dblArbol + (intI - intRegalos / 2.0 + 0.5) * 110;
        const QColor colPapel =
            fElegir(l, {QColor(206, 46, 54), QColor(40, 110, 90), QColor(54, 90, 170),
                        QColor(190, 90, 170), QColor(240, 170, 70)});
        fRegalo(l, dblX, l.dblAlto * l.azar.fEntre(0.9, 0.96), l.azar.fEntre(80, 130), colPapel);
    }
    if (l.azar.fMoneda(0.6)) {
        fPersona(l, dblVentana + (bolDerecha ? 50 : -50), l.dblAlto * 0.94, l.azar.fEntre(330, 470),
                 fRopa(l));
    }
}

void fPintarGato(clsLienzo &l)
{
    const double dblRepisa = l.dblAlto * 0.8;
    fFondo(l, 0, dblRepisa, QColor(126, 190, 236), QColor(238, 246, 236));
    fNubes(l, l.fCuantos(4), 80, l.dblAlto * 0.35, QColor(255, 255, 255));
    fLoma(l, l.dblAlto * 0.55, 40, QColor(140, 180, 120), QColor(110, 160, 90));
    fCasa(l, l.dblAncho * l.azar.fEntre(0.35, 0.65), l.dblAlto * 0.6, 190, 150,
          QColor(250, 240, 220), QColor(90, 110, 130));
    fLoma(l, l.dblAlto * 0.66, 30, QColor(126, 176, 96), QColor(84, 140, 66));
    fMarco(l, QRectF(l.dblAncho * 0.1, 20, l.dblAncho * 0.8, dblRepisa - 10),
           QColor(250, 246, 238));
    const QColor colTela = fElegir(l, {QColor(226, 120, 90), QColor(110, 150, 190),
                                       QColor(236, 206, 140), QColor(150, 176, 120)});
    fCortina(l, 0, l.dblAncho * 0.17, colTela);
    fCortina(l, l.dblAncho * 0.83, l.dblAncho * 0.17, colTela);
    fFondo(l, dblRepisa, l.dblAlto, QColor(214, 176, 126), QColor(160, 116, 76));
    const double dblMaceta = l.dblAncho * (l.azar.fMoneda() ? 0.24 : 0.76);
    const double dblBorde = dblRepisa + 50;
    for (int intI = 0; intI < 5; ++intI) {
        const double dblAlto = l.azar.fEntre(110, 170);
        fFlor(l, dblMaceta - 48 + intI * 24.0, dblBorde - 90, dblAlto,
              fElegir(l, {QColor(226, 60, 70), QColor(250, 150, 180)}));
    }
    fPoligono(l,
              {
                  {dblMaceta - 72, dblBorde - 110},
                  {dblMaceta + 72, dblBorde - 110},
                  {dblMaceta + 50, dblBorde      },
                  {dblMaceta - 50, dblBorde      }
    },
              QColor(196, 102, 62));
    fCaja(l, dblMaceta - 80, dblBorde - 122, 160, 30, QColor(212, 116, 74));
    const double dblGato = l.dblAncho * 0.5;
    fElipse(l, dblGato, dblRepisa + 66, 190, 24, QColor(70, 40, 20, 90));
    fGato(l, dblGato, dblRepisa + 76, 560,
          fElegir(l, {QColor(226, 146, 72), QColor(128, 124, 128), QColor(70, 62, 64),
                      QColor(214, 190, 160)}));
}

} // namespace demo
