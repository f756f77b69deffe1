// The birthday cake.
#include "escenas.h"
#include "figuras.h"

#include <cmath>
#include <QLinearGradient>
#include <QPainterPath>

namespace demo {

namespace {

const std::vector<QColor> &fColoresFiesta()
{
    static const std::vector<QColor> lstColores{QColor(232, 70, 80),   QColor(250, 190, 60),
                                                QColor(70, 150, 220),  QColor(100, 190, 110),
                                                QColor(180, 100, 200), QColor(250, 130, 170)};
    return lstColores;
}

/// A string of little flags across the picture.
void fBanderines(clsLienzo &l, double dblY, double dblCae)
{
    const int intCuantos = l.fCuantos(11);
    for (int intI = 0; intI < intCuantos; ++intI) {
        const double dblParte = (intI + 0.5) / intCuantos;
        const double dblX = l.dblAncho * dblParte;
        const double dblCuerda = dblY + 4 * dblParte * (1 - dblParte) * dblCae;
        fPoligono(l,
                  {
                      {dblX - 32, dblCuerda     },
                      {dblX + 32, dblCuerda     },
                      {dblX,      dblCuerda + 70}
        },
                  fColoresFiesta()[static_cast<std::size_t>(intI) % fColoresFiesta().size()]);
    }
    std::vector<QPointF> lstCuerda;
    for (int intI = 0; intI <= 40; ++intI) {
        const double dblParte = intI / 40.0;
        lstCuerda.emplace_back(l.dblAncho * dblParte,
                               dblY + 4 * dblParte * (1 - dblParte) * dblCae);
    }
    fTrazo(l, lstCuerda, 4, QColor(250, 246, 236));
}

/// One tier of the cake, with icing that runs down its edge.
void fPiso(clsLienzo &l, double dblX, double dblY, double dblAncho, double dblAlto,
           const QColor &colMasa, const QColor &colGlaseado)
{
    const double dblMitad = dblAncho / 2;
    const double dblOval = dblAncho * 0.13;
    const double dblTapa = dblY - dblAlto;
    fElipse(l, dblX, dblY, dblMitad, dblOval, colMasa.darker(118));
    QLinearGradient degradado(dblX - dblMitad, 0, dblX + dblMitad, 0);
    degradado.setColorAt(0, colMasa.lighter(108));
    degradado.setColorAt(1, colMasa.darker(120));
    fCaja(l, dblX - dblMitad, dblTapa, dblAncho, dblAlto, degradado);
    QPainterPath gotas(QPointF(dblX - dblMitad, dblTapa));
    constexpr int intGotas = 9;
    for (int intI = 0; intI < intGotas; ++intI) {
        const double dblDe = dblX - dblMitad + dblAncho * intI / intGotas;
        const double dblPaso = dblAncho / intGotas;
        const double dblMedio = (intI + 0.5) / intGotas - 0.5;
        const double dblCurva = dblOval * std::sqrt(1 - 4 * dblMedio * dblMedio);
        const double dblLarga = dblCurva + dblAlto * l.azar.fEntre(0.3, 0.6);
        gotas.cubicTo(dblDe, dblTapa + dblLarga, dblDe + dblPaso, dblTapa + dblLarga,
                      dblDe + dblPaso, dblTapa + dblCurva * 0.8);
    }
    gotas.lineTo(dblX + dblMitad, dblTapa);
    l.pintor.setBrush(colGlaseado.darker(106));
    l.pintor.drawPath(gotas);
    fElipse(l, dblX, dblTapa, dblMitad, dblOval, colGlaseado);
}

void fVela(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colCera)
{
    fCaja(l, dblX - 6, dblY - dblAlto, 12, dblAlto, colCera);
    for (double dblRaya = 8; dblRaya < dblAlto - 6; dblRaya += 16) {
        fTrazo(l,
               {
                   {dblX - 5, dblY - dblRaya    },
                   {dblX + 5, dblY - dblRaya - 6}
        },
               3, QColor(255, 255, 255, 210));
    }
    const double dblLlama = dblY - dblAlto - 20;
    fHalo(l, dblX, dblLlama, 80, QColor(255, 214, 120, 150));
    QPainterPath llama(QPointF(dblX, dblLlama - 22));
    llama.cubicTo(dblX + 14, dblLlama, dblX + 9, dblLlama + 16, dblX, dblLlama + 16);
    llama.cubicTo(dblX - 9, dblLlama + 16, dblX - 14, dblLlama, dblX, dblLlama - 22);
    l.pintor.setBrush(QColor(255, 176, 40));
    l.pintor.drawPath(llama);
    fElipse(l, dblX, dblLlama + 7, 4, 8, QColor(255, 248, 200));
}

} // namespace

void fPintarTarta(clsLienzo &l)
{
    const QColor colPared = fElegir(l, {QColor(250, 214, 190), QColor(196, 222, 236),
                                        QColor(214, 232, 200), QColor(240, 206, 222)});
    const double dblMesa = l.dblAlto * 0.72;
    fFondo(l, 0, dblMesa, colPared, colPared.darker(116));
    for (int intI = 0; intI < l.fCuantos(22); ++intI) { // lights out of focus
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.azar.fEntre(0.15, 0.65) * l.dblAlto;
        const double dblRadio = l.azar.fEntre(20, 60);
        fElipse(l, dblX, dblY, dblRadio, dblRadio,
                fConAlfa(fElegir(l, fColoresFiesta()).lighter(135), 55));
    }
    fBanderines(l, 40, 90);
    for (const double dblLado : {0.08, 0.17, 0.85, 0.94}) {
        const double dblY = l.dblAlto * l.azar.fEntre(0.42, 0.58);
        fGlobito(l, l.dblAncho * dblLado, dblY, l.azar.fEntre(58, 84),
                 fElegir(l, fColoresFiesta()));
    }
    fFondo(l, dblMesa, l.dblAlto, QColor(252, 250, 244), QColor(214, 204, 192));
    for (int intI = 0; intI < l.fCuantos(60); ++intI) { // confetti on the tablecloth
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.azar.fEntre(dblMesa + 20, l.dblAlto);
        fElipse(l, dblX, dblY, 8, 4, fElegir(l, fColoresFiesta()));
    }
    const double dblX = l.dblAncho * 0.5;
    const double dblPie = l.dblAlto * 0.86;
    const QColor colGlaseado = fElegir(l, {QColor(255, 236, 240), QColor(110, 66, 46),
                                           QColor(250, 160, 186), QColor(250, 246, 232)});
    const QColor colMasa =
        fElegir(l, {QColor(240, 196, 130), QColor(160, 98, 62), QColor(250, 214, 170)});
    fElipse(l, dblX, dblPie + 12, 360, 62, QColor(120, 100, 90, 70));
    fElipse(l, dblX, dblPie + 2, 330, 54, QColor(226, 232, 240));
    fPiso(l, dblX, dblPie - 10, 540, 170, colMasa, colGlaseado);
    fPiso(l, dblX, dblPie - 180, 340, 130, colMasa.lighter(108), colGlaseado);
    for (int intI = 0; intI < 9; ++intI) { // cherries around the lower edge
        const double dblGiro = 3.14 * intI / 8;
        fElipse(l, dblX - std::cos(dblGiro) * 235, dblPie - 182 + std::sin(dblGiro) * 52, 17, 17,
                QColor(200, 26, 46));
    }
    const int intVelas = l.azar.fEntero(3, 8);
    for (int intI = 0; intI < intVelas; ++intI) {
        const double dblParte = (intI + 0.5) / intVelas - 0.5;
        fVela(l, dblX + dblParte * 290, dblPie - 308 + (intI % 2 == 0 ? -10 : 14), 96,
              fElegir(l, fColoresFiesta()));
    }
}

} // namespace demo
