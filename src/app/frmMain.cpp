#include "app/frmMain.h"

#include "app/barra.h"
#include "app/caja_info.h"
#include "app/ceder.h"
#include "app/menus.h"
#include "app/puerta.h"
#include "catalogue/lstFotos.h"
#include "catalogue/modelo_fotos.h"
#include "dates/clsFile.h"
#include "dates/panel.h"
#include "shared/programa.h"
#include "shared/qtexto.h"
#include "sistema/entorno.h"
#include "viewer/cmdAncho.h"
#include "viewer/fotogramas.h"
#include "viewer/geometria.h"
#include "viewer/miniaturas.h"
#include "viewer/visor.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScreen>
#include <QToolBar>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

constexpr int intPausaDisposicion = 150; // milliseconds
constexpr int intPausaVeredicto = 100;

/// Makes the frames of videos. The threads that call it keep the children it starts alive.
clsFotograma fDeVideos()
{
    const auto fotogramas = std::make_shared<clsFotogramas>();
    return [fotogramas](const std::string &strRuta, const clsHuella &huella, int intLado,
                        const std::atomic<bool> &bolAnulado) {
        return fotogramas->fFotograma(strRuta, huella, intLado, bolAnulado);
    };
}

/// Counts how many of these live.
class clsCuenta {
public:
    explicit clsCuenta(int &intCuenta) : m_intCuenta(intCuenta) { ++m_intCuenta; }
    ~clsCuenta() { --m_intCuenta; }
    clsCuenta(const clsCuenta &) = delete;
    clsCuenta &operator=(const clsCuenta &) = delete;

private:
    int &m_intCuenta;
};

} // namespace

frmMain::frmMain(clsArchivo archivo, clsAjustes &ajustes, clsMensajes &mensajes)
    : m_archivo(std::move(archivo)), m_ajustes(ajustes), m_mensajes(mensajes),
      m_signos(fSignosLocales()),
      m_ocupacion(
          [this] {
              m_estado.bolOcupado = true;
              QApplication::setOverrideCursor(Qt::WaitCursor);
          },
          [this] {
              m_estado.bolOcupado = false;
              QApplication::restoreOverrideCursor();
              m_lista->setFocus();
              m_puerta->fMirarCtrl();
              if (std::exchange(m_bolDobleClic, false) && !m_bolCerrando) {
                  QTimer::singleShot(0, this, &frmMain::fAbrirArchivo);
              }
              if (m_bolCerrando) {
                  QTimer::singleShot(0, this, &QWidget::close);
              }
          }),
      m_lngAncho(m_archivo.preferencias.lngAncho), m_cliente(new QWidget(this)),
      m_modelo(new clsModeloFotos(m_estado.filas, m_signos, this)),
      m_lista(new lstFotos(m_cliente)), m_visor(new clsVisor(m_cliente)),
      m_miniaturas(new clsMiniaturas(m_cliente, m_estado.filas, m_signos, m_mensajes, fDeVideos())),
      m_divisor(new cmdAncho(m_cliente))
{
    m_estado.medios = m_archivo.preferencias.medios;
    m_estado.intTamMini = m_archivo.preferencias.intTamMini;
    m_visor->fAnticipar(m_ajustes.fConsultar(strSeccionGeneral, "SELEC"));
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(fQ(std::string(strPrograma) + ' ' + strVersion));
    fCrearControles();
    fCrearInformacion();
    fConectar();
    fAtenderPasos();
    fAtenderPanel();
    fAtenderProgramas();
    fAtenderLista();
    fAtenderCopias();
    fAtenderFechas();
    fMostrarEstado();
}

frmMain::~frmMain() = default;

void frmMain::fCrearControles()
{
    m_cliente->setObjectName(QStringLiteral("frmMainCliente"));
    setCentralWidget(m_cliente);
    m_lista->setModel(m_modelo);
    m_lista->fAnchosIniciales();
    const clsElegido fElegir = [this](const clsComando &comando) { fElegido(comando); };
    m_toolBar = fCrearBarra(m_cliente, fElegir);
    m_mnuFoto = fCrearMenus(*this, fElegir);
}

