// The main window: layout, splitter, menus, toolbar, names of the controls, boxes.
#include "sesion.h"

#include "app/mensajes_qt.h"

#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

namespace {

/// Counts how often the program resized a control, hid it and so on.
class clsContador : public QObject {
public:
    clsContador(QObject *objeto, QEvent::Type tipo) : m_tipo(tipo)
    {
        objeto->installEventFilter(this);
    }
    int intVeces = 0;

protected:
    bool eventFilter(QObject *, QEvent *evento) override
    {
        intVeces += evento->type() == m_tipo && !evento->spontaneous() ? 1 : 0;
        return false;
    }

private:
    QEvent::Type m_tipo;
};

/// One line per entry: name, caption, "off" when it cannot be chosen; "-" for a separator.
QStringList fEntradas(const QMenu &menu)
{
    QStringList lstEntradas;
    for (const QAction *const accion : menu.actions()) {
        lstEntradas.push_back(accion->isSeparator()
                                  ? QStringLiteral("-")
                                  : accion->objectName() + QLatin1Char('|') + accion->text() +
                                        (accion->isEnabled() ? "" : "|off"));
    }
    return lstEntradas;
}

} // namespace

class clsPruebasVentana : public QObject {
    Q_OBJECT
private slots:
    void init();
    void fControlsStandSideBySide();
    void fABurstOfResizesGivesOneLayout();
    void fAResizeThatIsTakenBackLeavesTheControlsInPlace();
    void fMinimisingAndRestoringLayNothingOut();
    void fATinyWindowDoesNoHarm();
    void fTheSplitterSetsThePanelWidth();
    void fAClickOnTheSplitterChangesNothing();
    void fAStoredWidthBeyondTheWindowIsOnlyLimitedInPlace();
    void fTheInformationEndsWhereItCanBeSeen();
    void fMenusHaveTheirEntriesInOrder();
    void fTheToolbarHasItsButtons();
    void fEveryControlHasANameForScreenReaders();
    void fBoxesAreSpanishAndNoIsTheDefault();

private:
    std::unique_ptr<clsArbol> m_arbol;
};

void clsPruebasVentana::init()
{
    m_arbol = std::make_unique<clsArbol>();
    fLlenarArbol(*m_arbol);
}

void clsPruebasVentana::fControlsStandSideBySide()
{
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    QVERIFY(sesion.fTamano(900, 600));
    const QRect cliente = sesion.fControl("frmMainCliente")->rect();
    const QRect lista = sesion.fLista()->geometry();
    const QRect fondo = sesion.fControl("lblFondo")->geometry();
    const QRect divisor = sesion.fControl("cmdAncho")->geometry();
    QCOMPARE(lista.left(), 0);
    QCOMPARE(lista.width(), 200); // 3000 twips
    QCOMPARE(fondo.left(), 200);
    QCOMPARE(fondo.right(), cliente.right());
    QCOMPARE(fondo.bottom(), cliente.bottom());
    QCOMPARE(lista.bottom(), cliente.bottom());
    QCOMPARE(fondo.top(), lista.top());
    QCOMPARE(divisor.left(), 199);
    QCOMPARE(divisor.bottom(), cliente.bottom());
    QCOMPARE(sesion.fControl("frmRecuadro")->geometry(), fondo.adjusted(4, 4, -4, -4));
    QCOMPARE(sesion.fControl("txtInfo3")->geometry().right(), cliente.right());
    QCOMPARE(sesion.fTexto("txtInfo3"), QString("CONFLICTO FECHAS"));
    for (const char *const strCaja : {"txtInfo1", "txtInfo2"}) {
        QVERIFY(sesion.fControl<QLineEdit>(strCaja)->isReadOnly());
        QVERIFY(sesion.fControl(strCaja)->geometry().bottom() < fondo.top());
    }
    QVERIFY(sesion.fControl("txtInfo2")->width() >=
            QGuiApplication::primaryScreen()->size().width());
}

void clsPruebasVentana::fABurstOfResizesGivesOneLayout()
{
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    sesion.ventana->showNormal();
    const clsContador contador(sesion.fControl("frmRecuadro"), QEvent::Resize);
    for (int intPaso = 1; intPaso <= 10; ++intPaso) {
        sesion.ventana->resize(600 + 10 * intPaso, 500 + 5 * intPaso);
        QCoreApplication::processEvents();
    }
    QCOMPARE(contador.intVeces, 0);
    QVERIFY(sesion.fTamano(700, 550));
    QCOMPARE(contador.intVeces, 1);
    QTRY_VERIFY(sesion.fControl("imgFoto")->isVisible());
    QCOMPARE(sesion.fTamFoto(), QSize(120, 80));
    QCOMPARE(sesion.fPosicion(), 0);
}

