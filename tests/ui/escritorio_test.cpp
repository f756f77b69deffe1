// What the desktop remembers from one start to the next, and the window on it.
#include "sesion.h"

class clsPruebasEscritorio : public QObject {
    Q_OBJECT
private slots:
    void fTheWindowComesBackWhereItWas()
    {
        const clsArbol arbol;
        const clsArbol casa;
        fLlenarArbol(arbol);
        const auto fConVentana = [&](const std::function<void(clsSesion &)> &fHacer) {
            clsSesion sesion(arbol, true, casa.fRuta("escritorio.ini"));
            QVERIFY(sesion.fAbrir());
            fHacer(sesion);
            QVERIFY(sesion.ventana->close());
        };
        const QRect sitio(40, 60, 640, 480);
        fConVentana([&](clsSesion &sesion) {
            QVERIFY(sesion.ventana->isMaximized());
            // Un-maximised, the title bar has room on the screen.
            const QRect pantalla = sesion.ventana->screen()->availableGeometry();
            sesion.ventana->showNormal();
            QTRY_VERIFY(pantalla.adjusted(0, 40, 0, 0).contains(sesion.ventana->geometry()));
            sesion.ventana->setGeometry(sitio);
            QTRY_COMPARE(sesion.ventana->geometry(), sitio);
        });
        fConVentana([&](clsSesion &sesion) {
            QVERIFY(!sesion.ventana->isMaximized());
            QCOMPARE(sesion.ventana->geometry(), sitio);
            sesion.ventana->showMaximized();
            QTRY_VERIFY(sesion.ventana->width() > sitio.width());
        });
        fConVentana([&](clsSesion &sesion) {
            QVERIFY(sesion.ventana->isMaximized());
            sesion.ventana->showNormal();
            QTRY_COMPARE(sesion.ventana->geometry(), sitio);
        });
        // It is the desktop's business, not the archive's.
        QCOMPARE(casa.fNombres(), std::vector<std::string>{"escritorio.ini"});
        QVERIFY(arbol.fLeer("Miravel.ini").find("VENTANA") == std::string::npos);
    }

    void fTheLastFolderOfCopiesComesBack()
    {
        const clsArbol arbol;
        const clsArbol casa;
        fLlenarArbol(arbol);
        casa.fCarpeta("copias");
        for (const std::string &strAntes : {std::string(), casa.fRuta("copias")}) {
            clsSesion sesion(arbol, true, casa.fRuta("escritorio.ini"));
            QVERIFY(sesion.fAbrir());
            sesion.mensajes.strCarpeta = casa.fRuta("copias");
            sesion.fElegirEntrada("mnuOpcionesCopiar");
            QTRY_COMPARE(casa.fNombres("copias").size(), std::size_t{1});
            QCOMPARE(sesion.mensajes.strCarpetaAntes, strAntes);
        }
    }

    void fTheFirstPictureIsDrawnOnceInTheSizeTheWindowGets()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        clsSesion sesion(arbol);
        sesion.ventana->resize(800, 600);
        // What a window manager does once it has put its frame around the window.
        QTimer::singleShot(0, sesion.ventana.get(), [&] { sesion.ventana->resize(800, 563); });
        const clsContador contador(sesion.fControl("imgFoto"), QEvent::Show);
        QVERIFY(sesion.fAbrir());
        bool bolDespues = false; // behind the program's timer of 150 ms
        QTimer::singleShot(300, this, [&] { bolDespues = true; });
        QTRY_VERIFY(bolDespues);
        QCOMPARE(contador.intVeces, 1);
    }
};

static const clsTema temaEscritorio{"escritorio", fCorrer<clsPruebasEscritorio>};

#include "escritorio_test.moc"
