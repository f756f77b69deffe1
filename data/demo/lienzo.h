// The canvas of a scene and the strokes that all scenes use. The shorter side of every picture is
// 1000 units long, whatever its pixels are: so a scene looks alike in every size.
#pragma once

#include "azar.h"

#include <QColor>
#include <QPainter>
#include <vector>

namespace demo {

struct clsLienzo {
    QPainter &pintor;
    clsAzar &azar;
    double dblAncho;
    double dblAlto;
    double dblTiempo; // 0 to 1: the moment within a film; 0 in photos

    /// More things fit into a wider picture: a count meant for 1000 units of width.
    int fCuantos(double dblPorMil) const { return static_cast<int>(dblPorMil * dblAncho / 1000); }
};

/// The colour between two others; 0 gives the first one.
QColor fMezcla(const QColor &colA, const QColor &colB, double dblParte);
QColor fConAlfa(QColor colBase, int intAlfa);
/// One of the colours, by chance.
QColor fElegir(clsLienzo &l, const std::vector<QColor> &lstColores);

/// Over the whole width between two heights, from the upper colour to the lower one.
void fFondo(clsLienzo &l, double dblY0, double dblY1, const QColor &colArriba,
            const QColor &colAbajo);
void fElipse(clsLienzo &l, double dblX, double dblY, double dblRx, double dblRy,
             const QBrush &brocha);
void fCaja(clsLienzo &l, double dblX, double dblY, double dblAncho, double dblAlto,
           const QBrush &brocha);
/// A polygon from x, y pairs.
void fPoligono(clsLienzo &l, const std::vector<QPointF> &lstPuntos, const QBrush &brocha);
void fTrazo(clsLienzo &l, const std::vector<QPointF> &lstPuntos, double dblGrosor,
            const QColor &colLinea);
/// Light that fades out towards the radius.
void fHalo(clsLienzo &l, double dblX, double dblY, double dblRadio, const QColor &colLuz);

void fNubes(clsLienzo &l, int intCuantas, double dblY0, double dblY1, const QColor &colNube);
void fEstrellas(clsLienzo &l, int intCuantas, double dblHastaY);
/// A wavy hill over the whole width, filled down to the lower edge.
void fLoma(clsLienzo &l, double dblY, double dblAltura, const QColor &colArriba,
           const QColor &colAbajo);
/// Short horizontal glints, as on water; nearer ones (lower) are longer.
void fBrillos(clsLienzo &l, const QRectF &zona, int intCuantos, const QColor &colBrillo);
/// Blades of grass, ears, pebbles: short upright strokes, larger towards the lower edge.
void fHierba(clsLienzo &l, double dblY0, double dblY1, int intCuantas, const QColor &colA,
             const QColor &colB);
/// A flock of birds far away.
void fPajaros(clsLienzo &l, double dblX, double dblY, int intCuantos);

} // namespace demo
