// The window that repairs dates.
#include "repair/frmDesfase.h"
#include "repair/frmReparar.h"
#include "repair/frmRevisar.h"

#include "sesion.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include <map>

namespace {

clsFecha fFecha(const char *strFecha) { return fLeerFecha(strFecha).value(); }

/// A file that has these dates inside, and one of the disk.
clsFechasFichero fFechas(const char *strArchivo, clsFuentes lstFuentes)
{
    return {true, fFecha(strArchivo), false, std::move(lstFuentes)};
}

clsFechaFuente fExif(const char *strFecha) { return {fFecha(strFecha), Fuente::ExifTomada}; }

/// What the window is given, and what it asks for.
struct clsMundo {
    const std::map<std::string, clsFechasFichero> mapFechas{
        {"/a/uno.jpg", fFechas("2020/01/01 10:00:00", {fExif("2009/07/14 18:03:22")})},
        {"/a/dos.jpg", fFechas("2020/01/02 10:00:00", {fExif("2009/07/15 09:00:00")})},
        {"/b/nada.jpg", fFechas("2020/01/03 10:00:00", {})},
        {"/b/duda.jpg",
         fFechas("2020/01/04 10:00:00",
                 {fExif("2010/01/01 00:00:00"), {fFecha("2012/05/05 12:00:00"), Fuente::Nombre}})},
    };
    clsMensajesGuion mensajes;
    std::vector<clsReparado> lstReparados;
    bool bolCerrar = true;
    std::function<void(const std::function<bool(int)> &)> fMientras;

    [[nodiscard]] std::unique_ptr<frmReparar> fAbrir()
    {
        std::vector<std::string> lstRutas;
        for (const char *const strRuta :
             {"/a/uno.jpg", "/a/dos.jpg", "/b/nada.jpg", "/b/duda.jpg"}) {
            lstRutas.emplace_back(strRuta);
        }
        auto ventana = std::make_unique<frmReparar>(
            nullptr, std::move(lstRutas), clsTablaReparacion("/", fFecha("2026/01/01 00:00:00")),
            clsEntornoReparar{
                [mapFechas = mapFechas](const std::string &strRuta) {
                    return mapFechas.at(strRuta);
                },
                [](const std::string &strRuta) { return strRuta == "/a/20090715_dos.jpg"; },
                [](const std::string &, int intLado) {
                    QImage imagen(intLado, intLado / 2, QImage::Format_RGB32);
                    imagen.fill(Qt::red);
                    return imagen;
                },
                [this](const auto &lstSuyos, const auto &fPaso) {
                    lstReparados = lstSuyos;
                    if (fMientras) {
                        fMientras(fPaso);
                    }
                    return bolCerrar;
                },
                mensajes});
        ventana->show();
        return QTest::qWaitForWindowActive(ventana.get()) && QTest::qWaitFor([&] {
                   return ventana->findChild<QLabel *>("lblProgreso")->text() == "";
               })
                   ? std::move(ventana)
                   : nullptr;
    }
};

QTableView *fTabla(const frmReparar &ventana) { return ventana.findChild<QTableView *>(); }

/// The texts of a column, from top to bottom.
QStringList fColumna(const frmReparar &ventana, ColumnaReparacion columna)
{
    QStringList lstTextos;
    const auto *const modelo = fTabla(ventana)->model();
    for (int intFila = 0; intFila < modelo->rowCount(); ++intFila) {
        const QModelIndex indice = modelo->index(intFila, static_cast<int>(columna));
        lstTextos << (columna == ColumnaReparacion::Marca
                          ? indice.data(Qt::AccessibleTextRole).toString()
                          : indice.data().toString());
    }
    return lstTextos;
}

template <typename Control> Control *fHijo(const QWidget &ventana, const char *strNombre)
{
    return ventana.findChild<Control *>(QString::fromLatin1(strNombre));
}

bool fEsperarTexto(const QWidget &ventana, const char *strBoton, const QString &strTexto)
{
    auto *const boton = fHijo<QPushButton>(ventana, strBoton);
    return QTest::qWaitFor([&] { return boton->text() == strTexto && boton->isEnabled(); });
}

} // namespace

