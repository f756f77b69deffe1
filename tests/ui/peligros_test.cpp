// What must not go wrong: closing in the middle of something, odd files, odd names.
#include "app/mensajes_qt.h"
#include "sesion.h"
#include "soporte/fallos.h"

#include <QAbstractButton>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>

#include <atomic>
#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Counts how often a window is painted.
class clsPinturas : public QObject {
public:
    explicit clsPinturas(QWidget &ventana) { ventana.installEventFilter(this); }
    int intVeces = 0;

protected:
    bool eventFilter(QObject *, QEvent *evento) override
    {
        intVeces += evento->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

class clsPruebasPeligros : public QObject {
    Q_OBJECT
private slots:
    void fClosingDuringABuildEndsItAndKeepsTheCatalogue()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        const std::string strCatalogo = arbol.fLeer("Miravel.dat");
        arbol.fCrear("2011/nueva.jpg", fJpeg(fCuartos({10, 10})));
        sesion.ajustes.fEsperar();
        const auto lstNombres = arbol.fNombres();
        sesion.mensajes.lstRespuestas = {true};
        const clsCuando durante(
            [&] { return sesion.fConstruyendo(); },
            [&] {
                QVERIFY(!sesion.ventana->close()); // remembered until the build has unwound
                QVERIFY(sesion.ventana->isVisible());
            });
        sesion.fTecla(Qt::Key_F5);
        QTRY_VERIFY(durante.fHecho());
        QTRY_VERIFY(!sesion.ventana->isVisible());
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QVERIFY(arbol.fLeer("Miravel.dat") == strCatalogo);
        QVERIFY(arbol.fNombres() == lstNombres);
        QCOMPARE(sesion.fAjuste("SELEC"), arbol.fRuta("2008/playa.jpg"));
        QCOMPARE(sesion.mensajes.lstTextos.size(), 2); // announcement and question of before
    }

    void fClosingDuringTheFirstBuildLeavesNoCatalogue()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        {
            clsSesion sesion(arbol);
            const clsCuando durante([&] { return sesion.fConstruyendo(); },
                                    [&] { sesion.ventana->close(); });
            sesion.ventana->fIniciar();
            QTRY_VERIFY(durante.fHecho());
            QTRY_VERIFY(!sesion.ventana->isVisible());
            QCOMPARE(sesion.mensajes.lstTextos.size(), 1);
        }
        // Nothing, or a file of 0 bytes, which the next start takes for nothing.
        QCOMPARE(arbol.fLeer("Miravel.dat"), std::string());
        for (const std::string &strNombre : arbol.fNombres()) {
            QVERIFY2(strNombre == "Miravel.dat" ||
                         strNombre.find("Miravel.dat") == std::string::npos,
                     strNombre.c_str());
        }
        clsSesion siguiente(arbol);
        QVERIFY(siguiente.fAbrir());
        QCOMPARE(siguiente.fNombres().size(), 4);
    }

