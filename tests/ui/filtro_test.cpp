// The filter's dialog by keys and mouse, on rows of its own.
#include "app/mensajes_qt.h"
#include "filter/frmFiltro.h"
#include "filter/mayusculas.h"
#include "sesion.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

namespace {

const QString strFormato = QStringLiteral("La fecha debe tener el formato: DDMMYY");
const QString strNoValida = QStringLiteral("Fecha no válida.");

} // namespace

class clsPruebasFiltro : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_filas.fVaciar();
        for (const char *const strNombre : {"playa", "sol", "nieve"}) {
            m_filas.fAgregarFila(std::string("/no/such/") + strNombre + ".jpg",
                                 "2009/07/14 18:03:22", 2048);
        }
        m_valores = {};
        static_cast<void>(m_mensajes.fDichos());
        m_mensajes.fMientras = {};
        m_fCeder = [] { return true; };
        fAbrir();
    }

    void cleanup() { m_dialogo.reset(); }

    void fShowsItsTextsAndItsLastValues()
    {
        m_valores = {"05/07/1999", "06/07/2049", "playa, sol", "S", 2};
        fAbrir();
        QCOMPARE(m_dialogo->windowTitle(), QString("Filtro (3 archivos)"));
        QCOMPARE(fCaja("txtFecha0")->text(), QString("050799")); // it has the focus
        QCOMPARE(fCaja("txtFecha1")->text(), QString("06/07/2049"));
        QCOMPARE(fCaja("txtFecha1")->toolTip(), QString("Formato DDMMYY."));
        QCOMPARE(fControl<QLabel>("lblEtiqueta1")->text(), QString("Hasta  "));
        QCOMPARE(fCaja("txtTexto")->text(), QString("playa, sol"));
        QVERIFY(fControl<QCheckBox>("chkCarpeta")->isChecked());
        QVERIFY(fControl<QRadioButton>("optTexto2")->isChecked());
        QVERIFY(!fControl<QWidget>("frmCarpeta")->isVisible());
        QVERIFY(fControl<QPushButton>("cmdExpand1") != nullptr);
        const char *const lstOrden[] = {"txtFecha1",  "txtTexto",    "chkCarpeta", "optTexto2",
                                        "cmdAceptar", "cmdCancelar", "txtFecha0"};
        for (const char *const strNombre : lstOrden) {
            fTecla(Qt::Key_Tab);
            QCOMPARE(m_dialogo->focusWidget()->objectName(), QString(strNombre));
        }
        QCOMPARE(m_mensajes.fDichos(), QStringList());
    }

    void fTheDateBoxTakesDigitsOnly()
    {
        fTeclear("a0/5 0-7x9");
        QTest::keyClick(fCaja("txtFecha0"), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(fCaja("txtFecha0")->text(), QString("05079"));
        fTecla(Qt::Key_Backspace);
        fTecla(Qt::Key_Home);
        fTecla(Qt::Key_Delete);
        QCOMPARE(fCaja("txtFecha0")->text(), QString("507"));
    }

    void fLeavingABoxValidatesIt()
    {
        const QString lstCasos[][3] = {{"050799", "", "05/07/1999"},
                                       {"0507", strFormato, "0507"},
                                       {"310299", strNoValida, "310299"}};
        for (const auto &[strTecleado, strMensaje, strMuestra] : lstCasos) {
            for (const char *const strHacia : {"", "txtTexto", "chkCarpeta"}) {
                fAbrir();
                fTeclear(strTecleado.toLatin1());
                strHacia[0] != 0 ? fClic(strHacia) : fTecla(Qt::Key_Tab);
                QCoreApplication::processEvents();
                QCOMPARE(m_mensajes.fDichos().join('|'), strMensaje); // once
                QCOMPARE(fCaja("txtFecha0")->text(), strMuestra);
                QCOMPARE(fCaja("txtFecha0")->hasFocus(), !strMensaje.isEmpty());
                fCaja("txtFecha0")->setFocus(); // offers the six digits again
                QCOMPARE(fCaja("txtFecha0")->text(), strTecleado);
                fTecla(Qt::Key_Tab); // left unchanged
                QCoreApplication::processEvents();
                QCOMPARE(m_mensajes.fDichos().join('|'), strMensaje);
                QCOMPARE(fCaja("txtFecha0")->text(), strMuestra);
            }
        }
    }

    void fAfterTheWarningTypingReplacesWhatIsWrong()
    {
        clsMensajesQt mensajes;
        // Left by Tab, by a click, by Enter and by the button; and an end before the start.
        for (const char *const strManera : {"", "txtTexto", "Enter", "cmdAceptar", "fin"}) {
            const bool bolFin = strManera == std::string_view("fin");
            m_valores = {bolFin ? "06/07/1999" : "", "", "", "N", 0};
            fAbrir(mensajes);
            const char *const strCaja = bolFin ? "txtFecha1" : "txtFecha0";
            fControl<QWidget>(strCaja)->setFocus();
            fTeclear(bolFin ? "050799" : "310299");
            clsCuando cuando = fEnDialogo(
                "msgMiravel", [](QDialog &caja) { QTest::keyClick(&caja, Qt::Key_Return); });
            if (strManera[0] == 0) {
                fTecla(Qt::Key_Tab);
            } else if (bolFin || strManera == std::string_view("Enter")) {
                fTecla(Qt::Key_Return);
            } else {
                fClic(strManera);
            }
            QTRY_VERIFY(cuando.fHecho());
            m_dialogo->activateWindow(); // what a window manager does
            QVERIFY(QTest::qWaitForWindowActive(m_dialogo.get()));
            QTRY_VERIFY(fCaja(strCaja)->hasSelectedText());
            QTest::keyClick(m_dialogo->windowHandle(), Qt::Key_0);
            QCOMPARE(fCaja(strCaja)->text(), QString("0"));
        }
    }

    void fCancelarAndEscNeverValidate()
    {
        for (const bool bolRaton : {true, false}) {
            fAbrir();
            fTeclear("0507");
            bolRaton ? fClic("cmdCancelar") : fTecla(Qt::Key_Escape);
            QVERIFY(!m_dialogo->isVisible());
            QCOMPARE(m_mensajes.fDichos(), QStringList());
        }
        fAbrir();
        fTeclear("0507");
        fControl<QWidget>("cmdCancelar")->setFocus();
        QCoreApplication::processEvents();
        QCOMPARE(m_mensajes.fDichos(), QStringList());
        fClic("txtTexto"); // the box has still been left
        QCOMPARE(m_mensajes.fDichos(), QStringList{strFormato});
        QVERIFY(fCaja("txtFecha0")->hasFocus());
        QCOMPARE(m_valores.strFiltroDesde, std::string());
    }

    void fEnterValidatesTheBoxItIsPressedIn()
    {
        fTecla(Qt::Key_Return);
        QCOMPARE(m_mensajes.lstIconos, QList{Icono::Problema});
        QCOMPARE(m_mensajes.fDichos(), QStringList{"No has seleccionado ningún filtro."});
        fTeclear("0507");
        fClic("cmdAceptar");
        QCOMPARE(m_mensajes.fDichos(), QStringList{strFormato}); // once
        fTeclear("310299");
        fTecla(Qt::Key_Return);
        QCOMPARE(m_mensajes.fDichos(), QStringList{strNoValida});
        fTeclear("060799"); // what is wrong is selected
        fClic("txtFecha1");
        fTeclear("050799");
        fClic("cmdAceptar");
        QCoreApplication::processEvents();
        QCOMPARE(m_mensajes.fDichos(), QStringList{"La fecha final es menor a la inicial."});
        QCOMPARE(fCaja("txtFecha0")->text(), QString("06/07/1999"));
        fCaja("txtFecha1")->setFocus();
        for (int intVez = 0; intVez < 2; ++intVez) { // Enter upon Enter in the same box
            fTecla(Qt::Key_Enter);
            QCOMPARE(m_mensajes.fDichos(), QStringList{"La fecha final es menor a la inicial."});
            QCOMPARE(fCaja("txtFecha1")->text(), QString("050799"));
        }
    }

    void fEnterInABoxThatWasNotChangedFiltersByItsDate()
    {
        m_valores.strFiltroDesde = "05/07/1999";
        m_valores.strFiltroHasta = "05/07/2007";
        fAbrir();
        QCOMPARE(fCaja("txtFecha0")->text(), QString("050799"));
        fTecla(Qt::Key_Return);
        QCOMPARE(m_mensajes.fDichos(), QStringList{"No se ha encontrado ninguna imagen."});
        QCOMPARE(m_valores.strFiltroDesde, std::string("05/07/1999"));
        QCOMPARE(m_valores.strFiltroHasta, std::string("05/07/2007"));
    }

    void fADateBoxCutsCopiesAndPastesDigits()
    {
        QClipboard *const portapapeles = QApplication::clipboard();
        portapapeles->setText("12/03/04\n");
        const auto fCtrl = [&](Qt::Key tecla) {
            QTest::keyClick(fCaja("txtFecha0"), tecla, Qt::ControlModifier);
        };
        fTeclear("99");
        fCtrl(Qt::Key_A);
        fCtrl(Qt::Key_V);
        QCOMPARE(fCaja("txtFecha0")->text(), QString("120304"));
        fTecla(Qt::Key_Home);
        fTecla(Qt::Key_Delete);
        fCtrl(Qt::Key_A);
        fCtrl(Qt::Key_C);
        QCOMPARE(portapapeles->text(), QString("20304"));
        fCtrl(Qt::Key_X);
        QCOMPARE(fCaja("txtFecha0")->text(), QString());
    }

    void fFilteringKeepsTheValuesAndGivesTheRows()
    {
        struct {
            const char *strTexto;
            std::size_t lngFilas;
            const char *strGuardado;
        } const lstCasos[] = {
            {" playa , SOL, ", 2, "playa , SOL"},
            {",,", 3, ","},
        };
        for (const auto &caso : lstCasos) {
            m_valores = {};
            m_dialogo = std::make_unique<frmFiltro>(nullptr, m_filas, m_valores, m_mensajes,
                                                    [this] { return m_fCeder(); });
            QString strDurante;
            m_fCeder = [&] {
                strDurante = m_dialogo->windowTitle();
                return fControl<QLabel>("lblFiltrando")->isVisible() &&
                       fControl<QProgressBar>("prgFiltrando")->isVisible();
            };
            const clsCuando cuando([this] { return m_dialogo->isActiveWindow(); },
                                   [&] {
                                       fClic("txtTexto");
                                       fTeclear(caso.strTexto);
                                       fClic("optTexto1");
                                       fTecla(Qt::Key_Return);
                                   });
            const auto filtrado = m_dialogo->fMostrar();
            QCOMPARE(strDurante, QString("... FILTRANDO ..."));
            QVERIFY(filtrado.has_value());
            QCOMPARE(filtrado->lstFilas.size(), caso.lngFilas);
            QCOMPARE(filtrado->lngTotalKB, std::int64_t(2 * caso.lngFilas));
            QCOMPARE(m_valores.strFiltroTexto, std::string(caso.strGuardado));
            QCOMPARE(m_valores.intFiltroModo, 1);
        }
    }

    void fNothingFoundKeepsTheDialogOpen()
    {
        fClic("txtTexto");
        fTeclear("zzz");
        fTecla(Qt::Key_Return);
        QCOMPARE(m_mensajes.fDichos(), QStringList{"No se ha encontrado ninguna imagen."});
        QVERIFY(m_dialogo->isVisible());
        QVERIFY(fCaja("txtTexto")->hasFocus());
        QVERIFY(!fControl<QLabel>("lblFiltrando")->isVisible());
        QCOMPARE(m_dialogo->windowTitle(), QString("Filtro (3 archivos)"));
        QCOMPARE(m_valores.strFiltroTexto, std::string("zzz"));
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void fEscAndTheProgramsEndEndALongFilter()
    {
        int intVeces = 0;
        const std::function<bool()> lstFines[] = {
            [&] {
                ++intVeces;
                fTecla(Qt::Key_Return); // is not heard while it filters
                fTecla(Qt::Key_Escape);
                return true;
            },
            [] { return false; },
        };
        for (const auto &fFin : lstFines) {
            m_fCeder = fFin;
            fAbrir();
            fClic("txtTexto");
            fTeclear("playa");
            fTecla(Qt::Key_Return);
            QVERIFY(!m_dialogo->isVisible());
            QCOMPARE(m_valores.strFiltroTexto, std::string());
            QCOMPARE(m_mensajes.fDichos(), QStringList());
        }
        QCOMPARE(intVeces, 1);
    }

    void fFitsLargerLetters()
    {
        QFont letra = m_dialogo->font();
        letra.setPointSizeF(letra.pointSizeF() * 1.5);
        m_dialogo->setFont(letra);
        QCoreApplication::processEvents();
        for (QWidget *const control : m_dialogo->findChildren<QWidget *>()) {
            if (control->isVisible()) {
                QVERIFY2(control->width() >= control->minimumSizeHint().width() &&
                             control->height() >= control->minimumSizeHint().height() &&
                             m_dialogo->rect().contains(
                                 QRect(control->mapTo(m_dialogo.get(), QPoint()), control->size())),
                         qPrintable(control->objectName()));
            }
        }
    }

    void fEveryLatinLetterIsFoundHoweverItIsWritten()
    {
        for (ushort intLetra = 0xA1; intLetra < 0x250; ++intLetra) {
            const QString strLetra(QChar{intLetra});
            const QString lstFormas[] = {strLetra.normalized(QString::NormalizationForm_C),
                                         strLetra.normalized(QString::NormalizationForm_D),
                                         strLetra.toUpper()};
            for (const QString &strNombre : lstFormas) {
                clsFilas filas;
                filas.fAgregarFila("/f/a" + strNombre.toStdString() + "z.jpg", "", 1);
                for (const QString &strPalabra : lstFormas) {
                    const clsFiltro filtro{false, {}, {}, {"A" + strPalabra.toStdString() + "Z"},
                                           false, {}};
                    QVERIFY2(clsBuscaTexto(filtro, fMayusculasCompuestas).fPasa(filas, 0),
                             qPrintable(strLetra));
                }
            }
        }
    }

private:
    void fAbrir() { fAbrir(m_mensajes); }
    void fAbrir(clsMensajes &mensajes)
    {
        m_dialogo = std::make_unique<frmFiltro>(nullptr, m_filas, m_valores, mensajes,
                                                [this] { return m_fCeder(); });
        m_dialogo->open();
        QVERIFY(QTest::qWaitForWindowActive(m_dialogo.get()));
    }
    template <typename Control> Control *fControl(const char *strNombre)
    {
        return m_dialogo->findChild<Control *>(QLatin1String(strNombre));
    }
    QLineEdit *fCaja(const char *strNombre) { return fControl<QLineEdit>(strNombre); }
    void fTeclear(const char *strTexto) { QTest::keyClicks(m_dialogo->focusWidget(), strTexto); }
    void fTecla(Qt::Key tecla) { QTest::keyClick(m_dialogo->windowHandle(), tecla); }
    /// A click as slow as a finger: events run before the button is let go.
    void fClic(const char *strNombre)
    {
        QWidget *const control = fControl<QWidget>(strNombre);
        QWindow *const ventana = m_dialogo->windowHandle();
        const QPoint punto = control->mapTo(m_dialogo.get(), control->rect().center());
        QTest::mousePress(ventana, Qt::LeftButton, {}, punto);
        QCoreApplication::processEvents();
        QTest::mouseRelease(ventana, Qt::LeftButton, {}, punto);
        QCoreApplication::processEvents();
    }

    clsFilas m_filas;
    clsValoresFiltro m_valores;
    clsMensajesGuion m_mensajes;
    std::function<bool()> m_fCeder;
    std::unique_ptr<frmFiltro> m_dialogo;
};

static const clsTema temaFiltro{"filtro", fCorrer<clsPruebasFiltro>};

#include "filtro_test.moc"
