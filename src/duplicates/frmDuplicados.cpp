#include "duplicates/frmDuplicados.h"

#include "shared/qhilos.h"
#include "shared/qtexto.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QTextDocument>
#include <QToolButton>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int intLadoFoto = 144; ///< of a picture, in pixels
constexpr int intFotos = 32;     ///< of a group, at most
/// A text that fits each column.
constexpr const char *lstMuestrasDuplicados[] = {"    otro nombre",
                                                 "20190714_IMG_20190714_0012",
                                                 "2009/2009-07-14 Playa de la Concha",
                                                 "14/07/2009 18:03:22",
                                                 "Fecha correcta",
                                                 "12.345.678 KB"};
static_assert(std::size(lstMuestrasDuplicados) == intColumnasDuplicados);

} // namespace

frmDuplicados::frmDuplicados(QWidget *padre, clsCandidatos candidatos, const std::string &strRaiz,
                             clsEntornoDuplicados entorno)
    : QDialog(padre), m_entorno(std::move(entorno)), m_modelo(strRaiz),
      m_tblDuplicados(new QTableView(this)), m_fotos(new QScrollArea(this)),
      m_lblDuplicados(new QLabel(this)), m_progreso(this), m_cmdMarcar(new QPushButton(this)),
      m_pintor({.intHilos = 2, .fAvisar = fAvisarA(this)}),
      m_busqueda(std::move(candidatos),
                 {.fAvisar = fAvisarA(this),
                  .fFechaBien = m_entorno.fFechaBien,
                  .fGrupo = [this](clsGrupo grupo) { m_lstNuevos.push_back(std::move(grupo)); },
                  .fAvance = [this] { fAvance(); }})
{
    setObjectName(QStringLiteral("frmDuplicados"));
    setWindowTitle(QStringLiteral("Buscar duplicados"));
    auto *const lblAyuda = new QLabel(
        QStringLiteral("De cada grupo de archivos iguales se queda uno. La barra espaciadora, o un "
                       "clic en la foto, elige otro. No se borra nada: las copias se marcan en la "
                       "lista."),
        this);
    lblAyuda->setObjectName(QStringLiteral("lblAyudaDuplicados"));
    lblAyuda->setWordWrap(true);
    auto *const caja = new QVBoxLayout(this);
    caja->addWidget(lblAyuda);
    caja->addWidget(fCrearTabla(), 1);
    caja->addWidget(fCrearFotos());
    caja->addLayout(fCrearPie());
    const QSize tam(fontMetrics().averageCharWidth() * 170, fontMetrics().lineSpacing() * 40);
    resize(tam.boundedTo(screen()->availableSize() * 0.9));
    m_tblDuplicados->setFocus();
    m_busqueda.fEmpezar();
    fMostrarHallados();
}

QWidget *frmDuplicados::fCrearTabla()
{
    m_tblDuplicados->setObjectName(QStringLiteral("tblDuplicados"));
    m_tblDuplicados->setAccessibleName(QStringLiteral("Archivos iguales, por grupos"));
    m_tblDuplicados->setModel(&m_modelo);
    m_tblDuplicados->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tblDuplicados->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tblDuplicados->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tblDuplicados->setTabKeyNavigation(false);
    m_tblDuplicados->setShowGrid(false);
    m_tblDuplicados->setWordWrap(false);
    m_tblDuplicados->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_tblDuplicados->verticalHeader()->hide();
    m_tblDuplicados->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_tblDuplicados->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    QHeaderView *const titulos = m_tblDuplicados->horizontalHeader();
    titulos->setHighlightSections(false);
    titulos->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (int intColumna = 0; intColumna < intColumnasDuplicados; ++intColumna) {
        m_tblDuplicados->setColumnWidth(
            intColumna,
            fontMetrics().horizontalAdvance(QString::fromUtf8(lstMuestrasDuplicados[intColumna])) +
                3 * fontMetrics().averageCharWidth());
    }
    connect(m_tblDuplicados->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &frmDuplicados::fMostrarGrupo);
    connect(&m_modelo, &clsModeloDuplicados::fElegido, this, &frmDuplicados::fMirarElegida);
    m_tblDuplicados->installEventFilter(this);
    return m_tblDuplicados;
}

