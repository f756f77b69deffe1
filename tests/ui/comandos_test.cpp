// Every command once through the real window: by its key, its menu entry or its button.
#include "sesion.h"

#include "browse/comandos.h"

#include <QAction>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

#include <cerrno>
#include <chrono>
#include <semaphore>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr off_t lngGrande = 64 << 20;
std::binary_semaphore suelta(0); ///< lets the copy of a large file go on

/// Records what an information box says whenever it is painted.
class clsPintado : public QObject {
public:
    explicit clsPintado(QLineEdit &caja) : m_caja(caja) { caja.installEventFilter(this); }
    QStringList lstTextos;

protected:
    bool eventFilter(QObject *, QEvent *evento) override
    {
        if (evento->type() == QEvent::Paint) {
            lstTextos.push_back(m_caja.text());
        }
        return false;
    }

private:
    const QLineEdit &m_caja;
};

} // namespace

/// Takes the place of the system's: the copy of a large file hangs as on a slow disk.
extern "C" ssize_t copy_file_range(int intDe, off64_t * /*lngDesde*/, int /*intA*/,
                                   off64_t * /*lngHasta*/, std::size_t /*lngBytes*/,
                                   unsigned /*intOpciones*/)
{
    struct stat datos {};
    if (fstat(intDe, &datos) == 0 && datos.st_size == lngGrande) {
        static_cast<void>(suelta.try_acquire_for(std::chrono::seconds(20)));
    }
    errno = EXDEV; // reading and writing do it, in small pieces
    return -1;
}

/// Every test on seven files in three folders, of six days.
class clsPruebasComandos : public clsPruebasSesion {
    Q_OBJECT
private slots:
    void fTheTableAndTheWindowAgree()
    {
        QVERIFY(m_sesion->ventana->fMandos().fSinAtender().empty());
        QStringList lstEntradas;
        for (const clsComando &comando : fComandos()) {
            if (comando.entrada.menu != Menu::Ninguno) {
                const auto *const accion = m_sesion->fControl<QAction>(comando.entrada.strNombre);
                QVERIFY2(accion != nullptr, comando.entrada.strNombre);
                QCOMPARE(accion->text(), QString(comando.entrada.strTexto));
                lstEntradas.push_back(accion->objectName());
            }
            const std::string strBoton = "toolBar" + std::to_string(comando.boton.intIndice);
            QVERIFY2(comando.boton.intIndice == 0 ||
                         m_sesion->fControl<QToolButton>(strBoton.c_str())->isEnabled(),
                     strBoton.c_str());
        }
        for (const QMenu *const menu : m_sesion->ventana->findChildren<QMenu *>()) {
            for (const QAction *const accion : menu->actions()) {
                const QString strNombre = accion->objectName();
                QVERIFY2(accion->isSeparator() || accion->menu() != nullptr ||
                             strNombre.startsWith("mnuTeclas") || lstEntradas.contains(strNombre),
                         qPrintable(strNombre));
            }
        }
    }

    void fStepsFollowTheAdvanceMode()
    {
        const auto *const mnuAVance = m_sesion->fControl<QAction>("mnuAVance");
        struct {
            QString strTexto;
            QList<int> lstAdelante; ///< positions after F12, again and again
            int lngAtras;           ///< and after "Anterior", from the last
        } const lstCasos[] = {
            {"[Avance por CARPETA]", {3, 5, 6}, 5}, {"[Avance por DÍA]", {1, 3, 4, 5, 6}, 5},
            {"[Avance por SEMANA]", {4, 5, 6}, 5},  {"[Avance por MES]", {1, 5, 6}, 5},
            {"[Avance por AÑO]", {1, 6}, 5},
        };
        for (const auto &caso : lstCasos) {
            m_sesion->fTecla(Qt::Key_F11, Qt::ShiftModifier);
            m_sesion->fTecla(Qt::Key_Less);
            QCOMPARE(mnuAVance->text(), caso.strTexto);
            QVERIFY(mnuAVance->isVisible());
            for (const int lngPos : caso.lstAdelante) {
                m_sesion->fTecla(Qt::Key_F12);
                QCOMPARE(m_sesion->fPosicion(), lngPos);
            }
            m_sesion->fClic(m_sesion->fControl("toolBar4"), {10, 10}); // "Anterior"
            QCOMPARE(m_sesion->fPosicion(), caso.lngAtras);
        }
        m_sesion->fTecla(Qt::Key_Greater); // past the last mode there is none
        QVERIFY(!mnuAVance->isVisible());
        m_sesion->fTecla(Qt::Key_Less);
        QVERIFY(mnuAVance->isVisible());
        m_sesion->fTecla(Qt::Key_Escape);
        QVERIFY(!mnuAVance->isVisible());
        m_sesion->fTecla(Qt::Key_F11);
        QCOMPARE(m_sesion->fPosicion(), 4);
    }

