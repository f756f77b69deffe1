#include "app/frmMain.h"

#include "app/informacion.h"
#include "app/menus.h"
#include "app/puerta.h"
#include "app/rueda.h"
#include "app/sitio_ventana.h"
#include "app/tiempo.h"
#include "browse/seleccion.h"
#include "catalogue/cotejo.h"
#include "catalogue/lstFotos.h"
#include "catalogue/modelo_fotos.h"
#include "shared/programa.h"
#include "shared/qtexto.h"
#include "shared/rutas.h"
#include "sistema/entorno.h"
#include "viewer/cmdAncho.h"
#include "viewer/encaje.h"
#include "viewer/fotogramas.h"
#include "viewer/geometria.h"
#include "viewer/miniaturas.h"
#include "viewer/visor.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QToolBar>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

namespace {

/// Makes the frames of videos. The threads that call it keep the children it starts alive.
clsFotograma fDeVideos()
{
    const auto fotogramas = std::make_shared<clsFotogramas>();
    return [fotogramas](const std::string &strRuta, const clsHuella &huella, int intLado,
                        const std::atomic<bool> &bolAnulado) {
        return fotogramas->fFotograma(strRuta, huella, intLado, bolAnulado);
    };
}

/// Lets pending events run; with a number above 0 waits for one, so many milliseconds at most. The
/// only place where the program does so.
void fCederEventos(int intMs = 0)
{
    QTimer despertador;
    if (intMs > 0) {
        despertador.start(intMs);
    }
    QCoreApplication::processEvents(intMs > 0 ? QEventLoop::WaitForMoreEvents
                                              : QEventLoop::AllEvents);
}

constexpr std::chrono::milliseconds pausa{150}; ///< between a new size and its layout

} // namespace

frmMain::frmMain(clsArchivo archivo, clsAjustes &ajustes, clsAjustes &escritorio,
                 clsMensajes &mensajes)
    : m_archivo(std::move(archivo)), m_ajustes(ajustes), m_escritorio(escritorio),
      m_mensajes(mensajes), m_ocupacion([this] { fAlOcupar(); }, [this] { fAlLiberar(); }),
      m_fuentes{fDeVideos(), std::make_shared<clsCacheFotos>()},
      m_lngAncho(m_archivo.preferencias.lngAncho), m_cliente(new QWidget(this)),
      m_modelo(new clsModeloFotos(m_estado.filas, fSignosLocales(), this)),
      m_lista(new lstFotos(m_cliente)),
      m_visor(new clsVisor(m_cliente, m_estado.giros, m_fuentes.fotos)),
      m_miniaturas(new clsMiniaturas(
          m_cliente, m_estado.filas, fSignosLocales(),
          [this](const std::string &strTexto) { return fQueja(strTexto); }, m_fuentes,
          m_estado.giros)),
      m_divisor(new cmdAncho(m_cliente)),
      m_toolBar(fCrearBarra(m_cliente, [this](const auto &comando) { fElegido(comando); })),
      m_informacion(
          new clsInformacion(m_cliente, fSignosLocales(), m_toolBar->sizeHint().height())),
      m_puerta(new clsPuerta(*this, m_estado, m_mandos)), m_comun(fComun()),
      m_tiempo(new clsTiempo(m_cliente, m_lista, m_comun, m_mandos, [this] {
          fDisponerPanel();
          fRedibujar();
      }))
{
    m_estado.filas.fFijarRaiz(m_archivo.strRaiz);
    if (const auto strSelec = m_ajustes.fConsultar(strSeccionGeneral, "SELEC");
        fBajoRaiz(strSelec, m_archivo.strRaiz)) {
        m_visor->fAnticipar(strSelec);
    }
    m_estado.medios = m_archivo.preferencias.medios;
    m_estado.bolFormatos = m_archivo.preferencias.bolFormatos;
    m_estado.intTamMini = m_archivo.preferencias.intTamMini;
    m_estado.bolTiempo = m_archivo.preferencias.bolTiempo;
    fCrearControles();
    fConectarLista();
    fConectarPanel();
    fAtenderPanel();
    fAtenderPasos(m_comun, m_mandos);
    fAtenderProgramas(m_comun, m_mandos);
    fAtenderListado(m_comun, m_mandos);
    fAtenderCopias(m_comun, m_mandos);
    fAtenderFechas(m_comun, m_mandos);
    fAtenderReparaciones(m_comun, m_mandos);
    fAtenderDuplicados(m_comun, m_mandos);
    fAtenderPresentacion(m_comun, m_mandos);
    fMostrarEstado();
}

