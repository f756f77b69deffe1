// Pictures with more pixels than any screen.
#include "sesion.h"

#include "viewer/fuente.h"
#include "viewer/imgFoto.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>

namespace {

/// Whether the middle has the grey of the test's picture, but for what JPEG makes of it.
bool fEsGris(const QImage &imagen)
{
    const QColor color = imagen.pixelColor(imagen.rect().center());
    return std::abs(color.red() - 0x60) < 24 && color.red() == color.green() &&
           color.red() == color.blue();
}

/// Where pixels were given up.
struct clsFinPixeles {
    enum Donde { Nunca, EnLaVentana, AlLado };
    const std::thread::id ventana = std::this_thread::get_id();
    std::atomic<Donde> donde = Nunca;
};

} // namespace

class clsPruebasGrandes : public QObject {
    Q_OBJECT
private slots:
    void fAHundredMegapixelsFit()
    {
        QImage enorme(10000, 10000, QImage::Format_Grayscale8);
        enorme.fill(0x60);
        clsSesion sesion({{"a.jpg", fJpeg(fCuartos({160, 100}))}, {"b.jpg", fJpeg(enorme)}});
        enorme = {};
        QVERIFY(sesion.fAbrir());
        sesion.fTecla(Qt::Key_J);
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE_WITH_TIMEOUT(sesion.fPosicion(), 1, 30000);
        const QSize recuadro = sesion.fControl("frmRecuadro")->size();
        const int intLado = std::min(recuadro.width(), recuadro.height());
        QCOMPARE(sesion.fControl("imgFoto")->size(), QSize(intLado, intLado));
        const QImage imagen = sesion.fRecuadro();
        QVERIFY(fEsGris(imagen));
        sesion.fElegirEntrada("mnuFotoValor0");
        const double dblRazon = sesion.ventana->devicePixelRatioF();
        QCOMPARE(sesion.fControl("imgFoto")->width(), static_cast<int>(40000 / dblRazon));
        QVERIFY(fEsGris(sesion.fRecuadro()));
    }

    void fAPanoramaIsSharpToItsEnd()
    {
        // No two pixels are alike.
        QImage larga(40000, 16, QImage::Format_RGB32);
        for (int intX = 0; intX < larga.width(); ++intX) {
            for (int intY = 0; intY < larga.height(); ++intY) {
                larga.setPixel(intX, intY, qRgb(intX % 256, intX / 256, intY * 16));
            }
        }
        QWidget marco;
        imgFoto foto(&marco);
        foto.fPoner(std::make_shared<const clsFuente>(clsFuente{larga, larga.size()}));
        for (const int intCuartos : {0, 1, 2, 3}) {
            foto.fGirar(intCuartos);
            foto.fColocar(400);
            const QImage girada = larga.transformed(QTransform().rotate(90 * intCuartos));
            const double dblPunto = 4 / foto.devicePixelRatioF();
            for (const int intLugar : {0, 9999, 20000, 32770, 39983}) {
                const QPoint suyo = intCuartos % 2 == 0 ? QPoint(intLugar, 0) : QPoint(0, intLugar);
                const QRect parte((QPointF(suyo) * dblPunto).toPoint(),
                                  (QSizeF(16, 16) * dblPunto).toSize());
                const QImage vista = foto.grab(parte).toImage();
                QCOMPARE(vista.size(), QSize(64, 64));
                for (const int intPunto : {1, 8, 14}) { // two of four pixels are mixed with others
                    const QRgb color = vista.pixel(intPunto * 4 + 2, intPunto * 4 + 2);
                    const QRgb esperado = girada.pixel(suyo + QPoint(intPunto, intPunto));
                    QVERIFY2(
                        std::abs(qRed(color) - qRed(esperado)) < 2 &&
                            std::abs(qGreen(color) - qGreen(esperado)) < 2 &&
                            std::abs(qBlue(color) - qBlue(esperado)) < 16,
                        qPrintable(QStringLiteral("%1, turned %2").arg(intLugar).arg(intCuartos)));
                }
            }
        }
    }

    void fTheirPixelsAreGivenUpBesideTheWindow()
    {
        for (const int intLado : {100, 3000}) {
            std::vector<QRgb> lstPuntos(static_cast<std::size_t>(intLado) *
                                        static_cast<std::size_t>(intLado));
            clsFinPixeles fin;
            const auto fAlFinal = [](void *suyo) {
                auto *const este = static_cast<clsFinPixeles *>(suyo);
                este->donde = std::this_thread::get_id() == este->ventana
                                  ? clsFinPixeles::EnLaVentana
                                  : clsFinPixeles::AlLado;
            };
            QImage imagen(reinterpret_cast<uchar *>(lstPuntos.data()), intLado, intLado,
                          QImage::Format_RGB32, fAlFinal, &fin);
            auto fuente = fCompartida({std::move(imagen), {intLado, intLado}});
            QCOMPARE(fin.donde.load(), clsFinPixeles::Nunca);
            fuente.reset();
            QTRY_VERIFY(fin.donde != clsFinPixeles::Nunca);
            QCOMPARE(fin.donde.load(),
                     intLado == 100 ? clsFinPixeles::EnLaVentana : clsFinPixeles::AlLado);
        }
    }

    void fALargeNeighbourIsNotDecodedSmallerThanItIsShown()
    {
        const QSize tam(7000, 5000); // 140 MB of pixels
        clsPedido pedido{"", {}, 100, lngMaximoFoto, false};
        QCOMPARE(fOctavos(tam, pedido), 8);
        pedido.lngMaximo = lngMaximoVecina;
        pedido.bolVecina = true;
        QCOMPARE(fOctavos(tam, pedido), 0);
        pedido.intZoom = 50;
        QCOMPARE(fOctavos(tam, pedido), 4);
    }
};

static const clsTema temaGrandes{"grandes", fCorrer<clsPruebasGrandes>};

#include "grandes_test.moc"
