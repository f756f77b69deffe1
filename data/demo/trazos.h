// Figures as data: a text of strokes, drawn on a canvas.
//
// Strokes are separated by ";", their parts by blanks: an operation, a colour, numbers. The foot of
// a figure is the origin, its height 100; upwards is negative.
//     e x y rx ry     ellipse            c x y width height   box
//     p x y x y ...   polygon            l width x y x y ...  line with round ends
//     h x y radius    light that fades   g x y width height columns rows   lit windows
//     b height        band over the whole canvas, colour A above to B below
//     w height waves  the same with a wavy upper edge
// A capital letter draws the stroke and its mirror image (about x = 0); "12@x,y" in front of one
// draws it so often, turned about that point; "12%x,y" turns on while a film runs.
// Colours: six digits, or a letter: A and B are the scene's, K ink, W white, M wood, and by chance
// S skin, H hair, T trousers, R roof, D door; then "+20" lighter, "-20" darker, "/50" see-through.
// Of figures with "|" between them, each time one is drawn by chance.
#pragma once

#include "azar.h"

#include <map>
#include <QColor>
#include <QPainter>
#include <QStringList>
#include <vector>

namespace demo {

/// The shorter side of every picture is 1000 units long, whatever its pixels are: so a scene looks
/// alike in every size.
struct clsLienzo {
    QPainter &pintor;
    clsAzar &azar;
    double dblAncho;
    double dblAlto;
    double dblTiempo; // 0 to 1: the moment within a film; 0 in photos
};

struct clsTrazo {
    char chrQue;
    bool bolEspejo;
    QString strColor;
    std::vector<double> lstNumeros;
    int intVeces = 1;
    bool bolGira = false;
    QPointF centro = {};
};
using clsFigura = std::vector<clsTrazo>;

/// The figures of a text.
std::vector<clsFigura> fFiguras(const char *strTexto);

/// Colours by their letters.
using clsTintas = std::map<QChar, QColor>;

/// The colours of one figure: A is one of those given but for the last, which is B.
clsTintas fTintas(clsAzar &azar, const QStringList &lstColores);

/// Draws a figure where the painter's origin is.
void fDibujar(clsLienzo &l, const clsFigura &figura, const clsTintas &lstTintas);

} // namespace demo
