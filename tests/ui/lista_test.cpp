// The list: columns, order, clicks, ticks, refilling it, files that are gone.
#include "sesion.h"

#include <QFile>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

const char *const strIncidencias = "Actualiza la lista de archivos. Se han detectado incidencias.";
const char *const strPregunta = "¿Actualizar lista de archivos?";

} // namespace

class clsPruebasLista : public QObject {
    Q_OBJECT
private slots:
    void fColumnsHaveTheirTextsWidthsAndSides();
    void fAHeaderOrdersTogglesAndKeepsTheCurrentFile();
    void fAClickMakesItsRowCurrent();
    void fATickTogglesWithoutMovingAndSurvivesOrdering();
    void fADoubleClickOpensTheFileOnceAndDoesNotMove();
    void fF5AsksFirstAndNoChangesNothing();
    void fF5WithYesTakesTheDiskAsItIsNow();
    void fF5WhileAnotherProgramBuildsKeepsTheCatalogue();
    void fAMediaEntryRefillsAndKeepsTheFileOrTakesTheFirst();
    void fMissingFilesAreToldOncePerCatalogue();
};

void clsPruebasLista::fColumnsHaveTheirTextsWidthsAndSides()
{
    struct clsColumna {
        const char *strTitulo;
        int intAncho; ///< pixels; wider where the font needs it
        Qt::AlignmentFlag lado;
        QString strPrimera; ///< text of the first row
    };
    const clsArbol arbol;
    fLlenarArbol(arbol);
    arbol.fCrear("2000/grande.avi", std::string(1234567, 'x'), fMomento("2000-02-29 23:59:58"));
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    const clsColumna lstColumnas[] = {
        {"Nombre", 200, Qt::AlignLeft, "grande.avi"},
        {"Fecha", 120, Qt::AlignLeft, "2000/02/29 23:59:58"},
        {"Tamaño", 100, Qt::AlignRight, "      1.206 KB"},
        {"Carpeta", 113, Qt::AlignLeft, QString::fromStdString(arbol.fRaiz()) + "2000/"},
    };
    const QAbstractItemModel &modelo = *sesion.fLista()->model();
    QCOMPARE(modelo.columnCount(), 4);
    for (int intColumna = 0; intColumna < 4; ++intColumna) {
        const clsColumna &columna = lstColumnas[intColumna];
        QCOMPARE(modelo.headerData(intColumna, Qt::Horizontal).toString(),
                 QString::fromUtf8(columna.strTitulo));
        QCOMPARE(sesion.fCelda(0, intColumna), columna.strPrimera);
        const int intAncho = sesion.fLista()->columnWidth(intColumna);
        const bool bolCabe = intColumna == 1 || intColumna == 2;
        QVERIFY2(intAncho == columna.intAncho || (bolCabe && intAncho > columna.intAncho),
                 columna.strTitulo);
        if (bolCabe) {
            QVERIFY(intAncho >=
                    sesion.fLista()->fontMetrics().horizontalAdvance(columna.strPrimera.trimmed()));
        }
        const auto lados = modelo.index(0, intColumna).data(Qt::TextAlignmentRole);
        QVERIFY2(lados.value<Qt::Alignment>() & columna.lado, columna.strTitulo);
    }
    // Widths are those of the beginning again after every fill.
    sesion.fLista()->setColumnWidth(0, 20);
    sesion.fElegirEntrada("mnuOpcionesFotosVideos2");
    QTRY_COMPARE(sesion.fLista()->columnWidth(0), 200);
}