frmMain::~frmMain() = default;

/// What the parts of the window need of it.
clsComun frmMain::fComun()
{
    return {
        this,
        m_archivo,
        m_estado,
        *m_modelo,
        m_mensajes,
        m_ajustes,
        m_escritorio,
        m_ocupacion,
        *m_informacion,
        m_fuentes,
        [this](int lngPos) { fMostrarArchivo(lngPos); },
        [this] { fVaciarPanel(); },
        [this](bool bolForzar, const std::string &strRuta) { fLlenarLista(bolForzar, strRuta); },
        [this] { fMostrarEstado(); },
        [this] {
            fCederEventos();
            return !m_estado.fCerrando();
        }};
}

void frmMain::fCrearControles()
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(fQ(std::string(strPrograma) + ' ' + strVersion));
    m_cliente->setObjectName(QStringLiteral("frmMainCliente"));
    setCentralWidget(m_cliente);
    m_lista->setModel(m_modelo);
    m_lista->fAnchosIniciales();
    m_toolBar->setGeometry({
        {0, 0},
        m_toolBar->sizeHint()
    });
    // Where the keys are that the desktop has for that: in any list, also in an empty one.
    auto *const atajo = new QShortcut(Qt::Key_F10, this);
    connect(atajo, &QShortcut::activated, this,
            [this] { menuBar()->setActiveAction(menuBar()->actions().constFirst()); });
    QMenu *const mnuFoto = fCrearMenus(*this, [this](const auto &comando) { fElegido(comando); });
    connect(m_visor, &clsVisor::fMenuPedido, mnuFoto,
            [mnuFoto](const QPoint &punto) { mnuFoto->popup(punto); });
}

void frmMain::fConectarLista()
{
    connect(m_lista, &lstFotos::fFila, this, &frmMain::fMostrarOcupada);
    connect(m_lista, &lstFotos::fRango, this, &frmMain::fAlternarRango);
    connect(m_lista, &lstFotos::fDobleClic, this, [this] { fAbrirArchivo(m_comun); });
    // The first click of a double click shows the row, and the second falls into that.
    connect(m_puerta, &clsPuerta::fDobleClicOcupada, this,
            [this](const QWidget *control, const QPoint &punto) {
                const bool bolEnLista = control == m_lista->viewport() &&
                                        m_lista->indexAt(punto).row() == m_estado.lngActual;
                const bool bolEnCelda = m_miniaturas->fPosicion(control) == m_estado.lngActual &&
                                        QGuiApplication::keyboardModifiers() == Qt::NoModifier;
                m_bolDobleClic = bolEnLista || bolEnCelda;
            });
    // The second of two quick clicks is a click, too.
    for (const auto clic : {&QHeaderView::sectionClicked, &QHeaderView::sectionDoubleClicked}) {
        connect(m_lista->horizontalHeader(), clic, this,
                [this](int intSeccion) { fCabeceraPulsada(static_cast<Columna>(intSeccion + 1)); });
    }
    connect(m_modelo, &clsModeloFotos::fMarcaCambiada, this,
            [this] { fMostrarOcupada(m_estado.lngActual); });
}

void frmMain::fConectarPanel()
{
    m_Timer1.setSingleShot(true);
    connect(&m_Timer1, &QTimer::timeout, this, &frmMain::fTemporizador);
    m_cliente->installEventFilter(this);
    connect(m_visor, &clsVisor::fLlegada, this, &frmMain::fMirarPendiente);
    connect(m_miniaturas, &clsMiniaturas::fLlegada, this, &frmMain::fMirarPendiente);
    connect(m_divisor, &cmdAncho::fSoltado, this,
            [this](int intX) { fFijarAncho(intX * intTwipsPixel); });
    connect(m_miniaturas, &clsMiniaturas::fPulsada, this, &frmMain::fCeldaPulsada);
    connect(m_miniaturas, &clsMiniaturas::fDobleClic, this, [this](int lngPos) {
        if (lngPos == m_estado.lngActual && !m_puerta->fCtrl()) {
            static_cast<void>(m_mandos.fTecla(intTeclaEnter, 0));
        }
    });
    connect(m_visor, &clsVisor::fAbrirPedido, this,
            [this] { static_cast<void>(m_mandos.fTecla(intTeclaEnter, 0)); });
    connect(m_visor, &clsVisor::fCompletaPedida, this, &frmMain::fAlternarCompleta);
    new clsRueda(
        m_cliente, [this] { return m_visor->fSitio(); }, m_mandos);
}