    void fADateIsAskedForUntilItIsOne()
    {
        const std::pair<QStringList, int> lstCasos[] = {
            {{"letras", "31022009", "02012009"}, 3}, {{""}, 3}, {{}, 3}};
        for (const auto &[lstTecleado, lngPosicion] : lstCasos) {
            m_sesion->mensajes.lstTecleado = lstTecleado;
            m_sesion->fTecla(Qt::Key_D);
            QCOMPARE(m_sesion->mensajes.fDichos(),
                     QStringList(qMax(1, lstTecleado.size()), "Ir a la fecha (ddmmyyyy):"));
            QCOMPARE(m_sesion->fPosicion(), lngPosicion);
        }
    }

    void fSelectionCommandsTick()
    {
        const auto fQuedan = [this](const char *strEntrada) {
            m_sesion->fElegirEntrada(strEntrada);
            return fMarcas();
        };
        m_sesion->fClicFila(2);
        QCOMPARE(fQuedan("mnuSeleccion1"), QString("--x----")); // the panel shows one file
        QCOMPARE(fQuedan("mnuSeleccion3"), QString("xx-xxxx"));
        QCOMPARE(fQuedan("mnuSeleccion2"), QString("-------"));
        QCOMPARE(fQuedan("mnuSeleccion0"), QString("xxxxxxx"));
        m_sesion->fElegirEntrada("mnuSeleccion2");
        m_sesion->fTecla(Qt::Key_M);
        QCOMPARE(fQuedan("mnuSeleccion1"), QString("xxxxxxx")); // now all that there are
        QCOMPARE(m_sesion->fPosicion(), 2);
    }

    void fShiftInTheListTicksARange()
    {
        const auto fMayusClic = [this](int lngFila) {
            QTableView *const lista = m_sesion->fLista();
            const QPoint punto = lista->visualRect(lista->model()->index(lngFila, 0)).center();
            QTest::mouseClick(m_sesion->ventana->windowHandle(), Qt::LeftButton, Qt::ShiftModifier,
                              lista->viewport()->mapTo(m_sesion->ventana.get(), punto));
            return fMarcas();
        };
        m_sesion->fClicFila(4);
        QCOMPARE(fMayusClic(2), QString("--xxx--"));
        QCOMPARE(m_sesion->fPosicion(), 2);
        QCOMPARE(fMayusClic(3), QString("----x--"));
    }

    void fTotalsCountTheList()
    {
        m_sesion->fElegirEntrada("mnuOpcionesTotal");
        QCOMPARE(m_sesion->mensajes.strTitulo, QString("Totales"));
        QCOMPARE(m_sesion->mensajes.lstTextos,
                 QStringList("7 fotos.      \r\n\r\n1,8 Mb.      \r\n"));
    }

