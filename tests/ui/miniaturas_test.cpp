// The page of thumbnails: what each cell shows, whatever happens to list, window and files.
#include "sesion.h"

#include "jpeg_soporte.h"
#include "viewer/cmdMini.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QToolButton>

#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Every number below 216 has a colour of its own that survives JPEG.
QColor fColor(int intNumero)
{
    const auto fTono = [](int intSexto) { return 20 + intSexto % 6 * 43; };
    return {fTono(intNumero), fTono(intNumero / 6), fTono(intNumero / 36)};
}

std::string fFoto(int intNumero, QSize tam = {60, 40})
{
    QImage imagen(tam, QImage::Format_RGB32);
    imagen.fill(fColor(intNumero));
    return fJpeg(imagen);
}

/// Photos whose colour follows from the number in their names, a day each.
void fLlenarColores(const clsArbol &arbol, int intCuantas)
{
    for (int intNumero = 0; intNumero < intCuantas; ++intNumero) {
        arbol.fCrear("fotos/foto_" + std::to_string(1000 + intNumero) + ".jpg",
                     fFoto(intNumero % 216), fMomento("2001-01-01 12:00:00") + intNumero * 86400);
    }
}

/// An archive whose pages take their time: photos without a thumbnail of their own.
void fLlenarLento(const clsArbol &arbol, int intCuantas)
{
    const std::string strFoto = fJpeg(fDibujo({2400, 2000}));
    for (int intNumero = 0; intNumero < intCuantas; ++intNumero) {
        arbol.fCrear("lento_" + std::to_string(1000 + intNumero) + ".jpg", strFoto,
                     fMomento("2001-01-01 12:00:00") + intNumero * 86400);
    }
}

class clsPagina : public clsSesion {
public:
    using clsSesion::clsSesion;
    /// On so many photos of plain colours.
    explicit clsPagina(int intCuantas)
        : clsSesion(std::vector<std::pair<std::string, std::string>>())
    {
        fLlenarColores(*arbol, intCuantas);
    }

    /// Opens the window in a size, with small cells, and shows the page.
    [[nodiscard]] bool fAbrirPagina(int intAncho, int intAlto)
    {
        const bool bolAbierta = fAbrir() && fTamano(intAncho, intAlto);
        fElegirEntrada("mnuOpcionesThump0");
        fTecla(Qt::Key_M);
        mensajes.lstTextos.clear();
        return bolAbierta;
    }
    cmdMini *fMini(int intCelda)
    {
        return ventana->findChild<cmdMini *>(QStringLiteral("cmdMini%1").arg(intCelda));
    }
    int fCeldas()
    {
        int intCeldas = 0;
        while (fMini(intCeldas) != nullptr) {
            ++intCeldas;
        }
        return intCeldas;
    }
    void fClicMini(int intCelda, Qt::MouseButton boton = Qt::LeftButton,
                   Qt::KeyboardModifiers mayus = {})
    {
        const cmdMini *const mini = fMini(intCelda);
        QTest::mouseClick(ventana->windowHandle(), boton, mayus,
                          mini->mapTo(ventana.get(), mini->rect().center()));
    }
    /// What is wrong with the page; empty: every cell shows the file of its position, and the one
    /// page that holds the current file is shown.
    QString fMal()
    {
        const int intCeldas = fCeldas();
        const int lngActual = fPosicion();
        if (lngActual < 0) {
            return QStringLiteral("the boxes tell another file than the list");
        }
        const int lngInicio = lngActual / intCeldas * intCeldas;
        for (int intCelda = 0; intCelda < intCeldas; ++intCelda) {
            const QString strFalla = fMalCelda(*fMini(intCelda), lngInicio + intCelda, lngActual);
            if (!strFalla.isEmpty()) {
                return QStringLiteral("cell %1 of %2: ").arg(intCelda).arg(intCeldas) + strFalla;
            }
        }
        return {};
    }

private:
    QString fMalCelda(const cmdMini &mini, int lngPos, int lngActual)
    {
        const QString strTag = mini.property("Tag").toString();
        if (lngPos >= fLista()->model()->rowCount()) {
            return !mini.isVisible() && strTag == "-1" && mini.text().isEmpty() ? "" : "not empty";
        }
        if (!mini.isVisible() || strTag != QString::number(lngPos)) {
            return "shows " + strTag;
        }
        if (mini.fActual() != (lngPos == lngActual) || mini.fMarcada() != fMarcada(lngPos)) {
            return "wrong frame or tick";
        }
        const QString strNombre = fCelda(lngPos, 0);
        if (!mini.toolTip().startsWith(strNombre + " (" + fCelda(lngPos, 1) + ") - ")) {
            return "tooltip " + mini.toolTip();
        }
        if (!strNombre.startsWith("foto_")) {
            return {};
        }
        const QImage imagen = mini.icon().pixmap(400).toImage();
        const QColor color = imagen.pixelColor(imagen.rect().center());
        const QColor debido = fColor((strNombre.mid(5, 4).toInt() - 1000) % 216);
        const auto fLejos = [](int intA, int intB) { return std::abs(intA - intB) > 12; };
        return fLejos(color.red(), debido.red()) || fLejos(color.green(), debido.green()) ||
                       fLejos(color.blue(), debido.blue())
                   ? "picture of another file: " + color.name()
                   : QString();
    }
};

} // namespace