void frmMain::fAtenderPanel()
{
    m_mandos.fAtender("modo", [this] { fFijarModo(!m_estado.bolMiniaturas); });
    m_mandos.fAtender("miniaturas", [this] { fFijarModo(true); });
    m_mandos.fAtender("zoom", [this](int intZoom) { fFijarZoom(intZoom); });
    m_mandos.fAtender("tamMini", [this](int intTam) { fFijarTamMini(intTam); });
    m_mandos.fAtender("aumentar", [this](int intPasos) { fAumentar(intPasos); });
    m_mandos.fAtender("girar", [this](int intCuartos) { fGirar(intCuartos); });
    m_mandos.fAtender("completa", [this] { fAlternarCompleta(); });
    m_mandos.fAtender("anular", [this] {
        if (m_estado.bolCompleta) {
            fAlternarCompleta();
        } else {
            m_estado.avance = Avance::Normal;
            fMostrarEstado();
        }
    });
}

void frmMain::fElegido(const clsComando &comando)
{
    m_mandos.fEjecutar(comando);
    fMostrarEstado(); // entry or button has taken the mark by itself, wanted or not
}

void frmMain::fMostrarEstado()
{
    ::fMostrarEstado(*this, m_estado);
    m_informacion->fEtiquetar(m_estado);
    m_tiempo->fMostrar();
}

void frmMain::fIniciar()
{
    fPonerEnSitio(*this, m_escritorio);
    show();
    QTimer::singleShot(0, this, [this] {
        fLlenarLista(false, m_ajustes.fLeerIni(strSeccionGeneral, "SELEC", ""));
    });
}

// --- Busy and closing ---

void frmMain::fAlOcupar()
{
    m_estado.bolOcupado = true;
    if (m_estado.parada == Parada::Esc) { // it was for earlier work
        m_estado.parada = Parada::Ninguna;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void frmMain::fAlLiberar()
{
    m_estado.bolOcupado = false;
    fNombrar();
    QApplication::restoreOverrideCursor();
    m_lista->setFocus();
    m_puerta->fMirarCtrl();
    if (m_estado.fCerrando()) {
        QTimer::singleShot(0, this, &QWidget::close);
    } else if (std::exchange(m_bolDobleClic, false)) {
        QTimer::singleShot(0, this, [this] { fAbrirArchivo(m_comun); });
    }
}

/// Looks whether pictures of what the panel shows are still to come, and says so.
void frmMain::fMirarPendiente()
{
    m_estado.bolPendiente =
        m_estado.bolMiniaturas ? m_miniaturas->fPendiente() : m_visor->fPendiente();
    m_informacion->fEtiquetar(m_estado);
    fNombrar();
}

/// Says which file is shown, unless something else is being said: that ends in the same.
void frmMain::fNombrar()
{
    if (!m_estado.bolOcupado && m_estado.intDibujos == 0 && !m_estado.filas.fVacia()) {
        m_informacion->fNombrar(m_estado);
    }
}

void frmMain::closeEvent(QCloseEvent *evento)
{
    // Whatever runs sees this at its next yield and unwinds; then the window closes.
    m_estado.parada = Parada::Cierre;
    evento->setAccepted(!m_estado.bolOcupado);
    if (evento->isAccepted()) {
        fGuardarSitio(*this, m_escritorio);
    }
    for (QMessageBox *const caja : findChildren<QMessageBox *>()) {
        caja->reject(); // those that are not modal, since beside others no window can be closed
    }
}

// --- Layout ---

/// Waits until the window stands on the screen, maximised and with its frame: what is drawn before
/// is drawn twice. Not for long, since a window can also start minimised.
void frmMain::fEsperarVentana()
{
    constexpr qint64 lngPaciencia = 500; // milliseconds
    QElapsedTimer espera;
    espera.start();
    while (!m_bolDispuesta && !windowHandle()->isExposed() && !m_estado.fCerrando() &&
           !espera.hasExpired(lngPaciencia)) {
        fCederEventos(static_cast<int>(lngPaciencia));
    }
    m_bolDispuesta = true;
}

void frmMain::showEvent(QShowEvent *evento)
{
    QMainWindow::showEvent(evento);
    if (m_tamDispuesto.isEmpty()) {
        fDisponerPanel();
    }
}

void frmMain::changeEvent(QEvent *evento)
{
    QMainWindow::changeEvent(evento);
    if (evento->type() == QEvent::WindowStateChange) {
        fCambiarCompleta();
        fRedimensionar(); // nothing was laid out while it was minimised
    }
}

bool frmMain::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == m_cliente && evento->type() == QEvent::Resize) {
        fRedimensionar();
    }
    return QMainWindow::eventFilter(objeto, evento);
}

