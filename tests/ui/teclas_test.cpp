// Keys of the main window, pressed where the focus is.
#include "sesion.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QTableView>

namespace {

/// An archive of some pictures whose catalogue stands already.
void fLlenarConCatalogo(const clsArbol &arbol, int intCuantas)
{
    const std::string strFoto = fJpeg(fCuartos({60, 40}));
    std::string strCatalogo;
    for (int intFoto = 0; intFoto < intCuantas; ++intFoto) {
        const QString strNombre = QStringLiteral("f%1.jpg").arg(intFoto, 4, 10, QLatin1Char('0'));
        const std::string strRuta = strNombre.toStdString();
        arbol.fCrear(strRuta, strFoto);
        strCatalogo += fRegistro(arbol.fRuta(strRuta), "2010/01/01 00:00:00");
    }
    arbol.fCrear("Miravel.dat", strCatalogo);
}

} // namespace

class clsPruebasTeclas : public QObject {
    Q_OBJECT
private slots:
    void fStepsFollowTheScript()
    {
        const Qt::KeyboardModifiers ctrlMayus = Qt::ControlModifier | Qt::ShiftModifier;
        struct {
            Qt::Key tecla;
            Qt::KeyboardModifiers mayus;
            int lngPosicion; ///< afterwards
            const char *strFrase;
        } const lstPasos[] = {
            {Qt::Key_F11, {}, 0, "nothing lies before the first"},
            {Qt::Key_F12, {}, 1, "on"},
            {Qt::Key_F12, Qt::ShiftModifier, 5, "to the end"},
            {Qt::Key_F12, {}, 5, "nothing lies behind the last"},
            {Qt::Key_F11, ctrlMayus, 4, "Ctrl+Shift is not Shift: back"},
            {Qt::Key_F11, Qt::ControlModifier, 3, "Ctrl alone does not count"},
            {Qt::Key_F12, Qt::MetaModifier, 3, "the system's keys are no commands"},
            {Qt::Key_F11, Qt::ShiftModifier, 0, "to the beginning"},
        };
        const clsArbol arbol;
        fLlenarConCatalogo(arbol, 6);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        for (const auto &paso : lstPasos) {
            sesion.fTecla(paso.tecla, paso.mayus);
            QVERIFY2(QTest::qWaitFor([&] { return sesion.fPosicion() == paso.lngPosicion; }),
                     paso.strFrase);
            QCOMPARE(QString::fromStdString(sesion.fAjuste("SELEC")),
                     sesion.fCelda(paso.lngPosicion, 3) + sesion.fCelda(paso.lngPosicion, 0));
        }
        const std::pair<const char *, int> lstBotones[] = {
            {"toolBar5", 1}, {"toolBar6", 5}, {"toolBar4", 4}, {"toolBar3", 0}};
        for (const auto &[strBoton, lngPosicion] : lstBotones) {
            sesion.fClic(sesion.fControl(strBoton), {10, 10});
            QTRY_COMPARE(sesion.fPosicion(), lngPosicion);
        }
        QVERIFY(sesion.fLista()->hasFocus());
        QCOMPARE(sesion.mensajes.lstTextos, QStringList());
    }

    void fKeysOfCommandsAndLettersDoNotReachTheList()
    {
        const clsArbol arbol;
        fLlenarConCatalogo(arbol, 60);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 1);
        for (const Qt::Key tecla :
             {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
              Qt::Key_PageUp, Qt::Key_Insert, Qt::Key_Delete, Qt::Key_G, Qt::Key_Z, Qt::Key_0,
              Qt::Key_9, Qt::Key_Escape, Qt::Key_Less, Qt::Key_Greater}) {
            for (const Qt::KeyboardModifiers mayus :
                 {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
                sesion.fTecla(tecla, mayus);
                QVERIFY2(sesion.fPosicion() == 1, qPrintable(QKeySequence(tecla).toString()));
            }
        }
        QVERIFY(!sesion.fMarcada(1));
        QVERIFY(sesion.fLista()->hasFocus());
    }

    void fPageDownAndSpaceReachTheList()
    {
        const clsArbol arbol;
        fLlenarConCatalogo(arbol, 60);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        sesion.fTecla(Qt::Key_PageDown);
        QTRY_VERIFY(sesion.fPosicion() > 5);
        const int lngPos = sesion.fPosicion();
        QCOMPARE(QString::fromStdString(sesion.fAjuste("SELEC")),
                 sesion.fCelda(lngPos, 3) + sesion.fCelda(lngPos, 0));
        sesion.fTecla(Qt::Key_Space);
        QTRY_VERIFY(sesion.fMarcada(lngPos));
        QCOMPARE(sesion.fPosicion(), lngPos);
        sesion.fTecla(Qt::Key_Space);
        QTRY_VERIFY(!sesion.fMarcada(lngPos));
        for (int intVez = 0; intVez < 10; ++intVez) {
            sesion.fTecla(Qt::Key_PageDown);
        }
        QTRY_COMPARE(sesion.fPosicion(), 59);
        sesion.fTecla(Qt::Key_F11);
        QTRY_COMPARE(sesion.fPosicion(), 58);
    }

