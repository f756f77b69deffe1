// The main window: layout, splitter, menus, toolbar, names of the controls, boxes.
#include "sesion.h"

#include "app/mensajes_qt.h"

#include <QAction>
#include <QActionGroup>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSet>
#include <QTableView>
#include <QToolButton>

namespace {

/// One line per entry: name, caption, "off" when it cannot be chosen; "-" for a separator.
QStringList fEntradas(const QMenu &menu)
{
    QStringList lstEntradas;
    for (const QAction *const accion : menu.actions()) {
        lstEntradas.push_back(accion->isSeparator() ? QStringLiteral("-")
                                                    : accion->objectName() + QLatin1Char('|') +
                                                          accion->text().remove('&') +
                                                          (accion->isEnabled() ? "" : "|off"));
    }
    return lstEntradas;
}

} // namespace

class clsPruebasVentana : public clsPruebasSesion {
    Q_OBJECT
private slots:
    void fControlsStandSideBySide()
    {
        QVERIFY(m_sesion->fTamano(900, 600));
        const QRect cliente = m_sesion->fControl("frmMainCliente")->rect();
        const QRect lista = m_sesion->fLista()->geometry();
        const QRect fondo = m_sesion->fControl("lblFondo")->geometry();
        QCOMPARE(lista, QRect(0, lista.top(), 200, cliente.height() - lista.top())); // 3000 twips
        QCOMPARE(fondo, QRect(200, lista.top(), cliente.width() - 200, lista.height()));
        QCOMPARE(m_sesion->fControl("cmdAncho")->geometry().topLeft(), QPoint(199, lista.top()));
        QCOMPARE(m_sesion->fControl("frmRecuadro")->geometry(), fondo.adjusted(4, 4, -4, -4));
        QCOMPARE(m_sesion->fControl("txtInfo3")->geometry().right(), cliente.right());
        for (const char *const strCaja : {"txtInfo1", "txtInfo2"}) {
            QVERIFY(m_sesion->fControl<QLineEdit>(strCaja)->isReadOnly());
            QVERIFY(m_sesion->fControl(strCaja)->geometry().bottom() < fondo.top());
        }
    }

    void fABurstOfResizesGivesOneLayout()
    {
        m_sesion->ventana->showNormal();
        const clsContador contador(m_sesion->fControl("frmRecuadro"), QEvent::Resize);
        QElapsedTimer reloj;
        reloj.start();
        for (int intPaso = 1; intPaso <= 10; ++intPaso) {
            m_sesion->ventana->resize(600 + 10 * intPaso, 500 + 5 * intPaso);
            QCoreApplication::processEvents();
        }
        const auto intPausas = static_cast<int>(reloj.elapsed() / 150); // 0 but on a busy machine
        QVERIFY(contador.intVeces <= intPausas);
        QVERIFY(m_sesion->fTamano(700, 550));
        QVERIFY(contador.intVeces >= 1 && contador.intVeces <= intPausas + 1);
        QTRY_VERIFY(m_sesion->fControl("imgFoto")->isVisible());
        QCOMPARE(m_sesion->fTamFoto(), QSize(120, 80));
        QCOMPARE(m_sesion->fPosicion(), 0);
    }

    void fNothingIsLaidOutWhereTheSizeStays()
    {
        QVERIFY(m_sesion->fTamano(700, 550));
        QTRY_VERIFY(m_sesion->fControl("imgFoto")->isVisible());
        const QRect lista = m_sesion->fLista()->geometry();
        const QRect fondo = m_sesion->fControl("lblFondo")->geometry();
        const clsContador contador(m_sesion->fControl("imgFoto"), QEvent::Hide);
        m_sesion->ventana->resize(700, 300);
        QCoreApplication::processEvents();
        QVERIFY(m_sesion->fLista()->height() < lista.height()); // heights follow at once
        m_sesion->ventana->resize(700, 550);
        QCoreApplication::processEvents();
        bool bolDespues = false; // behind the program's timer of 150 ms
        QTimer::singleShot(200, this, [&] { bolDespues = true; });
        QTRY_VERIFY(bolDespues);
        QCOMPARE(m_sesion->fLista()->geometry(), lista);
        QCOMPARE(m_sesion->fControl("lblFondo")->geometry(), fondo);
        m_sesion->ventana->setWindowState(Qt::WindowMinimized);
        QTRY_VERIFY(m_sesion->ventana->isMinimized());
        m_sesion->ventana->setWindowState(Qt::WindowNoState);
        QTRY_VERIFY(!m_sesion->ventana->isMinimized());
        QCOMPARE(m_sesion->ventana->size(), QSize(700, 550));
        // What follows shows that a layout would have been counted.
        QVERIFY(m_sesion->fTamano(720, 560));
        QTRY_VERIFY(m_sesion->fControl("imgFoto")->isVisible());
        QCOMPARE(contador.intVeces, 1);
    }

