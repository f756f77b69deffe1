#include "repair/modelo_reparacion.h"

#include "shared/qtexto.h"

#include <QBrush>
#include <QPalette>

#include <iterator>

namespace {

constexpr const char *lstTitulos[] = {
    "",       "Nombre",       "Carpeta",      "Fecha actual", "Fecha nueva",
    "Fuente", "Nombre nuevo", "Observaciones"};
static_assert(std::size(lstTitulos) == intColumnasReparacion);

QString fTextoMarca(bool bolMarcada)
{
    return bolMarcada ? QStringLiteral("marcada") : QStringLiteral("sin marcar");
}

} // namespace

clsModeloReparacion::clsModeloReparacion(clsTablaReparacion &tabla, QObject *padre)
    : QAbstractTableModel(padre), m_tabla(tabla), m_lngFilas(tabla.fCantidad())
{
}

int clsModeloReparacion::rowCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : m_lngFilas;
}

int clsModeloReparacion::columnCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : intColumnasReparacion;
}

QVariant clsModeloReparacion::data(const QModelIndex &indice, int intPapel) const
{
    const int lngFila = m_tabla.fFila(indice.row());
    const auto columna = static_cast<ColumnaReparacion>(indice.column());
    const bool bolMarca = columna == ColumnaReparacion::Marca;
    switch (intPapel) {
    case Qt::DisplayRole:
        return bolMarca ? QVariant() : fQ(m_tabla.fTexto(lngFila, columna));
    case Qt::AccessibleTextRole:
        return bolMarca ? QVariant(fTextoMarca(m_tabla.fMarcada(lngFila))) : QVariant();
    case Qt::CheckStateRole:
        return bolMarca ? QVariant(m_tabla.fMarcada(lngFila) ? Qt::Checked : Qt::Unchecked)
                        : QVariant();
    default:
        return {};
    }
}

QVariant clsModeloReparacion::headerData(int intSeccion, Qt::Orientation orientacion,
                                         int intPapel) const
{
    if (orientacion != Qt::Horizontal) {
        return {};
    }
    if (intPapel == Qt::AccessibleTextRole && intSeccion == 0) {
        return QStringLiteral("Marca");
    }
    return intPapel == Qt::DisplayRole ? QString::fromUtf8(lstTitulos[intSeccion]) : QVariant();
}

Qt::ItemFlags clsModeloReparacion::flags(const QModelIndex &indice) const
{
    const Qt::ItemFlags todas = QAbstractTableModel::flags(indice);
    return indice.column() == 0 ? todas | Qt::ItemIsUserCheckable : todas;
}

bool clsModeloReparacion::setData(const QModelIndex &indice, const QVariant &valor, int intPapel)
{
    if (intPapel != Qt::CheckStateRole || indice.column() != 0) {
        return false;
    }
    fCambiar([&] { m_tabla.fMarcar(m_tabla.fFila(indice.row()), valor.toInt() == Qt::Checked); });
    emit fMarcaCambiada();
    return true;
}

void clsModeloReparacion::fMostrarNuevas()
{
    if (m_tabla.fCantidad() > m_lngFilas) {
        beginInsertRows({}, m_lngFilas, m_tabla.fCantidad() - 1);
        m_lngFilas = m_tabla.fCantidad();
        endInsertRows();
    }
}

void clsModeloReparacion::fRehacer(const std::function<void()> &fCambio)
{
    beginResetModel();
    fCambio();
    m_lngFilas = m_tabla.fCantidad();
    endResetModel();
}

void clsModeloReparacion::fCambiar(const std::function<void()> &fCambio)
{
    fCambio();
    if (m_lngFilas > 0) {
        emit dataChanged(index(0, 0), index(m_lngFilas - 1, intColumnasReparacion - 1));
    }
}
