#include "repair/frmRevisar.h"

#include "shared/numeros.h"
#include "shared/qtexto.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTableView>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace {

constexpr const char *lstTitulosResumen[] = {"Año", "Correctas", "Incorrectas", "Sin fecha", ""};
constexpr int intPapelAno = Qt::UserRole; ///< the clsAnoResumen of a row
constexpr int intPapelMayor = Qt::UserRole + 1;
/// Right, wrong, without a date: readable on light and dark grounds, and not by the colour alone,
/// since they stand in this order.
constexpr QColor lstColores[] = {QColor(0x3a, 0x9d, 0x5d), QColor(0xd6, 0x45, 0x41),
                                 QColor(0x8c, 0x8c, 0x8c)};

const clsAnoResumen &fAno(const QModelIndex &indice)
{
    return *static_cast<const clsAnoResumen *>(indice.data(intPapelAno).value<const void *>());
}

/// Where the part of a state lies in a bar.
QRect fTrozo(const QRect &sitio, const QModelIndex &indice, EstadoFecha estado)
{
    const clsAnoResumen &ano = fAno(indice);
    constexpr int intMargen = 6; // from the number before it
    const int intMayor = std::max(indice.data(intPapelMayor).toInt(), 1);
    const qint64 lngAncho = std::max(sitio.width() - 2 * intMargen, 0);
    const auto fX = [&](int intCuantos) {
        return sitio.left() + intMargen + static_cast<int>(lngAncho * intCuantos / intMayor);
    };
    int intAntes = 0;
    for (int intCual = 0; intCual < static_cast<int>(estado); ++intCual) {
        intAntes += ano.fCuantos(static_cast<EstadoFecha>(intCual));
    }
    const int intDesde = fX(intAntes);
    const int intHasta = fX(intAntes + ano.fCuantos(estado));
    // One file among thousands can be seen, too.
    const int intAncho = ano.fCuantos(estado) == 0 ? 0 : std::max(intHasta - intDesde, 2);
    return {intDesde, sitio.top() + 3, intAncho, sitio.height() - 6};
}

class clsDelegadoBarra : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter *pintor, const QStyleOptionViewItem &opcion,
               const QModelIndex &indice) const override
    {
        QStyledItemDelegate::paint(pintor, opcion, indice);
        for (int intCual = 0; intCual < intEstadosFecha; ++intCual) {
            pintor->fillRect(fTrozo(opcion.rect, indice, static_cast<EstadoFecha>(intCual)),
                             lstColores[intCual]);
        }
    }
};

/// The files of a cell: those of its state; of year and bar all that are not dated right.
std::vector<std::string> fRutasDe(const clsAnoResumen &ano, std::optional<EstadoFecha> estado)
{
    if (estado) {
        return ano.lstRutas[static_cast<std::size_t>(*estado)];
    }
    std::vector<std::string> lstRutas = fRutasDe(ano, EstadoFecha::Incorrecta);
    const std::vector<std::string> lstSin = fRutasDe(ano, EstadoFecha::SinFecha);
    lstRutas.insert(lstRutas.end(), lstSin.begin(), lstSin.end());
    return lstRutas;
}

} // namespace

clsModeloResumen::clsModeloResumen(const clsResumenFechas &resumen, QObject *padre)
    : QAbstractTableModel(padre), m_resumen(resumen)
{
}

int clsModeloResumen::rowCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : m_intFilas;
}

int clsModeloResumen::columnCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : intBarra + 1;
}