class clsPruebasReparar : public QObject {
    Q_OBJECT
private slots:
    void fItProposesAndCounts()
    {
        clsMundo mundo;
        const auto ventana = mundo.fAbrir();
        QVERIFY(ventana);
        QCOMPARE(fColumna(*ventana, ColumnaReparacion::Marca),
                 (QStringList{"marcada", "marcada", "sin marcar", "sin marcar"}));
        QCOMPARE(
            fColumna(*ventana, ColumnaReparacion::Nueva),
            (QStringList{"14/07/2009 18:03:22", "15/07/2009 09:00:00", "", "01/01/2010 00:00:00"}));
        // One new name is taken: its row says so and stays out.
        QVERIFY(fEsperarTexto(*ventana, "cmdCorregir", "&Corregir 1 archivo"));
        QVERIFY(fColumna(*ventana, ColumnaReparacion::Reparo)[1].contains("nombre nuevo"));
        QCOMPARE(fHijo<QLabel>(*ventana, "lblCuentas")->text(),
                 QString("4 archivos: 3 por EXIF, 1 sin propuesta"));
        QCOMPARE(fHijo<QLabel>(*ventana, "lblFuentes")->text(),
                 QString("EXIF (tomada): 14/07/2009 18:03:22"));
        auto *const imagen = fHijo<QLabel>(*ventana, "imgActual");
        QTRY_COMPARE(imagen->pixmap().toImage().pixelColor(3, 3), QColor(Qt::red));
    }

    void fKeysAloneDoAllOfIt()
    {
        clsMundo mundo;
        const auto ventana = mundo.fAbrir();
        QVERIFY(ventana);
        const auto fTecla = [](Qt::Key tecla, Qt::KeyboardModifiers mayus = Qt::NoModifier) {
            QTest::keyClick(QApplication::focusWidget(), tecla, mayus);
        };
        QCOMPARE(QApplication::focusWidget(), fTabla(*ventana));
        fTecla(Qt::Key_Down);
        fTecla(Qt::Key_Space); // the one whose name is taken
        fTecla(Qt::Key_Down);
        fTecla(Qt::Key_Space); // the one without a proposal
        QCOMPARE(fColumna(*ventana, ColumnaReparacion::Marca),
                 (QStringList{"marcada", "sin marcar", "marcada", "sin marcar"}));
        fHijo<QLineEdit>(*ventana, "txtFecha")->setFocus();
        QTest::keyClicks(QApplication::focusWidget(), "31/02/2015");
        fTecla(Qt::Key_Return);
        QCOMPARE(mundo.mensajes.fDichos().size(), 1);
        fHijo<QLineEdit>(*ventana, "txtFecha")->clear();
        QTest::keyClicks(QApplication::focusWidget(), "28/02/2015");
        fTecla(Qt::Key_Return);
        QCOMPARE(fColumna(*ventana, ColumnaReparacion::Nueva),
                 (QStringList{"28/02/2015 12:00:00", "15/07/2009 09:00:00", "28/02/2015 12:00:00",
                              "01/01/2010 00:00:00"}));
        QVERIFY(fEsperarTexto(*ventana, "cmdCorregir", "&Corregir 2 archivos"));
        mundo.mensajes.lstRespuestas = {false, true};
        fHijo<QPushButton>(*ventana, "cmdCorregir")->setFocus();
        fTecla(Qt::Key_Space); // and Cancel
        QCOMPARE(mundo.mensajes.fDichos().size(), 1);
        QVERIFY(mundo.lstReparados.empty() && ventana->isVisible());
        fTecla(Qt::Key_Space);
        QVERIFY(!ventana->isVisible());
        QCOMPARE(mundo.lstReparados.size(), std::size_t{2});
        QCOMPARE(mundo.lstReparados[1].strRutaNueva, std::string("/b/20150228_nada.jpg"));
    }