void frmMain::fRedimensionar()
{
    if (isMinimized() || m_tamDispuesto.isEmpty()) {
        return;
    }
    const int intAlto = fNoNegativo(m_cliente->height() - m_lista->y());
    m_lista->resize(m_lista->width(), intAlto);
    m_visor->fAltura(fNoNegativo(intAlto - m_tiempo->fBajar(m_cliente->height())));
    if (m_bolDispuesta) {
        // What is to vanish from the whole screen does so at once.
        m_Timer1.start(m_estado.bolCompleta == m_bolCompletaDispuesta ? pausa : pausa.zero());
    } else {
        fDisponerPanel(); // nothing is drawn yet that would have to be drawn again
    }
}

void frmMain::fTemporizador()
{
    if (m_estado.bolOcupado || m_estado.bolPaso) {
        m_Timer1.start(pausa);
        return;
    }
    if (!isMinimized() && m_cliente->size() != m_tamDispuesto) {
        fDisponerPanel();
        fRedibujar();
    }
}

void frmMain::fDisponerPanel()
{
    ++m_estado.lngGeneracion;
    m_tamDispuesto = m_cliente->size();
    m_bolCompletaDispuesta = m_estado.bolCompleta;
    const int intArriba = m_estado.bolCompleta ? 0 : m_informacion->fAbajo();
    const clsDisposicion sitio = fDisponer(
        {m_cliente->width() * intTwipsPixel, m_cliente->height() * intTwipsPixel,
         intArriba * intTwipsPixel, m_estado.bolCompleta ? 0 : m_lngAncho,
         m_informacion->fAnchoAviso() * intTwipsPixel, m_tiempo->fAlto() * intTwipsPixel});
    m_lista->setGeometry(0, intArriba, sitio.lista.lngAncho / intTwipsPixel,
                         sitio.lista.lngAlto / intTwipsPixel);
    m_visor->fDisponer(sitio, !m_estado.bolMiniaturas);
    m_miniaturas->fDisponer(sitio.fondo, m_estado.intTamMini);
    m_estado.intCeldas = m_miniaturas->fCeldas();
    m_divisor->setGeometry(sitio.divisor.lngIzq / intTwipsPixel, intArriba, cmdAncho::intPixeles,
                           sitio.divisor.lngAlto / intTwipsPixel);
    m_divisor->raise();
    // Beside the splitter, which reaches a little into the panel.
    m_tiempo->fDisponer(fPixeles(sitio.franja).adjusted(m_divisor->width() - 1, 0, 0, 0));
    m_toolBar->raise();
    m_informacion->fDisponer(sitio.lngInfo3 / intTwipsPixel);
    if (m_estado.bolCompleta) {
        m_visor->fAlFrente(); // it covers what else there is
    }
}

void frmMain::fAlternarCompleta() { setWindowState(windowState() ^ Qt::WindowFullScreen); }

/// Takes over that the window got the whole screen or lost it, whoever wanted that.
void frmMain::fCambiarCompleta()
{
    if (m_estado.bolCompleta != isFullScreen()) {
        m_estado.bolCompleta = isFullScreen();
        // Not hidden: its entries would lose their keys.
        menuBar()->setMaximumHeight(m_estado.bolCompleta ? 0 : QWIDGETSIZE_MAX);
        fMostrarEstado();
    }
}

void frmMain::fVaciarPanel()
{
    m_visor->fVaciar();
    m_miniaturas->fVaciar();
}

void frmMain::fFijarAncho(int lngTwips)
{
    m_lngAncho =
        fAnchoPanel(lngTwips, m_cliente->width() * intTwipsPixel, lstTamMini[m_estado.intTamMini]);
    m_ajustes.fGuardarIni(strSeccionGeneral, "ANCHO", std::to_string(m_lngAncho));
    fDisponerPanel();
    fRedibujar();
}