QWidget *frmDuplicados::fCrearFotos()
{
    m_fotos->setObjectName(QStringLiteral("fotosDuplicados"));
    m_fotos->setAccessibleName(QStringLiteral("Imágenes del grupo"));
    m_fotos->setWidgetResizable(true);
    m_fotos->setFocusPolicy(Qt::NoFocus);
    m_fotos->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_fotos->setFixedHeight(intLadoFoto + 2 * fontMetrics().lineSpacing() +
                            m_fotos->horizontalScrollBar()->sizeHint().height());
    return m_fotos;
}

QLayout *frmDuplicados::fCrearPie()
{
    m_lblDuplicados->setObjectName(QStringLiteral("lblDuplicados"));
    m_lblDuplicados->setWordWrap(true);
    m_cmdMarcar->setObjectName(QStringLiteral("cmdMarcarCopias"));
    m_cmdMarcar->setToolTip(QStringLiteral("Marca en la lista las copias, y nada más que ellas."));
    m_cmdMarcar->setAutoDefault(false);
    connect(m_cmdMarcar, &QPushButton::clicked, this, &QDialog::accept);
    auto *const cerrar = new QPushButton(QStringLiteral("Ce&rrar"), this);
    cerrar->setObjectName(QStringLiteral("cmdCerrarDuplicados"));
    cerrar->setAutoDefault(false);
    connect(cerrar, &QPushButton::clicked, this, &QDialog::reject);
    auto *const pie = new QHBoxLayout;
    pie->addWidget(m_lblDuplicados, 1);
    pie->addWidget(m_progreso.lblProgreso);
    pie->addWidget(m_progreso.barProgreso);
    pie->addWidget(m_cmdMarcar);
    pie->addWidget(cerrar);
    return pie;
}

std::vector<std::string> frmDuplicados::fMostrar()
{
    return exec() == QDialog::Accepted ? fSobrantes(m_modelo.fGrupos())
                                       : std::vector<std::string>();
}

/// Shows what was found by now, and how far the search has come.
void frmDuplicados::fMostrarHallados()
{
    m_modelo.fAgregar(std::exchange(m_lstNuevos, {}));
    if (m_modelo.rowCount() > 0 && !m_tblDuplicados->currentIndex().isValid()) {
        m_tblDuplicados->setCurrentIndex(m_modelo.index(0, 0));
    }
    m_lblDuplicados->setText(
        fQ(fTextoHallados(m_modelo.fGrupos(), m_busqueda.fOmitidos(), m_busqueda.fBuscando())));
    if (m_busqueda.fBuscando()) {
        m_progreso.fMostrar(m_busqueda.fObra(), m_busqueda.fHechos(), m_busqueda.fTodos());
    } else {
        m_progreso.fQuitar();
    }
    fMirarElegida();
}

/// The search has come on: that is shown every 50 ms, and in the end.
void frmDuplicados::fAvance()
{
    const auto fMostrar = [this] {
        fMostrarHallados();
        return true;
    };
    static_cast<void>(m_busqueda.fBuscando() ? m_ritmo.fSeguir(fMostrar) : fMostrar());
}

