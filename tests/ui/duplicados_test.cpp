// Files of the same content: found, shown in groups, ticked in the list.
#include "sesion.h"

#include <QAbstractButton>
#include <QDialog>
#include <QFile>
#include <QLabel>

namespace {

constexpr const char *strMenu = "mnuMasDuplicados";

QTableView *fTabla(QDialog &dialogo) { return dialogo.findChild<QTableView *>("tblDuplicados"); }

/// The texts of a column, row by row.
QStringList fColumna(QDialog &dialogo, int intColumna)
{
    const QAbstractItemModel *const modelo = fTabla(dialogo)->model();
    QStringList lstTextos;
    for (int intFila = 0; intFila < modelo->rowCount(); ++intFila) {
        lstTextos.append(modelo->index(intFila, intColumna).data().toString());
    }
    return lstTextos;
}

bool fTerminada(QDialog &dialogo)
{
    return QTest::qWaitFor(
        [&] { return dialogo.findChild<QLabel *>("lblProgreso")->text().isEmpty(); });
}

/// Does something in the window, and closes it if that has not.
clsCuando fEnVentana(const std::function<void(QDialog &)> &fHacer)
{
    return fEnDialogo("frmDuplicados", [fHacer](QDialog &dialogo) {
        fHacer(dialogo);
        if (dialogo.isVisible()) {
            dialogo.reject();
        }
    });
}

void fPulsarEn(QDialog &dialogo, const char *strNombre)
{
    QTest::mouseClick(dialogo.findChild<QAbstractButton *>(strNombre), Qt::LeftButton);
}

} // namespace

class clsPruebasDuplicados : public clsPruebasSesion {
    Q_OBJECT
private slots:
    void fTheCopiesAreTickedAndNothingElse()
    {
        m_sesion->fClicCasilla(0);
        const QStringList lstAntes = m_sesion->fNombres();
        QVERIFY(QFile::remove(QString::fromStdString(m_arbol->fRuta("falta.mov"))));
        const auto cuando = fEnVentana([](QDialog &dialogo) {
            QVERIFY(fTerminada(dialogo));
            // The larger ones first; a right date stays, then a short path.
            QCOMPARE(fColumna(dialogo, 1),
                     QStringList({"20030101_sol.jpg", "sol & mar.jpg", "brindis.mov", "otro.mov"}));
            QCOMPARE(fColumna(dialogo, 0), QStringList({"se queda", "copia", "copia", "se queda"}));
            QCOMPARE(fColumna(dialogo, 2), QStringList({"2003/una carpeta", "2004", "2005", ""}));
            QCOMPARE(fColumna(dialogo, 4), QStringList({"sí", "no", "no", "no"}));
            QCOMPARE(dialogo.findChild<QLabel *>("lblDuplicados")->text(),
                     QString("2 grupos, 2 copias (1 KB). Sin comparar: 1 no existe."));
            QCOMPARE(dialogo.findChild<QAbstractButton *>("cmdMarcarCopias")->text(),
                     QString("&Marcar las copias (2)"));
            fPulsarEn(dialogo, "cmdMarcarCopias");
        });
        m_sesion->fElegirEntrada(strMenu);
        QVERIFY(cuando.fHecho());
        QCOMPARE(fMarcados(), QStringList({"2004/sol & mar.jpg", "2005/brindis.mov"}));
        QCOMPARE(m_sesion->fNombres(), lstAntes);
        QVERIFY(!m_arbol->fLeer("2004/sol & mar.jpg").empty());
    }

    void fAnotherOneCanStay()
    {
        const auto cuando = fEnVentana([](QDialog &dialogo) {
            QVERIFY(fTerminada(dialogo));
            auto *const primera = dialogo.findChild<QAbstractButton *>("cmdGemelo0");
            QVERIFY(primera->isChecked());
            QTRY_VERIFY(!primera->icon().isNull()); // the pictures of the group, side by side
            QCOMPARE(primera->accessibleName(), QString("Se queda: 20030101_sol.jpg"));
            QVERIFY(primera->text().startsWith(QString::fromUtf8("\u2713 ")));
            QVERIFY(primera->toolTip().contains("2003/una carpeta/20030101_sol.jpg"));
            const auto *const segunda = dialogo.findChild<QAbstractButton *>("cmdGemelo1");
            QCOMPARE(segunda->text(), QString("sol && mar.jpg"));
            fPulsarEn(dialogo, "cmdGemelo1");
            QCOMPARE(fColumna(dialogo, 0).mid(0, 2), QStringList({"copia", "se queda"}));
            // By keys in the table; there is always one.
            for (const Qt::Key tecla : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Space, Qt::Key_Space}) {
                QTest::keyClick(fTabla(dialogo), tecla);
            }
            QCOMPARE(fColumna(dialogo, 0), QStringList({"copia", "se queda", "se queda", "copia"}));
            QVERIFY(dialogo.findChild<QAbstractButton *>("cmdGemelo0")->isChecked());
            fPulsarEn(dialogo, "cmdMarcarCopias");
        });
        m_sesion->fElegirEntrada(strMenu);
        QVERIFY(cuando.fHecho());
        QCOMPARE(fMarcados(), QStringList({"2003/una carpeta/20030101_sol.jpg", "otro.mov"}));
    }

    void fEscapeLeavesTheTicksAlone()
    {
        m_sesion->fClicCasilla(1);
        const QStringList lstAntes = fMarcados();
        const auto cuando = fEnVentana([](QDialog &dialogo) {
            QTest::keyClick(&dialogo, Qt::Key_Escape); // whatever is being read
        });
        m_sesion->fElegirEntrada(strMenu);
        QVERIFY(cuando.fHecho());
        QCOMPARE(fMarcados(), lstAntes);
    }

private:
    void fLlenar(const clsArbol &arbol) override
    {
        const std::string strSol = fJpeg(fCuartos({60, 40}));
        arbol.fCrear("2003/una carpeta/20030101_sol.jpg", strSol, fMomento("2003-01-01 12:00:00"));
        arbol.fCrear("2004/sol & mar.jpg", strSol, fMomento("2004-01-01 12:00:00"));
        arbol.fCrear("2005/brindis.mov", "no film", fMomento("2005-01-01 12:00:00"));
        arbol.fCrear("otro.mov", "no film", fMomento("2006-01-01 12:00:00"));
        arbol.fCrear("mismo.mov", "as long", fMomento("2007-01-01 12:00:00"));
        arbol.fCrear("sola.jpg", fJpeg(fDibujo({61, 40})), fMomento("2008-01-01 12:00:00"));
        arbol.fCrear("falta.mov", "is gone", fMomento("2009-01-01 12:00:00"));
    }
    /// The ticked files, below the root.
    QStringList fMarcados()
    {
        QStringList lstRutas;
        for (int lngFila = 0; lngFila < m_sesion->fLista()->model()->rowCount(); ++lngFila) {
            if (m_sesion->fMarcada(lngFila)) {
                const QString strCarpeta = m_sesion->fCelda(lngFila, 3);
                lstRutas.append((strCarpeta + m_sesion->fCelda(lngFila, 0))
                                    .mid(static_cast<qsizetype>(m_arbol->fRaiz().size())));
            }
        }
        lstRutas.sort();
        return lstRutas;
    }
};

static const clsTema temaDuplicados{"duplicados", fCorrer<clsPruebasDuplicados>};

#include "duplicados_test.moc"
