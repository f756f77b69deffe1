// The one picture: fit and zoom, sharpness, orientation, dragging, its menu.
#include "sesion.h"

#include <QMenu>

#include <algorithm>
#include <cmath>

namespace {

/// Whether two colours are the same but for what JPEG makes of them.
bool fParecidos(const QColor &uno, const QColor &otro)
{
    constexpr int intMargen = 24;
    return std::abs(uno.red() - otro.red()) < intMargen &&
           std::abs(uno.green() - otro.green()) < intMargen &&
           std::abs(uno.blue() - otro.blue()) < intMargen;
}

/// The picture as a decoder of our own choice gives it.
QImage fDescifrar(const std::string &strJpeg)
{
    return QImage::fromData(QByteArray::fromStdString(strJpeg))
        .convertToFormat(QImage::Format_RGB32);
}

/// Whether the frame shows, pixel by pixel, what a picture larger than it has there at 100 %.
bool fExacta(clsSesion &sesion, const QImage &fuente)
{
    QImage recuadro = sesion.fRecuadro().convertToFormat(QImage::Format_RGB32);
    recuadro.setDevicePixelRatio(1);
    const QWidget *const foto = sesion.fControl("imgFoto");
    const QPoint esquina = -foto->pos() * foto->devicePixelRatioF();
    return recuadro == fuente.copy(QRect(esquina, recuadro.size()));
}

} // namespace

