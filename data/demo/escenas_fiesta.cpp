// Family days: wedding, birthday, the group photo.
#include "escenas.h"
#include "figuras.h"

#include <algorithm>
#include <cmath>
#include <QPainterPath>
#include <QRadialGradient>

namespace demo {

namespace {

const std::vector<QColor> &fColoresFiesta()
{
    static const std::vector<QColor> lstColores {QColor(232, 70, 80), QColor(250, 190, 60),
        QColor(70, 150, 220), QColor(100, 190, 110), QColor(180, 100, 200), QColor(250, 130, 170)};
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
        fPoligono(l, {{dblX - 32, dblCuerda}, {dblX + 32, dblCuerda}, {dblX, dblCuerda + 70}},
            fColoresFiesta()[static_cast<std::size_t>(intI) % fColoresFiesta().size()]);
    }
    std::vector<QPointF> lstCuerda;
    for (int intI = 0; intI <= 40; ++intI) {
        const double dblParte = intI / 40.0;
        lstCuerda.emplace_back(l.dblAncho * dblParte, dblY + 4 * dblParte * (1 - dblParte) * dblCae);
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
        gotas.cubicTo(dblDe, dblTapa + dblLarga, dblDe + dblPaso, dblTapa + dblLarga, dblDe + dblPaso, dblTapa + dblCurva * 0.8);
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
        fTrazo(l, {{dblX - 5, dblY - dblRaya}, {dblX + 5, dblY - dblRaya - 6}}, 3, QColor(255, 255, 255, 210));
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

void fPortada(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colPiedra)
{
    const double dblAncho = dblAlto * 0.62;
    for (int intArco = 0; intArco < 4; ++intArco) { // archivolts, one inside the other
        const double dblMitad = dblAncho * (0.5 - 0.07 * intArco);
        const double dblCima = dblY - dblAlto * 0.62;
        QPainterPath arco(QPointF(dblX - dblMitad, dblY));
        arco.lineTo(dblX - dblMitad, dblCima);
        arco.quadTo(dblX - dblMitad * 0.9, dblCima - dblMitad * 0.9, dblX, dblCima - dblMitad * 1.3);
        arco.quadTo(dblX + dblMitad * 0.9, dblCima - dblMitad * 0.9, dblX + dblMitad, dblCima);
        arco.lineTo(dblX + dblMitad, dblY);
        l.pintor.setBrush(intArco == 3 ? QColor(70, 44, 32) : colPiedra.darker(106 + 12 * intArco));
        l.pintor.drawPath(arco);
    }
    fTrazo(l, {{dblX, dblY}, {dblX, dblY - dblAlto * 0.85}}, 4, QColor(40, 26, 20));
}

} // namespace

void fPintarBoda(clsLienzo &l)
{
    const double dblSuelo = l.dblAlto * 0.84;
    const QColor colPiedra = fElegir(l, {QColor(228, 206, 168), QColor(216, 196, 172), QColor(236, 220, 188)});
    fFondo(l, 0, dblSuelo, QColor(110, 176, 228), QColor(224, 238, 246));
    fNubes(l, l.fCuantos(2), 60, 200, QColor(255, 255, 255));
    const double dblX = l.dblAncho * l.azar.fEntre(0.45, 0.55);
    const double dblTecho = l.dblAlto * 0.12;
    fPoligono(l, {{dblX - 520, dblSuelo}, {dblX - 520, dblTecho + 170}, {dblX, dblTecho - 40}, {dblX + 520, dblTecho + 170}, {dblX + 520, dblSuelo}}, colPiedra);
    for (double dblY = dblTecho + 190; dblY < dblSuelo; dblY += 42) { // courses of ashlar
        for (int intI = 0; intI < 14; ++intI) {
            const double dblAncho = l.azar.fEntre(50, 78);
            const QColor colSillar = fMezcla(colPiedra, QColor(170, 140, 100), l.azar.fEntre(0, 0.3));
            fCaja(l, dblX - 518 + intI * 74.0, dblY, dblAncho, 38, colSillar);
        }
    }
    fElipse(l, dblX, dblTecho + 150, 80, 80, colPiedra.darker(125)); // the rose window
    for (int intI = 0; intI < 10; ++intI) {
        const double dblGiro = intI * 6.2832 / 10;
        fElipse(l, dblX + std::cos(dblGiro) * 48, dblTecho + 150 + std::sin(dblGiro) * 48, 15, 15, QColor::fromHsv(intI * 36, 120, 190));
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
        fElipse(l, dblPx, dblPy, 5, 3, fElegir(l, {QColor(255, 255, 255), QColor(250, 180, 196), QColor(240, 120, 150)}));
    }
}

void fPintarTarta(clsLienzo &l)
{
    const QColor colPared = fElegir(l, {QColor(250, 214, 190), QColor(196, 222, 236), QColor(214, 232, 200), QColor(240, 206, 222)});
    const double dblMesa = l.dblAlto * 0.72;
    fFondo(l, 0, dblMesa, colPared, colPared.darker(116));
    for (int intI = 0; intI < l.fCuantos(22); ++intI) { // lights out of focus
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.azar.fEntre(0.15, 0.65) * l.dblAlto;
        const double dblRadio = l.azar.fEntre(20, 60);
        fElipse(l, dblX, dblY, dblRadio, dblRadio, fConAlfa(fElegir(l, fColoresFiesta()).lighter(135), 55));
    }
    fBanderines(l, 40, 90);
    for (const double dblLado : {0.08, 0.17, 0.85, 0.94}) {
        const double dblY = l.dblAlto * l.azar.fEntre(0.42, 0.58);
        fGlobito(l, l.dblAncho * dblLado, dblY, l.azar.fEntre(58, 84), fElegir(l, fColoresFiesta()));
    }
    fFondo(l, dblMesa, l.dblAlto, QColor(252, 250, 244), QColor(214, 204, 192));
    for (int intI = 0; intI < l.fCuantos(60); ++intI) { // confetti on the tablecloth
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.azar.fEntre(dblMesa + 20, l.dblAlto);
        fElipse(l, dblX, dblY, 8, 4, fElegir(l, fColoresFiesta()));
    }
    const double dblX = l.dblAncho * 0.5;
    const double dblPie = l.dblAlto * 0.86;
    const QColor colGlaseado = fElegir(l, {QColor(255, 236, 240), QColor(110, 66, 46), QColor(250, 160, 186), QColor(250, 246, 232)});
    const QColor colMasa = fElegir(l, {QColor(240, 196, 130), QColor(160, 98, 62), QColor(250, 214, 170)});
    fElipse(l, dblX, dblPie + 12, 360, 62, QColor(120, 100, 90, 70));
    fElipse(l, dblX, dblPie + 2, 330, 54, QColor(226, 232, 240));
    fPiso(l, dblX, dblPie - 10, 540, 170, colMasa, colGlaseado);
    fPiso(l, dblX, dblPie - 180, 340, 130, colMasa.lighter(108), colGlaseado);
    for (int intI = 0; intI < 9; ++intI) { // cherries around the lower edge
        const double dblGiro = 3.14 * intI / 8;
        fElipse(l, dblX - std::cos(dblGiro) * 235, dblPie - 182 + std::sin(dblGiro) * 52, 17, 17, QColor(200, 26, 46));
    }
    const int intVelas = l.azar.fEntero(3, 8);
    for (int intI = 0; intI < intVelas; ++intI) {
        const double dblParte = (intI + 0.5) / intVelas - 0.5;
        fVela(l, dblX + dblParte * 290, dblPie - 308 + (intI % 2 == 0 ? -10 : 14), 96, fElegir(l, fColoresFiesta()));
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
        fArbol(l, dblX, dblSuelo + 10, dblAlto, fElegir(l, {QColor(80, 140, 70), QColor(110, 160, 74), QColor(66, 120, 74)}));
    }
    fFondo(l, dblSuelo, l.dblAlto, QColor(146, 194, 92), QColor(72, 140, 56));
    fHierba(l, dblSuelo + 20, l.dblAlto * 1.02, l.fCuantos(700), QColor(80, 146, 58), QColor(176, 212, 104));
    const int intAdultos = std::max(2, l.fCuantos(l.azar.fEntre(2.2, 3.2)));
    const double dblPaso = std::min(250.0, l.dblAncho * 0.86 / intAdultos);
    const double dblInicio = l.dblAncho * 0.5 - dblPaso * (intAdultos - 1) / 2;
    for (int intI = 0; intI < intAdultos; ++intI) {
        fPersona(l, dblInicio + dblPaso * intI, l.dblAlto * 0.88, l.azar.fEntre(480, 560), fRopa(l));
    }
    for (int intI = 0; intI + 1 < intAdultos; ++intI) { // the children stand in front, in the gaps
        if (l.azar.fMoneda(0.75)) {
            const double dblX = dblInicio + dblPaso * (intI + 0.5);
            fPersona(l, dblX, l.dblAlto * 0.95, l.azar.fEntre(270, 370), fRopa(l));
        }
    }
}

} // namespace demo