QVariant clsModeloResumen::data(const QModelIndex &indice, int intPapel) const
{
    const clsAnoResumen &ano = m_resumen.fAnos()[static_cast<std::size_t>(indice.row())];
    switch (intPapel) {
    case intPapelAno:
        return QVariant::fromValue(static_cast<const void *>(&ano));
    case intPapelMayor:
        return m_resumen.fMayor();
    case Qt::TextAlignmentRole:
        return indice.column() == 0 ? QVariant()
                                    : QVariant(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    case Qt::DisplayRole:
        break;
    default:
        return {};
    }
    if (indice.column() == 0) {
        return ano.intAno == 0 ? QStringLiteral("(no están)") : QString::number(ano.intAno);
    }
    return indice.column() == intBarra
               ? QVariant()
               : fQ(fConGrupos(ano.fCuantos(static_cast<EstadoFecha>(indice.column() - 1)), {}));
}

QVariant clsModeloResumen::headerData(int intSeccion, Qt::Orientation orientacion,
                                      int intPapel) const
{
    return orientacion == Qt::Horizontal && intPapel == Qt::DisplayRole
               ? QString::fromUtf8(lstTitulosResumen[intSeccion])
               : QVariant();
}

void clsModeloResumen::fMostrar()
{
    if (const auto intFilas = static_cast<int>(m_resumen.fAnos().size()); intFilas != m_intFilas) {
        beginResetModel();
        m_intFilas = intFilas;
        endResetModel();
    } else if (intFilas > 0) {
        emit dataChanged(index(0, 0), index(intFilas - 1, intBarra));
    }
}

frmRevisar::frmRevisar(QWidget *padre, std::vector<std::string> lstRutas, clsLectorFechas fLeer)
    : QDialog(padre), m_tblResumen(new QTableView(this)), m_lblResumen(new QLabel(this)),
      m_progreso(this), m_lectura(
                            this, std::move(lstRutas), std::move(fLeer),
                            [this](const std::string &strRuta, const clsFechasFichero &fechas) {
                                m_resumen.fAgregar(strRuta, fechas);
                            },
                            [this] { fMostrarLeidas(); })
{
    setObjectName(QStringLiteral("frmRevisar"));
    setWindowTitle(QStringLiteral("Revisar fechas"));
    m_tblResumen->setObjectName(QStringLiteral("tblResumen"));
    m_tblResumen->setAccessibleName(QStringLiteral("Archivos por años"));
    m_tblResumen->setModel(&m_modelo);
    m_tblResumen->setItemDelegateForColumn(clsModeloResumen::intBarra,
                                           new clsDelegadoBarra(m_tblResumen));
    m_tblResumen->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tblResumen->setTabKeyNavigation(false);
    m_tblResumen->setShowGrid(false);
    m_tblResumen->verticalHeader()->hide();
    m_tblResumen->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    m_tblResumen->horizontalHeader()->setStretchLastSection(true);
    m_tblResumen->horizontalHeader()->setHighlightSections(false);
    m_tblResumen->installEventFilter(this);
    m_tblResumen->viewport()->installEventFilter(this);
    auto *const lblAyuda = new QLabel(
        QStringLiteral("Un clic en una cantidad o en una barra (o Enter) abre esos archivos en "
                       "'Reparar fechas'."),
        this);
    lblAyuda->setObjectName(QStringLiteral("lblAyudaRevisar"));
    lblAyuda->setWordWrap(true);
    m_lblResumen->setObjectName(QStringLiteral("lblResumen"));
    auto *const cerrar = new QPushButton(QStringLiteral("Ce&rrar"), this);
    cerrar->setObjectName(QStringLiteral("cmdCerrarRevisar"));
    cerrar->setAutoDefault(false);
    connect(cerrar, &QPushButton::clicked, this, &QDialog::reject);
    auto *const pie = new QHBoxLayout;
    pie->addWidget(m_lblResumen, 1);
    pie->addWidget(m_progreso.lblProgreso);
    pie->addWidget(m_progreso.barProgreso);
    pie->addWidget(cerrar);
    auto *const caja = new QVBoxLayout(this);
    caja->addWidget(lblAyuda);
    caja->addWidget(m_tblResumen, 1);
    caja->addLayout(pie);
    const QSize tam(fontMetrics().averageCharWidth() * 120, fontMetrics().lineSpacing() * 34);
    resize(tam.boundedTo(screen()->availableSize() * 0.9));
    m_tblResumen->setFocus();
    m_lectura.fEmpezar();
    fMostrarLeidas();
}

std::vector<std::string> frmRevisar::fMostrar()
{
    exec();
    return m_lstElegidas;
}

void frmRevisar::fMostrarLeidas()
{
    const QModelIndex actual = m_tblResumen->currentIndex();
    m_modelo.fMostrar();
    if (m_modelo.rowCount() > 0 && !m_tblResumen->currentIndex().isValid()) {
        m_tblResumen->setCurrentIndex(
            m_modelo.index(std::max(actual.row(), 0), std::max(actual.column(), 0)));
    }
    m_lblResumen->setText(fQ(fTextoResumen(m_resumen)));
    if (m_lectura.fLeyendo()) {
        m_progreso.fMostrar("Leyendo fechas", m_lectura.fHechos(), m_lectura.fTodos());
    } else {
        m_progreso.fQuitar();
    }
}

/// Opens the files of a cell; in a bar those of the part at that point.
void frmRevisar::fElegir(const QModelIndex &indice, const QPoint &punto)
{
    std::optional<EstadoFecha> estado;
    for (int intCual = 0; intCual < intEstadosFecha; ++intCual) {
        const auto suyo = static_cast<EstadoFecha>(intCual);
        const bool bolEnBarra =
            indice.column() == clsModeloResumen::intBarra &&
            fTrozo(m_tblResumen->visualRect(indice), indice, suyo).contains(punto);
        if (indice.column() == intCual + 1 || bolEnBarra) {
            estado = suyo;
        }
    }
    m_lstElegidas = fRutasDe(fAno(indice), estado);
    if (!m_lstElegidas.empty()) {
        accept();
    }
}

bool frmRevisar::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == m_tblResumen && evento->type() == QEvent::KeyPress) {
        const int intTecla = static_cast<const QKeyEvent *>(evento)->key();
        const QModelIndex actual = m_tblResumen->currentIndex();
        if ((intTecla == Qt::Key_Return || intTecla == Qt::Key_Enter) && actual.isValid()) {
            fElegir(actual, {-1, -1});
            return true;
        }
    }
    if (objeto == m_tblResumen->viewport() && evento->type() == QEvent::MouseButtonRelease) {
        const auto &raton = *static_cast<const QMouseEvent *>(evento);
        const QPoint punto = raton.position().toPoint();
        if (const QModelIndex indice = m_tblResumen->indexAt(punto);
            indice.isValid() && raton.button() == Qt::LeftButton) {
            fElegir(indice, punto);
            return true;
        }
    }
    return QDialog::eventFilter(objeto, evento);
}
