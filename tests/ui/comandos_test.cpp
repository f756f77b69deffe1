// Every command once through the real window: by its key, its menu entry or its button.
#include "sesion.h"

#include "app/mensajes_qt.h"
#include "browse/comandos.h"

#include <QAction>
#include <QDialog>
#include <QFile>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>

#include <cerrno>
#include <chrono>
#include <semaphore>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr off_t lngGrande = 64 << 20;
std::binary_semaphore suelta(0); ///< lets the copy of a large file go on

} // namespace

/// Takes the place of the system's: the copy of a large file hangs as on a slow disk.
extern "C" ssize_t copy_file_range(int intDe, off64_t * /*lngDesde*/, int /*intA*/,
                                   off64_t * /*lngHasta*/, std::size_t /*lngBytes*/,
                                   unsigned /*intOpciones*/)
{
    struct stat datos {};
    if (fstat(intDe, &datos) == 0 && datos.st_size == lngGrande) {
        static_cast<void>(suelta.try_acquire_for(std::chrono::seconds(20)));
    }
    errno = EXDEV; // reading and writing do it, in small pieces
    return -1;
}

namespace {

/// Three folders, six days: what every advance mode can be told by.
void fLlenarDias(const clsArbol &arbol)
{
    const std::string strFoto = fJpeg(fCuartos({60, 40}));
    const std::pair<const char *, const char *> lstFotos[] = {
        {"a/uno.jpg", "2008-12-31 10:00:00"},   {"a/dos.jpg", "2009-01-01 10:00:00"},
        {"a/tres.jpg", "2009-01-01 11:00:00"},  {"b/cuatro.jpg", "2009-01-04 10:00:00"},
        {"b/cinco.jpg", "2009-01-05 10:00:00"}, {"a/seis.jpg", "2009-02-01 10:00:00"},
        {"c/siete.jpg", "2010-05-01 10:00:00"},
    };
    for (const auto &[strRuta, strFecha] : lstFotos) {
        arbol.fCrear(strRuta, strFoto, fMomento(strFecha));
    }
}

/// The dialog that is open, by its name.
QDialog *fDialogo(const char *strNombre)
{
    auto *const dialogo = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    return dialogo != nullptr && dialogo->objectName() == strNombre ? dialogo : nullptr;
}

/// A stand-in for the desktop's opener, the only program there is; it writes its arguments down.
class clsAbridor {
public:
    clsAbridor() : m_lstPath(qgetenv("PATH"))
    {
        QFile abridor(m_carpeta.filePath("xdg-open"));
        abridor.open(QIODevice::WriteOnly);
        abridor.write("#!/bin/sh\nprintf '%s' \"$1\" > '" + m_carpeta.filePath("abierto").toUtf8() +
                      "'\n");
        abridor.close();
        abridor.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", m_carpeta.path().toUtf8());
    }
    ~clsAbridor() { qputenv("PATH", m_lstPath); }
    clsAbridor(const clsAbridor &) = delete;
    clsAbridor &operator=(const clsAbridor &) = delete;
    [[nodiscard]] std::string fAbierto() const
    {
        QFile archivo(m_carpeta.filePath("abierto"));
        return archivo.open(QIODevice::ReadOnly) ? archivo.readAll().toStdString() : "";
    }

private:
    QTemporaryDir m_carpeta;
    QByteArray m_lstPath;
};

} // namespace

class clsPruebasComandos : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void fTheTableAndTheWindowAgree();
    void fStepsFollowTheAdvanceMode();
    void fADateIsAskedForUntilItIsOne();
    void fSelectionCommandsTick();
    void fShiftInTheListTicksARange();
    void fTotalsCountTheList();
    void fCopiesLoseTheirTicks();
    void fAFailedCopyStopsAndKeepsTheTicks();
    void fClosingDuringACopyLeavesNothingHalf();
    void fEscEndsACopyAndKeepsTheTicksOfTheRest();
    void fTheBaulTakesCountsAndEmpties();
    void fABaulThatCannotBeIsSaid();
    void fTheFilterNarrowsAndGoes();
    void fKeysBesideAnOpenFilterAreDropped();
    void fOtherProgramsOpenWhatIsCurrent();
    void fADesktopWithoutAnOpenerDoesNoHarm();
    void fTheAboutBoxLeadsToTheHelp();
    void fTheProgramsOwnBoxesAskInSpanish();

