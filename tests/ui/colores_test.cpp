// Pictures with a profile of their own in the picture control: the screen's colours where it shows.
#include "sesion.h"

#include "viewer/colores.h"
#include "viewer/imgFoto.h"

#include <QColorSpace>
#include <QPainter>

namespace {

using clsFuentePropia = std::shared_ptr<const clsFuente>;

std::string fJpegAncho(QImage imagen)
{
    imagen.setColorSpace(QColorSpace::AdobeRgb);
    return fJpeg(imagen);
}

/// The picture as it is decoded for 100 %.
clsFuentePropia fDeCien(const std::string &strJpeg)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", strJpeg);
    const std::atomic<bool> bolAnulado = false;
    return std::make_shared<const clsFuente>(
        fDecodificar({arbol.fRuta("a.jpg"), {}, 100, lngMaximoFoto}, bolAnulado));
}

/// The same with every pixel in the screen's colours.
clsFuentePropia fEntera(const std::string &strJpeg)
{
    const QImage imagen = fParaPantalla(QImage::fromData(QByteArray::fromStdString(strJpeg)));
    return std::make_shared<const clsFuente>(clsFuente{imagen, imagen.size()});
}

/// The picture control in a frame of 900 x 600.
class clsMarcoFoto : public QWidget {
public:
    explicit clsMarcoFoto(clsFuentePropia fuente) : foto(this)
    {
        resize(900, 600);
        foto.fPoner(std::move(fuente));
        foto.show();
    }
    /// Drags it by so many steps.
    void fArrastrar(int intPasos, QPoint sentido)
    {
        const QPoint medio = rect().center();
        fRaton(QEvent::MouseButtonPress, medio);
        for (int intPaso = 0; intPaso < intPasos; ++intPaso) {
            fRaton(QEvent::MouseMove, medio + sentido * (20 + intPaso % 2));
        }
        fRaton(QEvent::MouseButtonRelease, medio);
    }
    [[nodiscard]] QImage fVista() { return grab().toImage(); }

    imgFoto foto;

private:
    void fRaton(QEvent::Type tipo, QPoint punto)
    {
        QMouseEvent evento(tipo, foto.mapFromParent(punto), mapToGlobal(punto),
                           tipo == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                           Qt::LeftButton, {});
        QApplication::sendEvent(&foto, &evento);
    }
};

} // namespace

class clsPruebasColores : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { m_strDibujo = fJpegAncho(fDibujo({4600, 3000})); }

    void fWhatShowsIsInTheColoursOfTheScreenToTheLastUnit()
    {
        const struct {
            int intZoom;
            int intCuartos;
            int intPasos;
            QPoint sentido;
        } lstCasos[] = {
            {100, 0, 0, {}},        {100, 0, 3, {1, 1}},   {100, 1, 60, {-1, 0}},
            {200, 2, 100, {-1, 1}}, {400, 3, 90, {0, -1}}, {100, 0, 60, {-1, -1}},
            {100, 2, 1, {1, -1}},   {200, 1, 300, {1, 1}},
        };
        const clsFuentePropia fuente = fDeCien(m_strDibujo);
        const clsFuentePropia entera = fEntera(m_strDibujo);
        QVERIFY(fuente->tinte != nullptr);
        clsMarcoFoto suya(fuente);
        clsMarcoFoto otra(entera);
        for (const auto &caso : lstCasos) {
            QVERIFY2(fuente->imagen != entera->imagen, "not all of it before all of it was seen");
            for (clsMarcoFoto *const marco : {&suya, &otra}) {
                marco->foto.fGirar(caso.intCuartos);
                marco->foto.fColocar(caso.intZoom);
                marco->fArrastrar(caso.intPasos, caso.sentido);
            }
            QVERIFY2(suya.fVista() == otra.fVista(),
                     qPrintable(QStringLiteral("%1 %, turned %2, %3 steps")
                                    .arg(caso.intZoom)
                                    .arg(caso.intCuartos)
                                    .arg(caso.intPasos)));
        }
        static_cast<void>(suya.foto.grab());
        QCOMPARE(fuente->imagen, entera->imagen);
    }

    void fMadeSmallerItIsOfThoseColoursAndStaysAsItIs()
    {
        QImage cuartos = fCuartos({4600, 3000});
        QPainter(&cuartos).fillRect(cuartos.rect(), QColor(128, 128, 128, 100));
        const std::string strJpeg = fJpegAncho(cuartos);
        const clsFuentePropia fuente = fDeCien(strJpeg);
        const QImage antes = fuente->imagen.copy();
        clsMarcoFoto suya(fuente);
        clsMarcoFoto otra(fEntera(strJpeg));
        for (const int intZoom : {0, 12, 25, 50}) { // 0: fit
            for (const int intCuartos : {0, 1, 2, 3}) {
                for (clsMarcoFoto *const marco : {&suya, &otra}) {
                    marco->foto.fGirar(intCuartos);
                    marco->foto.fColocar(intZoom);
                    marco->fArrastrar(9, {1, 1});
                }
                QCOMPARE(suya.foto.geometry(), otra.foto.geometry());
                const QImage vista = suya.fVista();
                const QImage esperada = otra.fVista();
                int intOtros = 0;
                for (int intX = 0; intX < vista.width(); ++intX) {
                    for (int intY = 0; intY < vista.height(); ++intY) {
                        intOtros += vista.pixel(intX, intY) != esperada.pixel(intX, intY) ? 1 : 0;
                    }
                }
                QVERIFY(intOtros * 50 < vista.width() * vista.height()); // where two quarters meet
            }
        }
        QCOMPARE(fuente->imagen, antes);
    }

    void fTheWindowShowsThemFromThePreviewOn()
    {
        clsSesion sesion({{"a.jpg", m_strDibujo}, {"b.jpg", fJpeg(fCuartos({90, 60}))}});
        QVERIFY(sesion.fAbrir());
        QImage entera = fEntera(m_strDibujo)->imagen;
        entera.setColorSpace({}); // a screenshot has none
        const QWidget *const foto = sesion.fControl("imgFoto");
        const auto fExacta = [&] {
            QImage recuadro = sesion.fRecuadro().convertToFormat(QImage::Format_RGB32);
            recuadro.setDevicePixelRatio(1);
            return recuadro ==
                   entera.copy(QRect(-foto->pos() * foto->devicePixelRatioF(), recuadro.size()));
        };
        QTRY_VERIFY(fExacta());
        QWidget *const recuadro = sesion.fControl("frmRecuadro");
        const QPoint medio = recuadro->rect().center();
        sesion.fPulsar(recuadro, medio);
        for (int intVez = 0; intVez < 150; ++intVez) {
            sesion.fMoverRaton(recuadro, medio + QPoint(20 + intVez % 2, 20));
        }
        sesion.fSoltar(recuadro, medio);
        QCOMPARE(foto->pos(), QPoint(0, 0));
        QVERIFY(fExacta());
        sesion.fTecla(Qt::Key_J);
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 1);
        sesion.fTecla(Qt::Key_Minus, Qt::KeypadModifier);
        sesion.fTecla(Qt::Key_F11); // what is kept of it
        QTRY_VERIFY(sesion.fPosicion() == 0 && fExacta());
    }

private:
    std::string m_strDibujo;
};

static const clsTema temaColores{"colores", fCorrer<clsPruebasColores>};

#include "colores_test.moc"
