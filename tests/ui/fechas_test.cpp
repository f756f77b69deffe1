// What the window does about dates: the verdict, the search, the correction, the EXIF text.
#include "catalogue/diario.h"
#include "sesion.h"
#include "soporte/fallos.h"

#include <QApplication>
#include <QDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>
#include <optional>

namespace {

constexpr const char *strBien = "2009/20090714_playa.jpg"; // its name agrees
constexpr const char *strMal = "2009/20090715_boda.jpg";   // copied in 2012
constexpr const char *strOtra = "2010/20100101_nieve.jpg"; // its name agrees

/// Presses W (or Shift+W) and does something in the dialog, if it opens.
/// @return whether it opened.
bool fCorregir(clsSesion &sesion, Qt::KeyboardModifiers mayus,
               const std::function<void(QDialog &)> &fHacer)
{
    const clsCuando cuando = fEnDialogo("frmFecha", fHacer);
    sesion.fTecla(Qt::Key_W, mayus);
    return cuando.fHecho();
}

void fPulsarBoton(QDialog &dialogo, const char *strNombre)
{
    QTest::mouseClick(dialogo.findChild<QPushButton *>(strNombre), Qt::LeftButton);
}

void fTeclear(QDialog &dialogo, const char *strTexto)
{
    auto *const caja = dialogo.findChild<QLineEdit *>("txtDateTime");
    caja->selectAll();
    QTest::keyClicks(caja, strTexto);
}

std::time_t fModificado(const clsArbol &arbol, const char *strRelativa)
{
    return QFileInfo(QString::fromStdString(arbol.fRuta(strRelativa)))
        .lastModified()
        .toSecsSinceEpoch();
}

} // namespace

class clsPruebasFechas : public clsPruebasSesion {
    Q_OBJECT
private slots:
    void fTheConflictShowsWithTheFilesWhoseDateIsWrong()
    {
        auto *const aviso = m_sesion->fControl("txtInfo3");
        const bool lstConflicto[] = {false, false, true, false};
        for (int lngPos = 0; lngPos < 4; ++lngPos) {
            QCOMPARE(m_sesion->fPosicion(), lngPos);
            QCOMPARE(aviso->isVisible(), lstConflicto[lngPos]);
            m_sesion->fTecla(Qt::Key_F12);
        }
        QCOMPARE(m_sesion->fTexto("txtInfo3"), QString("CONFLICTO FECHAS"));
    }