void clsPruebasVentana::fAResizeThatIsTakenBackLeavesTheControlsInPlace()
{
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    QVERIFY(sesion.fTamano(700, 550));
    const QRect lista = sesion.fLista()->geometry();
    const QRect fondo = sesion.fControl("lblFondo")->geometry();
    sesion.ventana->resize(700, 300);
    QCoreApplication::processEvents();
    QVERIFY(sesion.fLista()->height() < lista.height()); // heights follow at once
    sesion.ventana->resize(700, 550);
    QTRY_COMPARE(sesion.fLista()->geometry(), lista);
    QTRY_COMPARE(sesion.fControl("lblFondo")->geometry(), fondo);
}

void clsPruebasVentana::fMinimisingAndRestoringLayNothingOut()
{
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    QVERIFY(sesion.fTamano(700, 550));
    QTRY_VERIFY(sesion.fControl("imgFoto")->isVisible());
    const clsContador contador(sesion.fControl("imgFoto"), QEvent::Hide);
    sesion.ventana->setWindowState(Qt::WindowMinimized);
    QTRY_VERIFY(sesion.ventana->isMinimized());
    sesion.ventana->setWindowState(Qt::WindowNoState);
    QTRY_VERIFY(!sesion.ventana->isMinimized());
    QCOMPARE(sesion.ventana->size(), QSize(700, 550));
    // What follows shows that a layout would have been counted.
    QVERIFY(sesion.fTamano(720, 560));
    QTRY_VERIFY(sesion.fControl("imgFoto")->isVisible());
    QCOMPARE(contador.intVeces, 1);
}

void clsPruebasVentana::fATinyWindowDoesNoHarm()
{
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    QWidget *const recuadro = sesion.fControl("frmRecuadro");
    sesion.ventana->showNormal();
    sesion.ventana->setMinimumSize(1, 1);
    sesion.ventana->resize(60, 60);
    QTRY_COMPARE(recuadro->width(), 0);
    QCOMPARE(recuadro->height(), 0);
    for (const Qt::Key tecla : {Qt::Key_F12, Qt::Key_J, Qt::Key_F12, Qt::Key_F11}) {
        sesion.fTecla(tecla);
    }
    sesion.fElegirEntrada("mnuFotoValor0");
    QTRY_COMPARE(sesion.fPosicion(), 1);
    QVERIFY(!sesion.ventana->grab().isNull());
    QVERIFY(sesion.fTamano(700, 500));
    QTRY_COMPARE(sesion.fTamFoto(), QSize(320, 480)); // 80 x 120 at 400 %
    QCOMPARE(sesion.fAjuste("ANCHO"), std::string("3000"));
}

