// Starting on an archive: what is said, built, listed, shown and stored.
#include "sesion.h"

#include "sistema/archivo.h"

#include <QTableView>

#include <fcntl.h>
#include <sys/file.h>

class clsPruebasInicio : public QObject {
    Q_OBJECT
private slots:
    void fTheFirstStartBuildsListsAndShows()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.mensajes.lstTextos,
                 QStringList("Se va a crear el fichero de información de las imágenes."));
        QCOMPARE(sesion.mensajes.lstIconos, QList<Icono>{Icono::Aviso});
        QCOMPARE(sesion.fNombres(),
                 QStringList({"playa.jpg", "boda.JPG", "brindis.mov", "nieve.jpg"}));
        QCOMPARE(sesion.fPosicion(), 0);
        QCOMPARE(sesion.fTamFoto(), QSize(120, 80));
        const QString strRaiz = QString::fromStdString(arbol.fRaiz());
        QCOMPARE(sesion.fTexto("txtInfo1"), QString("1 de 4"));
        QCOMPARE(sesion.fTexto("txtInfo2"), strRaiz +
                                                "2008/playa.jpg      Fecha: 10/08/2008 11:00:00"
                                                "      Tamaño: " +
                                                sesion.fCelda(0, 2).trimmed());
        QCOMPARE(sesion.ventana->windowTitle(), QString("Miravel 1.3"));
        sesion.ajustes.fEsperar();
        QCOMPARE(QString::fromStdString(arbol.fLeer("Miravel.ini")),
                 "[GENERAL]\r\nANCHO=3000\r\nTAM_MINI=2\r\nFOTOVIDEO=2\r\nSELEC=" + strRaiz +
                     "2008/playa.jpg\r\n");
        // The hidden file and the one that is no media file are in the catalogue all the same.
        const std::string strCatalogo = arbol.fLeer("Miravel.dat");
        QVERIFY(strCatalogo.find("2010/x_privado/regalo.jpg\r\n") != std::string::npos);
        QVERIFY(strCatalogo.find("leeme.txt\r\n") != std::string::npos);
        QVERIFY(strCatalogo.find("2009/boda.JPG\r\n2009/07/14 16:03:22\r\n ") != std::string::npos);
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 1);
        QCOMPARE(sesion.fAjuste("SELEC"), arbol.fRuta("2009/boda.JPG"));
    }

    void fTheSecondStartReselectsAndDoesNotLookAtTheDisk()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        {
            clsSesion primera(arbol);
            QVERIFY(primera.fAbrir());
            primera.fTecla(Qt::Key_F12, Qt::ShiftModifier);
            QTRY_COMPARE(primera.fPosicion(), 3);
        }
        const auto huella = fHuella(arbol.fRuta("Miravel.dat"));
        arbol.fCrear("2007/nueva.jpg", fJpeg(fCuartos({10, 10})));
        clsSesion segunda(arbol);
        QVERIFY(segunda.fAbrir());
        QCOMPARE(segunda.mensajes.lstTextos, QStringList());
        QCOMPARE(segunda.fNombres().size(), 4);
        QCOMPARE(segunda.fPosicion(), 3);
        QCOMPARE(segunda.fTamFoto(), QSize(100, 100));
        QVERIFY(fHuella(arbol.fRuta("Miravel.dat")).value() == huella.value());
    }

    void fAnArchiveWithoutMediaSaysSo()
    {
        const clsArbol arbol;
        arbol.fCrear("leeme.txt");
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.mensajes.fDichos(),
                 QStringList({"Se va a crear el fichero de información de las imágenes.",
                              "No se ha encontrado ningún archivo."}));
        QCOMPARE(sesion.fTexto("txtInfo1"), QString());
        QCOMPARE(sesion.fTexto("txtInfo2"), QString());
        QCOMPARE(sesion.fAjuste("SELEC"), std::string());
        for (const Qt::Key tecla : {Qt::Key_F11, Qt::Key_F12, Qt::Key_Return, Qt::Key_J,
                                    Qt::Key_Escape, Qt::Key_PageDown, Qt::Key_Space}) {
            sesion.fTecla(tecla);
        }
        sesion.fElegirEntrada("mnuFotoValor0");
        QCOMPARE(sesion.mensajes.fDichos(), QStringList());
        // The files that are there by now come with a new catalogue: F5 works without a list, too.
        fLlenarArbol(arbol);
        sesion.mensajes.lstRespuestas = {true};
        sesion.fTecla(Qt::Key_F5);
        QTRY_COMPARE(sesion.fNombres().size(), 4);
        QTRY_COMPARE(sesion.fPosicion(), 0);
    }

    void fAReadOnlyRootShowsItsCatalogueAndStoresNothing()
    {
        const QString strSinPermiso = "No se puede generar la lista de ficheros.\r\n"
                                      "No tienes permiso de escritura.";
        const clsArbol arbol;
        fLlenarArbol(arbol);
        {
            clsSesion vacia(arbol, false);
            QVERIFY(vacia.fAbrir());
            QCOMPARE(vacia.mensajes.lstIconos,
                     QList<Icono>({Icono::Aviso, Icono::Problema, Icono::Problema}));
            QCOMPARE(vacia.mensajes.fDichos(),
                     QStringList({"Se va a crear el fichero de información de las imágenes.",
                                  strSinPermiso, "No se ha encontrado ningún archivo."}));
        }
        arbol.fCrear("Miravel.dat",
                     fRegistro(arbol.fRuta("2010/nieve.jpg"), "2010/01/06 09:15:00") +
                         fRegistro(arbol.fRuta("2008/playa.jpg"), "2008/08/10 11:00:00"));
        clsSesion sesion(arbol, false);
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.mensajes.fDichos(), QStringList());
        QCOMPARE(sesion.fNombres(), QStringList({"playa.jpg", "nieve.jpg"}));
        QCOMPARE(sesion.fLista()->width(), 200);
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 1);
        sesion.mensajes.lstRespuestas = {true};
        sesion.fTecla(Qt::Key_F5);
        QTRY_COMPARE(sesion.mensajes.lstTextos.size(), 2);
        QCOMPARE(sesion.mensajes.lstTextos[1], strSinPermiso);
        QVERIFY(sesion.fEsperarLista());
        QCOMPARE(sesion.fPosicion(), 1);
        sesion.ajustes.fEsperar();
        QCOMPARE(arbol.fNombres(),
                 (std::vector<std::string>{"2008", "2009", "2010", "Miravel.dat", "leeme.txt"}));
    }

    void fASelectionThatIsGoneGivesTheFirstRow()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        arbol.fCrear("Miravel.ini", "[general]\r\nselec=" + arbol.fRuta("2009/BODA.jpg") + "\r\n");
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.fPosicion(), 0);
        QCOMPARE(sesion.fAjuste("SELEC"), arbol.fRuta("2008/playa.jpg"));
    }

    void fAnUnreadableSizeNamesItsLineAndKeepsTheRowsBefore()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        const std::string strCatalogo =
            fRegistro(arbol.fRuta("2010/nieve.jpg"), "2010/01/06 09:15:00") +
            arbol.fRuta("2008/playa.jpg") + "\r\n2008/08/10 11:00:00\r\nmucho\r\n" +
            fRegistro(arbol.fRuta("2009/boda.JPG"), "2009/07/14 16:03:22");
        arbol.fCrear("Miravel.dat", strCatalogo);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.mensajes.lstTextos.size(), 1);
        QVERIFY2(sesion.mensajes.lstTextos[0].contains("Línea 6: 'mucho'"),
                 qPrintable(sesion.mensajes.lstTextos[0]));
        QCOMPARE(sesion.fNombres(), QStringList("nieve.jpg"));
        QCOMPARE(sesion.fPosicion(), 0);
        QVERIFY(arbol.fLeer("Miravel.dat") == strCatalogo);
    }

    void fAFirstBuildThatAnotherProgramBarsSaysSo()
    {
        const clsArbol arbol;
        fLlenarArbol(arbol);
        const clsDescriptor otra(open(arbol.fRaiz().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        QCOMPARE(flock(otra.fFd(), LOCK_EX | LOCK_NB), 0);
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        QCOMPARE(sesion.mensajes.lstTextos.size(), 3);
        QVERIFY(sesion.mensajes.lstTextos[1].startsWith("Otro Miravel está trabajando"));
        QCOMPARE(sesion.mensajes.lstTextos[2], QString("No se ha encontrado ningún archivo."));
        QVERIFY(!fExisteArchivo(arbol.fRuta("Miravel.dat")));
    }

    void fTheKindOfMediaIsTakenFromTheSettings()
    {
        struct clsCaso {
            const char *strAjuste;
            QStringList lstNombres;
        };
        const clsArbol arbol;
        fLlenarArbol(arbol);
        arbol.fCrear("foto.JPEG", fJpeg(fCuartos({10, 10}))); // the extension is not JPG
        const clsCaso lstCasos[] = {
            {"0", {"playa.jpg", "boda.JPG", "nieve.jpg"}},
            {"1", {"brindis.mov"}},
            {"2", {"playa.jpg", "boda.JPG", "brindis.mov", "nieve.jpg"}},
        };
        for (const clsCaso &caso : lstCasos) {
            arbol.fCrear("Miravel.ini", std::string("[GENERAL]\r\nFOTOVIDEO=") + caso.strAjuste);
            clsSesion sesion(arbol);
            QVERIFY2(sesion.fAbrir(), caso.strAjuste);
            QCOMPARE(sesion.fNombres(), caso.lstNombres);
            const std::string strMarcada = std::string("mnuOpcionesFotosVideos") + caso.strAjuste;
            QVERIFY(sesion.fControl<QAction>(strMarcada.c_str())->isChecked());
        }
    }
};

static const clsTema temaInicio{"inicio", fCorrer<clsPruebasInicio>};

#include "inicio_test.moc"
