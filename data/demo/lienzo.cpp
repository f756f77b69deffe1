#include "lienzo.h"

#include <cmath>
#include <QLinearGradient>
#include <QPainterPath>
#include <QPolygonF>
#include <QRadialGradient>

namespace demo {

namespace {

int fEntre(int intA, int intB, double dblParte)
{
    return static_cast<int>(std::lround(intA + (intB - intA) * dblParte));
}

void fNube(clsLienzo &l, double dblX, double dblY, double dblTamano, const QColor &colNube)
{
    for (int intI = 0; intI < 14; ++intI) {
        const double dblLado = l.azar.fEntre(-1, 1);
        const double dblRadio = dblTamano * (0.75 - 0.5 * std::abs(dblLado));
        const double dblSube = l.azar.fEntre(0, 0.25) * dblTamano;
        l.pintor.save();
        l.pintor.translate(dblX + dblLado * dblTamano * 1.3, dblY - dblSube);
        l.pintor.scale(1.3, 0.6);
        fHalo(l, 0, 0, dblRadio, fConAlfa(colNube, 170));
        l.pintor.restore();
    }
}

} // namespace

QColor fMezcla(const QColor &colA, const QColor &colB, double dblParte)
{
    return QColor(
        fEntre(colA.red(), colB.red(), dblParte), fEntre(colA.green(), colB.green(), dblParte),
        fEntre(colA.blue(), colB.blue(), dblParte), fEntre(colA.alpha(), colB.alpha(), dblParte));
}

QColor fConAlfa(QColor colBase, int intAlfa)
{
    colBase.setAlpha(intAlfa);
    return colBase;
}

QColor fElegir(clsLienzo &l, const std::vector<QColor> &lstColores)
{
    const int intUltimo = static_cast<int>(lstColores.size()) - 1;
    return lstColores[static_cast<std::size_t>(l.azar.fEntero(0, intUltimo))];
}

void fFondo(clsLienzo &l, double dblY0, double dblY1, const QColor &colArriba,
            const QColor &colAbajo)
{
    QLinearGradient degradado(0, dblY0, 0, dblY1);
    degradado.setColorAt(0, colArriba);
    degradado.setColorAt(1, colAbajo);
    // Two units more: the next band below leaves no half covered row of pixels.
    l.pintor.fillRect(QRectF(0, dblY0, l.dblAncho, dblY1 - dblY0 + 2), degradado);
}

void fElipse(clsLienzo &l, double dblX, double dblY, double dblRx, double dblRy,
             const QBrush &brocha)
{
    l.pintor.setBrush(brocha);
    l.pintor.drawEllipse(QPointF(dblX, dblY), dblRx, dblRy);
}

void fCaja(clsLienzo &l, double dblX, double dblY, double dblAncho, double dblAlto,
           const QBrush &brocha)
{
    l.pintor.fillRect(QRectF(dblX, dblY, dblAncho, dblAlto), brocha);
}

void fPoligono(clsLienzo &l, const std::vector<QPointF> &lstPuntos, const QBrush &brocha)
{
    l.pintor.setBrush(brocha);
    l.pintor.drawPolygon(lstPuntos.data(), static_cast<int>(lstPuntos.size()));
}

void fTrazo(clsLienzo &l, const std::vector<QPointF> &lstPuntos, double dblGrosor,
            const QColor &colLinea)
{
    l.pintor.setPen(QPen(colLinea, dblGrosor, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    l.pintor.drawPolyline(lstPuntos.data(), static_cast<int>(lstPuntos.size()));
    l.pintor.setPen(Qt::NoPen); // everything else is drawn without an outline
}

void fHalo(clsLienzo &l, double dblX, double dblY, double dblRadio, const QColor &colLuz)
{
    QRadialGradient degradado(dblX, dblY, dblRadio);
    degradado.setColorAt(0, colLuz);
    degradado.setColorAt(0.4, fConAlfa(colLuz, colLuz.alpha() * 2 / 5));
    degradado.setColorAt(1, fConAlfa(colLuz, 0));
    fElipse(l, dblX, dblY, dblRadio, dblRadio, degradado);
}

void fNubes(clsLienzo &l, int intCuantas, double dblY0, double dblY1, const QColor &colNube)
{
    for (int intI = 0; intI < intCuantas; ++intI) {
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.azar.fEntre(dblY0, dblY1);
        const double dblTamano = l.azar.fEntre(50, 130);
        fNube(l, dblX, dblY, dblTamano, colNube);
    }
}

void fEstrellas(clsLienzo &l, int intCuantas, double dblHastaY)
{
    for (int intI = 0; intI < intCuantas; ++intI) {
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.azar.fEntre(0, dblHastaY);
        const double dblRadio = l.azar.fEntre(0.6, 2.2);
        fElipse(l, dblX, dblY, dblRadio, dblRadio, QColor(255, 250, 225, l.azar.fEntero(90, 230)));
    }
}

void fLoma(clsLienzo &l, double dblY, double dblAltura, const QColor &colArriba,
           const QColor &colAbajo)
{
    const double dblFaseA = l.azar.fEntre(0, 6.28);
    const double dblFaseB = l.azar.fEntre(0, 6.28);
    const double dblLargoA = l.azar.fEntre(220, 320);
    const double dblLargoB = l.azar.fEntre(90, 130);
    QPolygonF contorno;
    for (double dblX = -10; dblX < l.dblAncho + 20; dblX += 10) {
        const double dblOnda = 0.75 * std::sin(dblX / dblLargoA + dblFaseA) +
                               0.25 * std::sin(dblX / dblLargoB + dblFaseB);
        contorno << QPointF(dblX, dblY - dblAltura * dblOnda);
    }
    contorno << QPointF(l.dblAncho + 20, l.dblAlto + 10) << QPointF(-10, l.dblAlto + 10);
    QLinearGradient degradado(0, dblY - dblAltura, 0, l.dblAlto);
    degradado.setColorAt(0, colArriba);
    degradado.setColorAt(1, colAbajo);
    l.pintor.setBrush(degradado);
    l.pintor.drawPolygon(contorno);
}

void fBrillos(clsLienzo &l, const QRectF &zona, int intCuantos, const QColor &colBrillo)
{
    for (int intI = 0; intI < intCuantos; ++intI) {
        const double dblHondo = l.azar.fEntre(0, 1);
        const double dblX = l.azar.fEntre(zona.left(), zona.right());
        const double dblLargo = l.azar.fEntre(10, 50) * (0.3 + dblHondo);
        const int intAlfa = static_cast<int>(colBrillo.alpha() * l.azar.fEntre(0.3, 1));
        fElipse(l, dblX, zona.top() + dblHondo * zona.height(), dblLargo, 0.8 + 2 * dblHondo,
                fConAlfa(colBrillo, intAlfa));
    }
}

void fHierba(clsLienzo &l, double dblY0, double dblY1, int intCuantas, const QColor &colA,
             const QColor &colB)
{
    for (int intI = 0; intI < intCuantas; ++intI) {
        const double dblCerca = static_cast<double>(intI) / intCuantas;
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = dblY0 + (dblY1 - dblY0) * dblCerca;
        const double dblLargo = l.azar.fEntre(5, 12) * (0.5 + 2 * dblCerca);
        const double dblLado = l.azar.fEntre(-0.3, 0.3) * dblLargo;
        const double dblTono = l.azar.fEntre(0, 1);
        fTrazo(l,
               {
                   {dblX,           dblY           },
                   {dblX + dblLado, dblY - dblLargo}
        },
               1 + 1.6 * dblCerca, fConAlfa(fMezcla(colA, colB, dblTono), 170));
    }
}

void fPajaros(clsLienzo &l, double dblX, double dblY, int intCuantos)
{
    for (int intI = 0; intI < intCuantos; ++intI) {
        const double dblAqui = dblX + l.azar.fEntre(-120, 120);
        const double dblAlto = dblY + l.azar.fEntre(-60, 60);
        const double dblAla = l.azar.fEntre(9, 20);
        QPainterPath alas(QPointF(dblAqui - dblAla, dblAlto - dblAla * 0.3));
        alas.quadTo(dblAqui - dblAla * 0.4, dblAlto - dblAla * 0.6, dblAqui, dblAlto);
        alas.quadTo(dblAqui + dblAla * 0.4, dblAlto - dblAla * 0.6, dblAqui + dblAla,
                    dblAlto - dblAla * 0.3);
        l.pintor.strokePath(alas, QPen(QColor(40, 40, 55, 200), 2.2));
    }
}

} // namespace demo
