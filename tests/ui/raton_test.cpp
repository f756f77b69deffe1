// What the mouse does on picture and page: the wheel, double clicks, the whole screen.
#include "sesion.h"

#include <QAction>
#include <QMenuBar>

class clsPruebasRaton : public clsPruebasSesion {
    Q_OBJECT
private slots:
    void fTheWheelStepsAndEnlarges()
    {
        const struct {
            const char *strFrase;
            int intGiro;
            Qt::KeyboardModifiers mayus;
            int lngPosicion; ///< afterwards
            int intAncho;    ///< of the picture
        } lstPasos[] = {
            {"on", -120, {}, 1, 80},
            {"a touchpad", -40, {}, 1, 80},
            {"more of it", -40, {}, 1, 80},
            {"a notch at last, to a film", -40, {}, 2, 640},
            {"back", 120, {}, 1, 80},
            {"to the first", 120, {}, 0, 120},
            {"nothing lies before it", 120, {}, 0, 120},
            {"larger", 120, Qt::ControlModifier, 0, 240},
            {"smaller", -120, Qt::ControlModifier, 0, 120},
            {"smaller still", -120, Qt::ControlModifier, 0, 60},
        };
        for (const auto &paso : lstPasos) {
            m_sesion->fGirar(m_sesion->fControl("lblFondo"), paso.intGiro, paso.mayus);
            const auto fLlegada = [&] {
                return m_sesion->fPosicion() == paso.lngPosicion &&
                       m_sesion->fTamFoto().width() == paso.intAncho;
            };
            QVERIFY2(QTest::qWaitFor(fLlegada), paso.strFrase);
        }
        // Beside the panel it belongs to what lies there.
        m_sesion->fGirar(m_sesion->fLista(), -120);
        m_sesion->fGirar(m_sesion->fControl("toolBar"), -120);
        QCOMPARE(m_sesion->fPosicion(), 0);
        m_sesion->fTecla(Qt::Key_M);
        QTRY_VERIFY(m_sesion->fControl("cmdMini3")->isVisible());
        m_sesion->fGirar(m_sesion->fControl("cmdMini1"), -120, Qt::ControlModifier);
        QTRY_VERIFY(m_sesion->fControl<QAction>("mnuOpcionesThump1")->isChecked());
    }

    void fADoubleClickOpensTheFile()
    {
        const clsAbridor abridor;
        const auto fAbrir = [&](const char *strControl, Qt::MouseButton boton,
                                Qt::KeyboardModifiers mayus = {}) {
            QWidget *const control = m_sesion->fControl(strControl);
            QWindow *const ventana = m_sesion->ventana->windowHandle();
            const QPoint punto = control->mapTo(m_sesion->ventana.get(), control->rect().center());
            QTest::mouseClick(ventana, boton, mayus, punto);
            QTest::mouseDClick(ventana, boton, mayus, punto);
        };
        const std::string strPlaya = '<' + m_arbol->fRuta("2008/playa.jpg") + '>';
        const std::string strBoda = '<' + m_arbol->fRuta("2009/boda.JPG") + '>';
        fAbrir("imgFoto", Qt::LeftButton);
        QTRY_COMPARE(abridor.fAbierto(), strPlaya);
        fAbrir("frmRecuadro", Qt::MiddleButton); // the whole screen and back
        m_sesion->fTecla(Qt::Key_M);
        QTRY_VERIFY(m_sesion->fControl("cmdMini3")->isVisible());
        fAbrir("cmdMini1", Qt::LeftButton);
        QTRY_COMPARE(abridor.fAbierto(), strPlaya + strBoda);
        QCOMPARE(m_sesion->fPosicion(), 1); // the first click does what it does
        fAbrir("cmdMini3", Qt::LeftButton, Qt::ShiftModifier);
        QTRY_COMPARE(m_sesion->fPosicion(), 3);
        QCOMPARE(abridor.fAbierto(), strPlaya + strBoda);
    }

    void fThePanelTakesTheWholeScreen()
    {
        const QWidget *const fondo = m_sesion->fControl("lblFondo");
        const QWidget *const cliente = m_sesion->fControl("frmMainCliente");
        const QRect antes = fondo->geometry();
        const auto fCompleta = [&] {
            return m_sesion->ventana->isFullScreen() && fondo->geometry() == cliente->rect() &&
                   cliente->size() == m_sesion->ventana->size() &&
                   cliente->childAt(2, 2)->objectName() != QLatin1String("toolBar") &&
                   m_sesion->fTamFoto() == QSize(120, 80);
        };
        const auto fNormal = [&] {
            return !m_sesion->ventana->isFullScreen() && fondo->geometry() == antes &&
                   m_sesion->ventana->menuBar()->height() > 0 &&
                   m_sesion->fTamFoto() == QSize(120, 80);
        };
        const auto fMedio = [&] {
            m_sesion->fClic(m_sesion->fControl("imgFoto"), {20, 20}, Qt::MiddleButton);
        };
        m_sesion->fTecla(Qt::Key_Less);
        QVERIFY(m_sesion->fControl<QAction>("mnuAVance")->isVisible());
        fMedio();
        QTRY_VERIFY(fCompleta());
        QVERIFY(m_sesion->fControl<QAction>("mnuMasCompleta")->isChecked());
        fMedio();
        QTRY_VERIFY(fNormal());
        m_sesion->fTecla(Qt::Key_F9);
        QTRY_VERIFY(fCompleta());
        m_sesion->fTecla(Qt::Key_Escape); // leaves it first
        QTRY_VERIFY(fNormal());
        QVERIFY(m_sesion->fControl<QAction>("mnuAVance")->isVisible());
        m_sesion->fTecla(Qt::Key_Escape);
        QVERIFY(!m_sesion->fControl<QAction>("mnuAVance")->isVisible());
        m_sesion->fTecla(Qt::Key_F9);
        QTRY_VERIFY(fCompleta());
        m_sesion->fTecla(Qt::Key_M);
        QTRY_VERIFY(m_sesion->fControl("cmdMini0")->isVisible());
        QVERIFY(cliente->childAt(m_sesion->fControl("cmdMini0")->geometry().center()) ==
                m_sesion->fControl("cmdMini0"));
        m_sesion->fTecla(Qt::Key_F9); // its key works with the menu bar out of sight
        QTRY_VERIFY(!m_sesion->ventana->isFullScreen());
    }
};

static const clsTema temaRaton{"raton", fCorrer<clsPruebasRaton>};

#include "raton_test.moc"
