// The strip of time: what it does to the window, keys, mouse, what it follows.
#include "sesion.h"

#include <QAction>
#include <QLineEdit>
#include <QToolTip>

/// Three months with files, the gaps between them folded: each has about a third of the strip.
class clsPruebasTiempo : public clsPruebasSesion {
    Q_OBJECT
private slots:
    void fChangesTheWindowWhileItIsThere()
    {
        const QWidget *const fondo = m_sesion->fControl("lblFondo");
        const QWidget *const cliente = m_sesion->fControl("frmMainCliente");
        const QRect antes = fondo->geometry();
        const QRect recuadro = m_sesion->fControl("frmRecuadro")->geometry();
        const int intLista = m_sesion->fLista()->height();
        QVERIFY(fFranja() == nullptr);
        QCOMPARE(m_sesion->fAjuste("TIEMPO"), std::string());

        m_sesion->fTecla(Qt::Key_F4);
        QVERIFY(fFranja()->isVisible() && fFranja()->hasFocus());
        QVERIFY(m_sesion->fControl<QAction>("mnuMasTiempo")->isChecked());
        QCOMPARE(m_sesion->fAjuste("TIEMPO"), std::string("1"));
        const int intAlto = fFranja()->height();
        QCOMPARE(fFranja()->geometry().bottom(), cliente->rect().bottom());
        QCOMPARE(fondo->geometry(), antes.adjusted(0, 0, 0, -intAlto));
        QCOMPARE(m_sesion->fControl("frmRecuadro")->geometry(),
                 recuadro.adjusted(0, 0, 0, -intAlto));
        QCOMPARE(m_sesion->fLista()->height(), intLista);
        QVERIFY(m_sesion->fTamano(700, 500)); // it stays at the lower edge
        QVERIFY(m_sesion->fTamano(700, 200)); // too low for both
        QTRY_VERIFY(fFranja()->isHidden() && m_sesion->fLista()->hasFocus());
        QVERIFY(m_sesion->fTamano(700, 500));
        QTRY_VERIFY(fFranja()->isVisible());

        m_sesion->fTecla(Qt::Key_F9); // the whole screen is for the picture
        QTRY_VERIFY(fFranja()->isHidden() && fondo->geometry() == cliente->rect());
        m_sesion->fTecla(Qt::Key_F4);
        QVERIFY(fFranja()->isHidden());
        m_sesion->fTecla(Qt::Key_F9);
        QTRY_VERIFY(fFranja()->isVisible());

        QVERIFY(fReabrir()); // it is there again, and the list has the focus
        QVERIFY(fFranja()->isVisible() && m_sesion->fLista()->hasFocus());
        m_sesion->fTecla(Qt::Key_F4);
        QVERIFY(fFranja()->isVisible() && fFranja()->hasFocus());
        m_sesion->fTecla(Qt::Key_F4);
        QVERIFY(fFranja()->isHidden() && m_sesion->fLista()->hasFocus());
        QVERIFY(!m_sesion->fControl<QAction>("mnuMasTiempo")->isChecked());
        QCOMPARE(m_sesion->fAjuste("TIEMPO"), std::string("0"));
        QVERIFY(m_sesion->fControl("lblFondo")->geometry() == antes);
        QVERIFY(m_sesion->fControl("frmRecuadro")->geometry() == recuadro);
    }

    void fItsEntrySwitchesIt()
    {
        for (const bool bolVisible : {true, false, true}) {
            m_sesion->fElegirEntrada("mnuMasTiempo");
            QCOMPARE(fFranja()->isVisible(), bolVisible);
            QCOMPARE(m_sesion->fControl<QAction>("mnuMasTiempo")->isChecked(), bolVisible);
        }
        QCOMPARE(m_sesion->fControl<QAction>("mnuMasTiempo")->shortcut(), QKeySequence("F4"));
    }

