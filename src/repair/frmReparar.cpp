#include "repair/frmReparar.h"

#include "catalogue/cotejo.h"
#include "catalogue/delegados.h"
#include "dates/formulario_fecha.h"
#include "repair/anchos.h"
#include "repair/frmDesfase.h"
#include "repair/textos_reparar.h"
#include "shared/qhilos.h"
#include "shared/qtexto.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QTableView>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int intLadoImagen = 180; ///< of the small picture, in pixels
constexpr int intCasilla = 16;     ///< of a check box
constexpr const char *lstVistas[] = {"todas", "con propuesta", "dudosas", "sin propuesta"};
/// A text that fits each column, and one that has to where the window is narrow.
constexpr const char *lstMuestras[][2] = {
    {"",                                      ""                         },
    {"IMG-20190714-WA0012.jpg",               "IMG_0012.j"               },
    {"2009/2009-07-14 Playa",                 "07-14 Pl"                 },
    {"14/07/2009 18:03:22",                   "14/07/2009 18:03:22"      },
    {"14/07/2009 18:03:22",                   "14/07/2009 18:03:22"      },
    {"EXIF (digitalizada)",                   "EXIF (t"                  },
    {"20190714_IMG_0012.jpg",                 "20190714"                 },
    {"Ya hay un archivo con el nombre nuevo", "El nombre dice 08/05/2008"}
};
static_assert(std::size(lstMuestras) == intColumnasReparacion);

} // namespace

frmReparar::frmReparar(QWidget *padre, std::vector<std::string> lstRutas, clsTablaReparacion tabla,
                       clsEntornoReparar entorno)
    : QDialog(padre), m_tabla(std::move(tabla)), m_entorno(std::move(entorno)),
      m_tblReparar(new QTableView(this)), m_cboVista(new QComboBox(this)),
      m_cboFuente(new QComboBox(this)), m_txtFecha(new QLineEdit(this)),
      m_chkNombre(new QCheckBox(this)), m_imgActual(new QLabel(this)),
      m_lblFuentes(new QLabel(this)), m_lblCuentas(new QLabel(this)), m_progreso(this),
      m_cmdCorregir(nullptr), m_mandos(new QWidget(this)),
      m_lectura(
          this, std::move(lstRutas), m_entorno.fLeer,
          [this](const std::string &strRuta, clsFechasFichero fechas) {
              m_tabla.fAgregar(strRuta, std::move(fechas));
          },
          [this] { fMostrarLeidas(); }),
      m_pintor({.intHilos = 1, .fAvisar = fAvisarA(this)}),
      m_comprobador({.intHilos = 1, .fAvisar = fAvisarA(this)})
{
    setObjectName(QStringLiteral("frmReparar"));
    setWindowTitle(QStringLiteral("Reparar fechas"));
    auto *const centro = new QHBoxLayout;
    centro->addWidget(fCrearTabla(), 1);
    centro->addLayout(fCrearDetalle());
    auto *const mandos = new QVBoxLayout(m_mandos);
    mandos->setContentsMargins(0, 0, 0, 0);
    mandos->addLayout(fCrearCabecera());
    mandos->addLayout(centro, 1);
    mandos->addLayout(fCrearCambios());
    auto *const todo = new QVBoxLayout(this);
    todo->addWidget(m_mandos, 1);
    todo->addLayout(fCrearPie());
    const QSize tam(fontMetrics().averageCharWidth() * 220, fontMetrics().lineSpacing() * 38);
    resize(tam.boundedTo(screen()->availableSize() * 0.95));
    m_tabla.fReservar(static_cast<std::size_t>(m_lectura.fTodos()));
    m_tblReparar->setFocus();
    m_lectura.fEmpezar();
    fMostrarPie();
}

template <typename Hacer>
QPushButton *frmReparar::fCrearBoton(const char *strNombre, const char *strTexto,
                                     const Hacer &fHacer)
{
    auto *const boton = new QPushButton(QString::fromUtf8(strTexto), this);
    boton->setObjectName(QString::fromLatin1(strNombre));
    boton->setAutoDefault(false);
    connect(boton, &QPushButton::clicked, this, fHacer);
    return boton;
}

