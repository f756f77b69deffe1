// The one picture: fit and zoom, sharpness, orientation, dragging, its menu.
#include "sesion.h"

#include "viewer/almacen.h"

#include <QMenu>
#include <QTableView>

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
    void fALargeNeighbourIsNotDecodedSmallerThanItIsShown();
    void initTestCase();
    void fZoomStepsFollowTheScript();
    void fZoomEntriesSetTheirValue();
    void fZoomStaysFromFileToFile();
    void fFitFillsOneSideOfTheFrame();
    void fAHundredPerCentShowsEveryPixelAsItIs();
    void fALargePictureShowsItsMiddle();
    void fAZoomChosenWhileAPictureLoadsGetsItsPixels();
    void fAZoomChosenWhileTheFrameChangesGetsItsPixels();
    void fOrientationIsAppliedToPictureAndSize();
    void fAHundredMegapixelsFit();
    void fDraggingMovesInSteps();
    void fDraggingEndsAtTheEdges();
    void fASmallPictureIsNotDragged();
    void fTheRightButtonOpensTheMenuEverywhere();

private:
    std::string m_strCuartos;
    std::string m_strDibujo;
    std::string m_strGrande;
};

void clsPruebasFoto::initTestCase()
{
    m_strCuartos = fJpeg(fCuartos({160, 100}));
    m_strDibujo = fJpeg(fDibujo({90, 70}));
    m_strGrande = fJpeg(fDibujo({2400, 2000}));
}

void clsPruebasFoto::fZoomStepsFollowTheScript()
{
    struct clsPaso {
        Qt::Key tecla;
        Qt::KeyboardModifiers mayus;
        int intZoom; ///< 0: fit
        const char *strFrase;
    };
    const clsPaso lstPasos[] = {
        {Qt::Key_Plus, Qt::KeypadModifier, 200, "begins at 100"},
        {Qt::Key_Plus, Qt::KeypadModifier, 400, "doubles"},
        {Qt::Key_Plus, Qt::KeypadModifier, 400, "ends at 400"},
        {Qt::Key_Plus, {}, 400, "only the numeric pad's"},
        {Qt::Key_Minus, {}, 400, "only the numeric pad's"},
        {Qt::Key_Minus, Qt::KeypadModifier, 200, "halves"},
        {Qt::Key_Minus, Qt::KeypadModifier, 100, "halves"},
        {Qt::Key_Minus, Qt::KeypadModifier, 50, "halves"},
        {Qt::Key_Minus, Qt::KeypadModifier, 25, "halves"},
        {Qt::Key_Minus, Qt::KeypadModifier, 12, "to a whole number"},
        {Qt::Key_Minus, Qt::KeypadModifier, 12, "ends at 12"},
        {Qt::Key_Plus, Qt::KeypadModifier, 24, "doubles what there is"},
        {Qt::Key_J, {}, 0, "fits"},
        {Qt::Key_J, Qt::ShiftModifier, 0, "whatever the Shift state"},
        {Qt::Key_Plus, Qt::KeypadModifier, 100, "from fit + leads to 100"},
        {Qt::Key_J, {}, 0, "fits"},
        {Qt::Key_Minus, Qt::KeypadModifier, 100, "from fit - leads to 100, too"},
    };
    const clsArbol arbol;
    arbol.fCrear("a.jpg", m_strCuartos);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    QCOMPARE(sesion.fTamFoto(), QSize(160, 100));
    const double dblRazon = sesion.ventana->devicePixelRatioF();
    for (const clsPaso &paso : lstPasos) {
        sesion.fTecla(paso.tecla, paso.mayus);
        const QSize foto = sesion.fControl("imgFoto")->size();
        const QSize recuadro = sesion.fControl("frmRecuadro")->size();
        const int intAncho = paso.intZoom == 0
                                 ? recuadro.width()
                                 : static_cast<int>(std::lround(1.6 * paso.intZoom / dblRazon));
        QVERIFY2(foto.width() == intAncho, paso.strFrase);
    }
}