void frmMain::fFijarTamMini(int intTam)
{
    m_estado.intTamMini = intTam;
    m_ajustes.fGuardarIni(strSeccionGeneral, "TAM_MINI", std::to_string(intTam));
    fMostrarEstado();
    fDisponerPanel();
    fRedibujar();
}

void frmMain::fFijarZoom(int intZoom)
{
    m_estado.intZoom = intZoom;
    m_visor->fFijarZoom(intZoom);
    fMostrarEstado();
}

void frmMain::fFijarModo(bool bolMiniaturas)
{
    m_estado.bolMiniaturas = bolMiniaturas;
    fMostrarEstado();
    m_visor->fVaciar();
    if (!bolMiniaturas) {
        m_miniaturas->fParar();
    }
    fDisponerPanel();
    fRedibujar();
}

/// Enlarges the picture, or the thumbnails, by so many steps; below 0 it is the other way.
void frmMain::fAumentar(int intPasos)
{
    const int intTam = m_estado.intTamMini + intPasos;
    if (!m_estado.bolMiniaturas) {
        fFijarZoom(intPasos > 0 ? fZoomMayor(m_estado.intZoom) : fZoomMenor(m_estado.intZoom));
    } else if (intTam >= 0 && intTam < static_cast<int>(std::size(lstTamMini))) {
        fFijarTamMini(intTam);
    }
}

/// Turns what is seen of the current file.
void frmMain::fGirar(int intCuartos)
{
    m_estado.giros.fGirar(m_estado.filas.fRutaDisco(m_estado.lngActual), intCuartos);
    if (m_estado.bolMiniaturas) {
        fRedibujar();
    } else {
        m_visor->fGirar();
        fDescribir();
    }
}

// --- The list ---

void frmMain::fLlenarLista(bool bolForzar, const std::string &strRuta)
{
    const clsOcupado ocupado(m_ocupacion);
    m_informacion->fAnunciar(QStringLiteral("Analizando..."));
    fVaciarPanel();
    clsLista antes;
    m_modelo->fRellenar([&](clsFilas & /*filas*/) { antes = fEmpezarLista(m_estado); });
    m_lista->fAnchosIniciales();
    const auto mudanza = fCargarCatalogo(m_comun, bolForzar);
    fEsperarVentana();
    if (!mudanza && !m_estado.fCerrando()) { // nobody waits any longer: what was listed stays so
        m_modelo->fRellenar(
            [&](clsFilas & /*filas*/) { fEmpezarLista(m_estado, std::move(antes)); });
    }
    fContarElBaul(m_comun);
    if (m_estado.fCerrando()) {
        return;
    }
    if (m_estado.filas.fVacia()) {
        m_informacion->fVaciar();
        m_mensajes.fAviso(Icono::Problema, "No se ha encontrado ningún archivo.");
        return;
    }
    if (!mudanza) {
        m_lista->fSenalarOrden(static_cast<int>(m_estado.columna) - 1, m_estado.bolDescendente);
        fMostrarArchivo(m_estado.lngActual);
        return;
    }
    fOrdenarLista();
    fMostrarArchivo(fActualTrasLlenar(m_estado, mudanza->fRuta(strRuta)));
}

void frmMain::fOrdenarLista()
{
    m_modelo->fReordenar([this](clsFilas & /*filas*/) { fOrdenarFilas(m_estado, fRangosEspanol); });
    m_lista->fSenalarOrden(static_cast<int>(m_estado.columna) - 1, m_estado.bolDescendente);
}

void frmMain::fCabeceraPulsada(Columna columna)
{
    if (!m_estado.filas.fVacia()) {
        const clsOcupado ocupado(m_ocupacion);
        fElegirColumna(m_estado, columna);
        fOrdenarLista();
        fMostrarArchivo(m_estado.lngActual);
    }
}

void frmMain::fCeldaPulsada(int lngPos, Qt::MouseButton boton, Qt::KeyboardModifiers mayus)
{
    if (m_estado.bolOcupado) { // assistive technology does not come through the gate
        return;
    }
    const bool bolCtrl = m_puerta->fCtrl();
    if (boton == Qt::RightButton) {
        m_estado.bolMiniaturas = false;
        fMostrarEstado();
        m_miniaturas->fParar();
        fDisponerPanel();
    } else if (bolCtrl) {
        m_modelo->fMarcar(
            [lngPos](clsFilas &filas) { filas.fMarcar(lngPos, !filas.fMarcada(lngPos)); });
    } else if (boton == Qt::LeftButton &&
               fEstadoMayus(mayus.setFlag(Qt::MetaModifier, false)) != 0) {
        fAlternarRango(lngPos);
        return;
    }
    fMostrarOcupada(lngPos);
}