void clsPruebasVentana::fTheSplitterSetsThePanelWidth()
{
    struct clsCaso {
        int intX;     ///< where it is dropped, client pixels
        int intAncho; ///< of the list afterwards, pixels
        const char *strFrase;
    };
    const int intVentana = 700;
    const int intTope = (intVentana * 15 - (2000 + 480)) / 15;
    const clsCaso lstCasos[] = {
        {400, 400, "to the right"},
        {120, 120, "to the left, over the list"},
        {-30, 0, "beyond the left edge"},
        {250, 250, "back from the edge"},
        {690, intTope, "room for one thumbnail stays"},
        {850, intTope, "beyond the right edge, already there"},
        {300, 300, "back again"},
        {intTope - 1, intTope - 1, "just before the reserve"},
    };
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    QVERIFY(sesion.fTamano(intVentana, 500));
    QWidget *const cliente = sesion.fControl("frmMainCliente");
    QWidget *const divisor = sesion.fControl("cmdAncho");
    sesion.fTecla(Qt::Key_J);
    for (const clsCaso &caso : lstCasos) {
        const QPoint desde(divisor->geometry().center());
        sesion.fPulsar(cliente, desde);
        sesion.fMoverRaton(cliente, {(desde.x() + caso.intX) / 2, desde.y() + 20});
        sesion.fMoverRaton(cliente, {caso.intX, desde.y() + 20});
        sesion.fSoltar(cliente, {caso.intX, desde.y() + 20});
        QVERIFY2(QTest::qWaitFor([&] { return sesion.fLista()->width() == caso.intAncho; }),
                 caso.strFrase);
        // Rounded down to whole pixels on the screen, to the twip in the settings.
        const int lngAncho = std::stoi(sesion.fAjuste("ANCHO"));
        QVERIFY2(lngAncho / 15 == caso.intAncho, caso.strFrase);
        QVERIFY2(intVentana * 15 - lngAncho >= 2480, caso.strFrase);
        QCOMPARE(sesion.fControl("lblFondo")->x(), caso.intAncho);
        // It has drawn, too: fit follows the frame.
        const QSize foto = sesion.fControl("imgFoto")->size();
        const QSize recuadro = sesion.fControl("frmRecuadro")->size();
        QVERIFY2(foto.width() == recuadro.width() || foto.height() == recuadro.height(),
                 caso.strFrase);
        QVERIFY(sesion.fControl("imgFoto")->isVisible());
    }
    // The right button drags nothing.
    QTest::mousePress(sesion.ventana->windowHandle(), Qt::RightButton, {},
                      divisor->mapTo(sesion.ventana.get(), QPoint(2, 100)));
    sesion.fMoverRaton(cliente, {300, 200});
    QTest::mouseRelease(sesion.ventana->windowHandle(), Qt::RightButton, {},
                        cliente->mapTo(sesion.ventana.get(), QPoint(300, 200)));
    QCOMPARE(sesion.fLista()->width(), intTope - 1);
}

void clsPruebasVentana::fAClickOnTheSplitterChangesNothing()
{
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    const clsContador contador(sesion.fControl("imgFoto"), QEvent::Hide);
    QWidget *const divisor = sesion.fControl("cmdAncho");
    for (const QPoint &punto : {QPoint(0, 50), QPoint(4, 200), QPoint(2, 10)}) {
        sesion.fClic(divisor, punto);
    }
    QCOMPARE(sesion.fLista()->width(), 200);
    QCOMPARE(sesion.fAjuste("ANCHO"), std::string("3000"));
    QCOMPARE(contador.intVeces, 0);
}

void clsPruebasVentana::fAStoredWidthBeyondTheWindowIsOnlyLimitedInPlace()
{
    m_arbol->fCrear("Miravel.ini", "[GENERAL]\r\nANCHO=60000\r\n");
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    QVERIFY(sesion.fTamano(700, 500));
    QCOMPARE(sesion.fLista()->width(), 700);
    QCOMPARE(sesion.fControl("frmRecuadro")->width(), 0);
    QCOMPARE(sesion.fAjuste("ANCHO"), std::string("60000"));
    sesion.fTecla(Qt::Key_F12);
    QTRY_COMPARE(sesion.fPosicion(), 1);
}

void clsPruebasVentana::fTheInformationEndsWhereItCanBeSeen()
{
    m_arbol->fCrear("2009/20090301.mov", "no film", fMomento("2009-03-01 12:00:00")); // right date
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    auto *const caja = sesion.fControl<QLineEdit>("txtInfo2");
    const QWidget *const aviso = sesion.fControl("txtInfo3");
    int intAvisos = 0;
    for (const int intAncho : {500, 900}) {
        QVERIFY(sesion.fTamano(intAncho, 600));
        for (int lngFila = 0; lngFila < 4; ++lngFila) {
            sesion.fTecla(Qt::Key_F12);
            intAvisos += aviso->isVisible() ? 1 : 0;
            const int intFin = aviso->isVisible() ? aviso->x() : intAncho;
            QCOMPARE(caja->geometry().right() + 1 - caja->textMargins().right(), intFin);
        }
    }
    QVERIFY(intAvisos > 0 && intAvisos < 8);
    // Of a text that is too long the end is shown: the same end is the same picture.
    const QRect cola(caja->width() - caja->textMargins().right() - 100, 0, 100, caja->height());
    QString strFin = QString(150, QLatin1Char('x')) + QStringLiteral(" Tamaño: 416 KB");
    caja->setText(QString(200, QLatin1Char('a')) + strFin);
    const QImage imagen = caja->grab(cola).toImage();
    caja->setText(QString(300, QLatin1Char('b')) + strFin);
    QCOMPARE(caja->grab(cola).toImage(), imagen);
    strFin.back() = QLatin1Char('M');
    caja->setText(QString(300, QLatin1Char('b')) + strFin);
    QVERIFY(caja->grab(cola).toImage() != imagen);
}