    void fKeysGoFromBarToBar()
    {
        m_sesion->fTecla(Qt::Key_F4);
        const struct {
            Qt::Key tecla;
            const char *strDicho;
            int lngPosicion;
        } lstPasos[] = {
            {Qt::Key_Right, "julio de 2009: 3 archivos", 0},
            {Qt::Key_Return, "julio de 2009: 3 archivos", 1},
            {Qt::Key_Right, "enero de 2010: 1 archivo", 1},
            {Qt::Key_Right, "enero de 2010: 1 archivo", 1}, // there is no other
            {Qt::Key_Enter, "enero de 2010: 1 archivo", 4},
            {Qt::Key_Home, "agosto de 2008: 1 archivo", 4},
            {Qt::Key_End, "enero de 2010: 1 archivo", 4},
            {Qt::Key_Left, "julio de 2009: 3 archivos", 4},
            {Qt::Key_F11, "julio de 2009: 3 archivos", 3}, // what else has a key works as ever
            {Qt::Key_Up, "julio de 2009: 3 archivos", 3},  // enlarged
            {Qt::Key_Up, "14 de julio de 2009: 2 archivos", 3},
            {Qt::Key_Right, "31 de julio de 2009: 1 archivo", 3},
            {Qt::Key_Down, "31 de julio de 2009: 1 archivo", 3},
            {Qt::Key_Down, "julio de 2009: 3 archivos", 3},
        };
        for (const auto &paso : lstPasos) {
            m_sesion->fTecla(paso.tecla);
            QTRY_COMPARE(m_sesion->fPosicion(), paso.lngPosicion);
            QCOMPARE(fFranja()->accessibleDescription(), QString(paso.strDicho));
            QVERIFY(fFranja()->hasFocus());
        }
        m_sesion->fTecla(Qt::Key_Escape);
        QVERIFY(m_sesion->fLista()->hasFocus() && fFranja()->isVisible());
        m_sesion->fTecla(Qt::Key_Home); // is the list's no more than before
        QCOMPARE(m_sesion->fPosicion(), 3);
        m_sesion->fTecla(Qt::Key_F4);
        const clsAbridor abridor;
        m_sesion->fTecla(Qt::Key_Return); // goes, and opens nothing
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        QCOMPARE(abridor.fAbierto(), std::string());
    }

    void fTheMouseTellsGoesAndScrubs()
    {
        m_sesion->fElegirEntrada("mnuMasTiempo");
        m_sesion->fMoverRaton(fFranja(), fPunto(2));
        QTRY_COMPARE(QToolTip::text(), QString("enero de 2010: 1 archivo"));
        QCOMPARE(fFranja()->accessibleDescription(), QToolTip::text());
        QCOMPARE(m_sesion->fPosicion(), 0);
        m_sesion->fClic(fFranja(), fPunto(2));
        QTRY_COMPARE(m_sesion->fPosicion(), 4);
        QVERIFY(m_sesion->fLista()->hasFocus());
        m_sesion->fClic(fFranja(), fPunto(0), Qt::RightButton);
        m_sesion->fPulsar(fFranja(), fPunto(1));
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        m_sesion->fMoverRaton(fFranja(), fPunto(0));
        QTRY_COMPARE(m_sesion->fPosicion(), 0);
        m_sesion->fMoverRaton(fFranja(), fPunto(1));
        m_sesion->fMoverRaton(fFranja(), fPunto(2));
        QTRY_COMPARE(m_sesion->fPosicion(), 4);
        m_sesion->fSoltar(fFranja(), fPunto(2));
        m_sesion->fMoverRaton(fFranja(), fPunto(0));
        QTRY_COMPARE(QToolTip::text(), QString("agosto de 2008: 1 archivo"));
        QCOMPARE(m_sesion->fPosicion(), 4);
    }

