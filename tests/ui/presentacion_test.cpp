// The slide show: by the clock, by keys, and back to the list.
#include "sesion.h"

#include "app/vigilia.h"
#include "viewer/frmPresentacion.h"

#include <QDBusConnection>
#include <QLabel>
#include <QThread>

#include <atomic>

namespace {

using namespace std::chrono_literals;

} // namespace

/// The desktop's service that keeps screens awake.
class clsSalvapantallas : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")
public:
    QStringList lstLlamadas;
public slots:
    uint Inhibit(const QString &strPrograma, const QString &strMotivo)
    {
        lstLlamadas.append(strPrograma + QLatin1Char(' ') + strMotivo);
        return 77;
    }
    void UnInhibit(uint lngPrenda) { lstLlamadas.append(QString::number(lngPrenda)); }
};

class clsPruebasPresentacion : public clsPruebasSesion {
    Q_OBJECT
private slots:
    void fKeysStepAndEscReturnsToWhatWasShown()
    {
        const clsAbridor abridor;
        m_sesion->fTecla(Qt::Key_F12);
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        const bool bolHecho = fPresentar([&](frmPresentacion &pase) {
            QVERIFY(pase.isFullScreen());
            QCOMPARE(pase.cursor().shape(), Qt::BlankCursor);
            fTecla(pase, Qt::Key_Space); // so that the time has nothing to do with it
            QTRY_COMPARE(fPie(pase), QString("14/07/2009 16:03:22 · 2009 · 2 de 4 · parada"));
            fTecla(pase, Qt::Key_F12);
            QTRY_COMPARE(fPie(pase), QString("14/07/2009 18:30:00 · 2009 · 3 de 4 · parada · "
                                             "vídeo: Enter lo abre"));
            QTRY_COMPARE(fFoto(pase)->accessibleName(), QString("Sin imagen: brindis.mov"));
            fTecla(pase, Qt::Key_Return);
            QTRY_COMPARE(abridor.fAbierto(), '<' + m_arbol->fRuta("2009/brindis.mov") + '>');
            fTecla(pase, Qt::Key_F12);
            QTRY_COMPARE(fFoto(pase)->accessibleName(), QString("Fotografía: nieve.jpg"));
            QVERIFY(fFoto(pase)->height() == pase.height() || fFoto(pase)->width() == pase.width());
            fTecla(pase, Qt::Key_F12); // behind the last comes the first
            QTRY_COMPARE(pase.fVista(), 0U);
            fTecla(pase, Qt::Key_F11);
            QTRY_COMPARE(pase.fVista(), 3U);
            fTecla(pase, Qt::Key_W); // no key of the list
            QCOMPARE(m_sesion->fAjuste("PRESENTACION"), std::string());
            fTecla(pase, Qt::Key_Plus);
            fTecla(pase, Qt::Key_Space);
            QVERIFY(fPie(pase).endsWith("4 de 4 · cada 10 segundos"));
            fTecla(pase, Qt::Key_Escape);
            QVERIFY(!pase.isVisible());
        });
        QVERIFY(bolHecho);
        QTRY_COMPARE(m_sesion->fPosicion(), 3);
        QCOMPARE(m_sesion->fAjuste("PRESENTACION"), std::string("10")); // for the next time
        QCOMPARE(m_sesion->mensajes.fDichos(), QStringList());
    }

    void fTickedFilesAreTheShow()
    {
        m_sesion->fClicCasilla(1);
        m_sesion->fClicCasilla(3);
        m_sesion->fClicFila(2);
        QVERIFY(fPresentar([&](frmPresentacion &pase) {
            fTecla(pase, Qt::Key_Space);
            QTRY_VERIFY(fPie(pase).contains("2 de 2")); // from the current file on
            fTecla(pase, Qt::Key_F12);
            QTRY_VERIFY(fPie(pase).contains("1 de 2"));
            QTest::mouseClick(&pase, Qt::LeftButton);
            QTRY_VERIFY(fPie(pase).contains("2 de 2"));
            fTecla(pase, Qt::Key_PageUp);
            QTRY_VERIFY(fPie(pase).contains("1 de 2"));
            fTecla(pase, Qt::Key_F6);
        }));
        QTRY_COMPARE(m_sesion->fPosicion(), 1);
        QVERIFY(m_sesion->fMarcada(1) && m_sesion->fMarcada(3) && !m_sesion->fMarcada(2));
    }