void clsPruebasFoto::fZoomEntriesSetTheirValue()
{
    const int lstZooms[] = {400, 200, 100, 50, 25, 12};
    const clsArbol arbol;
    arbol.fCrear("a.jpg", fJpeg(fCuartos({200, 400})));
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    const double dblRazon = sesion.ventana->devicePixelRatioF();
    for (int intIndice = 0; intIndice < 6; ++intIndice) {
        sesion.fElegirEntrada(qPrintable(QStringLiteral("mnuFotoValor%1").arg(intIndice)));
        const QRect foto = sesion.fControl("imgFoto")->geometry();
        const QSize recuadro = sesion.fControl("frmRecuadro")->size();
        QCOMPARE(foto.width(), static_cast<int>(std::lround(2 * lstZooms[intIndice] / dblRazon)));
        QCOMPARE(foto.height(), static_cast<int>(std::lround(4 * lstZooms[intIndice] / dblRazon)));
        // Centred to the pixel, also when it is larger than the frame.
        QVERIFY(std::abs(foto.left() * 2 + foto.width() - recuadro.width()) <= 1);
        QVERIFY(std::abs(foto.top() * 2 + foto.height() - recuadro.height()) <= 1);
    }
    sesion.fElegirEntrada("mnuFotoAjustar");
    QCOMPARE(sesion.fControl("imgFoto")->height(), sesion.fControl("frmRecuadro")->height());
}

void clsPruebasFoto::fZoomStaysFromFileToFile()
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", m_strCuartos, fMomento("2001-01-01 00:00:00"));
    arbol.fCrear("b.mp4", "no film", fMomento("2002-01-01 00:00:00"));
    arbol.fCrear("c.jpg", m_strDibujo, fMomento("2003-01-01 00:00:00"));
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fElegirEntrada("mnuFotoValor1");
    for (const QSize tam : {QSize(320, 200), QSize(1280, 960), QSize(180, 140)}) {
        QTRY_COMPARE(sesion.fTamFoto(), tam);
        sesion.fTecla(Qt::Key_F12);
    }
}

void clsPruebasFoto::fFitFillsOneSideOfTheFrame()
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", fJpeg(fCuartos({40, 40})), fMomento("2001-01-01 00:00:00"));
    arbol.fCrear("b.jpg", fJpeg(fCuartos({3000, 100})), fMomento("2002-01-01 00:00:00"));
    arbol.fCrear("c.jpg", fJpeg(fCuartos({4000, 1})), fMomento("2003-01-01 00:00:00"));
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fTecla(Qt::Key_J);
    const QWidget *const foto = sesion.fControl("imgFoto");
    const QSize recuadro = sesion.fControl("frmRecuadro")->size();
    const int intLado = std::min(recuadro.width(), recuadro.height());
    QCOMPARE(foto->size(), QSize(intLado, intLado)); // enlarged
    const QImage imagen = sesion.fRecuadro();
    const QPoint centro = imagen.rect().center();
    const QPoint cuarto(intLado / 4, intLado / 4);
    QVERIFY(fParecidos(imagen.pixelColor(centro - cuarto), Qt::red));
    QVERIFY(fParecidos(imagen.pixelColor(centro + cuarto), Qt::yellow));
    QCOMPARE(foto->cursor().shape(), Qt::ArrowCursor);
    sesion.fTecla(Qt::Key_F12);
    QTRY_COMPARE(foto->width(), recuadro.width());
    QCOMPARE(foto->height(), static_cast<int>(std::lround(recuadro.width() / 30.0)));
    sesion.fTecla(Qt::Key_F12);
    QTRY_COMPARE(sesion.fPosicion(), 2);
    QCOMPARE(foto->height(), 1); // still a line
}