    void fItShowsWhatIsAskedFor()
    {
        clsMundo mundo;
        const auto ventana = mundo.fAbrir();
        QVERIFY(ventana);
        auto *const vista = fHijo<QComboBox>(*ventana, "cboVista");
        const QList<std::pair<int, QStringList>> lstVistas{
            {1, {"uno.jpg", "dos.jpg", "duda.jpg"}},
            {2, {"duda.jpg"}},
            {3, {"nada.jpg"}},
            {0, {"uno.jpg", "dos.jpg", "nada.jpg", "duda.jpg"}},
        };
        for (const auto &[intVista, lstNombres] : lstVistas) {
            vista->setFocus();
            QTest::keyClick(vista, intVista == 0 ? Qt::Key_Home : Qt::Key_Down);
            QCOMPARE(vista->currentIndex(), intVista);
            QCOMPARE(fColumna(*ventana, ColumnaReparacion::Nombre), lstNombres);
        }
        QHeaderView *const titulos = fTabla(*ventana)->horizontalHeader();
        const auto fPulsarTitulo = [&] {
            QTest::mouseClick(titulos->viewport(), Qt::LeftButton, {},
                              {titulos->sectionViewportPosition(1) + 9, titulos->height() / 2});
        };
        fPulsarTitulo();
        QCOMPARE(fColumna(*ventana, ColumnaReparacion::Nombre),
                 (QStringList{"dos.jpg", "duda.jpg", "nada.jpg", "uno.jpg"}));
        QVERIFY(titulos->isSortIndicatorShown());
        fPulsarTitulo();
        QCOMPARE(fColumna(*ventana, ColumnaReparacion::Nombre).first(), QString("uno.jpg"));
    }

    void fTickedRowsTakeASourceAShiftAndTheirOldName()
    {
        clsMundo mundo;
        const auto ventana = mundo.fAbrir();
        QVERIFY(ventana);
        QTest::mouseClick(fHijo<QPushButton>(*ventana, "cmdMarcar"), Qt::LeftButton);
        auto *const fuente = fHijo<QComboBox>(*ventana, "cboFuente");
        QCOMPARE(fuente->count(), 3);
        fuente->setFocus();
        QTest::keyClick(fuente, Qt::Key_End); // the name
        QTest::keyClick(fuente, Qt::Key_Return);
        QCOMPARE(fColumna(*ventana, ColumnaReparacion::Fuente).last(), QString("nombre"));
        const auto desfase = fEnDialogo("frmDesfase", [](QDialog &dialogo) {
            fHijo<QSpinBox>(dialogo, "spnDias")->setValue(-1);
            fHijo<QSpinBox>(dialogo, "spnHoras")->setValue(2);
            QCOMPARE(fHijo<QLabel>(dialogo, "lblResultado")->text(),
                     QString("Del 13/07/2009 20:03:22 al 02/01/2020 12:00:00"));
            QTest::keyClick(&dialogo, Qt::Key_Return);
        });
        QTest::mouseClick(fHijo<QPushButton>(*ventana, "cmdDesfase"), Qt::LeftButton);
        QVERIFY(desfase.fHecho());
        QCOMPARE(fColumna(*ventana, ColumnaReparacion::Nueva).first(),
                 QString("13/07/2009 20:03:22"));
        QTest::mouseClick(fHijo<QCheckBox>(*ventana, "chkNombre"), Qt::LeftButton, {}, {5, 9});
        QCOMPARE(fColumna(*ventana, ColumnaReparacion::NombreNuevo).first(), QString("uno.jpg"));
        QVERIFY(fEsperarTexto(*ventana, "cmdCorregir", "&Corregir 4 archivos"));
    }

    void fEscLeavesAndStops()
    {
        clsMundo mundo;
        const auto ventana = mundo.fAbrir();
        QVERIFY(ventana);
        bool bolSeguia = false;
        bool bolPara = false;
        mundo.bolCerrar = false;
        mundo.fMientras = [&](const std::function<bool(int)> &fPaso) {
            bolSeguia = fPaso(0);
            QTest::keyClick(ventana.get(), Qt::Key_Escape);
            bolPara = !fPaso(1);
        };
        mundo.mensajes.lstRespuestas = {true};
        QVERIFY(fEsperarTexto(*ventana, "cmdCorregir", "&Corregir 1 archivo"));
        QTest::mouseClick(fHijo<QPushButton>(*ventana, "cmdCorregir"), Qt::LeftButton);
        QVERIFY(bolSeguia && bolPara && ventana->isVisible());
        QTest::keyClick(ventana.get(), Qt::Key_Escape);
        QVERIFY(!ventana->isVisible());
    }