#define BIEN(pagina) QTRY_COMPARE((pagina).fMal(), QString())

class clsPruebasMiniaturas : public QObject {
    Q_OBJECT
private slots:
    void fPagesFollowTheKeys()
    {
        clsPagina pagina(100);
        QVERIFY(pagina.fAbrirPagina(800, 600));
        const int intCeldas = pagina.fCeldas();
        QVERIFY(intCeldas > 20 && intCeldas < 80);
        BIEN(pagina);
        QVERIFY(!pagina.fControl("frmRecuadro")->isVisible());
        QVERIFY(pagina.fControl<QToolButton>("toolBar1")->isChecked());
        pagina.fTecla(Qt::Key_F12);
        QCOMPARE(pagina.fPosicion(), intCeldas);
        BIEN(pagina);
        pagina.fTecla(Qt::Key_F12, Qt::ShiftModifier);
        QCOMPARE(pagina.fPosicion(), 99);
        BIEN(pagina);
        pagina.fTecla(Qt::Key_F11); // from a short page back
        QCOMPARE(pagina.fPosicion(), (99 / intCeldas - 1) * intCeldas);
        BIEN(pagina);
        pagina.fTecla(Qt::Key_F11, Qt::ShiftModifier);
        pagina.fClicFila(3);
        QCOMPARE(pagina.fPosicion(), 3);
        BIEN(pagina);
        QVERIFY(pagina.fTamano(640, 480));
        QVERIFY(pagina.fCeldas() < intCeldas);
        BIEN(pagina);
        pagina.fTecla(Qt::Key_M);
        QVERIFY(pagina.fControl("frmRecuadro")->isVisible() && !pagina.fMini(0)->isVisible());
        QCOMPARE(pagina.fTamFoto(), QSize(60, 40));
        pagina.fClic(pagina.fControl("toolBar1"), {10, 10});
        BIEN(pagina);
    }

    void fSizesFollowEntriesAndPad()
    {
        clsPagina pagina({{"alta.jpg", fJpeg(fDibujo({300, 600}))}});
        QVERIFY(pagina.fAbrirPagina(800, 600));
        const double dblDpr = pagina.ventana->devicePixelRatioF();
        struct {
            const char *strEntrada; ///< nullptr: the key
            Qt::Key tecla;
            int intTam;
            int intLado; ///< of the thumbnail in pixels
        } const lstCasos[] = {
            {nullptr, Qt::Key_Minus, 0, 66}, // there is none smaller
            {nullptr, Qt::Key_Plus, 1, 100},   {nullptr, Qt::Key_Plus, 2, 133},
            {nullptr, Qt::Key_Plus, 2, 133},   {"mnuOpcionesThump0", {}, 0, 66},
            {"mnuOpcionesThump1", {}, 1, 100}, {nullptr, Qt::Key_Minus, 0, 66},
        };
        for (const auto &caso : lstCasos) {
            if (caso.strEntrada != nullptr) {
                pagina.fElegirEntrada(caso.strEntrada);
            } else {
                pagina.fTecla(caso.tecla, Qt::KeypadModifier);
            }
            QCOMPARE(pagina.fAjuste("TAM_MINI"), std::to_string(caso.intTam));
            for (int intTam = 0; intTam < 3; ++intTam) {
                const std::string strEntrada = "mnuOpcionesThump" + std::to_string(intTam);
                QCOMPARE(pagina.fControl<QAction>(strEntrada.c_str())->isChecked(),
                         intTam == caso.intTam);
            }
            const cmdMini *const mini = pagina.fMini(0);
            QCOMPARE(mini->icon().availableSizes().value(0),
                     QSize(static_cast<int>(caso.intLado * dblDpr / 2 + 0.5),
                           static_cast<int>(caso.intLado * dblDpr)));
            QVERIFY(mini->width() >= caso.intLado + 15);
        }
    }