    void fTheWheelEnlargesUntilDaysCanBeTold()
    {
        m_sesion->fElegirEntrada("mnuMasTiempo");
        m_sesion->fGirar(fFranja(), 480); // eight notches of the wheel over the middle
        m_sesion->fGirar(fFranja(), 480);
        m_sesion->fMoverRaton(fFranja(), fFranja()->rect().center());
        QTRY_VERIFY(QToolTip::text().contains(QStringLiteral("de julio de 2009: ")));
        m_sesion->fGirar(fFranja(), -960);
        m_sesion->fMoverRaton(fFranja(), fPunto(1));
        QTRY_COMPARE(QToolTip::text(), QString("julio de 2009: 3 archivos"));
        QCOMPARE(m_sesion->fPosicion(), 0);
    }

    void fADragWithShiftFilters()
    {
        m_sesion->fElegirEntrada("mnuMasTiempo");
        const auto fArrastrar = [&](int intDesde, int intHasta) {
            QWindow *const ventana = m_sesion->ventana->windowHandle();
            const auto fEnVentana = [&](int intTercio) {
                return fFranja()->mapTo(m_sesion->ventana.get(), fPunto(intTercio));
            };
            QTest::mousePress(ventana, Qt::LeftButton, Qt::ShiftModifier, fEnVentana(intDesde));
            QTest::mouseMove(ventana, fEnVentana(intHasta));
            const QString strDicho = fFranja()->accessibleDescription();
            QTest::mouseRelease(ventana, Qt::LeftButton, Qt::ShiftModifier, fEnVentana(intHasta));
            return strDicho;
        };
        QCOMPARE(fArrastrar(2, 1), QString("de julio de 2009 a enero de 2010: 4 archivos"));
        QTRY_COMPARE(m_sesion->fNombres().size(), 4);
        QCOMPARE(m_sesion->fPosicion(), 0);
        QCOMPARE(m_sesion->fTexto("txtEstado0"), QString("FILTRO"));
        QVERIFY(m_sesion->fControl<QAction>("mnuOpcionesQuitarFiltro")->isEnabled());
        // It follows: the first bar is another one now, and less than a year is left.
        m_sesion->fTecla(Qt::Key_F4);
        m_sesion->fTecla(Qt::Key_Home);
        QCOMPARE(fFranja()->accessibleDescription(), QString("14 de julio de 2009: 2 archivos"));
        m_sesion->mensajes.lstRespuestas = {true};
        m_sesion->fElegirEntrada("mnuOpcionesQuitarFiltro");
        QTRY_COMPARE(m_sesion->fNombres().size(), 5);
        m_sesion->fTecla(Qt::Key_F4);
        m_sesion->fTecla(Qt::Key_Home);
        QCOMPARE(fFranja()->accessibleDescription(), QString("agosto de 2008: 1 archivo"));
        // All of the last day passes, and of the next month nothing.
        QCOMPARE(fArrastrar(0, 1), QString("de agosto de 2008 a julio de 2009: 4 archivos"));
        QTRY_COMPARE(m_sesion->fNombres().size(), 4);
        QCOMPARE(m_sesion->fNombres().last(), QString("20050101_mal.jpg"));
    }

    void fAFilterThatFindsNothingChangesNothing()
    {
        m_sesion->fElegirEntrada("mnuMasTiempo");
        for (const char *const strRuta :
             {"2009/boda.JPG", "2009/brindis.mov", "2009/20050101_mal.jpg"}) {
            m_arbol->fCrear(strRuta, "x", fMomento("2001-01-01 00:00:00")); // since it was listed
        }
        QTest::mouseClick(m_sesion->ventana->windowHandle(), Qt::LeftButton, Qt::ShiftModifier,
                          fFranja()->mapTo(m_sesion->ventana.get(), fPunto(1)));
        QTRY_COMPARE(m_sesion->mensajes.lstTextos,
                     QStringList("No se ha encontrado ninguna imagen."));
        QCOMPARE(m_sesion->fNombres().size(), 5);
        QCOMPARE(m_sesion->fPosicion(), 0);
    }