void clsPruebasFoto::fAHundredPerCentShowsEveryPixelAsItIs()
{
    const clsArbol arbol;
    // Odd and even sizes: the middle of the frame can lie between two pixels.
    arbol.fCrear("a.jpg", m_strDibujo, fMomento("2001-01-01 00:00:00"));
    arbol.fCrear("b.jpg", fJpeg(fDibujo({91, 71})), fMomento("2002-01-01 00:00:00"));
    arbol.fCrear("c.jpg", fJpeg(fDibujo({89, 68})), fMomento("2003-01-01 00:00:00"));
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    for (int lngPos = 0; lngPos < 3; ++lngPos) {
        QTRY_COMPARE(sesion.fPosicion(), lngPos);
        const QImage fuente = fDescifrar(arbol.fLeer(sesion.fCelda(lngPos, 0).toStdString()));
        const QImage recuadro = sesion.fRecuadro().convertToFormat(QImage::Format_RGB32);
        const QWidget *const foto = sesion.fControl("imgFoto");
        const QPoint esquina = foto->pos() * foto->devicePixelRatioF();
        QVERIFY(foto->x() > 0 && foto->y() > 0);
        // The control begins at whole logical pixels; what it shows may lack the last odd line.
        const QSize tam = fuente.size() - QSize(1, 1);
        QImage visible = recuadro.copy(QRect(esquina, tam));
        visible.setDevicePixelRatio(1);
        QVERIFY2(visible == fuente.copy(QRect({0, 0}, tam)), qPrintable(sesion.fCelda(lngPos, 0)));
        sesion.fTecla(Qt::Key_F12);
    }
}

void clsPruebasFoto::fALargePictureShowsItsMiddle()
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", m_strGrande);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    const QImage fuente = fDescifrar(m_strGrande);
    QTRY_VERIFY(fExacta(sesion, fuente));
    const QWidget *const foto = sesion.fControl("imgFoto");
    const QSize recuadro = sesion.fControl("frmRecuadro")->size();
    QVERIFY(foto->x() < 0 && foto->y() < 0);
    QVERIFY(std::abs(foto->x() * 2 + foto->width() - recuadro.width()) <= 1);
    QVERIFY(std::abs(foto->y() * 2 + foto->height() - recuadro.height()) <= 1);
    QCOMPARE(foto->cursor().shape(), Qt::OpenHandCursor);
    // Smaller and back: every pixel is there again.
    sesion.fTecla(Qt::Key_J);
    QVERIFY(!fExacta(sesion, fuente));
    sesion.fTecla(Qt::Key_Minus, Qt::KeypadModifier);
    QTRY_VERIFY(fExacta(sesion, fuente));
}

void clsPruebasFoto::fAZoomChosenWhileAPictureLoadsGetsItsPixels()
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", m_strCuartos, fMomento("2001-01-01 00:00:00"));
    arbol.fCrear("b.jpg", "x", fMomento("2002-01-01 00:00:00"));
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fTecla(Qt::Key_J);
    // Written only now, so that it was not decoded ahead; fit needs but a part of its pixels.
    arbol.fCrear("b.jpg", m_strGrande, fMomento("2002-01-01 00:00:00"));
    const clsCuando cargando([&] { return sesion.fProcesando(); },
                             [&] { sesion.fElegirEntrada("mnuFotoValor2"); });
    QCoreApplication::postEvent(sesion.fLista(),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_F12, Qt::NoModifier));
    QTRY_COMPARE(sesion.fTamFoto(), QSize(2400, 2000));
    QTRY_COMPARE(sesion.fPosicion(), 1);
    const QImage fuente = fDescifrar(m_strGrande);
    QTRY_VERIFY(fExacta(sesion, fuente));
}

void clsPruebasFoto::fAZoomChosenWhileTheFrameChangesGetsItsPixels()
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", m_strGrande);
    clsSesion sesion(arbol);
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