    void fTheMouseTicksAndChooses()
    {
        clsPagina pagina(30);
        QVERIFY(pagina.fAbrirPagina(800, 600));
        const auto fMarcadas = [&] {
            QList<int> lstMarcadas;
            for (int lngFila = 0; lngFila < 30; ++lngFila) {
                if (pagina.fMarcada(lngFila)) {
                    lstMarcadas.push_back(lngFila);
                }
            }
            return lstMarcadas;
        };
        pagina.fClicMini(5);
        QCOMPARE(pagina.fPosicion(), 5);
        pagina.fClicMini(2, Qt::LeftButton, Qt::ShiftModifier); // backwards, both included
        QCOMPARE(fMarcadas(), QList<int>({2, 3, 4, 5}));
        QCOMPARE(pagina.fPosicion(), 2);
        pagina.fClicMini(4, Qt::LeftButton, Qt::ShiftModifier); // inverts
        QCOMPARE(fMarcadas(), QList<int>({5}));
        BIEN(pagina);
        QTest::keyPress(pagina.ventana->windowHandle(), Qt::Key_Control);
        pagina.fClicMini(7, Qt::LeftButton, Qt::ControlModifier);
        pagina.fClicMini(8, Qt::MiddleButton, Qt::ControlModifier);
        pagina.fClicMini(5, Qt::LeftButton, Qt::ControlModifier);
        QTest::keyRelease(pagina.ventana->windowHandle(), Qt::Key_Control);
        QCOMPARE(fMarcadas(), QList<int>({7, 8}));
        pagina.fClicMini(4, Qt::LeftButton, Qt::MetaModifier); // the system's own key is none
        pagina.fClicMini(9, Qt::MiddleButton);                 // without Ctrl it only chooses
        QCOMPARE(fMarcadas(), QList<int>({7, 8}));
        QCOMPARE(pagina.fPosicion(), 9);
        BIEN(pagina);
        pagina.fClicCasilla(1); // a tick in the list shows on the page
        BIEN(pagina);
        pagina.fClicMini(12, Qt::RightButton);
        QCOMPARE(pagina.fPosicion(), 12);
        QVERIFY(pagina.fControl("frmRecuadro")->isVisible() && !pagina.fMini(12)->isVisible());
        QCOMPARE(pagina.fTamFoto(), QSize(60, 40));
        pagina.fElegirEntrada("mnuFotoMiniaturas");
        BIEN(pagina);
    }

    void fChangesOfTheListReachTheCells()
    {
        const clsArbol arbol;
        fLlenarColores(arbol, 50);
        arbol.fCrear("otra/foto_1100.jpg", fFoto(100), fMomento("2001-01-20 08:00:00"));
        arbol.fCrear("otra/paseo.avi", "no film", fMomento("2001-01-10 08:00:00"));
        clsPagina pagina(arbol);
        QVERIFY(pagina.fAbrirPagina(800, 600));
        const auto fCabecera = [&](int intColumna) {
            auto *const cabecera = pagina.fLista()->horizontalHeader();
            QTest::mouseClick(cabecera->viewport(), Qt::LeftButton, {},
                              {cabecera->sectionViewportPosition(intColumna) + 20, 5});
        };
        pagina.fClicFila(4);
        fCabecera(1); // the same file, now near the end
        QCOMPARE(pagina.fPosicion(), 47);
        BIEN(pagina);
        fCabecera(0);
        BIEN(pagina);
        pagina.fElegirEntrada("mnuOpcionesFotosVideos1");
        QCOMPARE(pagina.fPosicion(), 0);
        BIEN(pagina);
        pagina.fElegirEntrada("mnuOpcionesFotosVideos0");
        BIEN(pagina);
        const clsCuando cuando = fEnDialogo("frmFiltro", [](QDialog &dialogo) {
            auto *const caja = dialogo.findChild<QLineEdit *>("txtTexto");
            caja->setFocus();
            QTest::keyClicks(caja, "_102");
            QTest::keyClick(caja, Qt::Key_Return);
        });
        pagina.fTecla(Qt::Key_F);
        QVERIFY(cuando.fHecho());
        QCOMPARE(pagina.fNombres().size(), 10);
        BIEN(pagina);
        pagina.mensajes.lstRespuestas = {true};
        pagina.fTecla(Qt::Key_F, Qt::ShiftModifier);
        BIEN(pagina);
        // Found again by F5: two files change their names, and one is new.
        QVERIFY(rename(arbol.fRuta("fotos/foto_1003.jpg").c_str(), arbol.fRuta("a").c_str()) == 0);
        QVERIFY(rename(arbol.fRuta("fotos/foto_1040.jpg").c_str(),
                       arbol.fRuta("fotos/foto_1003.jpg").c_str()) == 0);
        QVERIFY(rename(arbol.fRuta("a").c_str(), arbol.fRuta("fotos/foto_1040.jpg").c_str()) == 0);
        arbol.fCrear("fotos/foto_1003.jpg", fFoto(3), fMomento("2001-02-10 12:00:00"));
        arbol.fCrear("fotos/foto_1040.jpg", fFoto(40), fMomento("2001-01-04 12:00:00"));
        arbol.fCrear("fotos/foto_1099.jpg", fFoto(99), fMomento("2000-01-04 12:00:00"));
        pagina.mensajes.lstRespuestas = {true};
        pagina.fTecla(Qt::Key_F5);
        QCOMPARE(pagina.fNombres().size(), 52);
        BIEN(pagina);
    }