    void fAWindowThatComesBackFitsTheSizeItHasNow()
    {
        frmMain *const ventana = m_sesion->ventana.get();
        for (const bool bolAntes :
             {true, false}) { // minimised before the pause is over, or long ago
            QVERIFY(m_sesion->fTamano(700, 550));
            if (bolAntes) {
                ventana->resize(760, 500);
                QCoreApplication::processEvents();
            }
            ventana->setWindowState(Qt::WindowMinimized);
            QTRY_VERIFY(ventana->isMinimized());
            if (!bolAntes) {
                ventana->resize(760, 500);
            }
            QTest::qWait(200); // behind the program's timer of 150 ms
            QVERIFY(m_sesion->fControl("lblFondo")->geometry().right() < 700);
            ventana->setWindowState(Qt::WindowNoState);
            QVERIFY(m_sesion->fEsperarDisposicion());
            QVERIFY(m_sesion->fControl("imgFoto")->isVisible());
            QCOMPARE(m_sesion->fControl("lblFondo")->geometry().right(), 759);
        }
    }

    void fATinyWindowDoesNoHarm()
    {
        QWidget *const recuadro = m_sesion->fControl("frmRecuadro");
        m_sesion->ventana->showNormal();
        m_sesion->ventana->setMinimumSize(1, 1);
        m_sesion->ventana->resize(60, 60);
        QTRY_COMPARE(recuadro->width(), 0);
        QCOMPARE(recuadro->height(), 0);
        for (const Qt::Key tecla : {Qt::Key_F12, Qt::Key_J, Qt::Key_F12, Qt::Key_F11}) {
            m_sesion->fTecla(tecla);
        }
        m_sesion->fElegirEntrada("mnuFotoValor0");
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        QVERIFY(!m_sesion->ventana->grab().isNull());
        QVERIFY(m_sesion->fTamano(700, 500));
        QTRY_COMPARE(m_sesion->fTamFoto(), QSize(320, 480)); // 80 x 120 at 400 %
        QCOMPARE(m_sesion->fAjuste("ANCHO"), std::string("3000"));
    }

    void fTheSplitterSetsThePanelWidth()
    {
        const int intVentana = 700;
        const int intTope = (intVentana * 15 - (2000 + 480)) / 15; // room for one thumbnail stays
        const std::pair<int, int> lstCasos[] = {
            // where it is dropped and how wide the list is then, pixels
            {400, 400}, {120, 120}, {-30, 0}, {250, 250}, {690, intTope}, {300, 300},
        };
        QVERIFY(m_sesion->fTamano(intVentana, 500));
        QWidget *const cliente = m_sesion->fControl("frmMainCliente");
        QWidget *const divisor = m_sesion->fControl("cmdAncho");
        m_sesion->fTecla(Qt::Key_J);
        for (const auto &[intX, intAncho] : lstCasos) {
            const QPoint desde(divisor->geometry().center());
            m_sesion->fPulsar(cliente, desde);
            m_sesion->fMoverRaton(cliente, {(desde.x() + intX) / 2, desde.y() + 20});
            m_sesion->fMoverRaton(cliente, {intX, desde.y() + 20});
            m_sesion->fSoltar(cliente, {intX, desde.y() + 20});
            QTRY_COMPARE(m_sesion->fLista()->width(), intAncho);
            // Rounded down to whole pixels on the screen, to the twip in the settings.
            QCOMPARE(std::stoi(m_sesion->fAjuste("ANCHO")) / 15, intAncho);
            QCOMPARE(m_sesion->fControl("lblFondo")->x(), intAncho);
            // It has drawn, too: fit follows the frame.
            const QSize foto = m_sesion->fControl("imgFoto")->size();
            const QSize recuadro = m_sesion->fControl("frmRecuadro")->size();
            QVERIFY(foto.width() == recuadro.width() || foto.height() == recuadro.height());
            QVERIFY(m_sesion->fControl("imgFoto")->isVisible());
        }
        // A click changes nothing, and the right button drags nothing.
        const clsContador contador(m_sesion->fControl("imgFoto"), QEvent::Hide);
        for (const QPoint &punto : {QPoint(0, 50), QPoint(4, 200), QPoint(2, 10)}) {
            m_sesion->fClic(divisor, punto);
        }
        QTest::mousePress(m_sesion->ventana->windowHandle(), Qt::RightButton, {},
                          divisor->mapTo(m_sesion->ventana.get(), QPoint(2, 100)));
        m_sesion->fMoverRaton(cliente, {400, 200});
        QTest::mouseRelease(m_sesion->ventana->windowHandle(), Qt::RightButton, {},
                            cliente->mapTo(m_sesion->ventana.get(), QPoint(400, 200)));
        QCOMPARE(m_sesion->fLista()->width(), 300);
        QCOMPARE(m_sesion->fAjuste("ANCHO"), std::string("4500"));
        QCOMPARE(contador.intVeces, 0);
    }