QLayout *frmReparar::fCrearCabecera()
{
    auto *const caja = new QHBoxLayout;
    auto *const lblVista = new QLabel(QStringLiteral("&Mostrar:"), this);
    lblVista->setObjectName(QStringLiteral("lblVista"));
    lblVista->setBuddy(m_cboVista);
    m_cboVista->setObjectName(QStringLiteral("cboVista"));
    m_cboVista->setAccessibleName(QStringLiteral("Mostrar"));
    for (const char *const strVista : lstVistas) {
        m_cboVista->addItem(QString::fromUtf8(strVista));
    }
    connect(m_cboVista, &QComboBox::currentIndexChanged, this, &frmReparar::fMostrarVista);
    m_chkNombre->setObjectName(QStringLiteral("chkNombre"));
    m_chkNombre->setText(QStringLiteral("&Anteponer la fecha al nombre"));
    m_chkNombre->setChecked(true);
    connect(m_chkNombre, &QCheckBox::toggled, this, [this](bool bolAnteponer) {
        m_modelo.fCambiar([&] {
            m_tabla.fNombres(bolAnteponer ? NombreReparado::AnteponerFecha
                                          : NombreReparado::SinCambio);
        });
        fMostrarPie();
    });
    caja->addWidget(lblVista);
    caja->addWidget(m_cboVista);
    caja->addWidget(fCrearBoton("cmdMarcar", "Marcar &todas", [this] { fMarcarVista(true); }));
    caja->addWidget(
        fCrearBoton("cmdDesmarcar", "&Desmarcar todas", [this] { fMarcarVista(false); }));
    caja->addStretch();
    caja->addWidget(m_chkNombre);
    return caja;
}

QWidget *frmReparar::fCrearTabla()
{
    m_tblReparar->setObjectName(QStringLiteral("tblReparar"));
    m_tblReparar->setAccessibleName(QStringLiteral("Archivos y fechas propuestas"));
    m_tblReparar->setModel(&m_modelo);
    m_tblReparar->setItemDelegate(new clsDelegadoFilas(m_tblReparar));
    m_tblReparar->setItemDelegateForColumn(static_cast<int>(ColumnaReparacion::Carpeta),
                                           new clsDelegadoCarpeta(m_tblReparar));
    m_tblReparar->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tblReparar->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tblReparar->setTabKeyNavigation(false);
    m_tblReparar->setShowGrid(false);
    m_tblReparar->setWordWrap(false);
    m_tblReparar->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_tblReparar->verticalHeader()->hide();
    m_tblReparar->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_tblReparar->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    QHeaderView *const titulos = m_tblReparar->horizontalHeader();
    titulos->setHighlightSections(false);
    titulos->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    titulos->setSectionsClickable(true);
    titulos->setStretchLastSection(true);
    titulos->setSortIndicator(-1, Qt::AscendingOrder); // as the list is
    titulos->setSortIndicatorShown(true);
    connect(titulos, &QHeaderView::sectionClicked, this, &frmReparar::fOrdenar);
    connect(&m_modelo, &clsModeloReparacion::fMarcaCambiada, this, &frmReparar::fMostrarPie);
    connect(m_tblReparar->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &frmReparar::fMostrarActual);
    m_tblReparar->installEventFilter(this);
    return m_tblReparar;
}

/// Shares the room out among the columns, so that remarks can be read in small windows, too.
void frmReparar::showEvent(QShowEvent *evento)
{
    QDialog::showEvent(evento);
    if (evento->spontaneous()) {
        return; // it was put away for a while
    }
    std::vector<clsAncho> lstAnchos;
    for (const auto &[strIdeal, strMinimo] : lstMuestras) {
        const int intMargen =
            2 * fontMetrics().averageCharWidth() + (lstAnchos.empty() ? intCasilla : 0);
        const auto fAncho = [&](const char *strTexto) {
            return fontMetrics().horizontalAdvance(QString::fromUtf8(strTexto)) + intMargen;
        };
        lstAnchos.push_back({fAncho(strIdeal), fAncho(strMinimo)});
    }
    int intColumna = 0;
    for (const int intAncho : fAnchos(lstAnchos, m_tblReparar->viewport()->width())) {
        m_tblReparar->setColumnWidth(intColumna++, intAncho);
    }
}