/// Inverts the ticks from the current row to another one, both included, which becomes current.
void frmMain::fAlternarRango(int lngHasta)
{
    m_modelo->fMarcar(
        [&](clsFilas &filas) { fInvertirEntre(filas, m_estado.lngActual, lngHasta); });
    fMostrarOcupada(lngHasta);
}

// --- Making a file current ---

void frmMain::fMostrarOcupada(int lngPos)
{
    const clsOcupado ocupado(m_ocupacion);
    fMostrarArchivo(lngPos);
}

void frmMain::fMostrarArchivo(int lngPos)
{
    if (!m_estado.filas.fVacia()) {
        fHacerActual(m_estado, lngPos);
        m_bolGuardarSelec = true;
        m_visor->fVaciar();
        fRedibujar();
    }
}

void frmMain::fRedibujar()
{
    if (!m_estado.filas.fVacia() && fDibujar()) {
        fTerminarMostrar();
    }
}

bool frmMain::fDibujar()
{
    const std::uint64_t lngGeneracion = ++m_estado.lngGeneracion;
    const QScopedValueRollback<int> cuenta(m_estado.intDibujos, m_estado.intDibujos + 1);
    clsEntorno entorno;
    entorno.fProcesando = [this] { m_informacion->fDecir(QStringLiteral("Procesando...")); };
    entorno.fCeder = [](int intMs) { fCederEventos(intMs); };
    entorno.fVigente = [this, lngGeneracion] {
        return lngGeneracion == m_estado.lngGeneracion && !m_estado.fCerrando();
    };
    entorno.fFalta = [this] {
        // Once, until the catalogue is built anew. Set before the box: while it is open, a resize
        // can draw the same file again.
        if (!std::exchange(m_estado.bolIncidencias, true)) {
            m_mensajes.fAviso(Icono::Problema,
                              "Actualiza la lista de archivos. Se han detectado incidencias.");
        }
    };
    entorno.bolPaso = m_estado.bolPaso;
    if (m_estado.bolMiniaturas) {
        return m_miniaturas->fMostrar(m_estado.lngActual, entorno);
    }
    return m_visor->fMostrar(m_estado.filas.fRutaDisco(m_estado.lngActual), entorno);
}

/// Tells of one of perhaps many files. Esc beside the box, or closing the window, ends the series.
/// @return whether to go on with it.
bool frmMain::fQueja(const std::string &strTexto)
{
    const clsOcupado ocupado(m_ocupacion);
    m_mensajes.fAvisoEnSerie(strTexto);
    return m_estado.parada == Parada::Ninguna;
}

/// Tells assistive technology what the picture is of, and how it is seen.
void frmMain::fDescribir()
{
    const clsFilas &filas = m_estado.filas;
    const int lngPos = m_estado.lngActual;
    const int intCuartos = m_estado.giros.fCuartos(filas.fRutaDisco(lngPos));
    m_visor->fDescribir(
        fQPantalla(filas.fNombre(lngPos)) + QStringLiteral(" (") +
        fQPantalla(filas.fFecha(lngPos)) + QLatin1Char(')') +
        (intCuartos == 0 ? QString() : QStringLiteral(", ") + fQ(fTextoGiro(intCuartos))));
}

void frmMain::fTerminarMostrar()
{
    m_lista->fElegir(m_estado.lngActual);
    m_tiempo->fMostrar();
    fMirarPendiente();
    m_informacion->fMostrar(m_estado, !m_estado.bolMiniaturas && m_visor->fPasando());
    fDescribir();
    if (m_bolGuardarSelec) {
        m_bolGuardarSelec = false;
        m_ajustes.fGuardarIni(strSeccionGeneral, "SELEC", m_estado.filas.fRuta(m_estado.lngActual));
    }
    if (m_estado.bolMiniaturas) {
        return;
    }
    std::vector<std::string> lstVecinas;
    for (const int lngPos : fVecinas(m_estado)) {
        lstVecinas.push_back(m_estado.filas.fRutaDisco(lngPos));
    }
    m_visor->fAdelantar(lstVecinas);
}
