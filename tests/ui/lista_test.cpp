// The list: columns, order, clicks, ticks, refilling it, files that are gone.
#include "sesion.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTableView>
#include <QToolTip>

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

const char *const strIncidencias = "Actualiza la lista de archivos. Se han detectado incidencias.";
const char *const strPregunta = "¿Actualizar lista de archivos?";

QRect fSitio(const QTableView &lista, int lngFila, int intColumna)
{
    return lista.visualRect(lista.model()->index(lngFila, intColumna));
}

} // namespace

class clsPruebasLista : public clsPruebasSesion {
    Q_OBJECT
private slots:
    void fColumnsHaveTheirTextsWidthsAndSides()
    {
        m_arbol->fCrear("2000/grande.avi", std::string(1234567, 'x'),
                        fMomento("2000-02-29 23:59:58"));
        m_sesion->mensajes.lstRespuestas = {true};
        m_sesion->fTecla(Qt::Key_F5);
        QTRY_COMPARE(m_sesion->fNombres().size(), 5);
        struct {
            QString strTitulo;
            int intAncho; ///< pixels; wider where the font needs it
            Qt::AlignmentFlag lado;
            QString strPrimera; ///< text of the first row
        } const lstColumnas[] = {
            {"Nombre", 200, Qt::AlignLeft, "grande.avi"},
            {"Fecha", 120, Qt::AlignLeft, "2000/02/29 23:59:58"},
            {"Tamaño", 100, Qt::AlignRight, "      1.206 KB"},
            {"Carpeta", 113, Qt::AlignLeft, QString::fromStdString(m_arbol->fRaiz()) + "2000/"},
        };
        const QAbstractItemModel &modelo = *m_sesion->fLista()->model();
        QCOMPARE(modelo.columnCount(), 4);
        for (int intColumna = 0; intColumna < 4; ++intColumna) {
            const auto &columna = lstColumnas[intColumna];
            QCOMPARE(modelo.headerData(intColumna, Qt::Horizontal).toString(), columna.strTitulo);
            QCOMPARE(m_sesion->fCelda(0, intColumna), columna.strPrimera);
            const int intAncho = m_sesion->fLista()->columnWidth(intColumna);
            const int intTexto =
                m_sesion->fLista()->fontMetrics().horizontalAdvance(columna.strPrimera.trimmed());
            const bool bolCabe = intColumna == 1 || intColumna == 2;
            QVERIFY(bolCabe ? intAncho >= std::max(columna.intAncho, intTexto)
                            : intAncho == columna.intAncho);
            const auto lados = modelo.index(0, intColumna).data(Qt::TextAlignmentRole);
            QVERIFY(lados.value<Qt::Alignment>() & columna.lado);
        }
        // Widths are those of the beginning again after every fill.
        m_sesion->fLista()->setColumnWidth(0, 20);
        m_sesion->fElegirEntrada("mnuOpcionesFotosVideos2");
        QTRY_COMPARE(m_sesion->fLista()->columnWidth(0), 200);
    }