    void fTheOverviewLeadsToTheFiles()
    {
        const clsMundo mundo;
        const std::vector<std::string> lstRutas{"/a/uno.jpg", "/a/dos.jpg", "/b/nada.jpg"};
        const auto fAbrir = [&](const std::function<void(QTableView &)> &fHacer) {
            frmRevisar ventana(nullptr, lstRutas,
                               [mapFechas = mundo.mapFechas](const auto &strRuta) {
                                   return mapFechas.at(strRuta);
                               });
            const auto cuando = fEnDialogo("frmRevisar", [&](QDialog &dialogo) {
                QVERIFY(QTest::qWaitFor(
                    [&] { return fHijo<QLabel>(dialogo, "lblProgreso")->text() == ""; }));
                QCOMPARE(fHijo<QLabel>(dialogo, "lblResumen")->text(),
                         QString("3 archivos: 0 con la fecha correcta, 2 incorrecta, 1 sin fecha"));
                fHacer(*fHijo<QTableView>(dialogo, "tblResumen"));
            });
            return ventana.fMostrar();
        };
        const auto fClic = [](QTableView &tabla, int intColumna, int intX) {
            QTest::mouseClick(tabla.viewport(), Qt::LeftButton, {},
                              tabla.visualRect(tabla.model()->index(0, intColumna)).topLeft() +
                                  QPoint(intX, 8));
        };
        const std::vector<std::string> lstMal{"/a/uno.jpg", "/a/dos.jpg"};
        QCOMPARE(fAbrir([](QTableView &tabla) { QTest::keyClick(&tabla, Qt::Key_Return); }),
                 lstRutas);
        QCOMPARE(fAbrir([&](QTableView &tabla) { fClic(tabla, 2, 9); }), lstMal);
        QCOMPARE(fAbrir([&](QTableView &tabla) { fClic(tabla, clsModeloResumen::intBarra, 9); }),
                 lstMal);
        QVERIFY(fAbrir([](QTableView &tabla) { QTest::keyClick(&tabla, Qt::Key_Escape); }).empty());
    }

    void fTheProgramRepairsAndTakesBack()
    {
        clsSesion sesion({
            {"IMG-20090714-WA0012.jpg", "x"},
            {"otra.jpg", "y"},
        });
        QVERIFY(sesion.fAbrir());
        const QStringList lstAntes = sesion.fNombres();
        sesion.mensajes.lstRespuestas = {true, true};
        const auto reparar = fEnDialogo("frmReparar", [](QDialog &dialogo) {
            QVERIFY(fEsperarTexto(dialogo, "cmdCorregir", "&Corregir 1 archivo"));
            fHijo<QPushButton>(dialogo, "cmdCorregir")->setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        });
        sesion.fElegirEntrada("mnuMasReparar");
        QVERIFY(reparar.fHecho() && sesion.fEsperarLista());
        QCOMPARE(sesion.mensajes.lstTextos.back(), QString("1 corregido."));
        QVERIFY(sesion.fNombres().contains("20090714_IMG-20090714-WA0012.jpg"));
        QCOMPARE(sesion.fCelda(1, 1), QString("2009/07/14 12:00:00"));
        QTest::keyClick(sesion.ventana.get(), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(sesion.fEsperarLista());
        QCOMPARE(sesion.mensajes.lstTextos.back(), QString("1 deshecho."));
        QCOMPARE(sesion.fNombres(), lstAntes);
        sesion.fElegirEntrada("mnuMasDeshacer");
        QVERIFY(sesion.mensajes.lstTextos.back().contains("No hay ninguna"));
    }
};

static const clsTema temaReparar{"reparar", fCorrer<clsPruebasReparar>};

#include "reparar_test.moc"
