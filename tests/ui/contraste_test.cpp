// What we paint ourselves: whoever sees little must tell it apart, on light and on dark desktops.
#include "sesion.h"

#include "dates/frmFecha.h"
#include "repair/frmReparar.h"
#include "timeline/frmTiempo.h"
#include "viewer/cmdMini.h"
#include "viewer/fuente.h"
#include "viewer/marcadores.h"

#include <QHash>
#include <QLineEdit>
#include <QTableView>

#include <algorithm>
#include <cmath>

namespace {

// WCAG 2.1, success criteria 1.4.3 (text) and 1.4.11 (what is drawn).
constexpr double dblTexto = 4.5;
constexpr double dblDibujo = 3.0;

/// Relative luminance as WCAG 2.1 defines it.
double fLuminancia(QRgb color)
{
    const auto fLineal = [](int intCanal) {
        const double dblCanal = intCanal / 255.0;
        return dblCanal <= 0.04045 ? dblCanal / 12.92 : std::pow((dblCanal + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * fLineal(qRed(color)) + 0.7152 * fLineal(qGreen(color)) +
           0.0722 * fLineal(qBlue(color));
}

double fContraste(QRgb uno, QRgb otro)
{
    const auto [dblMenor, dblMayor] = std::minmax({fLuminancia(uno), fLuminancia(otro)});
    return (dblMayor + 0.05) / (dblMenor + 0.05);
}

/// The strongest contrast of a picture's pixels with its ground, the most frequent colour.
double fContraste(const QImage &imagen)
{
    QHash<QRgb, int> cuentas;
    for (int intY = 0; intY < imagen.height(); ++intY) {
        for (int intX = 0; intX < imagen.width(); ++intX) {
            ++cuentas[imagen.pixel(intX, intY)];
        }
    }
    const auto fondo = std::max_element(cuentas.begin(), cuentas.end());
    double dblMayor = 1;
    for (auto color = cuentas.begin(); color != cuentas.end(); ++color) {
        dblMayor = std::max(dblMayor, fContraste(color.key(), fondo.key()));
    }
    return dblMayor;
}

/// Part of a thumbnail cell of 149 pixels as it is painted.
QImage fCelda(const QPixmap &imagen, const char *strTexto, bool bolMarcada, const QRect &parte)
{
    cmdMini celda(0, nullptr);
    celda.resize(149, 149);
    celda.fPoner(imagen, QString::fromUtf8(strTexto));
    celda.fEstado(bolMarcada, false);
    return celda.grab().toImage().copy(parte);
}

/// The check box of the first row, which is not the current one.
QImage fCasilla(clsSesion &sesion)
{
    sesion.fTecla(Qt::Key_F12);
    const QRect fila = sesion.fLista()->visualRect(sesion.fLista()->model()->index(0, 0));
    return sesion.fLista()->viewport()->grab(fila.adjusted(0, 0, 22 - fila.width(), 0)).toImage();
}

/// The check box of a row of the window that repairs dates.
QImage fCasillaReparar()
{
    clsMensajesGuion mensajes;
    frmReparar ventana(nullptr, {"/a/uno.jpg", "/a/dos.jpg"}, clsTablaReparacion("/"),
                       {[](const std::string &) { return clsFechasFichero{}; },
                        [](const std::string &) { return false; },
                        [](const std::string &, int) { return QImage(); },
                        {},
                        mensajes});
    ventana.show();
    auto *const tabla = ventana.findChild<QTableView *>("tblReparar");
    if (!QTest::qWaitFor([&] { return tabla->model()->rowCount() == 2; })) {
        return {};
    }
    return tabla->viewport()->grab(tabla->visualRect(tabla->model()->index(1, 0))).toImage();
}

/// The box for a date with nothing in it but what says how to write one.
QImage fPista()
{
    clsMensajesGuion mensajes;
    frmFecha dialogo(nullptr, {}, mensajes, [](clsFecha) { return false; });
    auto *const caja = dialogo.findChild<QLineEdit *>("txtDateTime");
    caja->resize(caja->minimumWidth(), 30);
    return caja->grab(caja->rect().adjusted(4, 4, -4, -4)).toImage();
}

/// Bars of the timeline, or the years below them.
QImage fTiempo(bool bolBarras, bool bolMalas)
{
    frmTiempo franja(nullptr, {});
    const int intAlto = frmTiempo::fAlto(franja.fontMetrics());
    const int intBarras = intAlto - franja.fontMetrics().height() - 8;
    franja.resize(300, intAlto);
    franja.fMostrar({.lstArchivos = std::vector<int>(600, 1),
                     .lstMalos = std::vector<int>(600, bolMalas ? 1 : 0)});
    return franja.grab(bolBarras ? QRect(0, 0, 300, intBarras) : QRect(0, intBarras + 8, 300, 20))
        .toImage();
}

QPalette fOscura()
{
    QPalette paleta(QColor(0x35, 0x35, 0x35), QColor(0x21, 0x1f, 0x20));
    paleta.setColor(QPalette::Base, QColor(0x3a, 0x3a, 0x3a));
    return paleta;
}

} // namespace

class clsPruebasContraste : public QObject {
    Q_OBJECT
private slots:
    void fTextsAndDrawingsStandOut()
    {
        const QPalette clara = QApplication::palette();
        QPixmap blanca(133, 133);
        blanca.fill(Qt::white);
        const QRect pie(4, 126, 141, 20);
        const QRect todo(0, 0, 149, 149);
        for (const QPalette &paleta : {clara, fOscura()}) {
            QApplication::setPalette(paleta);
            const clsArbol arbol;
            fLlenarArbol(arbol);
            clsSesion sesion(arbol);
            QVERIFY(sesion.fAbrir());
            sesion.fTecla(Qt::Key_J); // a zoom that is told
            struct {
                const char *strFrase;
                QImage imagen;
                double dblMinimo;
            } const lstCasos[] = {
                {"caption over a white picture", fCelda(blanca, "v  i  d  e  o", false, pie),
                 dblTexto},
                {"tick in its disk", fCelda({}, "", true, {126, 9, 14, 14}), dblTexto},
                {"place of a missing file", fCelda(fErrorLista(133, 1), "", false, todo),
                 dblDibujo},
                {"place of a video without a picture",
                 fCelda(fVacio(133, 1, true), "", false, todo), dblDibujo},
                {"no image", fNoImagen().imagen, dblDibujo},
                {"check box of a row", fCasilla(sesion), dblDibujo},
                {"check box of a repair", fCasillaReparar(), dblDibujo},
                {"label", sesion.fControl("txtEstado2")->grab().toImage(), dblTexto},
                {"hint of a date", fPista(), dblTexto},
                {"bars of the timeline", fTiempo(true, false), dblDibujo},
                {"bars with wrong dates", fTiempo(true, true), dblDibujo},
                {"years of the timeline", fTiempo(false, false), dblTexto},
                {"warning about dates", sesion.fControl("txtInfo3")->grab().toImage(), dblTexto},
            };
            for (const auto &caso : lstCasos) {
                const double dblContraste = fContraste(caso.imagen);
                QVERIFY2(dblContraste >= caso.dblMinimo,
                         qPrintable(QStringLiteral("%1: %2").arg(caso.strFrase).arg(dblContraste)));
            }
        }
        QApplication::setPalette(clara);
    }
};

static const clsTema temaContraste{"contraste", fCorrer<clsPruebasContraste>};

#include "contraste_test.moc"