void frmMain::fCrearInformacion()
{
    m_txtInfo1 = new clsCajaInfo("txtInfo1", QStringLiteral("Posición en la lista"), m_cliente);
    m_txtInfo2 = new clsCajaInfo("txtInfo2", QStringLiteral("Archivo actual"), m_cliente);
    m_txtInfo3 = new clsCajaInfo("txtInfo3", QStringLiteral("Aviso de fechas"), m_cliente);
    m_txtInfo1->setAlignment(Qt::AlignCenter);
    m_txtInfo3->setText(QStringLiteral("CONFLICTO FECHAS"));
    QPalette aviso = m_txtInfo3->palette();
    aviso.setColor(QPalette::Base, QColor(0xb3, 0x26, 0x1e));
    aviso.setColor(QPalette::Text, Qt::white);
    m_txtInfo3->setPalette(aviso);
    m_txtInfo3->setAlignment(Qt::AlignCenter);
    m_txtInfo3->hide();
    const int intAlto = m_txtInfo1->sizeHint().height();
    const int intArriba = m_toolBar->sizeHint().height();
    const int intAncho1 = fontMetrics().horizontalAdvance(QStringLiteral("  1000000 de 1000000  "));
    const int intAncho3 = fontMetrics().horizontalAdvance(m_txtInfo3->text()) + intAlto;
    m_toolBar->setGeometry(0, 0, m_toolBar->sizeHint().width(), intArriba);
    m_txtInfo1->setGeometry(0, intArriba, intAncho1, intAlto);
    m_txtInfo2->setGeometry(intAncho1, intArriba, screen()->size().width(), intAlto);
    m_txtInfo3->setGeometry(0, intArriba, intAncho3, intAlto);
}

void frmMain::fConectar()
{
    m_Timer1.setSingleShot(true);
    m_Timer1.setInterval(intPausaDisposicion);
    connect(&m_Timer1, &QTimer::timeout, this, &frmMain::fTemporizador);
    m_relojVeredicto.setInterval(intPausaVeredicto);
    connect(&m_relojVeredicto, &QTimer::timeout, this, &frmMain::fTomarVeredicto);
    m_cliente->installEventFilter(this);
    m_puerta = new clsPuerta(
        *this, [this] { return m_estado.bolOcupado; },
        [this](int intTecla, int intMayus) { return m_mandos.fTecla(intTecla, intMayus); });
    // The first click of a double click shows the row, and the second falls into that.
    connect(m_puerta, &clsPuerta::fDobleClicOcupada, this,
            [this](const QWidget *control, const QPoint &punto) {
                m_bolDobleClic = control == m_lista->viewport() &&
                                 m_lista->indexAt(punto).row() == m_estado.lngActual;
            });
    connect(m_puerta, &clsPuerta::fEscOcupada, this, [this] { m_bolEsc = true; });
    connect(m_lista, &lstFotos::fFila, this, [this](int lngPos) { fMostrarArchivo(lngPos, true); });
    connect(m_lista, &lstFotos::fRango, this, &frmMain::fAlternarRango);
    connect(m_lista, &lstFotos::fDobleClic, this, &frmMain::fAbrirArchivo);
    // The second of two quick clicks is a click, too.
    for (const auto clic : {&QHeaderView::sectionClicked, &QHeaderView::sectionDoubleClicked}) {
        connect(m_lista->horizontalHeader(), clic, this,
                [this](int intSeccion) { fCabeceraPulsada(static_cast<Columna>(intSeccion + 1)); });
    }
    connect(m_modelo, &clsModeloFotos::fMarcaCambiada, this,
            [this] { fMostrarArchivo(m_estado.lngActual, true); });
    connect(m_divisor, &cmdAncho::fSoltado, this,
            [this](int intX) { fFijarAncho(intX * intTwipsPixel); });
    connect(m_miniaturas, &clsMiniaturas::fPulsada, this, &frmMain::fCeldaPulsada);
    connect(m_visor, &clsVisor::fTarde, this, [this] {
        if (!m_estado.bolMiniaturas && !m_estado.bolPaso && !m_estado.bolOcupado) {
            fRedibujar();
        }
    });
    connect(m_visor, &clsVisor::fMenuPedido, m_mnuFoto,
            [this](const QPoint &punto) { m_mnuFoto->popup(punto); });
}