private:
    [[nodiscard]] std::string fBaul() const { return qgetenv("TMPDIR").toStdString() + "Miravel/"; }
    void fCopiarHasta(const clsArbol &destino, const std::function<void()> &fHacer);
    QString fTituloBaul() { return m_sesion->fControl<QMenu>("mnuBaul")->title(); }
    std::unique_ptr<clsArbol> m_arbol;
    std::unique_ptr<clsSesion> m_sesion;
};

void clsPruebasComandos::init()
{
    m_arbol = std::make_unique<clsArbol>();
    fLlenarDias(*m_arbol);
    m_sesion = std::make_unique<clsSesion>(*m_arbol);
    QVERIFY(m_sesion->fAbrir());
    m_sesion->mensajes.lstTextos.clear();
}

void clsPruebasComandos::cleanup()
{
    m_sesion.reset();
    m_arbol.reset();
}

void clsPruebasComandos::fTheTableAndTheWindowAgree()
{
    QVERIFY(m_sesion->ventana->fMandos().fSinAtender().empty());
    QStringList lstEntradas;
    for (const clsComando &comando : fComandos()) {
        if (comando.entrada.menu != Menu::Ninguno) {
            const auto *const accion = m_sesion->fControl<QAction>(comando.entrada.strNombre);
            QVERIFY2(accion != nullptr, comando.entrada.strNombre);
            QCOMPARE(accion->text(), QString(comando.entrada.strTexto));
            lstEntradas.push_back(accion->objectName());
        }
        const std::string strBoton = "toolBar" + std::to_string(comando.boton.intIndice);
        QVERIFY2(comando.boton.intIndice == 0 ||
                     m_sesion->fControl<QToolButton>(strBoton.c_str())->isEnabled(),
                 strBoton.c_str());
    }
    for (const QMenu *const menu : m_sesion->ventana->findChildren<QMenu *>()) {
        for (const QAction *const accion : menu->actions()) {
            const QString strNombre = accion->objectName();
            QVERIFY2(accion->isSeparator() || accion->menu() != nullptr ||
                         strNombre.startsWith("mnuTeclas") || lstEntradas.contains(strNombre),
                     qPrintable(strNombre));
        }
    }
}

void clsPruebasComandos::fStepsFollowTheAdvanceMode()
{
    const auto *const mnuAVance = m_sesion->fControl<QAction>("mnuAVance");
    struct {
        const char *strTexto;
        QList<int> lstAdelante; ///< positions after F12, again and again
        QList<int> lstAtras;    ///< and after F11, from the last
    } const lstCasos[] = {
        {"[Avance por CARPETA]", {3, 5, 6}, {5, 3, 0}},
        {"[Avance por DÍA]", {1, 3, 4, 5, 6}, {5, 4, 3, 2, 0}},
        {"[Avance por SEMANA]", {4, 5, 6}, {5, 4, 3}},
        {"[Avance por MES]", {1, 5, 6}, {5, 4, 0}},
        {"[Avance por AÑO]", {1, 6}, {5, 0}},
    };
    for (const auto &caso : lstCasos) {
        m_sesion->fTecla(Qt::Key_F11, Qt::ShiftModifier);
        m_sesion->fTecla(Qt::Key_Less);
        QCOMPARE(mnuAVance->text(), QString(caso.strTexto));
        QVERIFY(mnuAVance->isVisible());
        for (const int lngPos : caso.lstAdelante) {
            m_sesion->fTecla(Qt::Key_F12);
            QCOMPARE(m_sesion->fPosicion(), lngPos);
        }
        for (const int lngPos : caso.lstAtras) {
            m_sesion->fClic(m_sesion->fControl("toolBar4"), {10, 10}); // "Anterior"
            QCOMPARE(m_sesion->fPosicion(), lngPos);
        }
    }
    m_sesion->fTecla(Qt::Key_Greater); // past the last mode there is none
    QVERIFY(!mnuAVance->isVisible());
    m_sesion->fTecla(Qt::Key_Less);
    QVERIFY(mnuAVance->isVisible());
    m_sesion->fTecla(Qt::Key_Escape);
    QVERIFY(!mnuAVance->isVisible());
    m_sesion->fTecla(Qt::Key_F11, Qt::ShiftModifier);
    m_sesion->fTecla(Qt::Key_F12);
    QCOMPARE(m_sesion->fPosicion(), 1);
}

