#include "viewer/marcadores.h"

#include <QPainter>

namespace {

constexpr double dblLado = 100; // everything is drawn on a square of this side
constexpr QRgb colTrazo = qRgb(0xa4, 0xa4, 0xa4);
constexpr QRgb colFalta = qRgb(0xe0, 0x8a, 0x3c);

QPen fPluma(QRgb color, double dblAncho)
{
    return {QColor(color), dblAncho, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// Paints a square of dblLado scaled to the box, a little smaller than it.
template <typename Dibujo> QPixmap fDibujar(int intLado, double dblDpr, Dibujo fDibujo)
{
    QPixmap imagen(QSize(intLado, intLado) * dblDpr);
    imagen.setDevicePixelRatio(dblDpr);
    imagen.fill(Qt::transparent);
    QPainter pintor(&imagen);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.scale(intLado / dblLado, intLado / dblLado);
    pintor.setPen(fPluma(colTrazo, 3));
    fDibujo(pintor);
    return imagen;
}

/// A sheet with a folded corner.
void fHoja(QPainter &pintor)
{
    pintor.drawPolygon(QPolygonF(
        {QPointF(30, 22), QPointF(58, 22), QPointF(72, 36), QPointF(72, 78), QPointF(30, 78)}));
    pintor.drawPolyline(QPolygonF({QPointF(58, 22), QPointF(58, 36), QPointF(72, 36)}));
}

} // namespace

QPixmap fErrorLista(int intLado, double dblDpr)
{
    return fDibujar(intLado, dblDpr, [](QPainter &pintor) {
        fHoja(pintor);
        pintor.setPen(fPluma(colFalta, 5));
        pintor.drawLine(QPointF(42, 48), QPointF(60, 66));
        pintor.drawLine(QPointF(60, 48), QPointF(42, 66));
    });
}

QPixmap fVacio(int intLado, double dblDpr, bool bolVideo)
{
    return fDibujar(intLado, dblDpr, [bolVideo](QPainter &pintor) {
        if (!bolVideo) {
            fHoja(pintor);
            pintor.drawEllipse(QPointF(42, 50), 4, 4);
            pintor.drawPolyline(QPolygonF({QPointF(36, 70), QPointF(47, 59), QPointF(53, 65),
                                           QPointF(59, 57), QPointF(66, 67)}));
            return;
        }
        pintor.drawRoundedRect(QRectF(20, 28, 60, 44), 5, 5);
        for (const int intX : {28, 39, 50, 61, 72}) {
            pintor.drawPoint(intX, 35);
            pintor.drawPoint(intX, 65);
        }
        pintor.setBrush(QColor(colTrazo));
        pintor.drawPolygon(QPolygonF({QPointF(44, 42), QPointF(59, 50), QPointF(44, 58)}));
    });
}