    void fAHeldKeyEndsAtATruePosition()
    {
        const clsArbol arbol;
        fLlenarConCatalogo(arbol, 40);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        for (const Qt::Key tecla : {Qt::Key_F12, Qt::Key_F11}) {
            for (int intVez = 0; intVez < 100; ++intVez) {
                for (const QEvent::Type tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
                    QCoreApplication::postEvent(
                        sesion.fLista(),
                        new QKeyEvent(tipo, tecla, Qt::NoModifier, QString(), true));
                }
            }
            QCoreApplication::processEvents();
            QVERIFY(sesion.fEsperarLista());
            QTRY_VERIFY(sesion.fPosicion() >= 0);
            QTRY_COMPARE(QString::fromStdString(sesion.fAjuste("SELEC")),
                         sesion.fCelda(sesion.fPosicion(), 3) +
                             sesion.fCelda(sesion.fPosicion(), 0));
            QCOMPARE(sesion.fTamFoto(), QSize(60, 40));
        }
        // Afterwards a single press is one step again.
        sesion.fTecla(Qt::Key_F11, Qt::ShiftModifier);
        QTRY_COMPARE(sesion.fPosicion(), 0);
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 1);
    }

    void fNoStepWaitsForAPictureThatHasArrived()
    {
        // The next picture is decoded ahead and can arrive at any moment of a step.
        const clsArbol arbol;
        fLlenarConCatalogo(arbol, 150);
        for (int intFoto = 0; intFoto < 150; intFoto += 3) {
            const QString strNombre =
                QStringLiteral("f%1.jpg").arg(intFoto, 4, 10, QLatin1Char('0'));
            arbol.fCrear(strNombre.toStdString(), fJpeg(fDibujo({300 + 3 * intFoto, 300})));
        }
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        for (int lngPos = 1; lngPos < 150; ++lngPos) {
            sesion.fTecla(Qt::Key_F12);
            QCOMPARE(sesion.fPosicion(), lngPos);
        }
    }

    void fKeysOfAnOpenMenuBelongToTheMenu()
    {
        const clsArbol arbol;
        fLlenarConCatalogo(arbol, 4);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        auto *const mnuFoto = sesion.fControl<QMenu>("mnuFoto");
        QWidget *const recuadro = sesion.fControl("frmRecuadro");
        sesion.fClic(recuadro, {3, 3}, Qt::RightButton);
        QTRY_VERIFY(mnuFoto->isVisible());
        // The first entry that is enabled is "Ajustar"; Enter here opens no file.
        QTest::keyClick(mnuFoto, Qt::Key_Down);
        QTest::keyClick(mnuFoto, Qt::Key_F12);
        QTest::keyClick(mnuFoto, Qt::Key_Return);
        QTRY_VERIFY(!mnuFoto->isVisible());
        QCOMPARE(sesion.fPosicion(), 0);
        QTRY_COMPARE(sesion.fControl("imgFoto")->width(), recuadro->width());
    }

    void fKeysAndMouseDuringABuildAreDropped()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        sesion.mensajes.lstRespuestas = {true};
        const QPointF punto(
            sesion.fLista()->visualRect(sesion.fLista()->model()->index(2, 1)).center());
        const clsCuando durante(
            [&] { return sesion.fConstruyendo(); },
            [&] {
                QVERIFY(QApplication::overrideCursor() != nullptr);
                for (const Qt::Key tecla :
                     {Qt::Key_F12, Qt::Key_Space, Qt::Key_PageDown, Qt::Key_F5}) {
                    QCoreApplication::postEvent(
                        sesion.fLista(), new QKeyEvent(QEvent::KeyPress, tecla, Qt::NoModifier));
                }
                QWidget *const filas = sesion.fLista()->viewport();
                for (const QEvent::Type tipo :
                     {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                    QCoreApplication::postEvent(
                        filas, new QMouseEvent(tipo, punto, filas->mapToGlobal(punto),
                                               Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
                }
                // Neither does a menu entry that is chosen in another way.
                sesion.fElegirEntrada("mnuOpcionesActualizar");
                sesion.fElegirEntrada("mnuOpcionesFotosVideos1");
                sesion.ventana->activateWindow();
            });
        sesion.fTecla(Qt::Key_F5);
        QTRY_VERIFY(durante.fHecho());
        QVERIFY(sesion.fEsperarLista());
        QCOMPARE(sesion.fPosicion(), 0);
        QVERIFY(!sesion.fMarcada(0));
        QCOMPARE(sesion.mensajes.lstTextos.count("¿Actualizar lista de archivos?"), 1);
        QCOMPARE(sesion.fNombres().size(), 4);
        QCOMPARE(sesion.fAjuste("FOTOVIDEO"), std::string("2"));
        QVERIFY(sesion.fControl<QAction>("mnuOpcionesFotosVideos2")->isChecked());
        QVERIFY(!sesion.fControl<QAction>("mnuOpcionesFotosVideos1")->isChecked());
        QVERIFY(sesion.fLista()->hasFocus());
    }
};

static const clsTema temaTeclas{"teclas", fCorrer<clsPruebasTeclas>};

#include "teclas_test.moc"