    void fACorrectedFileMoves()
    {
        clsPagina pagina(20);
        QVERIFY(pagina.fAbrirPagina(800, 600));
        pagina.fClicMini(2);
        const clsCuando cuando = fEnDialogo("frmFecha", [](QDialog &dialogo) {
            auto *const caja = dialogo.findChild<QLineEdit *>("txtDateTime");
            caja->selectAll();
            QTest::keyClicks(caja, "15/01/2001 18:03");
            QTest::mouseClick(dialogo.findChild<QWidget *>("cmdAceptar1"), Qt::LeftButton);
        });
        pagina.fTecla(Qt::Key_W, Qt::ShiftModifier);
        QVERIFY(cuando.fHecho());
        QVERIFY(pagina.fEsperarLista());
        QCOMPARE(pagina.fPosicion(), 14);
        BIEN(pagina);
    }

    void fWhatThereIsAtOnceIsShownBeforeWhatHasToBeDecoded()
    {
        const clsArbol arbol;
        fLlenarLento(arbol, 12);
        QImage foto(2400, 2000, QImage::Format_RGB32);
        foto.fill(fColor(5));
        QImage mini(48, 40, QImage::Format_RGB32);
        mini.fill(fColor(180));
        arbol.fCrear("ultima.jpg", clsJpegConMini{foto, mini}.fBytes());
        clsPagina pagina(arbol);
        QVERIFY(pagina.fAbrir() && pagina.fTamano(800, 600));
        const auto fEs = [&](int intNumero) {
            const QImage imagen = pagina.fMini(12)->icon().pixmap(400).toImage();
            const QColor color = imagen.pixelColor(imagen.rect().center());
            return std::abs(color.red() - fColor(intNumero).red()) < 12 &&
                   std::abs(color.blue() - fColor(intNumero).blue()) < 12;
        };
        const clsCuando durante(
            [&] {
                return pagina.fCeldas() > 12 && pagina.fMini(12)->isVisible() && fEs(180) &&
                       !pagina.fMini(11)->isVisible();
            },
            [] {});
        pagina.fElegirEntrada("mnuOpcionesThump0");
        pagina.fTecla(Qt::Key_M);
        QVERIFY(durante.fHecho());
        QTRY_VERIFY(fEs(5));
        QCOMPARE(pagina.fMal(), QString());
    }

    void fThePageWhereLeafingEndsBecomesSharp()
    {
        const clsArbol arbol;
        QImage foto(600, 500, QImage::Format_RGB32);
        QImage mini(48, 40, QImage::Format_RGB32);
        mini.fill(fColor(180));
        for (int intNumero = 0; intNumero < 60; ++intNumero) {
            foto.fill(fColor(intNumero));
            arbol.fCrear("foto_" + std::to_string(1000 + intNumero) + ".jpg",
                         clsJpegConMini{foto, mini}.fBytes(),
                         fMomento("2001-01-01 12:00:00") + intNumero * 86400);
        }
        clsPagina pagina(arbol);
        QVERIFY(pagina.fAbrirPagina(600, 450));
        QVERIFY(pagina.fCeldas() * 3 < 60);
        for (int intPagina = 1; intPagina <= 2; ++intPagina) {
            pagina.fTecla(Qt::Key_F12);
            QCOMPARE(pagina.fPosicion(), intPagina * pagina.fCeldas());
        }
        BIEN(pagina); // the colours of the photos, not of what is inside them
        pagina.fTecla(Qt::Key_F12, Qt::ShiftModifier);
        pagina.fTecla(Qt::Key_F11, Qt::ShiftModifier);
        BIEN(pagina);
    }