    void fTheClockGoesOnAndWaitsForWhatIsSlow()
    {
        const std::vector<std::string> lstRutas = {
            m_arbol->fRuta("2008/playa.jpg"), m_arbol->fRuta("2008/no_esta.jpg"),
            m_arbol->fRuta("2009/brindis.mov"), m_arbol->fRuta("2010/nieve.jpg")};
        clsGiros giros;
        giros.fGirar(lstRutas[0], 1);
        clsPase::Momento ahora{1000s};
        std::atomic<bool> bolFotograma = false;
        QList<bool> lstVelas;
        const auto fFotograma = [&](const std::string &, const clsHuella &, int,
                                    const std::atomic<bool> &bolAnulado) {
            while (!bolFotograma && !bolAnulado) {
                QThread::msleep(1);
            }
            return fCuartos({64, 48});
        };
        {
            frmPresentacion pase(
                nullptr,
                {lstRutas.size(), [&](std::size_t lngLugar) { return lstRutas[lngLugar]; },
                 [](std::size_t) {
                     return clsPie{"hoy", "", false};
                 },
                 giros, fFotograma, [](std::size_t) {}, [](int) {},
                 [&](bool bolVela) { lstVelas.append(bolVela); }, [&] { return ahora; }},
                0, 3);
            pase.show();
            QTRY_COMPARE(pase.fVista(), 0U);
            QVERIFY(fFoto(pase)->width() < fFoto(pase)->height()); // turned, as in the list
            ahora += 2999ms;
            pase.fMirar();
            QCOMPARE(pase.fVista(), 0U);
            ahora += 1ms;
            pase.fMirar();
            // The missing one is passed over; until the frame is there nothing changes.
            QCOMPARE(pase.fVista(), 0U);
            QVERIFY(fFoto(pase)->isVisible());
            QCOMPARE(fPie(pase), QString("hoy · 1 de 4 · cada 3 segundos"));
            bolFotograma = true;
            QTRY_COMPARE(pase.fVista(), 2U);
            QVERIFY(fFoto(pase)->width() > fFoto(pase)->height());
            fTecla(pase, Qt::Key_Space);
            ahora += 60s;
            pase.fMirar();
            QCOMPARE(pase.fVista(), 2U);
            fTecla(pase, Qt::Key_Space);
            ahora += 3s;
            pase.fMirar();
            QTRY_COMPARE(pase.fVista(), 3U);
        }
        QCOMPARE(lstVelas, QList<bool>({true, false, true, false})); // not while it is stopped
    }

    void fTheDesktopIsAskedToStayAwake()
    {
        if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) {
            QSKIP("there is no session bus");
        }
        clsSalvapantallas servicio;
        QDBusConnection bus = QDBusConnection::sessionBus();
        QVERIFY(bus.registerService("org.freedesktop.ScreenSaver"));
        QVERIFY(bus.registerObject("/org/freedesktop/ScreenSaver", &servicio,
                                   QDBusConnection::ExportAllSlots));
        clsVigilia vigilia;
        vigilia.fVelar(true);
        vigilia.fVelar(false); // in this order, although nobody waits
        QTRY_COMPARE(servicio.lstLlamadas, QStringList({"Miravel Presentación", "77"}));
        vigilia.fVelar(true);
        QTRY_COMPARE(servicio.lstLlamadas.size(), 3);
    }

private:
    /// Begins a show from the list, does something in it, and ends it if that has not.
    bool fPresentar(const std::function<void(frmPresentacion &)> &fHacer)
    {
        const auto cuando = fEnDialogo("frmPresentacion", [&](QDialog &dialogo) {
            fHacer(static_cast<frmPresentacion &>(dialogo));
            if (dialogo.isVisible()) {
                dialogo.reject();
            }
        });
        m_sesion->fTecla(Qt::Key_F6);
        return cuando.fHecho();
    }
    static void fTecla(frmPresentacion &pase, Qt::Key tecla) { QTest::keyClick(&pase, tecla); }
    static QString fPie(frmPresentacion &pase)
    {
        return pase.findChild<QLabel *>("lblPie")->text();
    }
    static QWidget *fFoto(frmPresentacion &pase) { return pase.findChild<QWidget *>("imgFoto"); }
};

static const clsTema temaPresentacion{"presentacion", fCorrer<clsPruebasPresentacion>};

#include "presentacion_test.moc"