QLayout *frmReparar::fCrearDetalle()
{
    m_imgActual->setObjectName(QStringLiteral("imgActual"));
    m_imgActual->setAccessibleName(QStringLiteral("Imagen del archivo"));
    m_imgActual->setFixedSize(intLadoImagen, intLadoImagen);
    m_imgActual->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    m_lblFuentes->setObjectName(QStringLiteral("lblFuentes"));
    m_lblFuentes->setAccessibleName(QStringLiteral("Fechas del archivo"));
    m_lblFuentes->setWordWrap(true);
    m_lblFuentes->setAlignment(Qt::AlignTop);
    m_lblFuentes->setTextFormat(Qt::PlainText);
    m_lblFuentes->setFixedWidth(intLadoImagen);
    auto *const caja = new QVBoxLayout;
    caja->addWidget(m_imgActual);
    caja->addWidget(m_lblFuentes, 1);
    return caja;
}

QLayout *frmReparar::fCrearCambios()
{
    auto *const caja = new QHBoxLayout;
    auto *const lblFuente = new QLabel(QStringLiteral("&Fecha de las marcadas:"), this);
    lblFuente->setObjectName(QStringLiteral("lblFuente"));
    lblFuente->setBuddy(m_cboFuente);
    m_cboFuente->setObjectName(QStringLiteral("cboFuente"));
    m_cboFuente->setAccessibleName(QStringLiteral("Fuente de la fecha de las marcadas"));
    m_cboFuente->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(m_cboFuente, &QComboBox::activated, this, &frmReparar::fElegirFuente);
    m_txtFecha->setObjectName(QStringLiteral("txtFecha"));
    m_txtFecha->setAccessibleName(QStringLiteral("Fecha manual"));
    m_txtFecha->setPlaceholderText(QStringLiteral("dd/mm/yyyy hh:mm:ss"));
    m_txtFecha->setFixedWidth(
        fontMetrics().horizontalAdvance(QStringLiteral("   dd/mm/yyyy hh:mm:ss   ")));
    connect(m_txtFecha, &QLineEdit::returnPressed, this, &frmReparar::fFechar);
    caja->addWidget(lblFuente);
    caja->addWidget(m_cboFuente);
    caja->addWidget(m_txtFecha);
    caja->addWidget(fCrearBoton("cmdFechar", "&Poner fecha", [this] { fFechar(); }));
    caja->addWidget(fCrearBoton("cmdDesfase", "Desfa&se...", [this] { fDesplazar(); }));
    caja->addStretch();
    return caja;
}

QLayout *frmReparar::fCrearPie()
{
    m_lblCuentas->setObjectName(QStringLiteral("lblCuentas"));
    m_lblCuentas->setWordWrap(true); // else small screens would have to be as wide as that
    m_cmdCorregir = fCrearBoton("cmdCorregir", "&Corregir", [this] { fCorregir(); });
    auto *const caja = new QHBoxLayout;
    caja->addWidget(m_lblCuentas, 1);
    caja->addWidget(m_progreso.lblProgreso);
    caja->addWidget(m_progreso.barProgreso);
    caja->addWidget(m_cmdCorregir);
    caja->addWidget(fCrearBoton("cmdCerrar", "Ce&rrar", [this] { reject(); }));
    return caja;
}

void frmReparar::fMostrarLeidas()
{
    m_modelo.fMostrarNuevas();
    if (!m_tblReparar->currentIndex().isValid() && m_tabla.fCantidad() > 0) {
        m_tblReparar->setCurrentIndex(m_modelo.index(0, 1));
    }
    fMostrarPie();
}

void frmReparar::fMostrarVista(int intVista)
{
    fRehacer([&] { m_tabla.fMostrar(static_cast<VistaReparacion>(intVista)); });
}