void frmMain::fIniciar()
{
    setGeometry(screen()->availableGeometry());
    showMaximized();
    QTimer::singleShot(0, this, [this] {
        fContarElBaul();
        fLlenarLista(false, m_ajustes.fLeerIni(strSeccionGeneral, "SELEC", ""));
    });
}

void frmMain::showEvent(QShowEvent *evento)
{
    QMainWindow::showEvent(evento);
    if (m_tamDispuesto.isEmpty()) {
        fDisponerPanel();
    }
}

void frmMain::closeEvent(QCloseEvent *evento)
{
    // Whatever runs sees this at its next yield and unwinds; then the window closes.
    m_bolCerrando = true;
    evento->setAccepted(!m_estado.bolOcupado);
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
    m_visor->fAltura(intAlto);
    m_Timer1.start();
}

void frmMain::fTemporizador()
{
    if (m_estado.bolOcupado || m_estado.bolPaso) {
        m_Timer1.start();
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
    const int intArriba = m_txtInfo1->y() + m_txtInfo1->height();
    const clsDisposicion sitio =
        fDisponer({m_cliente->width() * intTwipsPixel, m_cliente->height() * intTwipsPixel,
                   intArriba * intTwipsPixel, m_lngAncho, m_txtInfo3->width() * intTwipsPixel});
    m_lista->setGeometry(0, intArriba, sitio.lista.lngAncho / intTwipsPixel,
                         sitio.lista.lngAlto / intTwipsPixel);
    m_visor->fDisponer(sitio, !m_estado.bolMiniaturas);
    m_miniaturas->fDisponer(sitio.fondo, m_estado.intTamMini);
    m_estado.intCeldas = m_miniaturas->fCeldas();
    m_divisor->setGeometry(sitio.divisor.lngIzq / intTwipsPixel, intArriba, cmdAncho::intPixeles,
                           sitio.divisor.lngAlto / intTwipsPixel);
    m_divisor->raise();
    for (QWidget *const control :
         {static_cast<QWidget *>(m_toolBar), static_cast<QWidget *>(m_txtInfo1),
          static_cast<QWidget *>(m_txtInfo2), static_cast<QWidget *>(m_txtInfo3)}) {
        control->raise();
    }
    m_txtInfo3->move(sitio.lngInfo3 / intTwipsPixel, m_txtInfo3->y());
    fLimitarInfo2();
}

/// txtInfo2 goes on below the warning and beyond the window; its text does not.
void frmMain::fLimitarInfo2()
{
    m_txtInfo2->fHasta(m_txtInfo3->isHidden() ? m_cliente->width() : m_txtInfo3->x());
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

// --- Making a file current ---

void frmMain::fMostrarArchivo(int lngPos, bool bolOcupar)
{
    if (m_estado.filas.fVacia()) {
        return;
    }
    if (bolOcupar) {
        const clsOcupado ocupado(m_ocupacion);
        fMostrarArchivo(lngPos, false);
        return;
    }
    fHacerActual(m_estado, lngPos);
    m_bolGuardarSelec = true;
    m_visor->fVaciar();
    fRedibujar();
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
    const clsCuenta cuenta(m_estado.intDibujos);
    clsEntorno entorno;
    entorno.fProcesando = [this] { fInfo2(QStringLiteral("Procesando...")); };
    entorno.fCeder = [](int intMs) { fCederEventos(intMs); };
    entorno.fVigente = [this, lngGeneracion] {
        return lngGeneracion == m_estado.lngGeneracion && !m_bolCerrando;
    };
    entorno.fFalta = [this] { fIncidencias(); };
    if (m_estado.bolMiniaturas) {
        return m_miniaturas->fMostrar(m_estado.lngActual, entorno);
    }
    return m_visor->fMostrar(m_estado.filas.fRuta(m_estado.lngActual), entorno);
}

void frmMain::fTerminarMostrar()
{
    m_lista->fElegir(m_estado.lngActual);
    fInformar();
    if (m_bolGuardarSelec) {
        m_bolGuardarSelec = false;
        m_ajustes.fGuardarIni(strSeccionGeneral, "SELEC", m_estado.filas.fRuta(m_estado.lngActual));
    }
    if (m_estado.bolMiniaturas) {
        return;
    }
    std::vector<std::string> lstVecinas;
    for (const int lngPos : fVecinas(m_estado)) {
        lstVecinas.push_back(m_estado.filas.fRuta(lngPos));
    }
    m_visor->fAdelantar(lstVecinas);
}

void frmMain::fInformar()
{
    fJuzgar();
    m_txtInfo1->setText(fQ(fTextoInfo1(m_estado.lngActual, m_estado.filas.fCantidad())));
    // Folder and name each in its own encoding, as the list shows them.
    const std::string strRuta = fTextoPantalla(m_estado.filas.fCarpeta(m_estado.lngActual)) +
                                fTextoPantalla(m_estado.filas.fNombre(m_estado.lngActual));
    fInfo2(
        fQ(fTextoInfo2(strRuta, m_estado.filas.fFecha(m_estado.lngActual),
                       fCampo(m_estado.filas, m_estado.lngActual + 1, Campo::Tamano, m_signos))));
    m_visor->fDescribir(fQPantalla(m_estado.filas.fNombre(m_estado.lngActual)) +
                        QStringLiteral(" (") +
                        fQPantalla(m_estado.filas.fFecha(m_estado.lngActual)) + QLatin1Char(')'));
}

/// Has the current file's date judged. As a rule that takes no time worth mentioning; a disk that
/// does not answer must not hold the window up.
void frmMain::fJuzgar()
{
    constexpr std::chrono::milliseconds lngPaciencia(200);
    m_jueces.fVaciar();
    m_veredicto = fPreguntar<bool>(m_jueces, [strRuta = m_estado.filas.fRuta(m_estado.lngActual)] {
        clsFile fichero;
        fichero.fCargar(strRuta);
        return fichero.bolFechaCorrecta();
    });
    m_relojVeredicto.stop();
    if (m_veredicto.wait_for(lngPaciencia) == std::future_status::ready) {
        fTomarVeredicto();
    } else {
        m_jueces.fReforzar();
        m_txtInfo3->hide();
        fLimitarInfo2();
        m_relojVeredicto.start();
    }
}

void frmMain::fTomarVeredicto()
{
    if (m_veredicto.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        m_relojVeredicto.stop();
        m_txtInfo3->setVisible(!m_veredicto.get());
        fLimitarInfo2();
    } else {
        m_jueces.fReforzar(); // those before it may hang
    }
}

void frmMain::fInfo2(const QString &strTexto)
{
    m_txtInfo2->setText(strTexto);
    m_txtInfo2->setCursorPosition(0);
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
    fMostrarArchivo(lngPos, true);
}

/// Inverts the ticks from the current row to another one, both included, which becomes current.
void frmMain::fAlternarRango(int lngHasta)
{
    m_modelo->fMarcar(
        [&](clsFilas &filas) { fInvertirEntre(filas, m_estado.lngActual, lngHasta); });
    fMostrarArchivo(lngHasta, true);
}