void clsPruebasLista::fAHeaderOrdersTogglesAndKeepsTheCurrentFile()
{
    struct clsPaso {
        int intColumna;
        QStringList lstNombres;
        const char *strFrase;
    };
    const clsArbol arbol;
    const std::string strFoto = fJpeg(fCuartos({30, 20}));
    // Same date for b and B: they keep the order in which a stable sort finds them.
    arbol.fCrear("z/ñu.jpg", strFoto + std::string(3000, ' '), fMomento("2001-01-01 00:00:00"));
    arbol.fCrear("a/nube.jpg", strFoto, fMomento("2002-01-01 00:00:00"));
    arbol.fCrear("m/Oso.jpg", strFoto + std::string(9000, ' '), fMomento("2003-01-01 00:00:00"));
    arbol.fCrear("a/ola.jpg", strFoto, fMomento("2004-01-01 00:00:00"));
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fTecla(Qt::Key_F12);
    QTRY_COMPARE(sesion.fPosicion(), 1);
    const QStringList lstPorFecha = {"ñu.jpg", "nube.jpg", "Oso.jpg", "ola.jpg"};
    QCOMPARE(sesion.fNombres(), lstPorFecha);
    const clsPaso lstPasos[] = {
        {1, {"ola.jpg", "Oso.jpg", "nube.jpg", "ñu.jpg"}, "the date was ordered already: turned"},
        {0, {"nube.jpg", "ñu.jpg", "ola.jpg", "Oso.jpg"}, "Spanish order without case"},
        {0, {"Oso.jpg", "ola.jpg", "ñu.jpg", "nube.jpg"}, "the same once more: turned"},
        {3, {"ola.jpg", "nube.jpg", "Oso.jpg", "ñu.jpg"}, "same folder: stable"},
        {2, {"ola.jpg", "nube.jpg", "ñu.jpg", "Oso.jpg"}, "same size: stable"},
        {1, lstPorFecha, "another column begins ascending"},
    };
    QHeaderView *const cabecera = sesion.fLista()->horizontalHeader();
    for (const clsPaso &paso : lstPasos) {
        // Widths may push a header out of the narrow list: the visible part must be hit.
        sesion.fLista()->horizontalScrollBar()->setValue(
            cabecera->sectionPosition(paso.intColumna));
        const int intX = cabecera->sectionViewportPosition(paso.intColumna) + 20;
        sesion.fClic(cabecera->viewport(), {intX, cabecera->height() / 2});
        QTRY_VERIFY2(sesion.fNombres() == paso.lstNombres, paso.strFrase);
        QVERIFY2(sesion.fCelda(sesion.fPosicion(), 0) == "nube.jpg", paso.strFrase);
        const QRect fila = sesion.fLista()->visualRect(sesion.fLista()->currentIndex());
        QVERIFY2(fila.top() >= 0 && fila.bottom() <= sesion.fLista()->viewport()->height(),
                 paso.strFrase);
    }
}

void clsPruebasLista::fAClickMakesItsRowCurrent()
{
    const clsArbol arbol;
    fLlenarArbol(arbol);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fClicFila(3);
    QTRY_COMPARE(sesion.fPosicion(), 3);
    QCOMPARE(sesion.fTamFoto(), QSize(100, 100));
    QCOMPARE(sesion.fAjuste("SELEC"), arbol.fRuta("2010/nieve.jpg"));
    QVERIFY(sesion.fLista()->hasFocus());
    // Beside the rows, with another button, or along the rows: nothing.
    QWidget *const filas = sesion.fLista()->viewport();
    sesion.fClic(filas, filas->rect().bottomLeft() + QPoint(50, -5));
    const QPoint primera =
        sesion.fLista()->visualRect(sesion.fLista()->model()->index(0, 0)).center();
    sesion.fClic(filas, primera, Qt::RightButton);
    sesion.fClic(filas, primera, Qt::MiddleButton);
    QCOMPARE(sesion.fPosicion(), 3);
    sesion.fClicFila(1);
    QTRY_COMPARE(sesion.fPosicion(), 1);
}

void clsPruebasLista::fATickTogglesWithoutMovingAndSurvivesOrdering()
{
    const clsArbol arbol;
    fLlenarArbol(arbol);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fClicFila(1);
    QTRY_COMPARE(sesion.fPosicion(), 1);
    sesion.fClicCasilla(3);
    QTRY_VERIFY(sesion.fMarcada(3));
    QCOMPARE(sesion.fPosicion(), 1);
    sesion.fClicCasilla(1);
    QTRY_VERIFY(sesion.fMarcada(1));
    QCOMPARE(sesion.fPosicion(), 1);
    sesion.fClicCasilla(1);
    QTRY_VERIFY(!sesion.fMarcada(1));
    // Clicks in quick succession count one by one.
    const QRect fila = sesion.fLista()->visualRect(sesion.fLista()->model()->index(0, 0));
    QTest::mouseDClick(
        sesion.ventana->windowHandle(), Qt::LeftButton, {},
        sesion.fLista()->viewport()->mapTo(sesion.ventana.get(), fila.topLeft() + QPoint(8, 8)));
    QCOMPARE(sesion.fPosicion(), 1);
    QVERIFY(!sesion.fMarcada(0));
    sesion.fLista()->horizontalScrollBar()->setValue(0);
    sesion.fClic(sesion.fLista()->horizontalHeader()->viewport(), {20, 5});
    QTRY_COMPARE(sesion.fNombres(),
                 QStringList({"boda.JPG", "brindis.mov", "nieve.jpg", "playa.jpg"}));
    QVERIFY(sesion.fMarcada(2) && !sesion.fMarcada(3) && !sesion.fMarcada(0));
}