void clsPruebasVentana::fMenusHaveTheirEntriesInOrder()
{
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    QStringList lstBarra;
    for (const QAction *const accion : sesion.ventana->menuBar()->actions()) {
        lstBarra.push_back(accion->text() + (accion->isVisible() ? "" : "|hidden"));
    }
    QCOMPARE(lstBarra, QStringList({"Baúl (0)", "Opciones", "Ayuda", "[avance]|hidden"}));
    QVERIFY(sesion.fControl<QAction>("mnuAVance") != nullptr);
    struct clsCaso {
        const char *strMenu;
        QStringList lstEntradas;
    };
    const clsCaso lstCasos[] = {
        {"mnuBaul", {"mnuBaulAñadir|Añadir", "mnuBaulVaciar|Vacíar|off", "mnuBaulAbrir|Mostrar"}},
        {"mnuOpciones",
         {"mnuAbrirCarpetaContenedora|Abrir carpeta contenedora",
          "mnuOpcionesCopiar|Copiar a ...",
          "mnuOpcionesTotal|Mostrar Total",
          "mnuOpcionesActualizar|Actualizar lista de archivos",
          "-",
          "mnuOpcionesFiltrar|Filtrar",
          "mnuOpcionesQuitarFiltro|Quitar Filtro|off",
          "-",
          "mnuOpcionesFotosVideos0|Mostrar solo Fotos",
          "mnuOpcionesFotosVideos1|Mostrar solo Vídeos",
          "mnuOpcionesFotosVideos2|Mostrar Fotos y Vídeos",
          "-",
          "mnuOpcionesThump0|Thumbnail Pequeño",
          "mnuOpcionesThump1|Thumbnail Medio",
          "mnuOpcionesThump2|Thumbnail Grande",
          "-",
          "mnuSeleccion0|Seleccionar Todo",
          "mnuSeleccion1|Seleccionar Pantalla",
          "mnuSeleccion2|Deseleccionar Todo",
          "mnuSeleccion3|Invertir Seleccion"}},
        {"mnuAyuda", {"mnuAyudaAyuda|Ayuda", "mnuAyudaAcerca|Acerca de ..."}},
        {"mnuFoto",
         {"mnuFotoMiniaturas|Miniaturas", "mnuFotoAjustar|Ajustar", "-", "mnuFotoValor0|400%",
          "mnuFotoValor1|200%", "mnuFotoValor2|100%", "mnuFotoValor3|50%", "mnuFotoValor4|25%",
          "mnuFotoValor5|12%"}},
    };
    for (const clsCaso &caso : lstCasos) {
        const auto *const menu = sesion.fControl<QMenu>(caso.strMenu);
        QVERIFY2(menu != nullptr, caso.strMenu);
        QCOMPARE(fEntradas(*menu), caso.lstEntradas);
    }
    QVERIFY(sesion.fControl<QAction>("mnuOpcionesThump2")->isChecked());
    QCOMPARE(sesion.fControl<QAction>("mnuOpcionesActualizar")->shortcut(),
             QKeySequence(Qt::Key_F5));
    QCOMPARE(sesion.fControl<QAction>("mnuAyudaAyuda")->shortcut(), QKeySequence(Qt::Key_F1));
}

void clsPruebasVentana::fTheToolbarHasItsButtons()
{
    struct clsCaso {
        const char *strNombre;
        QString strTexto;
    };
    const clsCaso lstCasos[] = {
        {"toolBar1", "ThumbNail"},
        {"toolBar3", "Primera"},
        {"toolBar4", "Anterior"},
        {"toolBar5", "Siguiente"},
        {"toolBar6", "Ultima"},
        {"toolBar8", "Información EXIF"},
        {"toolBar10", "Teclas de acceso rápido."},
    };
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    int intX = -1;
    for (const clsCaso &caso : lstCasos) {
        const auto *const boton = sesion.fControl<QToolButton>(caso.strNombre);
        QVERIFY2(boton != nullptr, caso.strNombre);
        QCOMPARE(boton->toolTip(), caso.strTexto);
        QVERIFY2(boton->isEnabled(), caso.strNombre);
        QVERIFY2(!boton->icon().isNull() && boton->focusPolicy() == Qt::NoFocus, caso.strNombre);
        QVERIFY2(boton->x() > intX, caso.strNombre);
        intX = boton->x();
    }
    const auto lstTeclas = sesion.fControl<QMenu>("mnuTeclas")->actions();
    QCOMPARE(lstTeclas.size(), 22);
    QCOMPARE(lstTeclas[0]->text(), QString("[A]: Añadir al Baúl."));
    QCOMPARE(lstTeclas[14]->text(), QString("Shit + [F11]: Ir al final."));
    QCOMPARE(lstTeclas[21]->text(), QString("[E]: Buscar la primera fecha incorrecta."));
    lstTeclas[11]->trigger(); // choosing one does nothing
    QCOMPARE(sesion.fPosicion(), 0);
}