void clsPruebasComandos::fADateIsAskedForUntilItIsOne()
{
    struct {
        QStringList lstTecleado;
        int lngPosicion;
    } const lstCasos[] = {
        {{"letras", "3101201", "31022009", "02012009"}, 3},
        {{"01012020"}, 6},
        {{"01011900"}, 0},
        {{""}, 0},
        {{}, 0},
    };
    for (const auto &caso : lstCasos) {
        m_sesion->mensajes.lstTextos.clear();
        m_sesion->mensajes.lstTecleado = caso.lstTecleado;
        m_sesion->fTecla(Qt::Key_D);
        QCOMPARE(m_sesion->mensajes.lstTextos,
                 QStringList(qMax(1, caso.lstTecleado.size()), "Ir a la fecha (ddmmyyyy):"));
        QCOMPARE(m_sesion->fPosicion(), caso.lngPosicion);
    }
}

void clsPruebasComandos::fSelectionCommandsTick()
{
    const auto fMarcas = [this] {
        QString strMarcas;
        for (int lngFila = 0; lngFila < 7; ++lngFila) {
            strMarcas += m_sesion->fMarcada(lngFila) ? 'x' : '-';
        }
        return strMarcas;
    };
    m_sesion->fClicFila(2);
    m_sesion->fElegirEntrada("mnuSeleccion1"); // the panel shows one file
    QCOMPARE(fMarcas(), QString("--x----"));
    m_sesion->fElegirEntrada("mnuSeleccion3");
    QCOMPARE(fMarcas(), QString("xx-xxxx"));
    m_sesion->fElegirEntrada("mnuSeleccion2");
    QCOMPARE(fMarcas(), QString("-------"));
    m_sesion->fElegirEntrada("mnuSeleccion0");
    QCOMPARE(fMarcas(), QString("xxxxxxx"));
    m_sesion->fElegirEntrada("mnuSeleccion2");
    m_sesion->fTecla(Qt::Key_M);
    m_sesion->fElegirEntrada("mnuSeleccion1"); // now all that there are
    QCOMPARE(fMarcas(), QString("xxxxxxx"));
    QCOMPARE(m_sesion->fPosicion(), 2);
}

void clsPruebasComandos::fShiftInTheListTicksARange()
{
    const auto fMayusClic = [this](int lngFila) {
        const QPoint punto =
            m_sesion->fLista()->visualRect(m_sesion->fLista()->model()->index(lngFila, 0)).center();
        QTest::mouseClick(m_sesion->ventana->windowHandle(), Qt::LeftButton, Qt::ShiftModifier,
                          m_sesion->fLista()->viewport()->mapTo(m_sesion->ventana.get(), punto));
    };
    m_sesion->fClicFila(4);
    fMayusClic(2);
    QCOMPARE(m_sesion->fPosicion(), 2);
    QVERIFY(!m_sesion->fMarcada(1) && m_sesion->fMarcada(2) && m_sesion->fMarcada(4) &&
            !m_sesion->fMarcada(5));
    fMayusClic(3);
    QVERIFY(!m_sesion->fMarcada(2) && !m_sesion->fMarcada(3) && m_sesion->fMarcada(4));
}

void clsPruebasComandos::fTotalsCountTheList()
{
    m_sesion->fElegirEntrada("mnuOpcionesTotal");
    QCOMPARE(m_sesion->mensajes.strTitulo, QString("Totales"));
    const QString strTexto = m_sesion->mensajes.lstTextos.value(0);
    QVERIFY2(strTexto.startsWith("7 fotos.      \r\n\r\n0,") && strTexto.endsWith(" Mb.      \r\n"),
             qPrintable(strTexto));
}

void clsPruebasComandos::fCopiesLoseTheirTicks()
{
    const clsArbol destino;
    m_sesion->mensajes.strCarpeta = destino.fRaiz();
    m_sesion->fClicFila(2);
    m_sesion->fElegirEntrada("mnuOpcionesCopiar"); // nothing is ticked: the current one
    QCOMPARE(m_sesion->mensajes.fDichos(), QStringList("Selecciona carpeta de destino:"));
    QCOMPARE(destino.fNombres(), std::vector<std::string>{"tres.jpg"});
    QCOMPARE(destino.fLeer("tres.jpg"), m_arbol->fLeer("a/tres.jpg"));
    QVERIFY(!m_sesion->fMarcada(2));
    m_sesion->fElegirEntrada("mnuSeleccion0");
    m_sesion->fElegirEntrada("mnuOpcionesCopiar");
    QCOMPARE(destino.fNombres().size(), 7U);
    QVERIFY(!m_sesion->fMarcada(0) && !m_sesion->fMarcada(6));
    QCOMPARE(m_sesion->fPosicion(), 2);
    m_sesion->mensajes.strCarpeta.clear(); // Cancel
    m_sesion->fElegirEntrada("mnuOpcionesCopiar");
    QVERIFY(!m_sesion->fMarcada(2));
}