void clsPruebasLista::fADoubleClickOpensTheFileOnceAndDoesNotMove()
{
    const QTemporaryDir carpeta;
    // A stand-in for the desktop's opener, the only program there is; it writes its arguments down.
    QFile abridor(carpeta.filePath("xdg-open"));
    QVERIFY(abridor.open(QIODevice::WriteOnly));
    abridor.write("#!/bin/sh\nprintf '<%s>' \"$@\" >> '" + carpeta.filePath("abierto").toUtf8() +
                  "'\n");
    abridor.close();
    abridor.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    const QByteArray lstPath = qgetenv("PATH");
    qputenv("PATH", carpeta.path().toUtf8());
    const clsArbol arbol;
    fLlenarArbol(arbol);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    const QModelIndex indice = sesion.fLista()->model()->index(2, 0);
    QTest::mouseDClick(sesion.ventana->windowHandle(), Qt::LeftButton, {},
                       sesion.fLista()->viewport()->mapTo(
                           sesion.ventana.get(), sesion.fLista()->visualRect(indice).center()));
    qputenv("PATH", lstPath);
    const auto fAbierto = [&carpeta] {
        QFile archivo(carpeta.filePath("abierto"));
        return archivo.open(QIODevice::ReadOnly) ? archivo.readAll().toStdString() : "";
    };
    QTRY_COMPARE(fAbierto(), "<" + arbol.fRuta("2009/brindis.mov") + ">");
    QTRY_COMPARE(sesion.fPosicion(), 2);
    QVERIFY(!sesion.fMarcada(2));
}

void clsPruebasLista::fF5AsksFirstAndNoChangesNothing()
{
    const clsArbol arbol;
    fLlenarArbol(arbol);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    static_cast<void>(sesion.mensajes.fDichos());
    const std::string strCatalogo = arbol.fLeer("Miravel.dat");
    arbol.fCrear("2011/nueva.jpg", fJpeg(fCuartos({10, 10})), fMomento("2011-01-01 00:00:00"));
    sesion.mensajes.lstRespuestas = {false};
    sesion.fTecla(Qt::Key_F5);
    QTRY_COMPARE(sesion.mensajes.lstTextos, QStringList(strPregunta));
    QCOMPARE(sesion.fNombres().size(), 4);
    QCOMPARE(sesion.fPosicion(), 0);
    QVERIFY(arbol.fLeer("Miravel.dat") == strCatalogo);
}