    void fWhatIsCutCanBeRead()
    {
        const clsArbol arbol;
        for (const char *const strCarpeta : {"0", "la misma carpeta/1", "la misma carpeta/2"}) {
            arbol.fCrear(strCarpeta + std::string("/foto.jpg"), fJpeg(fCuartos({30, 20})));
        }
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir() && sesion.fTamano(900, 600));
        QTableView &lista = *sesion.fLista();
        lista.setFixedWidth(700);
        // Of folders the end is shown, by which they differ.
        const auto fPintada = [&](int lngFila) {
            return lista.viewport()->grab(fSitio(lista, lngFila, 3)).toImage();
        };
        QVERIFY(fPintada(1) != fPintada(2));
        const auto fConsejo = [&](int intColumna) {
            const QPoint punto = fSitio(lista, 1, intColumna).center();
            QHelpEvent evento(QEvent::ToolTip, punto, lista.viewport()->mapToGlobal(punto));
            QCoreApplication::sendEvent(lista.viewport(), &evento);
            return QToolTip::text();
        };
        QCOMPARE(fConsejo(3), sesion.fCelda(1, 3));
        lista.setColumnWidth(0, 40);
        QCOMPARE(fConsejo(0), QString("foto.jpg"));
        static_cast<void>(fConsejo(1)); // fits
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void fAHeaderOrdersTogglesAndKeepsTheCurrentFile()
    {
        const clsArbol arbol;
        const std::string strFoto = fJpeg(fCuartos({30, 20}));
        arbol.fCrear("z/ñu.jpg", strFoto + std::string(3000, ' '), fMomento("2001-01-01 00:00:00"));
        arbol.fCrear("a/nube.jpg", strFoto, fMomento("2002-01-01 00:00:00"));
        arbol.fCrear("m/Oso.jpg", strFoto + std::string(9000, ' '),
                     fMomento("2003-01-01 00:00:00"));
        arbol.fCrear("a/ola.jpg", strFoto, fMomento("2004-01-01 00:00:00"));
        clsSesion sesion(arbol);
        QVERIFY(sesion.fAbrir());
        sesion.fTecla(Qt::Key_F12);
        QTRY_COMPARE(sesion.fPosicion(), 1);
        const QStringList lstPorFecha = {"ñu.jpg", "nube.jpg", "Oso.jpg", "ola.jpg"};
        QCOMPARE(sesion.fNombres(), lstPorFecha);
        struct {
            int intColumna;
            QStringList lstNombres;
            const char *strFrase;
        } const lstPasos[] = {
            {1,
             {"ola.jpg", "Oso.jpg", "nube.jpg", "ñu.jpg"},
             "the date was ordered already: turned"},
            {0, {"nube.jpg", "ñu.jpg", "ola.jpg", "Oso.jpg"}, "Spanish order without case"},
            {0, {"Oso.jpg", "ola.jpg", "ñu.jpg", "nube.jpg"}, "the same once more: turned"},
            {3, {"nube.jpg", "ola.jpg", "Oso.jpg", "ñu.jpg"}, "same folder: by name"},
            {2, {"nube.jpg", "ola.jpg", "ñu.jpg", "Oso.jpg"}, "same size: by name"},
            {1, lstPorFecha, "another column begins ascending"},
        };
        QHeaderView *const cabecera = sesion.fLista()->horizontalHeader();
        for (const auto &paso : lstPasos) {
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

    void fAClickMakesItsRowCurrent()
    {
        m_sesion->fClicFila(3);
        QTRY_COMPARE(m_sesion->fPosicion(), 3);
        QCOMPARE(m_sesion->fTamFoto(), QSize(100, 100));
        QCOMPARE(m_sesion->fAjuste("SELEC"), m_arbol->fRuta("2010/nieve.jpg"));
        QVERIFY(m_sesion->fLista()->hasFocus());
        // Beside the rows, with another button, or along the rows: nothing.
        QWidget *const filas = m_sesion->fLista()->viewport();
        m_sesion->fClic(filas, filas->rect().bottomLeft() + QPoint(50, -5));
        const QPoint primera =
            m_sesion->fLista()->visualRect(m_sesion->fLista()->model()->index(0, 0)).center();
        m_sesion->fClic(filas, primera, Qt::RightButton);
        m_sesion->fClic(filas, primera, Qt::MiddleButton);
        QCOMPARE(m_sesion->fPosicion(), 3);
        m_sesion->fClicFila(1);
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
    }

    void fATickTogglesWithoutMovingAndSurvivesOrdering()
    {
        m_sesion->fClicFila(1);
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        m_sesion->fClicCasilla(3);
        QTRY_VERIFY(m_sesion->fMarcada(3));
        QCOMPARE(m_sesion->fPosicion(), 1);
        m_sesion->fClicCasilla(3);
        QTRY_VERIFY(!m_sesion->fMarcada(3));
        m_sesion->fClicCasilla(3);
        // Clicks in quick succession count one by one.
        const QRect fila = m_sesion->fLista()->visualRect(m_sesion->fLista()->model()->index(0, 0));
        QTest::mouseDClick(m_sesion->ventana->windowHandle(), Qt::LeftButton, {},
                           m_sesion->fLista()->viewport()->mapTo(m_sesion->ventana.get(),
                                                                 fila.topLeft() + QPoint(8, 8)));
        QCOMPARE(m_sesion->fPosicion(), 1);
        QVERIFY(!m_sesion->fMarcada(0));
        m_sesion->fLista()->horizontalScrollBar()->setValue(0);
        m_sesion->fClic(m_sesion->fLista()->horizontalHeader()->viewport(), {20, 5});
        QTRY_COMPARE(m_sesion->fNombres(),
                     QStringList({"boda.JPG", "brindis.mov", "nieve.jpg", "playa.jpg"}));
        QVERIFY(m_sesion->fMarcada(2) && !m_sesion->fMarcada(3) && !m_sesion->fMarcada(0));
    }

    void fADoubleClickOpensTheFileOnceAndDoesNotMove()
    {
        const clsAbridor abridor;
        const QRect fila = m_sesion->fLista()->visualRect(m_sesion->fLista()->model()->index(2, 0));
        QTest::mouseDClick(
            m_sesion->ventana->windowHandle(), Qt::LeftButton, {},
            m_sesion->fLista()->viewport()->mapTo(m_sesion->ventana.get(), fila.center()));
        QTRY_COMPARE(abridor.fAbierto(), "<" + m_arbol->fRuta("2009/brindis.mov") + ">");
        QTRY_COMPARE(m_sesion->fPosicion(), 2);
        QVERIFY(!m_sesion->fMarcada(2));
    }

    void fF5AsksFirstAndTakesTheDiskAsItIsNow()
    {
        m_sesion->fClicCasilla(0);
        m_sesion->fClicFila(1);
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        m_sesion->fClic(m_sesion->fLista()->horizontalHeader()->viewport(), {20, 5}); // by name
        QTRY_COMPARE(m_sesion->fPosicion(), 0);
        static_cast<void>(m_sesion->mensajes.fDichos());
        const std::string strCatalogo = m_arbol->fLeer("Miravel.dat");
        unlink(m_arbol->fRuta("2008/playa.jpg").c_str());
        m_arbol->fCrear("2000/nueva.jpg", fJpeg(fCuartos({10, 10})),
                        fMomento("2000-01-01 00:00:00"));
        m_sesion->fTecla(Qt::Key_F5); // no
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList(strPregunta));
        QCOMPARE(m_sesion->fNombres().size(), 4);
        QVERIFY(m_arbol->fLeer("Miravel.dat") == strCatalogo);
        m_sesion->mensajes.lstRespuestas = {true};
        m_sesion->fElegirEntrada("mnuOpcionesActualizar");
        QTRY_COMPARE(m_sesion->fNombres(),
                     QStringList({"nueva.jpg", "boda.JPG", "brindis.mov", "nieve.jpg"}));
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList(strPregunta));
        for (int lngFila = 0; lngFila < 4; ++lngFila) {
            QVERIFY(!m_sesion->fMarcada(lngFila));
        }
        QCOMPARE(m_sesion->fLista()->horizontalHeader()->sortIndicatorSection(), 1);
        QCOMPARE(m_sesion->fLista()->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    }

    void fF5WhileAnotherProgramBuildsKeepsTheCatalogue()
    {
        m_sesion->fTecla(Qt::Key_F12);
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        const std::string strCatalogo = m_arbol->fLeer("Miravel.dat");
        m_arbol->fCrear("2011/nueva.jpg", fJpeg(fCuartos({10, 10})));
        m_sesion->ajustes.fEsperar();
        const auto lstNombres = m_arbol->fNombres();
        const int intFd = open(m_arbol->fRaiz().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        QCOMPARE(flock(intFd, LOCK_EX | LOCK_NB), 0);
        m_sesion->mensajes.lstRespuestas = {true, true};
        m_sesion->fTecla(Qt::Key_F5);
        QTRY_COMPARE(m_sesion->mensajes.lstTextos.size(), 2);
        QVERIFY(m_sesion->fEsperarLista());
        close(intFd);
        QVERIFY(m_sesion->mensajes.lstTextos[1].startsWith("Otro Miravel está trabajando"));
        QCOMPARE(m_sesion->fNombres().size(), 4);
        QCOMPARE(m_sesion->fPosicion(), 1);
        QVERIFY(m_arbol->fLeer("Miravel.dat") == strCatalogo);
        m_sesion->ajustes.fEsperar();
        QVERIFY(m_arbol->fNombres() == lstNombres);
        // The other one is done: now it works.
        m_sesion->fTecla(Qt::Key_F5);
        QTRY_COMPARE(m_sesion->fNombres().size(), 5);
    }

    void fAMediaEntryRefillsAndKeepsTheFileOrTakesTheFirst()
    {
        struct {
            int intEntrada;
            int intFilas;
            const char *strActual;
            const char *strFrase;
        } const lstPasos[] = {
            {0, 3, "nieve.jpg", "still listed: stays current"},
            {1, 1, "brindis.mov", "no longer listed: the first"},
            {2, 4, "brindis.mov", "listed again"},
        };
        m_sesion->fTecla(Qt::Key_F12, Qt::ShiftModifier);
        QTRY_COMPARE(m_sesion->fPosicion(), 3);
        static_cast<void>(m_sesion->mensajes.fDichos());
        for (const auto &paso : lstPasos) {
            const QString strArreglo = "mnuOpcionesFotosVideos";
            m_sesion->fElegirEntrada(qPrintable(strArreglo + QString::number(paso.intEntrada)));
            QVERIFY(m_sesion->fEsperarLista());
            QVERIFY2(m_sesion->fNombres().size() == paso.intFilas, paso.strFrase);
            QVERIFY2(m_sesion->fCelda(m_sesion->fPosicion(), 0) == paso.strActual, paso.strFrase);
            QCOMPARE(m_sesion->fAjuste("FOTOVIDEO"), std::to_string(paso.intEntrada));
            for (int intEntrada = 0; intEntrada < 3; ++intEntrada) {
                auto *const accion = m_sesion->fControl<QAction>(
                    qPrintable(strArreglo + QString::number(intEntrada)));
                QVERIFY2(accion->isChecked() == (intEntrada == paso.intEntrada), paso.strFrase);
            }
        }
        QCOMPARE(m_sesion->mensajes.lstTextos, QStringList());
    }

    void fMissingFilesAreToldOncePerCatalogue()
    {
        unlink(m_arbol->fRuta("2009/boda.JPG").c_str());
        unlink(m_arbol->fRuta("2009/brindis.mov").c_str());
        // While the box is open the window can get another size, which draws the file once more.
        m_sesion->mensajes.fMientras = [this] {
            m_sesion->ventana->showNormal();
            m_sesion->ventana->resize(640, 500);
            QCoreApplication::processEvents();
        };
        m_sesion->fTecla(Qt::Key_F12);
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        m_sesion->mensajes.fMientras = {};
        QVERIFY(m_sesion->fTamano(640, 500));
        QCOMPARE(m_sesion->mensajes.lstIconos, QList<Icono>{Icono::Problema});
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList(strIncidencias));
        QVERIFY(m_sesion->fSinImagen());
        m_sesion->fTecla(Qt::Key_F12); // a film that is missing
        QTRY_COMPARE(m_sesion->fPosicion(), 2);
        QVERIFY(m_sesion->fSinImagen());
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList());
        // A new catalogue, a new warning.
        m_sesion->mensajes.lstRespuestas = {true};
        m_sesion->fTecla(Qt::Key_F5);
        QTRY_COMPARE(m_sesion->fNombres(), QStringList({"playa.jpg", "nieve.jpg"}));
        QTRY_COMPARE(m_sesion->fPosicion(), 0);
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList(strPregunta));
        unlink(m_arbol->fRuta("2010/nieve.jpg").c_str());
        m_sesion->fTecla(Qt::Key_F12);
        QTRY_COMPARE(m_sesion->mensajes.lstTextos, QStringList(strIncidencias));
    }
};

static const clsTema temaLista{"lista", fCorrer<clsPruebasLista>};

#include "lista_test.moc"