    void fAStoredWidthBeyondTheWindowIsOnlyLimitedInPlace()
    {
        m_sesion.reset(); // writes its settings down
        m_arbol->fCrear("Miravel.ini", "[GENERAL]\r\nANCHO=60000\r\n");
        QVERIFY(fReabrir());
        QVERIFY(m_sesion->fTamano(700, 500));
        QCOMPARE(m_sesion->fLista()->width(), 700);
        QCOMPARE(m_sesion->fControl("frmRecuadro")->width(), 0);
        QCOMPARE(m_sesion->fAjuste("ANCHO"), std::string("60000"));
        m_sesion->fTecla(Qt::Key_F12);
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
    }

    void fTheInformationEndsWhereItCanBeSeen()
    {
        m_arbol->fCrear("2009/20090301.mov", "no film",
                        fMomento("2009-03-01 12:00:00")); // right date
        m_sesion->mensajes.lstRespuestas = {true};
        m_sesion->fTecla(Qt::Key_F5);
        QTRY_COMPARE(m_sesion->fNombres().size(), 5);
        auto *const caja = m_sesion->fControl<QLineEdit>("txtInfo2");
        const QWidget *const aviso = m_sesion->fControl("txtInfo3");
        int intAvisos = 0;
        for (const int intAncho : {500, 900}) {
            QVERIFY(m_sesion->fTamano(intAncho, 600));
            for (int lngFila = 0; lngFila < 4; ++lngFila) {
                m_sesion->fTecla(Qt::Key_F12);
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

    void fMenusHaveTheirEntriesInOrder()
    {
        QStringList lstBarra;
        for (const QAction *const accion : m_sesion->ventana->menuBar()->actions()) {
            lstBarra.push_back(accion->text().remove('&') + (accion->isVisible() ? "" : "|hidden"));
        }
        QCOMPARE(lstBarra,
                 QStringList({"Baúl (0)", "Opciones", "Más", "Ayuda", "[avance]|hidden"}));
        QVERIFY(m_sesion->fControl<QAction>("mnuAVance") != nullptr);
        const std::pair<const char *, QStringList> lstCasos[] = {
            {"mnuBaul",
             {"mnuBaulAñadir|Añadir", "mnuBaulVaciar|Vacíar|off", "mnuBaulAbrir|Mostrar"}},
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
            {"mnuMas",
             {"mnuMasReparar|Reparar fechas...", "mnuMasRevisar|Revisar fechas...",
              "mnuMasDeshacer|Deshacer corrección...", "mnuMasTiempo|Línea de tiempo",
              "mnuMasDuplicados|Buscar duplicados...", "mnuMasPresentacion|Presentación",
              "mnuMasCompleta|Pantalla completa", "-", "mnuMasGirarIzquierda|Girar a la izquierda",
              "mnuMasGirarDerecha|Girar a la derecha", "-", "mnuMasFormatos|Otros formatos", "-",
              "mnuMasVaciarCache|Vaciar caché de miniaturas"}},
            {"mnuAyuda", {"mnuAyudaAyuda|Ayuda", "mnuAyudaAcerca|Acerca de ..."}},
            {"mnuFoto",
             {"mnuFotoMiniaturas|Miniaturas", "mnuFotoAjustar|Ajustar", "-", "mnuFotoValor0|400%",
              "mnuFotoValor1|200%", "mnuFotoValor2|100%", "mnuFotoValor3|50%", "mnuFotoValor4|25%",
              "mnuFotoValor5|12%"}},
        };
        for (const auto &[strMenu, lstEntradas] : lstCasos) {
            QCOMPARE(fEntradas(*m_sesion->fControl<QMenu>(strMenu)), lstEntradas);
        }
        QVERIFY(m_sesion->fControl<QAction>("mnuOpcionesThump2")->isChecked());
        QCOMPARE(m_sesion->fControl<QAction>("mnuOpcionesActualizar")->shortcut(),
                 QKeySequence(Qt::Key_F5));
        QCOMPARE(m_sesion->fControl<QAction>("mnuAyudaAyuda")->shortcut(),
                 QKeySequence(Qt::Key_F1));
    }

    void fEntriesShowTheirKeysAndTheCurrentZoom()
    {
        const std::pair<const char *, const char *> lstCasos[] = {
            {"mnuBaulAñadir", "A"},          {"mnuBaulVaciar", ""},
            {"mnuOpcionesFiltrar", "F"},     {"mnuOpcionesQuitarFiltro", "Shift+F"},
            {"mnuOpcionesActualizar", "F5"}, {"mnuFotoAjustar", "J"},
            {"mnuAyudaAyuda", "F1"},
        };
        for (const auto &[strNombre, strTecla] : lstCasos) {
            QCOMPARE(m_sesion->fControl<QAction>(strNombre)->shortcut(), QKeySequence(strTecla));
        }
        // Letters are only written there: the key runs its command once.
        const clsAbridor abridor;
        m_sesion->fTecla(Qt::Key_C);
        QTRY_COMPARE(abridor.fAbierto(), '<' + m_arbol->fRuta("2008/") + '>');
        const auto fMarcado = [&](const char *strNombre) {
            return m_sesion->fControl<QAction>(strNombre)->isChecked();
        };
        QVERIFY(fMarcado("mnuFotoValor2"));
        m_sesion->fTecla(Qt::Key_J);
        QVERIFY(fMarcado("mnuFotoAjustar") && !fMarcado("mnuFotoValor2"));
        m_sesion->fElegirEntrada("mnuFotoValor0");
        m_sesion->fTecla(Qt::Key_Minus, Qt::KeypadModifier);
        QVERIFY(fMarcado("mnuFotoValor1"));
    }

    void fEntriesThatExcludeEachOtherShowIt()
    {
        const std::pair<const char *, const char *> lstCasos[] = {
            {"mnuOpcionesFotosVideos0", "mnuOpcionesFotosVideos2"},
            {"mnuOpcionesThump0", "mnuOpcionesThump2"},
            {"mnuFotoAjustar", "mnuFotoValor5"},
        };
        QSet<QActionGroup *> grupos{nullptr};
        for (const auto &[strUna, strOtra] : lstCasos) {
            QActionGroup *const grupo = m_sesion->fControl<QAction>(strUna)->actionGroup();
            QVERIFY2(!grupos.contains(grupo), strUna);
            QCOMPARE(m_sesion->fControl<QAction>(strOtra)->actionGroup(), grupo);
            grupos.insert(grupo);
        }
        // One alone is a tick that can be taken away.
        QVERIFY(m_sesion->fControl<QAction>("mnuMasCompleta")->actionGroup() == nullptr);
    }

    void fF10AndLettersOpenTheMenus()
    {
        const std::pair<QKeyCombination, const char *> lstCasos[] = {
            {Qt::Key_F10, "mnuBaul"},
            {Qt::ALT | Qt::Key_O, "mnuOpciones"},
            {Qt::ALT | Qt::Key_S, "mnuMas"},
            {Qt::ALT | Qt::Key_Y, "mnuAyuda"},
        };
        for (const auto &[tecla, strMenu] : lstCasos) {
            m_sesion->fTecla(tecla.key(), tecla.keyboardModifiers());
            auto *const menu = m_sesion->fControl<QMenu>(strMenu);
            QTRY_VERIFY2(menu->isVisible(), strMenu);
            QTest::keyClick(menu, Qt::Key_Escape);
            QTest::keyClick(m_sesion->ventana->menuBar(), Qt::Key_Escape);
            QTRY_VERIFY(!menu->isVisible());
        }
    }

    void fTheToolbarHasItsButtons()
    {
        const std::pair<const char *, QString> lstCasos[] = {
            {"toolBar1", "ThumbNail"},
            {"toolBar3", "Primera"},
            {"toolBar4", "Anterior"},
            {"toolBar5", "Siguiente"},
            {"toolBar6", "Ultima"},
            {"toolBar8", "Información EXIF"},
            {"toolBar10", "Teclas de acceso rápido."},
        };
        int intX = -1;
        for (const auto &[strNombre, strTexto] : lstCasos) {
            const auto *const boton = m_sesion->fControl<QToolButton>(strNombre);
            QCOMPARE(boton->toolTip(), strTexto);
            QVERIFY2(boton->isEnabled() && !boton->icon().isNull() &&
                         boton->focusPolicy() == Qt::NoFocus && boton->x() > intX,
                     strNombre);
            intX = boton->x();
        }
        const auto lstTeclas = m_sesion->fControl<QMenu>("mnuTeclas")->actions();
        QCOMPARE(lstTeclas.size(), 22);
        QCOMPARE(lstTeclas[0]->text(), QString("[A]: Añadir al Baúl."));
        QCOMPARE(lstTeclas[14]->text(), QString("Shit + [F11]: Ir al final."));
        QCOMPARE(lstTeclas[21]->text(), QString("[E]: Buscar la primera fecha incorrecta."));
        lstTeclas[11]->trigger(); // choosing one does nothing
        QCOMPARE(m_sesion->fPosicion(), 0);
    }

    void fBoxesAskInSpanishAndNoIsTheDefault()
    {
        QCOMPARE(QCoreApplication::translate("QFileDialog", "Look in:"), QString("Ver en:"));
        clsMensajesQt mensajes;
        const auto fCaja = [](const std::function<void(QMessageBox &)> &fHacer) {
            return fEnDialogo("msgMiravel", [fHacer](QDialog &dialogo) {
                auto &caja = dynamic_cast<QMessageBox &>(dialogo);
                QCOMPARE(caja.windowTitle(), QString("Miravel"));
                QCOMPARE(caja.textFormat(), Qt::PlainText);
                fHacer(caja);
            });
        };
        QApplication::setOverrideCursor(Qt::WaitCursor);
        {
            const clsCuando cuando = fCaja([](QMessageBox &caja) {
                QCOMPARE(caja.icon(), QMessageBox::Warning);
                QCOMPARE(caja.text(), QString("<b>dos</b>\r\nlíneas"));
                QCOMPARE(caja.buttons().size(), 1);
                QCOMPARE(caja.buttons()[0]->text(), QString("Aceptar"));
                QVERIFY(QApplication::overrideCursor() == nullptr);
                QTest::keyClick(&caja, Qt::Key_Escape);
            });
            mensajes.fAviso(Icono::Problema, "<b>dos</b>\r\nlíneas");
            QVERIFY(cuando.fHecho() && QApplication::overrideCursor() != nullptr);
        }
        QApplication::restoreOverrideCursor();
        struct {
            bool (clsMensajesQt::*fPregunta)(const std::string &);
            const char *strBoton; ///< nullptr: a key instead
            Qt::Key tecla;
            bool bolSi;
        } const lstCasos[] = {
            {&clsMensajesQt::fSiNo, nullptr, Qt::Key_Return, false}, // the default
            {&clsMensajesQt::fSiNo, nullptr, Qt::Key_Escape, false},
            {&clsMensajesQt::fSiNo, "No", {}, false},
            {&clsMensajesQt::fSiNo, "Sí", {}, true},
            {&clsMensajesQt::fAceptarCancelar, nullptr, Qt::Key_Return, false},
            {&clsMensajesQt::fAceptarCancelar, "Cancelar", {}, false},
            {&clsMensajesQt::fAceptarCancelar, "Aceptar", {}, true},
        };
        for (const auto &caso : lstCasos) {
            const clsCuando cuando = fCaja([caso](QMessageBox &caja) {
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
            QCOMPARE((mensajes.*caso.fPregunta)("¿Actualizar lista de archivos?"), caso.bolSi);
            QVERIFY(cuando.fHecho());
        }
        const clsCuando cuando = fEnDialogo("inpMiravel", [](QDialog &dialogo) {
            auto *const linea = dialogo.findChild<QLineEdit *>();
            QVERIFY(linea->text().isEmpty());
            QTest::keyClicks(linea, "01012009");
            QTest::keyClick(linea, Qt::Key_Return);
        });
        QCOMPARE(mensajes.fPedir("Ir a la fecha (ddmmyyyy):").value_or(""),
                 std::string("01012009"));
        QVERIFY(cuando.fHecho());
    }
};

static const clsTema temaVentana{"ventana", fCorrer<clsPruebasVentana>};

#include "ventana_test.moc"