    void fTheSearchGoesUpFromTheCurrentFile()
    {
        m_sesion->fTecla(Qt::Key_F12);
        m_sesion->fTecla(Qt::Key_E);
        QCOMPARE(m_sesion->fPosicion(), 1); // nothing wrong up there
        QVERIFY(!m_sesion->fControl("txtInfo3")->isVisible());
        QVERIFY(m_sesion->fControl("imgFoto")->isVisible());
        m_sesion->fTecla(Qt::Key_F12, Qt::ShiftModifier);
        QTRY_COMPARE(m_sesion->fPosicion(), 3);
        for (int intVez = 0; intVez < 2; ++intVez) { // the current file is looked at first
            m_sesion->fTecla(Qt::Key_E);
            QTRY_COMPARE(m_sesion->fPosicion(), 2);
            QVERIFY(m_sesion->fControl("txtInfo3")->isVisible());
            QCOMPARE(m_sesion->fAjuste("SELEC"), m_arbol->fRuta(strMal));
        }
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList());
    }

    void fTheSearchClearsThePageAndShowsItAgain()
    {
        m_sesion->fTecla(Qt::Key_M);
        QTRY_VERIFY(m_sesion->fControl("cmdMini3")->isVisible());
        const clsCuando cuando([] { return QApplication::overrideCursor() != nullptr; },
                               [&] {
                                   for (const char *const strCelda : {"cmdMini0", "cmdMini3"}) {
                                       QVERIFY(!m_sesion->fControl(strCelda)->isVisible());
                                   }
                               });
        m_sesion->fTecla(Qt::Key_E);
        QVERIFY(cuando.fHecho());
        for (const char *const strCelda : {"cmdMini0", "cmdMini3"}) {
            QVERIFY(m_sesion->fControl(strCelda)->isVisible());
        }
    }

    void fEscEndsTheSearch()
    {
        m_sesion->fTecla(Qt::Key_F12, Qt::ShiftModifier);
        QTRY_COMPARE(m_sesion->fPosicion(), 3);
        const clsCuando cuando([] { return QApplication::overrideCursor() != nullptr; },
                               [&] {
                                   m_sesion->fTecla(Qt::Key_Space); // is dropped
                                   m_sesion->fTecla(Qt::Key_Escape);
                               });
        m_sesion->fTecla(Qt::Key_E);
        QVERIFY2(cuando.fHecho(), "the window is busy while it searches");
        QCOMPARE(m_sesion->fPosicion(), 3);
        QVERIFY(!m_sesion->fMarcada(3));
        QVERIFY(m_sesion->fControl("imgFoto")->isVisible());
    }

    void fClosingEndsTheSearch()
    {
        m_sesion->fTecla(Qt::Key_F12, Qt::ShiftModifier);
        QTRY_COMPARE(m_sesion->fPosicion(), 3);
        const std::string strSelec = m_sesion->fAjuste("SELEC");
        const clsCuando cuando([] { return QApplication::overrideCursor() != nullptr; },
                               [&] { QVERIFY(!m_sesion->ventana->close()); });
        m_sesion->fTecla(Qt::Key_E);
        QVERIFY(cuando.fHecho());
        QTRY_VERIFY(!m_sesion->ventana->isVisible());
        QCOMPARE(m_sesion->fAjuste("SELEC"), strSelec);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void fARightFileIsCorrectedOnlyWithShift()
    {
        const auto fCancelar = [](QDialog &dialogo) { fPulsarBoton(dialogo, "cmdCancelar"); };
        QVERIFY(!fCorregir(*m_sesion, {}, fCancelar));
        QVERIFY(fCorregir(*m_sesion, Qt::ShiftModifier, fCancelar));
        QCOMPARE(m_sesion->fNombres().size(), 4);
        QCOMPARE(QString::fromStdString(m_arbol->fLeer("Miravel.dat")).count("20090714_playa"), 1);
    }

    void fStayingShowsTheCorrectedFile()
    {
        m_sesion->fClicFila(2);
        QVERIFY(fCorregir(*m_sesion, {}, [&](QDialog &dialogo) {
            QCOMPARE(dialogo.findChild<QLabel *>("lblActual")->text(), "04/03/2012 18:20:00");
            QCOMPARE(dialogo.findChild<QPushButton *>("cmdDateTime0")->text(), "(no válida)");
            QVERIFY(!dialogo.findChild<QPushButton *>("cmdDateTime0")->isEnabled());
            // Screen readers are told where each date comes from.
            QCOMPARE(dialogo.findChild<QPushButton *>("cmdDateTime0")->accessibleName(),
                     "Fecha EXIF: (no válida)");
            QCOMPARE(dialogo.findChild<QPushButton *>("cmdDateTime1")->accessibleName(),
                     "Fecha Nombre1: 15/07/2009 12:00:00");
            fPulsarBoton(dialogo, "cmdDateTime1");
            QCOMPARE(dialogo.findChild<QLineEdit *>("txtDateTime")->text(), "15/07/2009 12:00:00");
            fPulsarBoton(dialogo, "cmdAceptar1");
        }));
        constexpr const char *strNueva = "2009/20090715_20090715_boda.jpg";
        QTRY_COMPARE(m_sesion->fPosicion(), 1); // in its place by date
        QCOMPARE(m_sesion->fCelda(1, 0), QString("20090715_20090715_boda.jpg"));
        QCOMPARE(m_sesion->fCelda(1, 1), QString("2009/07/15 12:00:00"));
        QVERIFY(!m_sesion->fControl("txtInfo3")->isVisible());
        QCOMPARE(m_sesion->fAjuste("SELEC"), m_arbol->fRuta(strNueva));
        QCOMPARE(fModificado(*m_arbol, strNueva), fMomento("2009-07-15 12:00:00"));
        const QString strCatalogo = QString::fromStdString(m_arbol->fLeer("Miravel.dat"));
        QVERIFY(strCatalogo.contains("/20090715_20090715_boda.jpg\r\n2009/07/15 12:00:00\r\n"));
        const auto lstNombres = m_arbol->fNombres();
        QCOMPARE(
            std::count_if(lstNombres.begin(), lstNombres.end(),
                          [](const std::string &str) { return str.starts_with("Miravel.dat."); }),
            1);
    }

    void fMovingOnShowsTheNextFileOfTheListThatWas()
    {
        // By name descending: fin, nieve, boda, playa.
        for (int intVez = 0; intVez < 2; ++intVez) {
            m_sesion->fClic(m_sesion->fLista()->horizontalHeader()->viewport(), {20, 5});
        }
        m_sesion->fClicFila(1);
        QVERIFY(fCorregir(*m_sesion, Qt::ShiftModifier, [](QDialog &dialogo) {
            fTeclear(dialogo, "13/07/2009 18:03");
            fPulsarBoton(dialogo, "cmdAceptar0");
        }));
        QTRY_COMPARE(m_sesion->fPosicion(), 2); // by date: nieve, playa, boda, fin
        QCOMPARE(m_sesion->fCelda(2, 0), QString("20090715_boda.jpg"));
        QCOMPARE(fModificado(*m_arbol, "2010/20090713_20100101_nieve.jpg"),
                 fMomento("2009-07-13 18:03:00"));
    }

    void fTickedFilesAreCorrectedTogether()
    {
        m_sesion->fClicCasilla(0);
        m_sesion->fClicCasilla(2);
        QVERIFY(!fCorregir(*m_sesion, {}, [](QDialog &dialogo) { dialogo.reject(); }));
        QVERIFY(fCorregir(*m_sesion, Qt::ShiftModifier, [](QDialog &dialogo) {
            QCOMPARE(dialogo.findChild<QLabel *>("lblActual")->text(), "(2 FICHEROS)");
            fTeclear(dialogo, "24/12/2011");
            fPulsarBoton(dialogo, "cmdAceptar1");
        }));
        // Two of one date have the order of the catalogue, which is that of the disk.
        QCOMPARE(m_sesion->fCelda(m_sesion->fPosicion(), 0), QString("20111224_20090715_boda.jpg"));
        QStringList lstNombres = m_sesion->fNombres();
        lstNombres.sort();
        QCOMPARE(lstNombres, QStringList({"20100101_nieve.jpg", "20111224_20090714_playa.jpg",
                                          "20111224_20090715_boda.jpg", "20130101_fin.jpg"}));
        for (int lngPos = 0; lngPos < 4; ++lngPos) {
            QVERIFY(!m_sesion->fMarcada(lngPos));
        }
    }

    void fWhatIsNoDateKeepsTheDialogOpen()
    {
        m_sesion->fClicFila(2);
        QVERIFY(fCorregir(*m_sesion, {}, [this](QDialog &dialogo) {
            fTeclear(dialogo, "31/02/2009");
            fPulsarBoton(dialogo, "cmdAceptar0");
            QVERIFY(dialogo.isVisible());
            const QStringList lstDichos = m_sesion->mensajes.fDichos();
            QCOMPARE(lstDichos.size(), 1);
            QVERIFY(lstDichos.front().startsWith("'31/02/2009 12:00:00' no es una fecha válida."));
            QTest::keyClick(&dialogo, Qt::Key_Escape);
        }));
        QCOMPARE(m_sesion->fNombres().size(), 4);
        QCOMPARE(fModificado(*m_arbol, strMal), fMomento("2012-03-04 18:20:00"));
    }

    void fANameThatIsTakenIsReportedAndTheRestGoesOn()
    {
        m_arbol->fCrear("2009/20111224_20090714_playa.jpg", "in the way");
        m_sesion->fClicCasilla(0);
        m_sesion->fClicCasilla(2);
        QVERIFY(fCorregir(*m_sesion, Qt::ShiftModifier, [](QDialog &dialogo) {
            fTeclear(dialogo, "24/12/2011");
            fPulsarBoton(dialogo, "cmdAceptar1");
        }));
        QCOMPARE(m_sesion->mensajes.fDichos(),
                 QStringList(
                     QString::fromStdString(m_arbol->fRuta(strBien) + "\r\nno puede llamarse\r\n" +
                                            m_arbol->fRuta("2009/20111224_20090714_playa.jpg") +
                                            "\r\n17: El fichero ya existe")));
        QCOMPARE(m_arbol->fLeer("2009/20111224_20090714_playa.jpg"), "in the way");
        QCOMPARE(m_sesion->fCelda(m_sesion->fPosicion(), 0), QString("20111224_20090715_boda.jpg"));
        const int lngQueda = static_cast<int>(m_sesion->fNombres().indexOf("20090714_playa.jpg"));
        QVERIFY(lngQueda >= 0);
        QCOMPARE(m_sesion->fCelda(lngQueda, 1), QString("2011/12/24 12:00:00"));
    }

    void fALinkOutOfTheArchiveIsNamedAndItsTargetKeepsItsTime()
    {
        const clsArbol otra;
        otra.fCrear("ajena.jpg", m_arbol->fLeer(strMal), fMomento("2012-03-04 18:20:00"));
        QVERIFY(QFile::remove(QString::fromStdString(m_arbol->fRuta(strMal))));
        m_arbol->fEnlace(strMal, otra.fRuta("ajena.jpg"));
        m_sesion->fClicFila(2);
        QVERIFY(fCorregir(*m_sesion, {}, [](QDialog &dialogo) {
            fTeclear(dialogo, "15/07/2009");
            fPulsarBoton(dialogo, "cmdAceptar1");
        }));
        constexpr const char *strNueva = "2009/20090715_20090715_boda.jpg";
        QCOMPARE(m_sesion->mensajes.fDichos(),
                 QStringList("No se ha podido poner la fecha a:\r\n" +
                             QString::fromStdString(m_arbol->fRuta(strNueva)) +
                             " (El enlace lleva fuera de la carpeta)"));
        QCOMPARE(fModificado(otra, "ajena.jpg"), fMomento("2012-03-04 18:20:00"));
        QTRY_COMPARE(m_sesion->fCelda(m_sesion->fPosicion(), 1), QString("2009/07/15 12:00:00"));
    }

    void fACorrectionThatWasKilledIsFinishedByTheNextStart()
    {
        for (const char *const strLista : {"Miravel.dat", "Miravel.dat.20200101000000"}) {
            const clsArbol arbol;
            arbol.fCrear("a.jpg", m_arbol->fLeer(strMal));
            arbol.fCrear("sin listar.jpg", m_arbol->fLeer(strMal)); // nobody walks the disk
            const auto datos = fVer(arbol.fRuta("a.jpg"));
            const auto fecha = fLeerFecha("2009/07/15 12:00:00");
            QVERIFY(!fEscribirDiario(
                arbol.fRaiz(),
                {"Miravel.dat.20200101000000", {{"a.jpg", "20090715_a.jpg", *fecha, *datos, {}}}}));
            QVERIFY(QFile::rename(QString::fromStdString(arbol.fRuta("a.jpg")),
                                  QString::fromStdString(arbol.fRuta("20090715_a.jpg"))));
            arbol.fCrear(strLista, fRegistro(arbol.fRuta("a.jpg"), "2012/03/04 18:20:00"));
            clsSesion sesion(arbol);
            QVERIFY(sesion.fAbrir());
            QCOMPARE(sesion.fNombres(), QStringList("20090715_a.jpg"));
            QCOMPARE(sesion.fCelda(0, 1), QString("2009/07/15 12:00:00"));
            QCOMPARE(sesion.mensajes.fDichos(), QStringList());
        }
    }

    void fWhereTheCatalogueHasNoRoomNothingIsTouched()
    {
        static clsLlamadas disco = llamadasReales;
        disco.fVolcar = fFalla<ENOSPC>;
        const std::string strCatalogo = m_arbol->fLeer("Miravel.dat");
        m_sesion->fClicFila(2);
        QVERIFY(fCorregir(*m_sesion, {}, [this](QDialog &dialogo) {
            m_sesion->ajustes.fEsperar();
            const clsOtrasLlamadas otras(disco);
            fTeclear(dialogo, "15/07/2009");
            fPulsarBoton(dialogo, "cmdAceptar1");
            QVERIFY(dialogo.isVisible());
            QTest::keyClick(&dialogo, Qt::Key_Escape);
        }));
        QCOMPARE(m_sesion->mensajes.fDichos(),
                 QStringList("No se puede generar la lista de ficheros.\r\n28: No queda espacio en "
                             "el dispositivo\r\nNo se ha cambiado ningún fichero."));
        QCOMPARE(fModificado(*m_arbol, strMal), fMomento("2012-03-04 18:20:00"));
        QCOMPARE(m_arbol->fLeer("Miravel.dat"), strCatalogo);
    }

    void fACorrectionIsDoneToItsEndWhenTheDiskAnswersAgain()
    {
        m_sesion->fClicFila(2);
        std::optional<clsDiscoParado> disco;
        QTimer impaciencia;
        connect(&impaciencia, &QTimer::timeout, &impaciencia, [&] {
            if (QWidget *const dialogo = QApplication::activeModalWidget(); dialogo && disco) {
                QTest::keyClick(dialogo, Qt::Key_Escape);
            }
        });
        QVERIFY(fCorregir(*m_sesion, {}, [&](QDialog &dialogo) {
            fTeclear(dialogo, "15/07/2009");
            disco.emplace();
            impaciencia.start(20);
            fPulsarBoton(dialogo, "cmdAceptar0");
        }));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QCOMPARE(m_sesion->fPosicion(), 2);
        QCOMPARE(m_sesion->fCelda(2, 0), QString("20090715_boda.jpg"));
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList());
        disco.reset();
        QTRY_VERIFY(QString::fromStdString(m_arbol->fLeer("Miravel.dat"))
                        .contains("/20090715_20090715_boda.jpg\r\n2009/07/15 12:00:00\r\n"));
        QCOMPARE(fModificado(*m_arbol, "2009/20090715_20090715_boda.jpg"),
                 fMomento("2009-07-15 12:00:00"));
    }

    void fTheWindowClosesWhenTheDiskDoesNotAnswerTheCorrection()
    {
        m_sesion->fClicFila(2);
        std::optional<clsDiscoParado> disco;
        QVERIFY(fCorregir(*m_sesion, {}, [&](QDialog &dialogo) {
            fTeclear(dialogo, "15/07/2009");
            disco.emplace();
            QTimer::singleShot(0, [&] { QVERIFY(!m_sesion->ventana->close()); });
            fPulsarBoton(dialogo, "cmdAceptar0");
        }));
        QTRY_VERIFY(!m_sesion->ventana->isVisible());
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void fWhatCannotBeCorrectedIsSaidBeforeAnythingIsAsked()
    {
        QVERIFY(fReabrir(false));
        m_sesion->fClicFila(2);
        QVERIFY(!fCorregir(*m_sesion, {}, [](QDialog &dialogo) { dialogo.reject(); }));
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList("No tienes permiso de escritura."));
        const QString strRuta = QString::fromStdString(m_arbol->fRuta(strMal));
        QVERIFY(QFile::remove(strRuta));
        QVERIFY(!fCorregir(*m_sesion, {}, [](QDialog &dialogo) { dialogo.reject(); }));
        QCOMPARE(m_sesion->mensajes.fDichos(),
                 QStringList("Hay algún problema con el fichero: \r\n" + strRuta));
    }

    void fTheExifTextClosesWithEsc()
    {
        QString strTexto;
        const clsCuando cuando = fEnDialogo("frmExif", [&](QDialog &dialogo) {
            auto *const caja = dialogo.findChild<QPlainTextEdit *>("txtExif");
            strTexto = caja->toPlainText();
            QTest::keyClick(caja, Qt::Key_Escape);
        });
        m_sesion->fTecla(Qt::Key_I);
        QVERIFY(cuando.fHecho());
        QCOMPARE(strTexto.trimmed(), QString("Orientation: Normal"));
    }

private:
    void fLlenar(const clsArbol &arbol) override
    {
        const std::string strFoto = fJpeg(fCuartos({60, 40}), 1);
        arbol.fCrear(strBien, strFoto, fMomento("2009-07-14 10:00:00"));
        arbol.fCrear(strOtra, strFoto, fMomento("2010-01-01 09:00:00"));
        arbol.fCrear(strMal, strFoto, fMomento("2012-03-04 18:20:00"));
        arbol.fCrear("2013/20130101_fin.jpg", strFoto, fMomento("2013-01-01 09:00:00"));
    }
};

static const clsTema temaFechas{"fechas", fCorrer<clsPruebasFechas>};

#include "fechas_test.moc"