void frmReparar::fOrdenar(int intColumna)
{
    const bool bolDescendente =
        m_tblReparar->horizontalHeader()->sortIndicatorOrder() == Qt::DescendingOrder;
    fRehacer([&] {
        m_tabla.fOrdenar(static_cast<ColumnaReparacion>(intColumna), bolDescendente,
                         fRangosEspanol);
    });
}

/// Changes which rows are shown, or their order; the current file stays current where it is shown.
void frmReparar::fRehacer(const std::function<void()> &fCambio)
{
    const QModelIndex actual = m_tblReparar->currentIndex();
    const int lngFila = actual.isValid() ? m_tabla.fFila(actual.row()) : -1;
    m_modelo.fRehacer(fCambio);
    const int lngPos = std::max(m_tabla.fPosicion(lngFila), 0);
    m_tblReparar->setCurrentIndex(m_modelo.index(lngPos, 1));
    fMostrarActual();
}

/// Ticks the selected rows, or unticks them when the current one is ticked.
void frmReparar::fAlternarElegidas()
{
    const QModelIndex actual = m_tblReparar->currentIndex();
    if (!actual.isValid()) {
        return;
    }
    const bool bolMarca = !m_tabla.fMarcada(m_tabla.fFila(actual.row()));
    m_modelo.fCambiar([&] {
        for (const QModelIndex &indice : m_tblReparar->selectionModel()->selectedRows()) {
            m_tabla.fMarcar(m_tabla.fFila(indice.row()), bolMarca);
        }
    });
    fMostrarPie();
}

void frmReparar::fMarcarVista(bool bolMarca)
{
    m_modelo.fCambiar([&] { m_tabla.fMarcarVista(bolMarca); });
    fMostrarPie();
}

/// Does something with the ticked rows.
/// @param fCambio gives for how many it was.
void frmReparar::fCambiarMarcadas(const std::function<int()> &fCambio)
{
    int intCuantas = 0;
    m_modelo.fCambiar([&] { intCuantas = fCambio(); });
    if (intCuantas == 0) {
        m_entorno.mensajes.fAviso(Icono::Aviso, "No hay ninguna fila marcada a la que ponérsela.");
    }
    fMostrarActual();
    fMostrarPie();
}

void frmReparar::fElegirFuente(int intLugar)
{
    const QVariant fuente = m_cboFuente->itemData(intLugar);
    fCambiarMarcadas([&] {
        return fuente.isValid() ? m_tabla.fElegirFuente(static_cast<Fuente>(fuente.toInt()))
                                : m_tabla.fRestaurar();
    });
}

void frmReparar::fFechar()
{
    const std::string strTexto = fNormalizarTecleada(fUtf8(m_txtFecha->text()));
    const auto fecha = fLeerFecha(strTexto, strFormaUsuario);
    if (!fecha) {
        m_entorno.mensajes.fAviso(Icono::Problema, fAvisoFechaNoValida(strTexto));
        m_txtFecha->setFocus();
        return;
    }
    m_txtFecha->setText(fQ(strTexto));
    fCambiarMarcadas([&] { return m_tabla.fFechar(*fecha); });
}

void frmReparar::fDesplazar()
{
    frmDesfase desfase(this, [this](std::int64_t lngSegundos) {
        return fTextoTramo(m_tabla.fTramo(lngSegundos));
    });
    if (const auto lngSegundos = desfase.fPedir()) {
        fCambiarMarcadas([&] { return m_tabla.fDesplazar(*lngSegundos); });
    }
}

void frmReparar::fCorregir()
{
    const std::vector<clsReparado> lstReparados = m_tabla.fReparados();
    const auto intCuantos = static_cast<int>(lstReparados.size());
    if (!m_entorno.mensajes.fAceptarCancelar(fPreguntaCorregir(intCuantos, m_tabla.fNombres()))) {
        return;
    }
    m_bolCorrigiendo = true;
    m_mandos->setEnabled(false);
    m_cmdCorregir->setEnabled(false);
    const bool bolCerrar = m_entorno.fCorregir(lstReparados, [&](int lngHechos) {
        m_progreso.fMostrar("Corrigiendo", lngHechos, intCuantos);
        return !m_bolParar;
    });
    m_bolCorrigiendo = m_bolParar = false;
    m_mandos->setEnabled(true);
    if (bolCerrar) {
        accept();
        return;
    }
    fMostrarPie();
}