    void fAReplacedFileShowsItsNewPicture()
    {
        clsPagina pagina(10);
        QVERIFY(pagina.fAbrirPagina(800, 600));
        BIEN(pagina);
        pagina.arbol->fCrear("fotos/foto_1001.jpg", fFoto(77), fMomento("2020-01-01 00:00:00"));
        pagina.fClicMini(3); // any step makes the window look
        const auto fRojo = [&] {
            return pagina.fMini(1)->icon().pixmap(400).toImage().pixelColor(20, 20).red();
        };
        QVERIFY(std::abs(fColor(1).red() - fColor(77).red()) > 100);
        QTRY_VERIFY(std::abs(fRojo() - fColor(77).red()) < 12);
    }

    void fFilesThatGiveNoPictureSaySo()
    {
        const clsArbol arbol;
        fLlenarColores(arbol, 4);
        arbol.fCrear("z1/rota.jpg", "no picture", fMomento("2010-01-01 00:00:00"));
        arbol.fCrear("z1/vacia.jpg", "", fMomento("2010-01-02 00:00:00"));
        arbol.fCrear("z1/cinta.mov", "no film", fMomento("2010-01-03 00:00:00"));
        arbol.fCrear("z1/ida.jpg", fFoto(5), fMomento("2010-01-04 00:00:00"));
        arbol.fCrear("z2/ida.avi", "x", fMomento("2010-01-05 00:00:00"));
        arbol.fCrear("z3/a.jpg", fFoto(6), fMomento("2010-01-06 00:00:00"));
        arbol.fCrear("z3/b.jpg", fFoto(6), fMomento("2010-01-07 00:00:00"));
        arbol.fCrear("z3/c.mov", fFoto(6), fMomento("2010-01-08 00:00:00"));
        clsPagina pagina(arbol);
        QVERIFY(pagina.fAbrir());
        unlink(arbol.fRuta("z1/ida.jpg").c_str());
        unlink(arbol.fRuta("z2/ida.avi").c_str());
        // A folder that leads back to itself: the disk does not give what lies in it, to nobody.
        QVERIFY(rename(arbol.fRuta("z3").c_str(), arbol.fRuta("z4").c_str()) == 0);
        arbol.fEnlace("z3", arbol.fRuta("z3"));
        QVERIFY(pagina.fTamano(800, 600));
        pagina.fElegirEntrada("mnuOpcionesThump0");
        pagina.mensajes.lstTextos.clear();
        pagina.fTecla(Qt::Key_M);
        const QStringList lstTextos = {"",
                                       "",
                                       "",
                                       "",
                                       "(No disponible)",
                                       "(No disponible)",
                                       "v  i  d  e  o",
                                       "(No existe)",
                                       "(No existe)",
                                       "(No disponible)",
                                       "(No disponible)",
                                       "v  i  d  e  o"};
        for (int intCelda = 0; intCelda < lstTextos.size(); ++intCelda) {
            QCOMPARE(pagina.fMini(intCelda)->text(), lstTextos[intCelda]);
            // Screen readers are told the file, too, whatever stands in its place.
            const QString strLector = pagina.fMini(intCelda)->accessibleName();
            QVERIFY(strLector.startsWith(pagina.fCelda(intCelda, 0) + " ("));
            QVERIFY(strLector.endsWith(lstTextos[intCelda].startsWith('v') ? QString(", video")
                                       : lstTextos[intCelda].isEmpty()
                                           ? QString(" KB")
                                           : ", " + lstTextos[intCelda]));
            QVERIFY(!pagina.fMini(intCelda)->icon().isNull());
        }
        const auto fError = [&](const char *strRuta) {
            return "Error al generar el Thumbnail: " + QString::fromStdString(arbol.fRuta(strRuta));
        };
        const QStringList lstDichos = {
            "Actualiza la lista de archivos. Se han detectado incidencias.", fError("z3/a.jpg"),
            fError("z3/b.jpg"), fError("z3/c.mov")};
        QCOMPARE(pagina.mensajes.fDichos(), lstDichos);
        pagina.fClicMini(1); // what is shown is not tried again
        QCOMPARE(pagina.mensajes.fDichos(), QStringList());
        BIEN(pagina);
    }