void clsPruebasComandos::fAFailedCopyStopsAndKeepsTheTicks()
{
    const clsArbol destino;
    m_sesion->mensajes.strCarpeta = destino.fRaiz();
    m_sesion->fElegirEntrada("mnuSeleccion0");
    unlink(m_arbol->fRuta("b/cuatro.jpg").c_str());
    m_sesion->mensajes.lstTextos.clear();
    m_sesion->fElegirEntrada("mnuOpcionesCopiar");
    QCOMPARE(destino.fNombres(), (std::vector<std::string>{"dos.jpg", "tres.jpg", "uno.jpg"}));
    for (int lngFila = 0; lngFila < 7; ++lngFila) {
        QCOMPARE(m_sesion->fMarcada(lngFila), lngFila >= 3);
    }
    QCOMPARE(m_sesion->mensajes.lstTextos.size(), 2);
    QVERIFY(m_sesion->mensajes.lstTextos[1].contains("b/cuatro.jpg"));
    QCOMPARE(m_sesion->fPosicion(), 0);
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

/// Copies all files; once the fourth is under way, which is large, something is done.
void clsPruebasComandos::fCopiarHasta(const clsArbol &destino, const std::function<void()> &fHacer)
{
    m_arbol->fCrear("b/cuatro.jpg", std::string(lngGrande, 'x'));
    m_sesion->mensajes.strCarpeta = destino.fRaiz();
    m_sesion->fElegirEntrada("mnuSeleccion0");
    const clsCuando durante([&] { return m_sesion->fTexto("txtInfo2") == "4 de 7 ..."; },
                            [&] {
                                fHacer();
                                suelta.release();
                            });
    m_sesion->fElegirEntrada("mnuOpcionesCopiar");
    QVERIFY(durante.fHecho());
    // What was under way is not there, unless it was whole by then.
    std::vector<std::string> lstNombres = destino.fNombres();
    if (std::erase(lstNombres, "cuatro.jpg") > 0) {
        QCOMPARE(destino.fLeer("cuatro.jpg").size(), std::size_t{lngGrande});
    }
    QCOMPARE(lstNombres, (std::vector<std::string>{"dos.jpg", "tres.jpg", "uno.jpg"}));
}

void clsPruebasComandos::fClosingDuringACopyLeavesNothingHalf()
{
    const clsArbol destino("/dev/shm"); // a disk of its own: no file is copied in one step
    fCopiarHasta(destino, [&] { QVERIFY(!m_sesion->ventana->close()); });
    QTRY_VERIFY(!m_sesion->ventana->isVisible());
}

void clsPruebasComandos::fEscEndsACopyAndKeepsTheTicksOfTheRest()
{
    const clsArbol destino("/dev/shm");
    fCopiarHasta(destino, [&] { m_sesion->fTecla(Qt::Key_Escape); });
    const int lngCopiadas = static_cast<int>(destino.fNombres().size());
    for (int lngFila = 0; lngFila < 7; ++lngFila) {
        QCOMPARE(m_sesion->fMarcada(lngFila), lngFila >= lngCopiadas);
    }
    QCOMPARE(m_sesion->mensajes.lstTextos, QStringList("Selecciona carpeta de destino:"));
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void clsPruebasComandos::fTheBaulTakesCountsAndEmpties()
{
    QCOMPARE(fTituloBaul(), QString("Baúl (0)"));
    m_sesion->fClicFila(1);
    m_sesion->fTecla(Qt::Key_A);
    QCOMPARE(fTituloBaul(), QString("Baúl (1)"));
    QVERIFY(!m_sesion->fMarcada(1));
    QVERIFY(QFile::exists(QString::fromStdString(fBaul() + "2009.01.01.dos.jpg")));
    m_sesion->fElegirEntrada("mnuSeleccion0");
    m_sesion->fElegirEntrada("mnuBaulAñadir");
    QCOMPARE(fTituloBaul(), QString("Baúl (7)"));
    const clsAbridor abridor;
    m_sesion->fTecla(Qt::Key_B);
    QTRY_COMPARE(abridor.fAbierto(), fBaul());
    mkdir((fBaul() + "mias").c_str(), 0700);
    m_sesion->fElegirEntrada("mnuBaulVaciar"); // no
    QCOMPARE(fTituloBaul(), QString("Baúl (7)"));
    m_sesion->mensajes.lstRespuestas = {true};
    m_sesion->fElegirEntrada("mnuBaulVaciar");
    QCOMPARE(m_sesion->mensajes.lstTextos.back(), QString("¿Quieres vaciar el Baul?"));
    QCOMPARE(fTituloBaul(), QString("Baúl (0)"));
    QVERIFY(!m_sesion->fControl<QAction>("mnuBaulVaciar")->isEnabled());
    QVERIFY(rmdir((fBaul() + "mias").c_str()) == 0);
}

void clsPruebasComandos::fABaulThatCannotBeIsSaid()
{
    const QByteArray strAntes = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/nada/de/nada/");
    m_sesion->fTecla(Qt::Key_A);
    qputenv("TMPDIR", strAntes);
    QCOMPARE(m_sesion->mensajes.lstTextos.size(), 1);
    QVERIFY(m_sesion->mensajes.lstTextos[0].startsWith("/nada/de/nada/Miravel"));
    QVERIFY(!m_sesion->fMarcada(0));
}

void clsPruebasComandos::fTheFilterNarrowsAndGoes()
{
    m_sesion->fClicFila(5);
    m_sesion->fClicCasilla(1);
    const auto fBuscar = [this](const char *strTexto) {
        const clsCuando cuando([] { return fDialogo("frmFiltro") != nullptr; },
                               [strTexto] {
                                   QDialog *const dialogo = fDialogo("frmFiltro");
                                   auto *const caja = dialogo->findChild<QLineEdit *>("txtTexto");
                                   caja->setFocus();
                                   caja->selectAll();
                                   QTest::keyClicks(caja, strTexto);
                                   QTest::keyClick(caja, Qt::Key_Return);
                                   if (dialogo->isVisible()) {
                                       QTest::keyClick(dialogo, Qt::Key_Escape);
                                   }
                               });
        m_sesion->fTecla(Qt::Key_F);
        QVERIFY(cuando.fHecho());
    };
    const auto *const mnuQuitar = m_sesion->fControl<QAction>("mnuOpcionesQuitarFiltro");
    fBuscar("nadie"); // none: the list stays as it is
    QVERIFY(m_sesion->fMarcada(1) && m_sesion->fPosicion() == 5 && !mnuQuitar->isEnabled());
    fBuscar("JPG"); // all, but the extension does not count
    QVERIFY(m_sesion->fMarcada(1) && !mnuQuitar->isEnabled());
    fBuscar("s");
    QCOMPARE(m_sesion->fNombres(), QStringList({"dos.jpg", "tres.jpg", "seis.jpg", "siete.jpg"}));
    QCOMPARE(m_sesion->fPosicion(), 0);
    QVERIFY(!m_sesion->fMarcada(0) && mnuQuitar->isEnabled());
    m_sesion->mensajes.lstTextos.clear();
    m_sesion->fElegirEntrada("mnuOpcionesTotal");
    QVERIFY(m_sesion->mensajes.lstTextos[0].startsWith("4 fotos."));
    m_sesion->fTecla(Qt::Key_F12);
    m_sesion->fTecla(Qt::Key_F, Qt::ShiftModifier); // no
    QCOMPARE(m_sesion->fNombres().size(), 4);
    m_sesion->mensajes.lstRespuestas = {true};
    m_sesion->fTecla(Qt::Key_F, Qt::ShiftModifier);
    QCOMPARE(m_sesion->mensajes.lstTextos.back(), QString("¿Quitar Filtro?"));
    QCOMPARE(m_sesion->fNombres().size(), 7);
    QCOMPARE(m_sesion->fPosicion(), 2); // the same file
    QVERIFY(!mnuQuitar->isEnabled());
    m_sesion->mensajes.lstTextos.clear();
    m_sesion->fTecla(Qt::Key_F, Qt::ShiftModifier); // nothing to remove: not even asked
    QCOMPARE(m_sesion->mensajes.lstTextos, QStringList());
}

void clsPruebasComandos::fKeysBesideAnOpenFilterAreDropped()
{
    const clsCuando cuando([] { return fDialogo("frmFiltro") != nullptr; },
                           [this] {
                               // Where a second key goes that is pressed too fast for the dialog.
                               QWindow *const ventana = m_sesion->ventana->windowHandle();
                               for (const Qt::Key tecla : {Qt::Key_F, Qt::Key_F5, Qt::Key_F12}) {
                                   QTest::keyClick(ventana, tecla);
                               }
                               const auto lst = m_sesion->ventana->findChildren<QDialog *>();
                               QCOMPARE(lst.size(), 1);
                               QTest::keyClick(lst[0], Qt::Key_Escape);
                           });
    m_sesion->fTecla(Qt::Key_F);
    QVERIFY(cuando.fHecho());
    QCOMPARE(m_sesion->mensajes.lstTextos, QStringList());
    QCOMPARE(m_sesion->fPosicion(), 0);
}

void clsPruebasComandos::fOtherProgramsOpenWhatIsCurrent()
{
    const clsAbridor abridor;
    m_sesion->fClicFila(3);
    m_sesion->fTecla(Qt::Key_C);
    QTRY_COMPARE(abridor.fAbierto(), m_arbol->fRuta("b/"));
    m_sesion->fTecla(Qt::Key_Return);
    QTRY_COMPARE(abridor.fAbierto(), m_arbol->fRuta("b/cuatro.jpg"));
    m_sesion->fTecla(Qt::Key_F1);
    QTRY_COMPARE(abridor.fAbierto(), m_arbol->fRuta("Ayuda_Miravel.htm"));
    const std::string strAyuda = m_arbol->fLeer("Ayuda_Miravel.htm");
    QVERIFY(strAyuda.starts_with("<html><head><title>Ayuda_Miravel</title></head>\r\n"));
    m_sesion->fTecla(Qt::Key_F1); // anew, not behind the old one
    QCOMPARE(m_arbol->fLeer("Ayuda_Miravel.htm"), strAyuda);
}

void clsPruebasComandos::fADesktopWithoutAnOpenerDoesNoHarm()
{
    const QByteArray strAntes = qgetenv("PATH");
    qputenv("PATH", "/nada");
    for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_C, Qt::Key_B, Qt::Key_F1}) {
        m_sesion->fTecla(tecla);
    }
    qputenv("PATH", strAntes);
    QVERIFY(QFile::exists(QString::fromStdString(m_arbol->fRuta("Ayuda_Miravel.htm"))));
    QCOMPARE(m_sesion->mensajes.lstTextos, QStringList());
    m_sesion->fTecla(Qt::Key_F12);
    QCOMPARE(m_sesion->fPosicion(), 1);
}