void clsPruebasFoto::fOrientationIsAppliedToPictureAndSize()
{
    struct clsCaso {
        int intOrientacion;
        QSize tam;
        Qt::GlobalColor lstEsquinas[4]; ///< top left, top right, bottom left, bottom right
    };
    const clsCaso lstCasos[] = {
        {0, {160, 100}, {Qt::red, Qt::green, Qt::blue, Qt::yellow}},
        {1, {160, 100}, {Qt::red, Qt::green, Qt::blue, Qt::yellow}},
        {2, {160, 100}, {Qt::green, Qt::red, Qt::yellow, Qt::blue}},
        {3, {160, 100}, {Qt::yellow, Qt::blue, Qt::green, Qt::red}},
        {6, {100, 160}, {Qt::blue, Qt::red, Qt::yellow, Qt::green}},
        {8, {100, 160}, {Qt::green, Qt::yellow, Qt::red, Qt::blue}},
        {9, {160, 100}, {Qt::red, Qt::green, Qt::blue, Qt::yellow}}, // no such value
    };
    const clsArbol arbol;
    for (const clsCaso &caso : lstCasos) {
        const std::string strNombre = std::to_string(caso.intOrientacion) + ".jpg";
        arbol.fCrear(strNombre, fJpeg(fCuartos({160, 100}), caso.intOrientacion),
                     clsArbol::lngMomento + caso.intOrientacion);
    }
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    int lngPos = 0;
    for (const clsCaso &caso : lstCasos) {
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

void clsPruebasFoto::fAHundredMegapixelsFit()
{
    const clsArbol arbol;
    QImage enorme(10000, 10000, QImage::Format_Grayscale8);
    enorme.fill(0x60);
    arbol.fCrear("a.jpg", m_strCuartos, fMomento("2001-01-01 00:00:00"));
    arbol.fCrear("b.jpg", fJpeg(enorme), fMomento("2002-01-01 00:00:00"));
    enorme = {};
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fTecla(Qt::Key_J);
    sesion.fTecla(Qt::Key_F12);
    QTRY_COMPARE_WITH_TIMEOUT(sesion.fPosicion(), 1, 30000);
    const QSize recuadro = sesion.fControl("frmRecuadro")->size();
    const int intLado = std::min(recuadro.width(), recuadro.height());
    QCOMPARE(sesion.fControl("imgFoto")->size(), QSize(intLado, intLado));
    const QImage imagen = sesion.fRecuadro();
    QVERIFY(fParecidos(imagen.pixelColor(imagen.rect().center()), QColor(0x60, 0x60, 0x60)));
    sesion.fElegirEntrada("mnuFotoValor0");
    const double dblRazon = sesion.ventana->devicePixelRatioF();
    QCOMPARE(sesion.fControl("imgFoto")->width(), static_cast<int>(40000 / dblRazon));
    const QImage ampliada = sesion.fRecuadro();
    QVERIFY(fParecidos(ampliada.pixelColor(ampliada.rect().center()), QColor(0x60, 0x60, 0x60)));
}

void clsPruebasFoto::fDraggingMovesInSteps()
{
    struct clsPaso {
        QPoint donde;  ///< pointer, counted from where it was pressed
        QPoint movida; ///< what the picture moves by
        const char *strFrase;
    };
    constexpr int intPaso = 480 / 15;
    const clsPaso lstPasos[] = {
        {{12, 0}, {0, 0}, "180 twips lie in the dead zone"},
        {{13, 0}, {intPaso, 0}, "195 do not: right"},
        {{14, 0}, {intPaso, 0}, "every further move is a step"},
        {{12, -12}, {0, 0}, "back in the dead zone"},
        {{0, -13}, {0, -intPaso}, "up"},
        {{-13, 13}, {-intPaso, intPaso}, "both at once"},
        {{-200, 13}, {-intPaso, intPaso}, "the distance does not count"},
        {{-200, 12}, {-intPaso, 0}, "left alone"},
        {{0, 0}, {0, 0}, "where it was pressed"},
    };
    const clsArbol arbol;
    arbol.fCrear("a.jpg", m_strGrande);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    QWidget *const foto = sesion.fControl("imgFoto");
    QWidget *const recuadro = sesion.fControl("frmRecuadro");
    const QPoint centro = recuadro->rect().center();
    sesion.fMoverRaton(recuadro, centro + QPoint(50, 0)); // no button: nothing
    const QPoint antes = foto->pos();
    sesion.fPulsar(recuadro, centro);
    QCOMPARE(foto->pos(), antes);
    QCOMPARE(foto->cursor().shape(), Qt::ClosedHandCursor);
    for (const clsPaso &paso : lstPasos) {
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
}

void clsPruebasFoto::fDraggingEndsAtTheEdges()
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", m_strGrande);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    QWidget *const foto = sesion.fControl("imgFoto");
    QWidget *const recuadro = sesion.fControl("frmRecuadro");
    const QPoint centro = recuadro->rect().center();
    sesion.fPulsar(recuadro, centro);
    for (int intVez = 0; intVez < 80; ++intVez) {
        sesion.fMoverRaton(recuadro, centro + QPoint(20 + intVez % 2, 20));
    }
    QCOMPARE(foto->pos(), QPoint(0, 0));
    for (int intVez = 0; intVez < 160; ++intVez) {
        sesion.fMoverRaton(recuadro, centro - QPoint(20 + intVez % 2, 20));
    }
    QCOMPARE(foto->geometry().bottomRight(), recuadro->rect().bottomRight());
    sesion.fSoltar(recuadro, centro - QPoint(21, 20));
}

void clsPruebasFoto::fASmallPictureIsNotDragged()
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", m_strDibujo, fMomento("2001-01-01 00:00:00"));
    arbol.fCrear("b.jpg", fJpeg(fCuartos({40, 3000})), fMomento("2002-01-01 00:00:00"));
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    QWidget *const foto = sesion.fControl("imgFoto");
    QWidget *const recuadro = sesion.fControl("frmRecuadro");
    const QPoint centro = recuadro->rect().center();
    for (const QPoint &movida : {QPoint(0, 0), QPoint(0, 32)}) {
        const QPoint antes = foto->pos();
        sesion.fPulsar(recuadro, centro);
        sesion.fMoverRaton(recuadro, centro + QPoint(40, 40));
        sesion.fSoltar(recuadro, centro + QPoint(40, 40));
        QCOMPARE(foto->pos(), antes + movida); // only where it is larger than the frame
        QCOMPARE(foto->cursor().shape(), movida.isNull() ? Qt::ArrowCursor : Qt::OpenHandCursor);
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 1);
    }
}