void clsPruebasLista::fF5WithYesTakesTheDiskAsItIsNow()
{
    const clsArbol arbol;
    fLlenarArbol(arbol);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fClicCasilla(0);
    sesion.fClicFila(1);
    QTRY_COMPARE(sesion.fPosicion(), 1);
    sesion.fClic(sesion.fLista()->horizontalHeader()->viewport(), {20, 5}); // by name
    QTRY_COMPARE(sesion.fPosicion(), 0);
    static_cast<void>(sesion.mensajes.fDichos());
    unlink(arbol.fRuta("2008/playa.jpg").c_str());
    arbol.fCrear("2000/nueva.jpg", fJpeg(fCuartos({10, 10})), fMomento("2000-01-01 00:00:00"));
    arbol.fCrear("2001/otra.jpg", fJpeg(fCuartos({10, 10})), fMomento("2001-01-01 00:00:00"));
    sesion.mensajes.lstRespuestas = {true};
    sesion.fElegirEntrada("mnuOpcionesActualizar");
    QTRY_COMPARE(sesion.fNombres(),
                 QStringList({"nueva.jpg", "otra.jpg", "boda.JPG", "brindis.mov", "nieve.jpg"}));
    QTRY_COMPARE(sesion.fPosicion(), 2);
    QCOMPARE(sesion.mensajes.fDichos(), QStringList(strPregunta));
    for (int lngFila = 0; lngFila < 5; ++lngFila) {
        QVERIFY(!sesion.fMarcada(lngFila));
    }
    QCOMPARE(sesion.fLista()->horizontalHeader()->sortIndicatorSection(), 1);
    QCOMPARE(sesion.fLista()->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
}

void clsPruebasLista::fF5WhileAnotherProgramBuildsKeepsTheCatalogue()
{
    const clsArbol arbol;
    fLlenarArbol(arbol);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fTecla(Qt::Key_F12);
    QTRY_COMPARE(sesion.fPosicion(), 1);
    static_cast<void>(sesion.mensajes.fDichos());
    const std::string strCatalogo = arbol.fLeer("Miravel.dat");
    arbol.fCrear("2011/nueva.jpg", fJpeg(fCuartos({10, 10})));
    sesion.ajustes.fEsperar();
    const auto lstNombres = arbol.fNombres();
    const int intFd = open(arbol.fRaiz().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    QCOMPARE(flock(intFd, LOCK_EX | LOCK_NB), 0);
    sesion.mensajes.lstRespuestas = {true, true};
    sesion.fTecla(Qt::Key_F5);
    QTRY_COMPARE(sesion.mensajes.lstTextos.size(), 2);
    QVERIFY(sesion.fEsperarLista());
    close(intFd);
    QVERIFY(sesion.mensajes.lstTextos[1].startsWith("Otro Miravel está trabajando"));
    QCOMPARE(sesion.fNombres().size(), 4);
    QCOMPARE(sesion.fPosicion(), 1);
    QVERIFY(arbol.fLeer("Miravel.dat") == strCatalogo);
    sesion.ajustes.fEsperar();
    QVERIFY(arbol.fNombres() == lstNombres);
    // The other one is done: now it works.
    sesion.fTecla(Qt::Key_F5);
    QTRY_COMPARE(sesion.fNombres().size(), 5);
}

void clsPruebasLista::fAMediaEntryRefillsAndKeepsTheFileOrTakesTheFirst()
{
    struct clsPaso {
        int intEntrada;
        int intFilas;
        const char *strActual;
        const char *strFrase;
    };
    const clsPaso lstPasos[] = {
        {0, 3, "nieve.jpg", "still listed: stays current"},
        {1, 1, "brindis.mov", "no longer listed: the first"},
        {2, 4, "brindis.mov", "listed again"},
        {2, 4, "brindis.mov", "the same again"},
        {0, 3, "playa.jpg", "the film is gone: the first"},
    };
    const clsArbol arbol;
    fLlenarArbol(arbol);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    sesion.fTecla(Qt::Key_F12, Qt::ShiftModifier);
    QTRY_COMPARE(sesion.fPosicion(), 3);
    static_cast<void>(sesion.mensajes.fDichos());
    for (const clsPaso &paso : lstPasos) {
        const QString strArreglo = "mnuOpcionesFotosVideos";
        sesion.fElegirEntrada(qPrintable(strArreglo + QString::number(paso.intEntrada)));
        QVERIFY(sesion.fEsperarLista());
        QVERIFY2(sesion.fNombres().size() == paso.intFilas, paso.strFrase);
        QVERIFY2(sesion.fCelda(sesion.fPosicion(), 0) == paso.strActual, paso.strFrase);
        QCOMPARE(sesion.fAjuste("FOTOVIDEO"), std::to_string(paso.intEntrada));
        for (int intEntrada = 0; intEntrada < 3; ++intEntrada) {
            auto *const accion =
                sesion.fControl<QAction>(qPrintable(strArreglo + QString::number(intEntrada)));
            QVERIFY2(accion->isChecked() == (intEntrada == paso.intEntrada), paso.strFrase);
        }
    }
    QCOMPARE(sesion.mensajes.lstTextos, QStringList());
}

void clsPruebasLista::fMissingFilesAreToldOncePerCatalogue()
{
    const clsArbol arbol;
    fLlenarArbol(arbol);
    clsSesion sesion(arbol);
    QVERIFY(sesion.fAbrir());
    static_cast<void>(sesion.mensajes.fDichos());
    unlink(arbol.fRuta("2009/boda.JPG").c_str());
    unlink(arbol.fRuta("2009/brindis.mov").c_str());
    // While the box is open the window can get another size, which draws the file once more.
    sesion.mensajes.fMientras = [&sesion] {
        sesion.ventana->showNormal();
        sesion.ventana->resize(640, 500);
        QCoreApplication::processEvents();
    };
    sesion.fTecla(Qt::Key_F12);
    QTRY_COMPARE(sesion.fPosicion(), 1);
    sesion.mensajes.fMientras = {};
    QVERIFY(sesion.fTamano(640, 500));
    QCOMPARE(sesion.mensajes.lstIconos, QList<Icono>{Icono::Problema});
    QCOMPARE(sesion.mensajes.fDichos(), QStringList(strIncidencias));
    QVERIFY(sesion.fSinImagen());
    sesion.fTecla(Qt::Key_F12); // a film that is missing
    QTRY_COMPARE(sesion.fPosicion(), 2);
    QVERIFY(sesion.fSinImagen());
    QCOMPARE(sesion.mensajes.fDichos(), QStringList());
    // A new catalogue, a new warning.
    sesion.mensajes.lstRespuestas = {true};
    sesion.fTecla(Qt::Key_F5);
    QTRY_COMPARE(sesion.fNombres(), QStringList({"playa.jpg", "nieve.jpg"}));
    QTRY_COMPARE(sesion.fPosicion(), 0);
    QCOMPARE(sesion.mensajes.fDichos(), QStringList(strPregunta));
    unlink(arbol.fRuta("2010/nieve.jpg").c_str());
    sesion.fTecla(Qt::Key_F12);
    QTRY_COMPARE(sesion.mensajes.lstTextos, QStringList(strIncidencias));
}

static const clsTema tema{"lista", fCorrer<clsPruebasLista>};

#include "lista_test.moc"