    void fTheWindowOfTheBuildCannotBeClosed()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        clsSesion sesion(arbol);
        const clsCuando durante([&] { return sesion.fConstruyendo(); },
                                [&] {
                                    auto *const busqueda = sesion.fControl<QDialog>("frmBusqueda");
                                    QCOMPARE(busqueda->windowTitle(), QString("Analizando..."));
                                    QTest::keyClick(busqueda, Qt::Key_Escape);
                                    QVERIFY(!busqueda->close());
                                    QVERIFY(busqueda->isVisible());
                                });
        QVERIFY(sesion.fAbrir());
        QVERIFY(durante.fHecho());
        QVERIFY(sesion.fControl("frmBusqueda") == nullptr);
        QCOMPARE(sesion.fNombres().size(), 4);
    }

    void fClosingBesideABoxDuringTheLoadEndsIt()
    {
        const clsArbol arbol;
        const std::string strCatalogo = fRegistro(arbol.fRuta("falta.jpg"), "2010/01/01 00:00:00");
        arbol.fCrear("Miravel.dat", strCatalogo);
        clsSesion sesion(arbol);
        bool bolEnseguida = true;
        sesion.mensajes.fMientras = [&] { bolEnseguida = sesion.ventana->close(); };
        sesion.ventana->fIniciar();
        QTRY_VERIFY(!sesion.ventana->isVisible());
        QVERIFY(!bolEnseguida); // the list was still being filled
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QVERIFY(arbol.fLeer("Miravel.dat") == strCatalogo);
    }

    void fClosingWhileAPictureLoadsEndsIt()
    {
        clsSesion sesion({{"a.jpg", fJpeg(fCuartos({40, 40}))}, {"b.jpg", "x"}});
        QVERIFY(sesion.fAbrir());
        // Written only now, so that it was not decoded ahead.
        sesion.arbol->fCrear("b.jpg", fJpeg(fDibujo({4000, 3000})));
        const clsCuando cargando([&] { return sesion.fProcesando(); },
                                 [&] { sesion.ventana->close(); });
        QCoreApplication::postEvent(sesion.fLista(),
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_F12, Qt::NoModifier));
        QTRY_VERIFY(cargando.fHecho());
        QTRY_VERIFY(!sesion.ventana->isVisible());
        QCOMPARE(sesion.fAjuste("SELEC"), sesion.arbol->fRuta("a.jpg"));
        sesion.ventana.reset(); // its threads end with it
    }

    void fEveryCommandAnswersWhileTheDiskDoesNot()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        static_cast<void>(sesion.mensajes.fDichos());
        const QString strInfo2 = sesion.fTexto("txtInfo2");
        const clsAbridor abridor;
        struct clsCaso {
            const char *strFrase;
            Qt::Key tecla;
            Qt::KeyboardModifiers mayus;
        };
        const clsCaso lstCasos[] = {
            {"the EXIF window", Qt::Key_I, {}},
            {"the correction", Qt::Key_W, {}},
            {"that of right dates", Qt::Key_W, Qt::ShiftModifier},
            {"the help page", Qt::Key_F1, {}},
            {"the Baúl", Qt::Key_B, {}},
            {"copies into it", Qt::Key_A, {}},
        };
        for (const clsCaso &caso : lstCasos) {
            const clsDiscoParado disco;
            clsPinturas pinturas(*sesion.ventana);
            const clsCuando esperando([&] { return sesion.fProcesando(); },
                                      [&] {
                                          sesion.ventana->update();
                                          sesion.fTecla(Qt::Key_F12); // is dropped
                                      });
            const clsCuando pintada([&] { return esperando.fHecho() && pinturas.intVeces > 0; },
                                    [&] { sesion.fTecla(Qt::Key_Escape); });
            sesion.fTecla(caso.tecla, caso.mayus);
            QVERIFY2(pintada.fHecho(), caso.strFrase);
            QVERIFY2(QApplication::overrideCursor() == nullptr, caso.strFrase);
            QCOMPARE(sesion.fTexto("txtInfo2"), strInfo2);
            QCOMPARE(sesion.fPosicion(), 0);
        }
        QCOMPARE(sesion.mensajes.fDichos(), QStringList());
        QCOMPARE(abridor.fAbierto(), std::string());
        const clsDiscoParado disco; // what asks nothing of the disk is done all the same
        sesion.fTecla(Qt::Key_Return);
        QTRY_COMPARE(abridor.fAbierto(), '<' + arbol.fRuta("2008/playa.jpg") + '>');
    }

    void fAFileIsNamedWhenItsPictureIsThere()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        for (const bool bolOcupada : {false, true}) { // the picture comes while something is done
            clsSesion sesion(arbol);
            QVERIFY(sesion.fAbrir());
            auto *const foto = sesion.fControl("imgFoto");
            std::optional<clsDiscoParado> disco;
            disco.emplace();
            sesion.fTecla(Qt::Key_F12, bolOcupada ? Qt::ShiftModifier : Qt::NoModifier);
            const int lngPos = bolOcupada ? 3 : 1;
            QCOMPARE(sesion.fLista()->currentIndex().row(), lngPos);
            QCOMPARE(sesion.fTexto("txtInfo1"), QString("%1 de 4").arg(lngPos + 1));
            QCOMPARE(sesion.fTexto("txtInfo2"), QString("Procesando..."));
            QCOMPARE(foto->accessibleName(), QString("Procesando..."));
            QVERIFY(sesion.fControl("txtEstado3")->isVisible());
            QVERIFY(!foto->isVisible());
            if (bolOcupada) {
                const clsCuando durante([] { return QApplication::overrideCursor() != nullptr; },
                                        [&] { disco.reset(); });
                bool bolVisible = false;
                sesion.mensajes.fMientras = [&] {
                    bolVisible = QTest::qWaitFor([&] { return foto->isVisible(); });
                };
                const QByteArray strAntes = qgetenv("TMPDIR");
                qputenv("TMPDIR", "/nada/de/nada/"); // there can be no Baúl
                sesion.fTecla(Qt::Key_A);
                qputenv("TMPDIR", strAntes);
                QVERIFY(durante.fHecho() && bolVisible);
            }
            disco.reset();
            QTRY_COMPARE(sesion.fPosicion(), lngPos);
            QVERIFY(foto->isVisible());
            QVERIFY(foto->accessibleName().startsWith("Fotografía: "));
            QVERIFY(!sesion.fControl("txtEstado3")->isVisible());
        }
    }

    void fARebuildOnADiskThatDoesNotAnswerCanBeLeft()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        sesion.fClicCasilla(2);
        sesion.fClicFila(1);
        const QStringList lstNombres = sesion.fNombres();
        const std::string strCatalogo = arbol.fLeer("Miravel.dat");
        arbol.fCrear("2011/nueva.jpg", fJpeg(fCuartos({10, 10})));
        for (const bool bolAntes : {true, false}) { // it falls silent before, or during the build
            static_cast<void>(sesion.mensajes.fDichos());
            sesion.mensajes.lstRespuestas = {true};
            std::optional<clsDiscoParado> disco;
            if (bolAntes) {
                disco.emplace();
            }
            const clsCuando construyendo([&] { return sesion.fConstruyendo(); },
                                         [&] { disco.emplace(); });
            QTimer impaciencia;
            connect(&impaciencia, &QTimer::timeout, &impaciencia, [&] {
                if (disco && QApplication::overrideCursor() != nullptr) {
                    QWidget *const busqueda = sesion.fControl("frmBusqueda");
                    QTest::keyClick(busqueda ? busqueda : sesion.ventana.get(), Qt::Key_Escape);
                }
            });
            impaciencia.start(20);
            sesion.fTecla(Qt::Key_F5);
            QVERIFY(construyendo.fHecho() != bolAntes);
            QVERIFY(QApplication::overrideCursor() == nullptr);
            QCOMPARE(sesion.mensajes.fDichos(), QStringList("¿Actualizar lista de archivos?"));
            QCOMPARE(sesion.fNombres(), lstNombres);
            QCOMPARE(sesion.fLista()->currentIndex().row(), 1);
            QCOMPARE(sesion.fTexto("txtInfo1"), QString("2 de 4"));
            QVERIFY(sesion.fMarcada(2));
        }
        QVERIFY(arbol.fLeer("Miravel.dat") == strCatalogo);
        const auto fNueva = [&] { // the thread that was left holds the archive for a moment
            sesion.mensajes.lstRespuestas = {true};
            if (sesion.fEsperarLista()) {
                sesion.fTecla(Qt::Key_F5);
            }
            return sesion.fNombres().size() == 5;
        };
        QTRY_VERIFY(fNueva());
    }

    void fTheWindowClosesWhileTheDiskDoesNotAnswer()
    {
        for (const Qt::Key tecla : {Qt::Key_I, Qt::Key_W, Qt::Key_F1, Qt::Key_A}) {
            clsSesion sesion({{"a.jpg", fJpeg(fCuartos({40, 40}))}});
            QVERIFY(sesion.fAbrir());
            const clsDiscoParado disco;
            const clsCuando esperando([&] { return sesion.fProcesando(); },
                                      [&] { QVERIFY(!sesion.ventana->close()); });
            sesion.fTecla(tecla);
            QVERIFY(esperando.fHecho());
            QTRY_VERIFY(!sesion.ventana->isVisible());
            QVERIFY(QApplication::overrideCursor() == nullptr);
        }
    }

    void fTheFolderPickerOpensAtHomeWhenTheLastFolderDoesNotAnswer()
    {
        const clsArbol arbol;
        const QString strArbol = QDir::cleanPath(QString::fromStdString(arbol.fRaiz()));
        clsMensajesQt mensajes;
        const auto fElegirArbol = [&] {
            QString strDonde;
            const clsCuando cuando = fEnDialogo("dlgCarpeta", [&](QDialog &dialogo) {
                auto &caja = dynamic_cast<QFileDialog &>(dialogo);
                strDonde = caja.directory().path();
                caja.setDirectory(strArbol);
                static_cast<QDialog &>(caja).done(QDialog::Accepted); // its own is protected
            });
            static_cast<void>(mensajes.fElegirCarpeta("Selecciona carpeta de destino:", {}));
            return cuando.fHecho() ? strDonde : QString();
        };
        QCOMPARE(fElegirArbol(), QDir::homePath());
        QCOMPARE(fElegirArbol(), strArbol);
        const clsDiscoParado disco;
        QCOMPARE(fElegirArbol(), QDir::homePath());
    }

    void fClosingBesideTheMessageOfOneCellEndsThemAll()
    {
        static std::atomic<bool> bolParado;
        static clsLlamadas disco = llamadasReales;
        disco.fAbrir = [](int intCarpeta, const char *strRuta, int intModo, mode_t modo) {
            if (!std::string_view(strRuta).ends_with(".jpg")) {
                return llamadasReales.fAbrir(intCarpeta, strRuta, intModo, modo);
            }
            bolParado.wait(true);
            return errno = EIO, -1;
        };
        for (const bool bolTarde : {false, true}) { // the second time the disk tells it late
            clsSesion sesion({{"a.jpg", "1"}, {"b.jpg", "2"}, {"c.jpg", "3"}, {"d.jpg", "4"}});
            QVERIFY(sesion.fAbrir());
            static_cast<void>(sesion.mensajes.fDichos());
            const clsOtrasLlamadas otras(disco);
            bolParado = bolTarde;
            sesion.mensajes.fMientras = [&] { sesion.ventana->close(); };
            sesion.fTecla(Qt::Key_M);
            QCOMPARE(sesion.mensajes.lstTextos.size(), bolTarde ? 0 : 1);
            bolParado = false;
            bolParado.notify_all();
            QTRY_VERIFY(!sesion.ventana->isVisible());
            QTest::qWait(0); // what else has come
            QCOMPARE(sesion.mensajes.lstTextos.size(), 1);
        }
    }

    void fCopiesEndOnTheDiskOfTheTarget()
    {
        struct clsCaso {
            const char *strFrase;
            int (*fVolcar)(int intFd);
            bool bolEsc;
            qsizetype lngCajas;
        };
        static std::atomic<int> intVeces;
        static std::atomic<bool> bolParado;
        constexpr auto fBien = [](int) { return ++intVeces, 0; };
        constexpr auto fMal = [](int) { return ++intVeces, errno = EIO, -1; };
        constexpr auto fParada = [](int) { return ++intVeces, bolParado.wait(true), 0; };
        for (const clsCaso &caso : {clsCaso{"once for all files", fBien, false, 0},
                                    clsCaso{"an error is told", fMal, false, 1},
                                    clsCaso{"Esc leaves a disk that hangs", fParada, true, 0}}) {
            clsSesion sesion({{"a.jpg", "1"}, {"b.jpg", "2"}});
            QVERIFY(sesion.fAbrir());
            const clsArbol destino;
            sesion.mensajes.strCarpeta = destino.fRaiz();
            sesion.fElegirEntrada("mnuSeleccion0");
            static_cast<void>(sesion.mensajes.fDichos());
            intVeces = 0;
            bolParado = true;
            static clsLlamadas disco;
            disco = llamadasReales;
            disco.fVolcarSistema = caso.fVolcar;
            const clsOtrasLlamadas otras(disco);
            const clsCuando esperando(
                [&] { return sesion.fTexto("txtInfo2").startsWith("Terminando de escribir en"); },
                [&] { sesion.fTecla(Qt::Key_Escape); });
            sesion.fElegirEntrada("mnuOpcionesCopiar");
            bolParado = false;
            bolParado.notify_all();
            QVERIFY2(esperando.fHecho() == caso.bolEsc, caso.strFrase);
            QCOMPARE(intVeces, 1);
            QCOMPARE(destino.fNombres().size(), std::size_t{2});
            QVERIFY2(!sesion.fMarcada(0) && !sesion.fMarcada(1), caso.strFrase);
            // The first box asks for the folder.
            QCOMPARE(sesion.mensajes.fDichos().size(), 1 + caso.lngCajas);
        }
    }

    void fFilesThatCannotBeShownShowTheNoImagePicture()
    {
        const std::string strFoto = fJpeg(fDibujo({200, 100}));
        clsSesion sesion({{"video.mp4", strFoto}, // by its name, whatever it holds
                          {"vacio.jpg", ""},
                          {"texto.jpg", "This is no picture.\n"},
                          {"cabecera.jpg", strFoto.substr(0, 30)},
                          {"ceros.jpg", std::string(5000, '\0')},
                          {"prohibido.jpg", strFoto},
                          {"tuberia.jpg", strFoto},
                          {"carpeta.jpg", strFoto}});
        QVERIFY(sesion.fAbrir());
        static_cast<void>(sesion.mensajes.fDichos());
        // Both stopped being files after the catalogue was made: that is missing.
        unlink(sesion.arbol->fRuta("tuberia.jpg").c_str());
        sesion.arbol->fTuberia("tuberia.jpg");
        unlink(sesion.arbol->fRuta("carpeta.jpg").c_str());
        sesion.arbol->fCarpeta("carpeta.jpg");
        chmod(sesion.arbol->fRuta("prohibido.jpg").c_str(), 0);
        for (int lngPos = 0; lngPos < 8; ++lngPos) {
            QTRY_COMPARE(sesion.fPosicion(), lngPos);
            // Root reads files that are forbidden.
            QVERIFY2(sesion.fSinImagen() || (geteuid() == 0 && lngPos == 5),
                     qPrintable(sesion.fCelda(lngPos, 0)));
            sesion.fTecla(Qt::Key_F12);
        }
        QCOMPARE(sesion.mensajes.lstTextos.size(), 1);
    }

    void fACutPictureShowsWhatThereIs()
    {
        const std::string strFoto = fJpeg(fCuartos({200, 100}));
        clsSesion sesion({{"a.jpg", strFoto.substr(0, strFoto.size() * 6 / 10)}});
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.fTamFoto(), QSize(200, 100));
        const QImage recuadro = sesion.fRecuadro();
        const QPoint centro = recuadro.rect().center();
        const QColor arriba = recuadro.pixelColor(centro - QPoint(50, 45));
        QVERIFY(arriba.red() > 230 && arriba.green() < 30 && arriba.blue() < 30);
    }

    void fOddNamesAreListedAndShown()
    {
        const std::string strLargo = std::string(251, 'n') + ".jpg";
        const std::string strAlReves = "\xE2\x80\xAEgpj.jpg"; // right-to-left override
        const std::string strSignos = "100%1 <b>&amp;<i> \"'\\ #?.jpg";
        const std::pair<std::string, QString> lstCasos[] = {
            // below the root, and as the list shows its name
            {"fiesta 🎉.jpg", "fiesta 🎉.jpg"},
            {"cumplean\u0303os.jpg", "cumplean\u0303os.jpg"},
            {"a\xF1o nuevo.jpg", "año nuevo.jpg"},
            {"dos\nl\rineas.jpg", "dos?l?ineas.jpg"},
            {strLargo, QString::fromStdString(strLargo)},
            {strSignos, QString::fromStdString(strSignos)},
            {" blancos .jpg", " blancos .jpg"},
            {strAlReves, QString::fromStdString(strAlReves)},
            {"c\xE1mara/foto.jpg", "foto.jpg"},
        };
        std::vector<std::pair<std::string, std::string>> lstFotos;
        for (const auto &[strRuta, strTexto] : lstCasos) {
            lstFotos.emplace_back(strRuta, fJpeg(fCuartos({50, 30})));
        }
        clsSesion sesion(lstFotos);
        QVERIFY(sesion.fAbrir());
        static_cast<void>(sesion.mensajes.fDichos());
        int lngPos = 0;
        for (const auto &[strRuta, strTexto] : lstCasos) {
            QTRY_COMPARE(sesion.fPosicion(), lngPos);
            QCOMPARE(sesion.fCelda(lngPos, 0), strTexto);
            if (strRuta.find('\n') != std::string::npos) {
                QVERIFY(sesion.fSinImagen());
            } else {
                QCOMPARE(sesion.fTamFoto(), QSize(50, 30));
                QCOMPARE(sesion.fAjuste("SELEC"), sesion.arbol->fRuta(strRuta));
            }
            sesion.fTecla(Qt::Key_F12);
            ++lngPos;
        }
        QVERIFY(sesion.fCelda(lngPos - 1, 3).endsWith("/cámara/"));
        QCOMPARE(sesion.mensajes.lstTextos.size(), 1); // the name with line breaks is missing
        // The next start finds the file of such a name again.
        sesion.fTecla(Qt::Key_F11, Qt::ShiftModifier);
        QTRY_COMPARE(sesion.fPosicion(), 0);
        sesion.fClicFila(2);
        QTRY_COMPARE(sesion.fPosicion(), 2);
        sesion.ventana.reset();
        sesion.ajustes.fEsperar();
        clsSesion siguiente(*sesion.arbol);
        QVERIFY(siguiente.fAbrir());
        QCOMPARE(siguiente.fPosicion(), 2);
    }

    void fAFileThatChangesUnderItsNameIsReadAgain()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.fTamFoto(), QSize(120, 80));
        arbol.fCrear("2008/playa.jpg", fJpeg(fCuartos({30, 60})), fMomento("2020-01-01 00:00:00"));
        sesion.fClicFila(0);
        QTRY_COMPARE(sesion.fTamFoto(), QSize(30, 60));
    }

    void fACopiedArchiveIsItsOwn_data()
    {
        QTest::addColumn<bool>("bolEscritura");
        QTest::newRow("for good") << true;
        QTest::newRow("as long as it is read only") << false;
    }
    void fACopiedArchiveIsItsOwn()
    {
        QFETCH(bool, bolEscritura);
        const clsArbol arbol;
        const clsArbol copia;
        fLlenarArbol(arbol);
        {
            clsSesion primera(arbol);
            QVERIFY(primera.fAbrir());
            primera.fTecla(Qt::Key_F12);
            QTRY_COMPARE(primera.fPosicion(), 1);
        }
        std::filesystem::copy(arbol.fRaiz(), copia.fRaiz(),
                              std::filesystem::copy_options::recursive);
        const std::string strCatalogo = arbol.fLeer("Miravel.dat");
        clsSesion sesion(copia, bolEscritura);
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.mensajes.fDichos(), QStringList());
        if (!bolEscritura) { // then no settings are read
            sesion.fTecla(Qt::Key_F12);
        }
        QTRY_COMPARE(sesion.fPosicion(), 1); // the file that was current in the original
        QVERIFY(sesion.fTexto("txtInfo2")
                    .startsWith(QString::fromStdString(copia.fRuta("2009/boda.JPG "))));
        QCOMPARE(copia.fLeer("Miravel.dat") == strCatalogo, !bolEscritura);
        const clsCuando corregir = fEnDialogo("frmFecha", [](QDialog &dialogo) {
            dialogo.findChild<QLineEdit *>("txtDateTime")->setText("01/02/2003");
            QTest::mouseClick(dialogo.findChild<QAbstractButton *>("cmdAceptar1"), Qt::LeftButton);
        });
        sesion.fTecla(Qt::Key_W, Qt::ShiftModifier);
        QCOMPARE(corregir.fHecho(), bolEscritura);
        QTRY_COMPARE(sesion.fCelda(0, 0), bolEscritura ? "20030201_boda.JPG" : "playa.jpg");
        QCOMPARE(copia.fNombres("2009").front() == "20030201_boda.JPG", bolEscritura);
        QCOMPARE(arbol.fNombres("2009").front(), "boda.JPG");
        QCOMPARE(arbol.fLeer("Miravel.dat"), strCatalogo);
    }

    void fWhatLiesOutsideTheRootIsReachedByNothing()
    {
        const clsAbridor abridor;
        const clsArbol fuera;
        fuera.fCrear("f.jpg", fJpeg(fCuartos({40, 40}), 1));
        const clsArbol arbol;
        arbol.fCrear("dentro.jpg", fJpeg(fCuartos({40, 40})));
        const std::string strNombreFuera =
            std::filesystem::path(fuera.fRaiz() + ".").parent_path().filename();
        std::string strCatalogo = fRegistro(arbol.fRuta("dentro.jpg"), "2010/01/01 00:00:00");
        for (const std::string &strRuta :
             {fuera.fRuta("f.jpg"), arbol.fRuta("../" + strNombreFuera + "/f.jpg"),
              "file://" + fuera.fRuta("f.jpg"), std::string("http://localhost/f.jpg"),
              std::string("--version.jpg")}) {
            strCatalogo += fRegistro(strRuta, "2011/01/01 00:00:00");
        }
        arbol.fCrear("Miravel.dat", strCatalogo);
        arbol.fCrear("Miravel.ini", "[GENERAL]\r\nSELEC=" + fuera.fRuta("f.jpg") + "\r\n");
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.fNombres().size(), 6);
        const clsArbol destino;
        sesion.mensajes.strCarpeta = destino.fRaiz();
        for (int lngPos = 1; lngPos < 6; ++lngPos) {
            sesion.fClicFila(lngPos);
            QTRY_COMPARE(sesion.fPosicion(), lngPos);
            QVERIFY(sesion.fSinImagen());
            static_cast<void>(sesion.mensajes.fDichos());
            sesion.fTecla(Qt::Key_Return);
            sesion.fTecla(Qt::Key_C);
            sesion.fTecla(Qt::Key_W, Qt::ShiftModifier);
            QVERIFY(sesion.mensajes.fDichos().join('|').startsWith(
                "Hay algún problema con el fichero: \r\n" + sesion.fCelda(lngPos, 3)));
            sesion.fElegirEntrada("mnuOpcionesCopiar");
            QVERIFY(sesion.mensajes.fDichos().join('|').contains(
                "\r\n" + sesion.fCelda(lngPos, 3) + sesion.fCelda(lngPos, 0) + "\r\n"));
            sesion.fTecla(Qt::Key_Space); // what was not copied keeps its tick
            QVERIFY(!sesion.fMarcada(lngPos));
            QString strExif;
            const clsCuando exif = fEnDialogo("frmExif", [&](QDialog &dialogo) {
                strExif = dialogo.findChild<QPlainTextEdit *>("txtExif")->toPlainText();
                dialogo.close();
            });
            sesion.fTecla(Qt::Key_I);
            QVERIFY(exif.fHecho() && !strExif.contains("Orientation"));
        }
        QCOMPARE(destino.fNombres().size(), 0U);
        QCOMPARE(fuera.fNombres(), std::vector<std::string>{"f.jpg"});
        sesion.fClicFila(0);
        QTRY_COMPARE(sesion.fTamFoto(), QSize(40, 40));
        sesion.fTecla(Qt::Key_Return);
        QTRY_COMPARE(abridor.fAbierto(), "<" + arbol.fRuta("dentro.jpg") + ">");
    }
};

static const clsTema temaPeligros{"peligros", fCorrer<clsPruebasPeligros>};

#include "peligros_test.moc"