    void fCopiesLoseTheirTicks()
    {
        const clsArbol destino;
        m_sesion->mensajes.strCarpeta = destino.fRaiz();
        m_sesion->fClicFila(2);
        m_sesion->fElegirEntrada("mnuOpcionesCopiar"); // nothing is ticked: the current one
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList("Selecciona carpeta de destino:"));
        QCOMPARE(destino.fNombres(), std::vector<std::string>{"tres.jpg"});
        m_sesion->fElegirEntrada("mnuSeleccion0");
        m_sesion->mensajes.strCarpeta.clear(); // Cancel
        m_sesion->fElegirEntrada("mnuOpcionesCopiar");
        QCOMPARE(fMarcas(), QString("xxxxxxx"));
        m_sesion->mensajes.strCarpeta = destino.fRaiz();
        m_sesion->fElegirEntrada("mnuOpcionesCopiar");
        QCOMPARE(destino.fNombres().size(), 7U);
        QCOMPARE(fMarcas(), QString("-------"));
        QCOMPARE(m_sesion->fPosicion(), 2);
    }

    void fLabelsTellWhatIsNotSeen()
    {
        const auto fDicen = [this] {
            QStringList lstTextos;
            for (int intCual = 0; intCual < 5; ++intCual) {
                const std::string strNombre = "txtEstado" + std::to_string(intCual);
                if (m_sesion->fControl(strNombre.c_str())->isVisible()) {
                    lstTextos += m_sesion->fTexto(strNombre.c_str());
                }
            }
            return lstTextos.join('|');
        };
        const QRect aviso = m_sesion->fControl("txtInfo3")->geometry();
        QCOMPARE(fDicen(), QString());
        m_sesion->fTecla(Qt::Key_J);
        QCOMPARE(fDicen(), QString("Zoom ajustado"));
        m_sesion->fElegirEntrada("mnuSeleccion0");
        m_sesion->fTecla(Qt::Key_M); // no zoom there
        QCOMPARE(fDicen(), QString("7 marcados"));
        const clsCuando cuando = fEnDialogo("frmFiltro", [](QDialog &dialogo) {
            dialogo.findChild<QLineEdit *>("txtTexto")->setText("s");
            QTest::keyClick(&dialogo, Qt::Key_Return);
        });
        m_sesion->fTecla(Qt::Key_F);
        QCOMPARE(fDicen(), QString("FILTRO"));
        const clsArbol destino;
        destino.fCrear("dos.jpg", "otra");
        m_sesion->mensajes.strCarpeta = destino.fRaiz();
        m_sesion->fElegirEntrada("mnuSeleccion0");
        m_sesion->fElegirEntrada("mnuOpcionesCopiar");
        QCOMPARE(fDicen(), QString("FILTRO|4 copiados, 1 reemplazado"));
        const int intHasta = m_sesion->fControl("txtEstado0")->geometry().right();
        QCOMPARE(intHasta + 1, m_sesion->fControl("txtInfo3")->x()); // beside the warning's place
        QCOMPARE(m_sesion->fControl("txtInfo3")->geometry(), aviso);
        m_sesion->fControl<QTimer>("tmrCopiados")->setInterval(0); // not to wait for it
        QTRY_COMPARE(fDicen(), QString("FILTRO"));
    }

    void fAFailedCopyStopsAndKeepsTheTicks()
    {
        const clsArbol destino;
        m_sesion->mensajes.strCarpeta = destino.fRaiz();
        m_sesion->fElegirEntrada("mnuSeleccion0");
        unlink(m_arbol->fRuta("b/cuatro.jpg").c_str());
        m_sesion->fElegirEntrada("mnuOpcionesCopiar");
        QCOMPARE(destino.fNombres(), (std::vector<std::string>{"dos.jpg", "tres.jpg", "uno.jpg"}));
        QCOMPARE(fMarcas(), QString("---xxxx"));
        QCOMPARE(m_sesion->mensajes.lstTextos.size(), 2);
        QVERIFY(m_sesion->mensajes.lstTextos[1].contains("b/cuatro.jpg"));
        QCOMPARE(m_sesion->fPosicion(), 0);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void fClosingDuringACopyLeavesNothingHalf()
    {
        const clsArbol destino("/dev/shm"); // a disk of its own: no file is copied in one step
        fCopiarHasta(destino, [&] { QVERIFY(!m_sesion->ventana->close()); });
        QTRY_VERIFY(!m_sesion->ventana->isVisible());
    }

    void fEscEndsACopyAndKeepsTheTicksOfTheRest()
    {
        const clsArbol destino("/dev/shm");
        fCopiarHasta(destino, [&] { m_sesion->fTecla(Qt::Key_Escape); });
        const bool bolCuatro = destino.fNombres().size() == 4;
        QCOMPARE(fMarcas(), QString(bolCuatro ? "----xxx" : "---xxxx"));
        QCOMPARE(m_sesion->mensajes.lstTextos, QStringList("Selecciona carpeta de destino:"));
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void fTheBaulTakesCountsAndEmpties()
    {
        QCOMPARE(fTituloBaul(), QString("Baúl (0)"));
        m_sesion->fClicFila(1);
        m_sesion->fTecla(Qt::Key_A);
        QCOMPARE(fTituloBaul(), QString("Baúl (1)"));
        QVERIFY(!m_sesion->fMarcada(1));
        QVERIFY(QFile::exists(QString::fromStdString(fBaul() + "2009.01.01.dos.jpg")));
        m_sesion->fElegirEntrada("mnuSeleccion0");
        m_sesion->fElegirEntrada("mnuBaulAñadir");
        QCOMPARE(fTituloBaul(), QString("Baúl (7)"));
        const clsAbridor abridor;
        m_sesion->fTecla(Qt::Key_B);
        QTRY_COMPARE(abridor.fAbierto(), "<" + fBaul() + ">");
        mkdir((fBaul() + "mias").c_str(), 0700);
        m_sesion->fElegirEntrada("mnuBaulVaciar"); // no
        QCOMPARE(fTituloBaul(), QString("Baúl (7)"));
        m_sesion->mensajes.lstRespuestas = {true};
        m_sesion->fElegirEntrada("mnuBaulVaciar");
        QCOMPARE(m_sesion->mensajes.lstTextos.back(), QString("¿Quieres vaciar el Baul?"));
        QCOMPARE(fTituloBaul(), QString("Baúl (0)"));
        QVERIFY(!m_sesion->fControl<QAction>("mnuBaulVaciar")->isEnabled());
        QVERIFY(rmdir((fBaul() + "mias").c_str()) == 0);
    }

    void fEveryFillOfTheListCountsTheBaulAnew()
    {
        m_sesion->fTecla(Qt::Key_A);
        QCOMPARE(fTituloBaul(), QString("Baúl (1)"));
        QVERIFY(QFile::remove(QString::fromStdString(fBaul() + "2008.12.31.uno.jpg")));
        m_sesion->fElegirEntrada("mnuOpcionesFotosVideos0");
        QCOMPARE(fTituloBaul(), QString("Baúl (0)"));
    }

    void fABaulThatCannotBeIsSaid()
    {
        const QByteArray strAntes = qgetenv("TMPDIR");
        qputenv("TMPDIR", "/nada/de/nada/");
        m_sesion->fTecla(Qt::Key_A);
        qputenv("TMPDIR", strAntes);
        QCOMPARE(m_sesion->mensajes.lstTextos.size(), 1);
        QVERIFY(m_sesion->mensajes.lstTextos[0].startsWith("/nada/de/nada/Miravel"));
        QVERIFY(!m_sesion->fMarcada(0));
    }

    void fTheFilterNarrowsAndGoes()
    {
        m_sesion->fClicFila(5);
        m_sesion->fClicCasilla(1);
        const auto fBuscar = [this](const char *strTexto) {
            const clsCuando cuando = fEnDialogo("frmFiltro", [strTexto](QDialog &dialogo) {
                auto *const caja = dialogo.findChild<QLineEdit *>("txtTexto");
                caja->setFocus();
                caja->selectAll();
                QTest::keyClicks(caja, strTexto);
                QTest::keyClick(caja, Qt::Key_Return);
                if (dialogo.isVisible()) {
                    QTest::keyClick(&dialogo, Qt::Key_Escape);
                }
            });
            m_sesion->fTecla(Qt::Key_F);
            QVERIFY(cuando.fHecho());
        };
        const auto *const mnuQuitar = m_sesion->fControl<QAction>("mnuOpcionesQuitarFiltro");
        fBuscar("nadie"); // none: the list stays as it is
        QVERIFY(m_sesion->fMarcada(1) && m_sesion->fPosicion() == 5 && !mnuQuitar->isEnabled());
        fBuscar("JPG"); // all, but the extension does not count
        QVERIFY(m_sesion->fMarcada(1) && !mnuQuitar->isEnabled());
        fBuscar("s");
        QCOMPARE(m_sesion->fNombres(),
                 QStringList({"dos.jpg", "tres.jpg", "seis.jpg", "siete.jpg"}));
        QCOMPARE(m_sesion->fPosicion(), 0);
        QVERIFY(!m_sesion->fMarcada(0) && mnuQuitar->isEnabled());
        m_sesion->mensajes.lstTextos.clear();
        m_sesion->fElegirEntrada("mnuOpcionesTotal");
        QVERIFY(m_sesion->mensajes.lstTextos[0].startsWith("4 fotos.      \r\n\r\n1,0 Mb."));
        m_sesion->fTecla(Qt::Key_F12);
        m_sesion->fTecla(Qt::Key_F, Qt::ShiftModifier); // no
        QCOMPARE(m_sesion->fNombres().size(), 4);
        m_sesion->mensajes.lstRespuestas = {true};
        m_sesion->fTecla(Qt::Key_F, Qt::ShiftModifier);
        QCOMPARE(m_sesion->mensajes.lstTextos.back(), QString("¿Quitar Filtro?"));
        QCOMPARE(m_sesion->fNombres().size(), 7);
        QCOMPARE(m_sesion->fPosicion(), 2); // the same file
        QVERIFY(!mnuQuitar->isEnabled());
        m_sesion->mensajes.lstTextos.clear();
        m_sesion->fTecla(Qt::Key_F, Qt::ShiftModifier); // nothing to remove: not even asked
        QCOMPARE(m_sesion->mensajes.lstTextos, QStringList());
    }

    void fWhatIsDoneToTheListIsSaidBeforeItIsDone()
    {
        const clsPintado pintado(*m_sesion->fControl<QLineEdit>("txtInfo2"));
        QStringList lstAntes;
        connect(m_sesion->fLista()->model(), &QAbstractItemModel::modelAboutToBeReset, &pintado,
                [&] { lstAntes += pintado.lstTextos; });
        m_sesion->fElegirEntrada("mnuOpcionesFotosVideos0");
        QVERIFY2(lstAntes.contains("Analizando..."), qPrintable(lstAntes.join('|')));
        const clsCuando cuando = fEnDialogo("frmFiltro", [](QDialog &dialogo) {
            dialogo.findChild<QLineEdit *>("txtTexto")->setText("s");
            QTest::keyClick(&dialogo, Qt::Key_Return);
        });
        m_sesion->fTecla(Qt::Key_F);
        QCOMPARE(m_sesion->fNombres().size(), 4);
        QVERIFY2(lstAntes.contains("Filtrando..."), qPrintable(lstAntes.join('|')));
    }

    void fKeysBesideAnOpenFilterAreDropped()
    {
        const clsCuando cuando = fEnDialogo("frmFiltro", [this](QDialog &dialogo) {
            // Where a second key goes that is pressed too fast for the dialog.
            for (const Qt::Key tecla : {Qt::Key_F, Qt::Key_F5, Qt::Key_F12}) {
                QTest::keyClick(m_sesion->ventana->windowHandle(), tecla);
            }
            QCOMPARE(m_sesion->ventana->findChildren<QDialog *>().size(), 1);
            QTest::keyClick(&dialogo, Qt::Key_Escape);
        });
        m_sesion->fTecla(Qt::Key_F);
        QVERIFY(cuando.fHecho());
        QCOMPARE(m_sesion->mensajes.lstTextos, QStringList());
        QCOMPARE(m_sesion->fPosicion(), 0);
    }

    void fOtherProgramsOpenWhatIsCurrent()
    {
        m_sesion->fClicFila(3);
        const std::pair<Qt::Key, const char *> lstCasos[] = {
            {Qt::Key_C, "b/"},
            {Qt::Key_Return, "b/cuatro.jpg"},
            {Qt::Key_F1, "Ayuda_Miravel.htm"},
            {Qt::Key_F1, "Ayuda_Miravel.htm"}, // anew, not behind the old one
        };
        for (const auto &[tecla, strRuta] : lstCasos) {
            const clsAbridor abridor;
            m_sesion->fTecla(tecla);
            QTRY_COMPARE(abridor.fAbierto(), "<" + m_arbol->fRuta(strRuta) + ">");
        }
        const QString strAyuda = QString::fromStdString(m_arbol->fLeer("Ayuda_Miravel.htm"));
        QVERIFY(strAyuda.startsWith("<html><head><title>Ayuda_Miravel</title></head>\r\n"));
        QCOMPARE(strAyuda.count("<html>"), 1);
    }

    void fADesktopWithoutAnOpenerDoesNoHarm()
    {
        const QByteArray strAntes = qgetenv("PATH");
        qputenv("PATH", "/nada");
        for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_C, Qt::Key_B, Qt::Key_F1}) {
            m_sesion->fTecla(tecla);
        }
        qputenv("PATH", strAntes);
        QVERIFY(QFile::exists(QString::fromStdString(m_arbol->fRuta("Ayuda_Miravel.htm"))));
        QCOMPARE(m_sesion->mensajes.lstTextos, QStringList());
        m_sesion->fTecla(Qt::Key_F12);
        QCOMPARE(m_sesion->fPosicion(), 1);
    }

    void fTheAboutBoxLeadsToTheHelp()
    {
        const clsAbridor abridor;
        const clsCuando cuando = fEnDialogo("frmAcerca", [](QDialog &acerca) {
            QTest::mouseClick(acerca.findChild<QWidget *>("cmdAyuda"), Qt::LeftButton);
            QTest::keyClick(&acerca, Qt::Key_Escape);
        });
        m_sesion->fElegirEntrada("mnuAyudaAcerca");
        QVERIFY(cuando.fHecho());
        QTRY_COMPARE(abridor.fAbierto(), "<" + m_arbol->fRuta("Ayuda_Miravel.htm") + ">");
    }