    void fCaptionsFitWhateverTheDesktopsFont()
    {
        int intAntes = 0;
        for (const int intPuntos : {6, 9, 14, 40}) {
            cmdMini celda(0, nullptr);
            celda.setFont(QFont(celda.font().family(), intPuntos));
            celda.resize(116, 116);
            celda.fPoner({}, QStringLiteral("(No disponible)"));
            QImage imagen(celda.size(), QImage::Format_RGB32);
            celda.render(&imagen);
            int intTinta = 0;
            for (int intY = 60; intY < 112; ++intY) {
                QCOMPARE(imagen.pixel(3, intY), imagen.pixel(3, 20));
                QCOMPARE(imagen.pixel(112, intY), imagen.pixel(3, 20));
                for (int intX = 4; intX < 112; ++intX) {
                    intTinta += qGray(imagen.pixel(intX, intY)) > 150 ? 1 : 0;
                }
            }
            QVERIFY2(intTinta >= std::max(intAntes, 20), qPrintable(QString::number(intPuntos)));
            intAntes = intPuntos < 14 ? intTinta : intAntes; // from there on the cell sets the size
        }
    }

    void fWhatComesInTheMiddleOfADrawWins()
    {
        const clsArbol arbol;
        fLlenarLento(arbol, 100);
        clsPagina pagina(arbol);
        QVERIFY(pagina.fAbrirPagina(600, 450));
        const int intCeldas = pagina.fCeldas();
        struct {
            const char *strQue;
            std::function<void()> fHacer;
            int lngDespues;
        } const lstCasos[] = {
            {"a row of another page", [&] { pagina.fClicFila(1); }, 1},
            {"a cell that is drawn already", [&] { pagina.fClicMini(0); }, intCeldas},
            {"another size of the window", [&] { pagina.ventana->resize(520, 430); }, -1},
        };
        for (const auto &caso : lstCasos) {
            pagina.fTecla(Qt::Key_F11, Qt::ShiftModifier);
            const clsCuando durante(
                [&] {
                    return pagina.fProcesando() &&
                           pagina.fMini(0)->property("Tag") == QString::number(intCeldas);
                },
                caso.fHacer);
            pagina.fTecla(Qt::Key_F12);
            QVERIFY2(durante.fHecho(), caso.strQue);
            QVERIFY(pagina.fEsperarLista());
            QTRY_COMPARE(pagina.fMal(), QString());
            if (caso.lngDespues >= 0) {
                QCOMPARE(pagina.fPosicion(), caso.lngDespues);
            }
        }
    }

    void fClosingInTheMiddleOfADrawEndsIt()
    {
        const clsArbol arbol;
        fLlenarLento(arbol, 80);
        clsPagina pagina(arbol);
        QVERIFY(pagina.fAbrir());
        const clsCuando durante([&] { return pagina.fProcesando(); },
                                [&] { pagina.ventana->close(); });
        pagina.fTecla(Qt::Key_M);
        QVERIFY(durante.fHecho());
        QTRY_VERIFY(!pagina.ventana->isVisible());
        QVERIFY(!pagina.fMini(pagina.fCeldas() - 1)->isVisible()); // it did not draw on
    }

    void fAThousandCellsOnALargeScreen()
    {
        clsPagina pagina(1500);
        QVERIFY(pagina.fAbrirPagina(3840, 2160));
        QVERIFY(pagina.fCeldas() >= 1000);
        BIEN(pagina);
        pagina.fTecla(Qt::Key_F12);
        BIEN(pagina);
    }

    void fAnEmptyListDrawsNothing()
    {
        clsPagina pagina(0);
        QVERIFY(pagina.fAbrir());
        pagina.fElegirEntrada("mnuOpcionesThump0");
        QCOMPARE(pagina.fAjuste("TAM_MINI"), std::string("2"));
        QVERIFY(pagina.fControl<QAction>("mnuOpcionesThump2")->isChecked());
        pagina.fTecla(Qt::Key_M);
        pagina.fClic(pagina.fControl("toolBar1"), {10, 10});
        QVERIFY(pagina.fControl("frmRecuadro")->isVisible() && !pagina.fMini(0)->isVisible());
    }
};

static const clsTema temaMiniaturas{"miniaturas", fCorrer<clsPruebasMiniaturas>};

#include "miniaturas_test.moc"