    void fWrongDatesAreRedOnceTheyAreKnown()
    {
        m_sesion->fTecla(Qt::Key_F4);
        QCOMPARE(fRojos(), 0);
        m_sesion->fTecla(Qt::Key_E);
        QTRY_VERIFY(fRojos() > 0);
        m_sesion->fTecla(Qt::Key_F4);
        m_sesion->fTecla(Qt::Key_Home);
        QCOMPARE(fFranja()->accessibleDescription(),
                 QString("agosto de 2008: 1 archivo, 1 con la fecha incorrecta"));
        m_sesion->fTecla(Qt::Key_Escape);
        const int intAntes = fRojos();
        clsCuando cuando = fEnDialogo("frmRevisar", [](QDialog &dialogo) {
            QTRY_VERIFY(dialogo.findChild<QWidget *>("barProgreso")->isHidden());
            QTest::keyClick(&dialogo, Qt::Key_Escape);
        });
        m_sesion->fTecla(Qt::Key_F3);
        QVERIFY(cuando.fHecho());
        QVERIFY(fRojos() > intAntes);
        QVERIFY(m_sesion->fEsperarLista());
        m_sesion->fTecla(Qt::Key_F4);
        m_sesion->fTecla(Qt::Key_Right);
        QCOMPARE(fFranja()->accessibleDescription(),
                 QString("julio de 2009: 3 archivos, 1 con la fecha incorrecta"));
    }

    void fAnEmptyListLeavesItBlank()
    {
        m_sesion->fTecla(Qt::Key_F4);
        for (const char *const strRuta : {"2008/playa.jpg", "2009/boda.JPG", "2009/brindis.mov",
                                          "2009/20050101_mal.jpg", "2010/nieve.jpg"}) {
            QFile::remove(QString::fromStdString(m_arbol->fRuta(strRuta)));
        }
        m_sesion->mensajes.lstRespuestas = {true};
        m_sesion->fElegirEntrada("mnuOpcionesActualizar");
        QVERIFY(m_sesion->fEsperarLista());
        QCOMPARE(m_sesion->fNombres().size(), 0);
        QVERIFY(fFranja()->isVisible());
        m_sesion->fMoverRaton(fFranja(), fPunto(0));
        m_sesion->fClic(fFranja(), fPunto(1));
        m_sesion->fGirar(fFranja(), 120);
        fFranja()->setFocus();
        for (const Qt::Key tecla : {Qt::Key_Home, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape}) {
            m_sesion->fTecla(tecla);
        }
        QVERIFY(m_sesion->fLista()->hasFocus());
        const QImage imagen = fFranja()->grab().toImage();
        QCOMPARE(imagen.copy(1, 0, 1, 1).pixel(0, 0), imagen.pixel(fPunto(1)));
    }

protected:
    void fLlenar(const clsArbol &arbol) override
    {
        fLlenarArbol(arbol);
        arbol.fCrear("2009/20050101_mal.jpg", fJpeg(fCuartos({60, 60})),
                     fMomento("2009-07-31 23:30:00"));
    }

private:
    QWidget *fFranja() { return m_sesion->fControl("frmTiempo"); }
    /// The middle of the first, second or third month's place.
    QPoint fPunto(int intTercio)
    {
        return {fFranja()->width() * (intTercio * 2 + 1) / 6, fFranja()->height() / 3};
    }
    /// Pixels in the colour of what is wrong.
    int fRojos()
    {
        const QImage imagen = fFranja()->grab().toImage();
        int intRojos = 0;
        for (int intY = 0; intY < imagen.height(); ++intY) {
            for (int intX = 0; intX < imagen.width(); ++intX) {
                const QColor color = imagen.pixelColor(intX, intY);
                intRojos += color.red() > 0xe0 && color.green() < 0x70 ? 1 : 0;
            }
        }
        return intRojos;
    }
};

static const clsTema temaTiempo{"tiempo", fCorrer<clsPruebasTiempo>};

#include "tiempo_test.moc"