private:
    void fLlenar(const clsArbol &arbol) override
    {
        const std::string strFoto = fJpeg(fCuartos({60, 40})) + std::string(256 << 10, ' ');
        const std::pair<const char *, const char *> lstFotos[] = {
            {"a/uno.jpg", "2008-12-31 10:00:00"},   {"a/dos.jpg", "2009-01-01 10:00:00"},
            {"a/tres.jpg", "2009-01-01 11:00:00"},  {"b/cuatro.jpg", "2009-01-04 10:00:00"},
            {"b/cinco.jpg", "2009-01-05 10:00:00"}, {"a/seis.jpg", "2009-02-01 10:00:00"},
            {"c/siete.jpg", "2010-05-01 10:00:00"},
        };
        for (const auto &[strRuta, strFecha] : lstFotos) {
            arbol.fCrear(strRuta, strFoto, fMomento(strFecha));
        }
    }
    [[nodiscard]] std::string fBaul() const { return qgetenv("TMPDIR").toStdString() + "Miravel/"; }
    QString fTituloBaul()
    {
        return m_sesion->fControl<QMenu>("mnuBaul")->title().remove(QLatin1Char('&'));
    }
    /// "x" for every row with a tick.
    QString fMarcas()
    {
        QString strMarcas;
        for (int lngFila = 0; lngFila < m_sesion->fNombres().size(); ++lngFila) {
            strMarcas += m_sesion->fMarcada(lngFila) ? 'x' : '-';
        }
        return strMarcas;
    }
    /// Copies all files; once the fourth is under way, which is large, something is done.
    void fCopiarHasta(const clsArbol &destino, const std::function<void()> &fHacer)
    {
        m_arbol->fCrear("b/cuatro.jpg", std::string(lngGrande, 'x'));
        m_sesion->mensajes.strCarpeta = destino.fRaiz();
        m_sesion->fElegirEntrada("mnuSeleccion0");
        const clsCuando durante([&] { return m_sesion->fTexto("txtInfo2") == "4 de 7 ..."; },
                                [&] {
                                    fHacer();
                                    suelta.release();
                                });
        m_sesion->fElegirEntrada("mnuOpcionesCopiar");
        QVERIFY(durante.fHecho());
        // What was under way is not there, unless it was whole by then.
        std::vector<std::string> lstNombres = destino.fNombres();
        if (std::erase(lstNombres, "cuatro.jpg") > 0) {
            QCOMPARE(destino.fLeer("cuatro.jpg").size(), std::size_t{lngGrande});
        }
        QCOMPARE(lstNombres, (std::vector<std::string>{"dos.jpg", "tres.jpg", "uno.jpg"}));
    }
};

static const clsTema temaComandos{"comandos", fCorrer<clsPruebasComandos>};

#include "comandos_test.moc"