void clsPruebasVentana::fEveryControlHasANameForScreenReaders()
{
    clsSesion sesion(*m_arbol);
    QVERIFY(sesion.fAbrir());
    QCOMPARE(sesion.ventana->objectName(), QString("frmMain"));
    for (const char *const strNombre :
         {"lstFotos", "lblFondo", "frmRecuadro", "imgFoto", "cmdAncho", "toolBar", "toolBar1",
          "toolBar3", "toolBar4", "toolBar5", "toolBar6", "toolBar8", "toolBar10", "txtInfo1",
          "txtInfo2", "txtInfo3"}) {
        QWidget *const control = sesion.fControl(strNombre);
        QVERIFY2(control != nullptr, strNombre);
        QAccessibleInterface *const lector = QAccessible::queryAccessibleInterface(control);
        QVERIFY2(lector != nullptr && !lector->text(QAccessible::Name).isEmpty(), strNombre);
    }
    // No control of ours lacks a name; Qt's own parts do not count.
    for (const QWidget *const control :
         sesion.fControl("frmMainCliente")
             ->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        QVERIFY2(!control->objectName().isEmpty() || control->inherits("QRubberBand"),
                 control->metaObject()->className());
    }
}

void clsPruebasVentana::fBoxesAreSpanishAndNoIsTheDefault()
{
    QCOMPARE(
        QCoreApplication::translate("QAbstractFileIconProvider", "Folder", "All other platforms"),
        QString("Carpeta"));
    QCOMPARE(QCoreApplication::translate("QFileDialog", "Look in:"), QString("Ver en:"));
    clsMensajesQt mensajes;
    const auto fCaja = [](const std::function<void(QMessageBox &)> &fHacer) {
        QTimer::singleShot(0, qApp, [fHacer] {
            auto *const caja = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(caja != nullptr);
            QCOMPARE(caja->windowTitle(), QString("Miravel"));
            QCOMPARE(caja->textFormat(), Qt::PlainText);
            fHacer(*caja);
        });
    };
    QApplication::setOverrideCursor(Qt::WaitCursor);
    fCaja([](QMessageBox &caja) {
        QCOMPARE(caja.icon(), QMessageBox::Warning);
        QCOMPARE(caja.text(), QString("<b>dos</b>\r\nlíneas"));
        QCOMPARE(caja.buttons().size(), 1);
        QCOMPARE(caja.buttons()[0]->text(), QString("Aceptar"));
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QTest::keyClick(&caja, Qt::Key_Escape);
    });
    mensajes.fAviso(Icono::Problema, "<b>dos</b>\r\nlíneas");
    QVERIFY(QApplication::overrideCursor() != nullptr);
    QApplication::restoreOverrideCursor();
    struct clsCaso {
        const char *strBoton; ///< nullptr: a key instead
        Qt::Key tecla;
        bool bolSi;
    };
    const clsCaso lstCasos[] = {
        {nullptr, Qt::Key_Return, false}, // the default
        {nullptr, Qt::Key_Escape, false},
        {"No", {}, false},
        {"Sí", {}, true},
    };
    for (const clsCaso &caso : lstCasos) {
        fCaja([caso](QMessageBox &caja) {
            QCOMPARE(caja.icon(), QMessageBox::Question);
            QCOMPARE(caja.buttons().size(), 2);
            if (caso.strBoton == nullptr) {
                QTest::keyClick(&caja, caso.tecla);
                return;
            }
            for (QAbstractButton *const boton : caja.buttons()) {
                if (boton->text() == QString::fromUtf8(caso.strBoton)) {
                    boton->click();
                }
            }
        });
        QCOMPARE(mensajes.fSiNo("¿Actualizar lista de archivos?"), caso.bolSi);
    }
}

static const clsTema tema{"ventana", fCorrer<clsPruebasVentana>};

#include "ventana_test.moc"