void frmReparar::reject()
{
    if (m_bolCorrigiendo) {
        m_bolParar = true;
        return;
    }
    QDialog::reject();
}

/// Asks the disk which of the new names are taken.
void frmReparar::fComprobar()
{
    std::vector<std::string> lstRutas;
    if (m_bolComprobando || (lstRutas = m_tabla.fPorComprobar()).empty()) {
        return;
    }
    using clsExisten = std::vector<std::pair<std::string, bool>>;
    m_bolComprobando = true;
    m_comprobador.fPedir(
        [lstRutas = std::move(lstRutas), fExiste = m_entorno.fExiste] {
            clsExisten lstExisten;
            lstExisten.reserve(lstRutas.size());
            for (const std::string &strRuta : lstRutas) {
                lstExisten.emplace_back(strRuta, fExiste(strRuta));
            }
            return lstExisten;
        },
        [this](const clsExisten &lstExisten) {
            m_bolComprobando = false;
            m_modelo.fCambiar([&] { m_tabla.fComprobado(lstExisten); });
            fMostrarPie();
        });
}

void frmReparar::fMostrarPie()
{
    const bool bolLeyendo = m_lectura.fLeyendo();
    if (bolLeyendo) {
        m_progreso.fMostrar("Leyendo fechas", m_lectura.fHechos(), m_lectura.fTodos());
    } else {
        fComprobar();
        m_progreso.fQuitar();
    }
    const clsCuentasReparacion cuentas = m_tabla.fCuentas();
    m_lblCuentas->setText(fQ(fTextoCuentas(cuentas)));
    // Telling which of them can be corrected takes too long to do it for every file that is read.
    const int intCuantos = bolLeyendo ? 0 : m_tabla.fReparables();
    m_cmdCorregir->setText(fQ(fTextoCorregir(intCuantos)));
    m_cmdCorregir->setEnabled(intCuantos > 0 && !m_bolComprobando);
    fMostrarFuentes();
}

/// The sources that the ticked rows have.
void frmReparar::fMostrarFuentes()
{
    if (m_cboFuente->view()->isVisible()) {
        return;
    }
    m_cboFuente->clear();
    m_cboFuente->addItem(QStringLiteral("la propuesta"));
    for (const Fuente fuente : m_tabla.fFuentesMarcadas()) {
        m_cboFuente->addItem(QString::fromUtf8(fTextoFuente(fuente)), static_cast<int>(fuente));
    }
}

/// The picture of the current file, and all that is known of its date.
void frmReparar::fMostrarActual()
{
    m_pintor.fAnular();
    m_imgActual->clear();
    const QModelIndex actual = m_tblReparar->currentIndex();
    if (!actual.isValid()) {
        m_lblFuentes->clear();
        return;
    }
    const int lngFila = m_tabla.fFila(actual.row());
    m_lblFuentes->setText(fQ(fTextoFuentes(m_tabla.fFechas(lngFila))));
    const auto intLado = static_cast<int>(intLadoImagen * devicePixelRatioF());
    m_pintor.fPedir([strRuta = m_tabla.fRuta(lngFila), fImagen = m_entorno.fImagen,
                     intLado] { return fImagen(strRuta, intLado); },
                    [this](QImage imagen) {
                        imagen.setDevicePixelRatio(devicePixelRatioF());
                        m_imgActual->setPixmap(QPixmap::fromImage(imagen));
                    });
}

/// The space bar ticks what is selected.
bool frmReparar::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == m_tblReparar && evento->type() == QEvent::KeyPress &&
        static_cast<const QKeyEvent *>(evento)->key() == Qt::Key_Space) {
        fAlternarElegidas();
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}