/// Shows the pictures of the current file's group.
void frmDuplicados::fMostrarGrupo()
{
    const int intFila = m_tblDuplicados->currentIndex().row();
    const auto [lngGrupo, lngCual] = m_modelo.fSitio(intFila);
    const int intPrimera = intFila - static_cast<int>(lngCual);
    if (intPrimera == m_intPrimera) {
        return;
    }
    m_intPrimera = intPrimera;
    m_pintor.fAnular();
    auto *const fila = new QWidget;
    auto *const caja = new QHBoxLayout(fila);
    caja->setContentsMargins(0, 0, 0, 0);
    m_fotos->setWidget(fila); // the pictures that were go
    m_botones = new QButtonGroup(fila);
    const auto intCuantos = static_cast<int>(m_modelo.fGrupos()[lngGrupo].lstGemelos.size());
    for (int intCual = 0; intCual < std::min(intCuantos, intFotos); ++intCual) {
        fPonerFoto(intPrimera + intCual);
    }
    caja->addStretch();
    connect(m_botones, &QButtonGroup::idClicked, this,
            [this](int intElegida) { m_modelo.fElegir(intElegida); });
    fMirarElegida();
}

void frmDuplicados::fPonerFoto(int intFila)
{
    const auto [lngGrupo, lngCual] = m_modelo.fSitio(intFila);
    auto *const boton = new QToolButton(m_fotos->widget());
    boton->setObjectName(QStringLiteral("cmdGemelo%1").arg(lngCual));
    boton->setCheckable(true);
    boton->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    boton->setIconSize({intLadoFoto, intLadoFoto});
    boton->setFixedWidth(intLadoFoto + 16);
    const QString strNombre = m_modelo.index(intFila, 1).data().toString();
    const QString strCarpeta = m_modelo.index(intFila, 2).data().toString();
    const QString strSitio =
        strCarpeta.isEmpty() ? strNombre : strCarpeta + QLatin1Char('/') + strNombre;
    // A name that looks like markup is still a name.
    boton->setToolTip(Qt::mightBeRichText(strSitio) ? Qt::convertFromPlainText(strSitio)
                                                    : strSitio);
    boton->setAccessibleName(QStringLiteral("Se queda: ") + strNombre);
    m_botones->addButton(boton, intFila);
    m_fotos->widget()->layout()->addWidget(boton);
    const auto intLado = static_cast<int>(intLadoFoto * devicePixelRatioF());
    m_pintor.fPedir([strRuta = m_modelo.fGrupos()[lngGrupo].lstGemelos[lngCual].strRuta,
                     fImagen = m_entorno.fImagen, intLado] { return fImagen(strRuta, intLado); },
                    [this, boton](QImage imagen) {
                        imagen.setDevicePixelRatio(devicePixelRatioF());
                        boton->setIcon(QIcon(QPixmap::fromImage(imagen)));
                    });
}

/// Shows which files stay.
void frmDuplicados::fMirarElegida()
{
    const int intCopias = fSumarSobra(m_modelo.fGrupos()).intCopias;
    m_cmdMarcar->setText(fQ(fTextoMarcar(intCopias)));
    m_cmdMarcar->setEnabled(intCopias > 0);
    if (m_botones == nullptr) {
        return;
    }
    for (QAbstractButton *const boton : m_botones->buttons()) {
        const auto [lngGrupo, lngCual] = m_modelo.fSitio(m_botones->id(boton));
        const bool bolQueda = m_modelo.fGrupos()[lngGrupo].lngQueda == lngCual;
        if (bolQueda) {
            boton->setChecked(true); // which unchecks the others
        }
        const QString strNombre = m_modelo.index(m_botones->id(boton), 1).data().toString();
        QString strTexto =
            fontMetrics().elidedText((bolQueda ? QStringLiteral("\u2713 ") : QString()) + strNombre,
                                     Qt::ElideMiddle, intLadoFoto);
        boton->setText(strTexto.replace(QLatin1Char('&'), QLatin1String("&&")));
    }
}

/// The space bar chooses the current file.
bool frmDuplicados::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == m_tblDuplicados && evento->type() == QEvent::KeyPress &&
        static_cast<const QKeyEvent *>(evento)->key() == Qt::Key_Space &&
        m_tblDuplicados->currentIndex().isValid()) {
        m_modelo.fElegir(m_tblDuplicados->currentIndex().row());
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}