void clsPruebasFoto::fTheRightButtonOpensTheMenuEverywhere()
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", m_strCuartos);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    auto *const menu = sesion.fControl<QMenu>("mnuFoto");
    QWidget *const recuadro = sesion.fControl("frmRecuadro");
    struct clsCaso {
        QWidget *control;
        QPoint punto;
    };
    const clsCaso lstCasos[] = {
        {recuadro, recuadro->rect().center()},  // the picture
        {recuadro, {5, 5}},                     // beside it
        {sesion.fControl("lblFondo"), {10, 1}}, // beside the frame
    };
    for (const clsCaso &caso : lstCasos) {
        sesion.fClic(caso.control, caso.punto, Qt::RightButton);
        QTRY_VERIFY(menu->isVisible());
        menu->close();
        QTRY_VERIFY(!menu->isVisible());
        sesion.fClic(caso.control, caso.punto, Qt::LeftButton);
        QVERIFY(!menu->isVisible());
    }
    QCOMPARE(sesion.fTamFoto(), QSize(160, 100));
}

void clsPruebasFoto::fALargeNeighbourIsNotDecodedSmallerThanItIsShown()
{
    const QSize tam(7000, 5000); // 140 MB of pixels
    clsPedido pedido{"", {}, 100, lngMaximoFoto, false};
    QCOMPARE(fOctavos(tam, pedido), 8);
    pedido.lngMaximo = clsAlmacenFotos::lngMaximoVecina;
    pedido.bolVecina = true;
    QCOMPARE(fOctavos(tam, pedido), 0);
    pedido.intZoom = 50;
    QCOMPARE(fOctavos(tam, pedido), 4);
}

static const clsTema tema{"foto", fCorrer<clsPruebasFoto>};

#include "foto_test.moc"