void clsPruebasComandos::fTheAboutBoxLeadsToTheHelp()
{
    const clsAbridor abridor;
    const clsCuando cuando([] { return fDialogo("frmAcerca") != nullptr; },
                           [] {
                               QDialog *const acerca = fDialogo("frmAcerca");
                               QTest::mouseClick(acerca->findChild<QWidget *>("cmdAyuda"),
                                                 Qt::LeftButton);
                               QTest::keyClick(acerca, Qt::Key_Escape);
                           });
    m_sesion->fElegirEntrada("mnuAyudaAcerca");
    QVERIFY(cuando.fHecho());
    QTRY_COMPARE(abridor.fAbierto(), m_arbol->fRuta("Ayuda_Miravel.htm"));
}

void clsPruebasComandos::fTheProgramsOwnBoxesAskInSpanish()
{
    clsMensajesQt mensajes;
    {
        const clsCuando cuando([] { return fDialogo("msgMiravel") != nullptr; },
                               [] {
                                   auto *const caja = qobject_cast<QMessageBox *>(
                                       QApplication::activeModalWidget());
                                   QCOMPARE(caja->defaultButton()->text(), QString("Cancelar"));
                                   QTest::keyClick(caja, Qt::Key_Escape);
                               });
        QVERIFY(!mensajes.fAceptarCancelar("¿Quitar Filtro?"));
        QVERIFY(cuando.fHecho());
    }
    const clsCuando cuando([] { return fDialogo("inpMiravel") != nullptr; },
                           [] {
                               QWidget *const caja = QApplication::activeModalWidget();
                               auto *const linea = caja->findChild<QLineEdit *>();
                               QVERIFY(linea->text().isEmpty());
                               QTest::keyClicks(linea, "01012009");
                               QTest::keyClick(linea, Qt::Key_Return);
                           });
    QCOMPARE(mensajes.fPedir("Ir a la fecha (ddmmyyyy):").value_or(""), std::string("01012009"));
    QVERIFY(cuando.fHecho());
}

static const clsTema tema{"comandos", fCorrer<clsPruebasComandos>};

#include "comandos_test.moc"