class clsPruebasFoto : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        m_strCuartos = fJpeg(fCuartos({160, 100}));
        m_strDibujo = fJpeg(fDibujo({90, 70}));
        m_strGrande = fJpeg(fDibujo({2400, 2000}));
    }

    void fZoomStepsFollowTheScript()
    {
        struct {
            Qt::Key tecla;
            Qt::KeyboardModifiers mayus;
            int intZoom; ///< 0: fit
            const char *strFrase;
        } const lstPasos[] = {
            {Qt::Key_Plus, Qt::KeypadModifier, 200, "begins at 100"},
            {Qt::Key_Plus, Qt::KeypadModifier, 400, "doubles"},
            {Qt::Key_Plus, Qt::KeypadModifier, 400, "ends at 400"},
            {Qt::Key_Minus, {}, 400, "only the numeric pad's"},
            {Qt::Key_Minus, Qt::KeypadModifier, 200, "halves"},
            {Qt::Key_J, Qt::ShiftModifier, 0, "fits, whatever the Shift state"},
            {Qt::Key_Plus, Qt::KeypadModifier, 100, "from fit + leads to 100"},
        };
        clsSesion sesion({{"a.jpg", m_strCuartos}});
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.fTamFoto(), QSize(160, 100));
        for (const auto &paso : lstPasos) {
            sesion.fTecla(paso.tecla, paso.mayus);
            const int intAncho =
                paso.intZoom == 0 ? sesion.fControl("frmRecuadro")->width()
                                  : static_cast<int>(std::lround(
                                        1.6 * paso.intZoom / sesion.ventana->devicePixelRatioF()));
            QVERIFY2(sesion.fControl("imgFoto")->width() == intAncho, paso.strFrase);
        }
    }

    void fZoomEntriesSetTheirValue()
    {
        const int lstZooms[] = {400, 200, 100, 50, 25, 12};
        clsSesion sesion({{"a.jpg", fJpeg(fCuartos({200, 400}))}});
        QVERIFY(sesion.fAbrir());
        const double dblRazon = sesion.ventana->devicePixelRatioF();
        for (int intIndice = 0; intIndice < 6; ++intIndice) {
            sesion.fElegirEntrada(qPrintable(QStringLiteral("mnuFotoValor%1").arg(intIndice)));
            const QRect foto = sesion.fControl("imgFoto")->geometry();
            const QSize recuadro = sesion.fControl("frmRecuadro")->size();
            QCOMPARE(foto.width(),
                     static_cast<int>(std::lround(2 * lstZooms[intIndice] / dblRazon)));
            QCOMPARE(foto.height(),
                     static_cast<int>(std::lround(4 * lstZooms[intIndice] / dblRazon)));
            // Centred to the pixel, also when it is larger than the frame.
            QVERIFY(std::abs(foto.left() * 2 + foto.width() - recuadro.width()) <= 1);
            QVERIFY(std::abs(foto.top() * 2 + foto.height() - recuadro.height()) <= 1);
        }
        sesion.fElegirEntrada("mnuFotoAjustar");
        QCOMPARE(sesion.fControl("imgFoto")->height(), sesion.fControl("frmRecuadro")->height());
    }

    void fZoomStaysFromFileToFile()
    {
        clsSesion sesion({{"a.jpg", m_strCuartos}, {"b.mp4", "no film"}, {"c.jpg", m_strDibujo}});
        QVERIFY(sesion.fAbrir());
        sesion.fElegirEntrada("mnuFotoValor1");
        for (const QSize tam : {QSize(320, 200), QSize(1280, 960), QSize(180, 140)}) {
            QTRY_COMPARE(sesion.fTamFoto(), tam);
            sesion.fTecla(Qt::Key_F12);
        }
    }

    void fFitFillsOneSideOfTheFrame()
    {
        clsSesion sesion(
            {{"a.jpg", fJpeg(fCuartos({40, 40}))}, {"b.jpg", fJpeg(fCuartos({4000, 1}))}});
        QVERIFY(sesion.fAbrir());
        sesion.fTecla(Qt::Key_J);
        const QWidget *const foto = sesion.fControl("imgFoto");
        const QSize recuadro = sesion.fControl("frmRecuadro")->size();
        const int intLado = std::min(recuadro.width(), recuadro.height());
        QCOMPARE(foto->size(), QSize(intLado, intLado)); // enlarged
        const QImage imagen = sesion.fRecuadro();
        const QPoint cuarto(intLado / 4, intLado / 4);
        QVERIFY(fParecidos(imagen.pixelColor(imagen.rect().center() - cuarto), Qt::red));
        QVERIFY(fParecidos(imagen.pixelColor(imagen.rect().center() + cuarto), Qt::yellow));
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(foto->size(), QSize(recuadro.width(), 1)); // still a line
    }

    void fAHundredPerCentShowsEveryPixelAsItIs()
    {
        // Odd and even sizes: the middle of the frame can lie between two pixels.
        clsSesion sesion({{"a.jpg", m_strDibujo},
                          {"b.jpg", fJpeg(fDibujo({91, 71}))},
                          {"c.jpg", fJpeg(fDibujo({89, 68}))}});
        QVERIFY(sesion.fAbrir());
        for (int lngPos = 0; lngPos < 3; ++lngPos) {
            QTRY_COMPARE(sesion.fPosicion(), lngPos);
            const QImage fuente =
                fDescifrar(sesion.arbol->fLeer(sesion.fCelda(lngPos, 0).toStdString()));
            const QImage recuadro = sesion.fRecuadro().convertToFormat(QImage::Format_RGB32);
            const QWidget *const foto = sesion.fControl("imgFoto");
            const QPoint esquina = foto->pos() * foto->devicePixelRatioF();
            QVERIFY(foto->x() > 0 && foto->y() > 0);
            // The control begins at whole logical pixels; what it shows may lack the last odd line.
            const QSize tam = fuente.size() - QSize(1, 1);
            QImage visible = recuadro.copy(QRect(esquina, tam));
            visible.setDevicePixelRatio(1);
            QVERIFY2(visible == fuente.copy(QRect({0, 0}, tam)),
                     qPrintable(sesion.fCelda(lngPos, 0)));
            sesion.fTecla(Qt::Key_F12);
        }
    }

    void fALargePictureShowsItsMiddle()
    {
        clsSesion sesion({{"a.jpg", m_strGrande}, {"b.jpg", m_strGrande}});
        QVERIFY(sesion.fAbrir());
        const QImage fuente = fDescifrar(m_strGrande);
        QTRY_VERIFY(fExacta(sesion, fuente));
        const QWidget *const foto = sesion.fControl("imgFoto");
        const QSize recuadro = sesion.fControl("frmRecuadro")->size();
        QVERIFY(foto->x() < 0 && foto->y() < 0);
        QVERIFY(std::abs(foto->x() * 2 + foto->width() - recuadro.width()) <= 1);
        QVERIFY(std::abs(foto->y() * 2 + foto->height() - recuadro.height()) <= 1);
        QCOMPARE(foto->cursor().shape(), Qt::OpenHandCursor);
        // Smaller, and the next one only so; then with every pixel again.
        sesion.fTecla(Qt::Key_J);
        QVERIFY(!fExacta(sesion, fuente));
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 1);
        sesion.fTecla(Qt::Key_Minus, Qt::KeypadModifier);
        QTRY_VERIFY(fExacta(sesion, fuente));
    }

    void fAZoomChosenWhileAPictureLoadsGetsItsPixels()
    {
        clsSesion sesion({{"a.jpg", m_strCuartos}, {"b.jpg", "x"}});
        QVERIFY(sesion.fAbrir());
        sesion.fTecla(Qt::Key_J);
        // Written only now, so that it was not decoded ahead; fit needs but a part of its pixels.
        sesion.arbol->fCrear("b.jpg", m_strGrande, fMomento("2002-01-01 00:00:00"));
        const clsCuando cargando([&] { return sesion.fProcesando(); },
                                 [&] { sesion.fElegirEntrada("mnuFotoValor2"); });
        QCoreApplication::postEvent(sesion.fLista(),
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_F12, Qt::NoModifier));
        QTRY_COMPARE(sesion.fTamFoto(), QSize(2400, 2000));
        QTRY_COMPARE(sesion.fPosicion(), 1);
        const QImage fuente = fDescifrar(m_strGrande);
        QTRY_VERIFY(fExacta(sesion, fuente));
    }

    void fAZoomChosenWhileTheFrameChangesGetsItsPixels()
    {
        clsSesion sesion({{"a.jpg", m_strGrande}});
        QVERIFY(sesion.fAbrir());
        sesion.fTecla(Qt::Key_J);
        // The layout decodes it anew for the size of the frame; that is given up for the zoom.
        const clsCuando cargando([&] { return sesion.fProcesando(); },
                                 [&] { sesion.fElegirEntrada("mnuFotoValor2"); });
        QVERIFY(sesion.fTamano(700, 600));
        QVERIFY(cargando.fHecho());
        QTRY_COMPARE(sesion.fPosicion(), 0);
        QTRY_VERIFY(fExacta(sesion, fDescifrar(m_strGrande)));
    }

    void fOrientationIsAppliedToPictureAndSize()
    {
        struct {
            int intOrientacion;
            QSize tam;
            Qt::GlobalColor lstEsquinas[4]; ///< top left, top right, bottom left, bottom right
        } const lstCasos[] = {
            {0, {160, 100}, {Qt::red, Qt::green, Qt::blue, Qt::yellow}},
            {2, {160, 100}, {Qt::green, Qt::red, Qt::yellow, Qt::blue}},
            {3, {160, 100}, {Qt::yellow, Qt::blue, Qt::green, Qt::red}},
            {6, {100, 160}, {Qt::blue, Qt::red, Qt::yellow, Qt::green}},
            {8, {100, 160}, {Qt::green, Qt::yellow, Qt::red, Qt::blue}},
            {9, {160, 100}, {Qt::red, Qt::green, Qt::blue, Qt::yellow}}, // no such value
        };
        std::vector<std::pair<std::string, std::string>> lstFotos;
        for (const auto &caso : lstCasos) {
            lstFotos.emplace_back(std::to_string(caso.intOrientacion) + ".jpg",
                                  fJpeg(fCuartos({160, 100}), caso.intOrientacion));
        }
        clsSesion sesion(lstFotos);
        QVERIFY(sesion.fAbrir());
        int lngPos = 0;
        for (const auto &caso : lstCasos) {
            QTRY_COMPARE(sesion.fPosicion(), lngPos);
            QCOMPARE(sesion.fTamFoto(), caso.tam);
            for (const bool bolAjustada : {false, true}) {
                sesion.fElegirEntrada(bolAjustada ? "mnuFotoAjustar" : "mnuFotoValor2");
                const QImage imagen = sesion.fControl("imgFoto")->grab().toImage();
                const int intX = imagen.width() - 6;
                const int intY = imagen.height() - 6;
                const QPoint lstPuntos[] = {{5, 5}, {intX, 5}, {5, intY}, {intX, intY}};
                for (int intEsquina = 0; intEsquina < 4; ++intEsquina) {
                    QVERIFY2(fParecidos(imagen.pixelColor(lstPuntos[intEsquina]),
                                        caso.lstEsquinas[intEsquina]),
                             qPrintable(QString::number(caso.intOrientacion)));
                }
            }
            sesion.fElegirEntrada("mnuFotoValor2");
            sesion.fTecla(Qt::Key_F12);
            ++lngPos;
        }
    }

    void fDraggingMovesInSteps()
    {
        struct {
            QPoint donde;  ///< pointer, counted from where it was pressed
            QPoint movida; ///< what the picture moves by
            const char *strFrase;
        } const lstPasos[] = {
            {{12, 0}, {0, 0}, "180 twips lie in the dead zone"},
            {{13, 0}, {32, 0}, "195 do not: 480 to the right"},
            {{14, 0}, {32, 0}, "every further move is a step"},
            {{-200, -13}, {-32, -32}, "left and up, whatever the distance"},
        };
        clsSesion sesion({{"a.jpg", m_strGrande}, {"b.jpg", m_strDibujo}});
        QVERIFY(sesion.fAbrir());
        QWidget *const foto = sesion.fControl("imgFoto");
        QWidget *const recuadro = sesion.fControl("frmRecuadro");
        const QPoint centro = recuadro->rect().center();
        sesion.fMoverRaton(recuadro, centro + QPoint(50, 0)); // no button: nothing
        const QPoint antes = foto->pos();
        sesion.fPulsar(recuadro, centro);
        QCOMPARE(foto->pos(), antes);
        QCOMPARE(foto->cursor().shape(), Qt::ClosedHandCursor);
        for (const auto &paso : lstPasos) {
            const QPoint esperada = foto->pos() + paso.movida;
            sesion.fMoverRaton(recuadro, centro + paso.donde);
            QVERIFY2(foto->pos() == esperada, paso.strFrase);
        }
        sesion.fSoltar(recuadro, centro);
        QCOMPARE(foto->cursor().shape(), Qt::OpenHandCursor);
        const QPoint despues = foto->pos();
        sesion.fMoverRaton(recuadro, centro + QPoint(80, 80));
        QCOMPARE(foto->pos(), despues);
        // A new picture begins at its middle, whatever is held.
        sesion.fPulsar(recuadro, centro);
        sesion.fClicFila(0);
        QTRY_COMPARE(foto->pos(), antes);
        sesion.fSoltar(recuadro, centro);
        sesion.fPulsar(recuadro, centro);
        for (int intVez = 0; intVez < 80; ++intVez) { // and no further than its corner
            sesion.fMoverRaton(recuadro, centro + QPoint(20 + intVez % 2, 20));
        }
        QCOMPARE(foto->pos(), QPoint(0, 0));
        sesion.fSoltar(recuadro, centro);
        // One that is smaller than the frame stays where it is.
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 1);
        const QPoint pequena = foto->pos();
        sesion.fPulsar(recuadro, centro);
        sesion.fMoverRaton(recuadro, centro + QPoint(40, 40));
        QCOMPARE(foto->pos(), pequena);
        QCOMPARE(foto->cursor().shape(), Qt::ArrowCursor);
        sesion.fSoltar(recuadro, centro);
    }

    void fTheRightButtonOpensTheMenuEverywhere()
    {
        clsSesion sesion({{"a.jpg", m_strCuartos}});
        QVERIFY(sesion.fAbrir());
        auto *const menu = sesion.fControl<QMenu>("mnuFoto");
        QWidget *const recuadro = sesion.fControl("frmRecuadro");
        const std::pair<QWidget *, QPoint> lstCasos[] = {
            {recuadro, recuadro->rect().center()},  // the picture
            {recuadro, {5, 5}},                     // beside it
            {sesion.fControl("lblFondo"), {10, 1}}, // beside the frame
        };
        for (const auto &[control, punto] : lstCasos) {
            sesion.fClic(control, punto, Qt::RightButton);
            QTRY_VERIFY(menu->isVisible());
            menu->close();
            QTRY_VERIFY(!menu->isVisible());
            sesion.fClic(control, punto, Qt::LeftButton);
            QVERIFY(!menu->isVisible());
        }
        QCOMPARE(sesion.fTamFoto(), QSize(160, 100));
    }

private:
    std::string m_strCuartos;
    std::string m_strDibujo;
    std::string m_strGrande;
};

static const clsTema temaFoto{"foto", fCorrer<clsPruebasFoto>};

#include "foto_test.moc"
