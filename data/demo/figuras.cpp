#include "figuras.h"

#include <algorithm>
#include <cmath>
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

namespace demo {

namespace {

/// One flank of a peak from its foot to the top, uneven.
std::vector<QPointF> fLadera(clsLienzo &l, double dblX, double dblY, double dblHasta,
    double dblAlto)
{
    std::vector<QPointF> lstPuntos;
    constexpr int intPasos = 9;
    for (int intI = 0; intI < intPasos; ++intI) {
        const double dblParte = static_cast<double>(intI) / intPasos;
        const double dblSalto = intI == 0 ? 0 : l.azar.fEntre(-0.05, 0.03) * dblAlto;
        lstPuntos.emplace_back(dblX + (dblHasta - dblX) * dblParte,
            dblY - dblAlto * std::pow(dblParte, 1.15) + dblSalto);
    }
    return lstPuntos;
}

/// The snow reaches down both flanks and ends in a zigzag between them.
void fNieveDelPico(clsLienzo &l, const std::vector<QPointF> &lstIzquierda, const QPointF &cumbre,
    const std::vector<QPointF> &lstDerecha)
{
    std::vector<QPointF> lstNieve(lstIzquierda.begin() + 6, lstIzquierda.end());
    lstNieve.push_back(cumbre);
    lstNieve.insert(lstNieve.end(), lstDerecha.rbegin(), lstDerecha.rend() - 6);
    const QPointF desde = lstNieve.back();
    const QPointF hasta = lstNieve.front();
    constexpr int intDientes = 8;
    for (int intI = 1; intI < intDientes; ++intI) {
        const QPointF medio = desde + (hasta - desde) * (static_cast<double>(intI) / intDientes);
        const double dblBaja = l.azar.fEntre(0.05, 0.22) * (desde.y() - cumbre.y());
        lstNieve.emplace_back(medio.x(), medio.y() + (intI % 2 == 1 ? dblBaja : -dblBaja));
    }
    fPoligono(l, lstNieve, QColor(247, 250, 255));
}

} // namespace

void fArbol(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colHoja)
{
    const QColor colTronco(96, 66, 42);
    fElipse(l, dblX, dblY, dblAlto * 0.3, dblAlto * 0.03, QColor(20, 40, 10, 70));
    fPoligono(l,
        {{dblX - dblAlto * 0.05, dblY}, {dblX - dblAlto * 0.025, dblY - dblAlto * 0.5},
            {dblX + dblAlto * 0.025, dblY - dblAlto * 0.5}, {dblX + dblAlto * 0.05, dblY}},
        colTronco);
    for (int intI = 0; intI < 60; ++intI) { // dark leaves first, those in the light on top
        const double dblLuz = intI / 60.0;
        const double dblGiro = l.azar.fEntre(0, 6.28);
        const double dblLejos = std::sqrt(l.azar.fEntre(0, 1)) * dblAlto * 0.3;
        const double dblRadio = l.azar.fEntre(0.05, 0.11) * dblAlto;
        const QColor colAqui = fMezcla(colHoja.darker(165), colHoja.lighter(122), dblLuz);
        fElipse(l, dblX + std::cos(dblGiro) * dblLejos - dblLuz * dblAlto * 0.05,
            dblY - dblAlto * 0.66 + std::sin(dblGiro) * dblLejos - dblLuz * dblAlto * 0.06,
            dblRadio, dblRadio, fConAlfa(colAqui, 225));
    }
}

void fPino(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colHoja,
    bool bolNevado)
{
    fCaja(l, dblX - dblAlto * 0.03, dblY - dblAlto * 0.15, dblAlto * 0.06, dblAlto * 0.15,
        QColor(80, 56, 40));
    for (int intI = 0; intI < 4; ++intI) {
        const double dblMitad = dblAlto * (0.27 - intI * 0.055);
        const double dblPie = dblY - dblAlto * (0.1 + intI * 0.2);
        const double dblPunta = dblPie - dblAlto * 0.32;
        fPoligono(l, {{dblX - dblMitad, dblPie}, {dblX, dblPunta}, {dblX + dblMitad, dblPie}},
            colHoja);
        fPoligono(l, {{dblX, dblPie}, {dblX, dblPunta}, {dblX + dblMitad, dblPie}},
            QColor(0, 0, 0, 40));
        if (bolNevado) {
            const double dblBorde = dblPie - dblAlto * 0.13;
            fPoligono(l,
                {{dblX - dblMitad * 0.6, dblBorde}, {dblX, dblPunta},
                    {dblX + dblMitad * 0.6, dblBorde}, {dblX + dblMitad * 0.25, dblBorde - 4},
                    {dblX, dblBorde + dblAlto * 0.03}, {dblX - dblMitad * 0.25, dblBorde - 4}},
                QColor(245, 249, 255));
        }
    }
}

void fPalmera(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colTinte)
{
    const double dblCopa = dblX + dblAlto * 0.14;
    const double dblArriba = dblY - dblAlto * 0.82;
    QPainterPath tronco(QPointF(dblX, dblY));
    tronco.quadTo(dblX - dblAlto * 0.02, dblY - dblAlto * 0.5, dblCopa, dblArriba);
    l.pintor.strokePath(tronco,
        QPen(fMezcla(QColor(120, 88, 58), colTinte, 0.5), dblAlto * 0.045, Qt::SolidLine,
            Qt::RoundCap));
    for (int intI = 0; intI < 9; ++intI) {
        const double dblGiro = 3.14 + intI * 3.14 / 8;
        const double dblPuntaX = dblCopa + std::cos(dblGiro) * dblAlto * 0.36;
        const double dblPuntaY = dblArriba + std::sin(dblGiro) * dblAlto * 0.16 + dblAlto * 0.11;
        const double dblMedioX = dblCopa + std::cos(dblGiro) * dblAlto * 0.2;
        const double dblMedioY = dblArriba + std::sin(dblGiro) * dblAlto * 0.22;
        QPainterPath hoja(QPointF(dblCopa, dblArriba));
        hoja.quadTo(dblMedioX, dblMedioY - dblAlto * 0.08, dblPuntaX, dblPuntaY);
        hoja.quadTo(dblMedioX, dblMedioY + dblAlto * 0.02, dblCopa, dblArriba);
        l.pintor.setBrush(intI % 2 == 0 ? colTinte : colTinte.darker(130));
        l.pintor.drawPath(hoja);
    }
}

void fCipres(clsLienzo &l, double dblX, double dblY, double dblAlto)
{
    QPainterPath copa(QPointF(dblX, dblY - dblAlto));
    copa.cubicTo(dblX + dblAlto * 0.13, dblY - dblAlto * 0.45, dblX + dblAlto * 0.11, dblY, dblX,
        dblY);
    copa.cubicTo(dblX - dblAlto * 0.11, dblY, dblX - dblAlto * 0.13, dblY - dblAlto * 0.45, dblX,
        dblY - dblAlto);
    QLinearGradient degradado(dblX - dblAlto * 0.1, 0, dblX + dblAlto * 0.1, 0);
    degradado.setColorAt(0, QColor(70, 104, 62));
    degradado.setColorAt(1, QColor(30, 56, 38));
    l.pintor.setBrush(degradado);
    l.pintor.drawPath(copa);
}

void fPico(clsLienzo &l, double dblX, double dblY, double dblAncho, double dblAlto,
    const QColor &colRoca, bool bolNieve)
{
    const std::vector<QPointF> lstIzquierda
        = fLadera(l, dblX - dblAncho / 2, dblY, dblX, dblAlto);
    const std::vector<QPointF> lstDerecha = fLadera(l, dblX + dblAncho / 2, dblY, dblX, dblAlto);
    const QPointF cumbre(dblX, dblY - dblAlto);
    std::vector<QPointF> lstTodo = lstIzquierda;
    lstTodo.push_back(cumbre);
    lstTodo.insert(lstTodo.end(), lstDerecha.rbegin(), lstDerecha.rend());
    QLinearGradient degradado(0, dblY - dblAlto, 0, dblY);
    degradado.setColorAt(0, colRoca.lighter(112));
    degradado.setColorAt(1, colRoca);
    fPoligono(l, lstTodo, degradado);
    if (bolNieve) {
        fNieveDelPico(l, lstIzquierda, cumbre, lstDerecha);
    }
    std::vector<QPointF> lstSombra {cumbre};
    lstSombra.insert(lstSombra.end(), lstDerecha.rbegin(), lstDerecha.rend());
    for (int intI = 0; intI < 6; ++intI) { // the crest between light and shade zigzags down
        const double dblCae = intI / 6.0;
        const double dblLado = (intI % 2 == 0 ? 0.07 : -0.03) * dblAncho;
        lstSombra.emplace_back(dblX + dblLado * (1 - dblCae * 0.6), dblY - dblAlto * dblCae);
    }
    fPoligono(l, lstSombra, QColor(25, 35, 70, 70));
}

void fFlor(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colPetalo)
{
    const double dblRadio = dblAlto * 0.17;
    const double dblArriba = dblY - dblAlto;
    fTrazo(l, {{dblX, dblY}, {dblX, dblArriba}}, dblAlto * 0.05, QColor(58, 120, 48));
    fElipse(l, dblX + dblAlto * 0.13, dblY - dblAlto * 0.4, dblAlto * 0.13, dblAlto * 0.05,
        QColor(76, 145, 60));
    for (int intI = 0; intI < 7; ++intI) {
        const double dblGiro = intI * 6.2832 / 7;
        fElipse(l, dblX + std::cos(dblGiro) * dblRadio, dblArriba + std::sin(dblGiro) * dblRadio,
            dblRadio * 0.72, dblRadio * 0.72, intI % 2 == 0 ? colPetalo : colPetalo.darker(108));
    }
    fElipse(l, dblX, dblArriba, dblRadio * 0.62, dblRadio * 0.62, QColor(250, 205, 70));
}

void fSombrilla(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colTela)
{
    l.pintor.save();
    l.pintor.translate(dblX, dblY);
    l.pintor.rotate(-9);
    fTrazo(l, {{0, 0}, {0, -dblAlto}}, dblAlto * 0.025, QColor(235, 230, 220));
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
    fTrazo(l, {{dblX, dblPie}, {dblX, dblY - dblAlto}}, dblAlto * 0.02, QColor(110, 84, 60));
    fPoligono(l,
        {{dblX + dblAlto * 0.03, dblY - dblAlto * 0.97}, {dblX + dblAlto * 0.4, dblPie},
            {dblX + dblAlto * 0.03, dblPie}},
        QColor(255, 253, 246));
    fPoligono(l,
        {{dblX - dblAlto * 0.03, dblY - dblAlto * 0.88}, {dblX - dblAlto * 0.28, dblPie},
            {dblX - dblAlto * 0.03, dblPie}},
        QColor(232, 232, 236));
    fPoligono(l,
        {{dblX - dblAlto * 0.4, dblY - dblAlto * 0.13}, {dblX + dblAlto * 0.45, dblY - dblAlto * 0.13},
            {dblX + dblAlto * 0.32, dblY}, {dblX - dblAlto * 0.3, dblY}},
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
        {{dblIzq - dblAlero, dblY - dblMuro}, {dblIzq + dblAncho * 0.2, dblY - dblAlto},
            {dblIzq + dblAncho * 0.8, dblY - dblAlto}, {dblIzq + dblAncho + dblAlero, dblY - dblMuro}},
        fElegir(l, {QColor(186, 94, 62), QColor(170, 82, 58), QColor(198, 110, 72)}));
    const int intColumnas = std::max(2, static_cast<int>(dblAncho / (dblAlto * 0.4)));
    const double dblPaso = dblAncho / intColumnas;
    for (int intI = 0; intI < intColumnas; ++intI) {
        const double dblV = dblIzq + dblPaso * (intI + 0.33);
        fCaja(l, dblV, dblY - dblMuro * 0.86, dblPaso * 0.34, dblMuro * 0.27, colVentana);
        fTrazo(l, {{dblV, dblY - dblMuro * 0.57}, {dblV + dblPaso * 0.34, dblY - dblMuro * 0.57}},
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
        {{dblX - dblAlto * 0.14, dblY - dblAlto * 0.78}, {dblX, dblY - dblAlto * 0.98},
            {dblX + dblAlto * 0.14, dblY - dblAlto * 0.78}},
        QColor(168, 88, 62));
    fTrazo(l, {{dblX, dblY - dblAlto * 1.06}, {dblX, dblY - dblAlto * 0.97}}, dblAlto * 0.012,
        QColor(60, 54, 50));
    fTrazo(l, {{dblX - dblAlto * 0.02, dblY - dblAlto * 1.03}, {dblX + dblAlto * 0.02, dblY - dblAlto * 1.03}},
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
    fTrazo(l, {{dblX - dblRadio * 0.5, dblCentro + dblRadio * 0.9}, {dblX - dblAlto * 0.06, dblY - dblAlto * 0.1}},
        dblAlto * 0.006, QColor(70, 60, 50));
    fTrazo(l, {{dblX + dblRadio * 0.5, dblCentro + dblRadio * 0.9}, {dblX + dblAlto * 0.06, dblY - dblAlto * 0.1}},
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
    fPoligono(l, {{dblX - dblRadio * 0.13, dblY + 4}, {dblX, dblY - 8}, {dblX + dblRadio * 0.13, dblY + 4}},
        colGoma.darker(125));
    fElipse(l, dblX, dblY - dblRadio * 1.15, dblRadio, dblRadio * 1.17, degradado);
}

} // namespace demo
