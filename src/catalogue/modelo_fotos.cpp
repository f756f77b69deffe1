#include "catalogue/modelo_fotos.h"

#include "shared/qtexto.h"

#include <utility>

namespace {

constexpr const char *lstCabeceras[] = {"Nombre", "Fecha", "Tamaño", "Carpeta"};
constexpr int intColumnaTamano = 2;

QVariant fAlineacion(int intColumna)
{
    const Qt::Alignment lado = intColumna == intColumnaTamano ? Qt::AlignRight : Qt::AlignLeft;
    return QVariant::fromValue(lado | Qt::AlignVCenter);
}

} // namespace

clsModeloFotos::clsModeloFotos(clsFilas &filas, clsSignos signos, QObject *padre)
    : QAbstractTableModel(padre), m_filas(filas), m_signos(std::move(signos))
{
}

int clsModeloFotos::rowCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : m_filas.fCantidad();
}

int clsModeloFotos::columnCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : static_cast<int>(std::size(lstCabeceras));
}

QVariant clsModeloFotos::data(const QModelIndex &indice, int intPapel) const
{
    const int lngPos = indice.row();
    if (intPapel == Qt::TextAlignmentRole) {
        return fAlineacion(indice.column());
    }
    if (intPapel == Qt::CheckStateRole && indice.column() == 0) {
        return m_filas.fMarcada(lngPos) ? Qt::Checked : Qt::Unchecked;
    }
    if (intPapel == Qt::AccessibleDescriptionRole && indice.column() == 0) {
        // The tick in words: Qt does not tell screen readers about check boxes in tables.
        return m_filas.fMarcada(lngPos) ? QStringLiteral("seleccionado")
                                        : QStringLiteral("sin seleccionar");
    }
    if (intPapel != Qt::DisplayRole) {
        return {};
    }
    switch (indice.column()) {
    case 0:
        return fQPantalla(m_filas.fNombre(lngPos));
    case 1:
        return fQPantalla(m_filas.fFecha(lngPos));
    case intColumnaTamano:
        return fQ(fTextoKB(m_filas.fTamano(lngPos), m_signos));
    default:
        return fQPantalla(m_filas.fCarpeta(lngPos));
    }
}

QVariant clsModeloFotos::headerData(int intSeccion, Qt::Orientation orientacion, int intPapel) const
{
    if (orientacion != Qt::Horizontal) {
        return {};
    }
    if (intPapel == Qt::TextAlignmentRole) {
        return fAlineacion(intSeccion);
    }
    return intPapel == Qt::DisplayRole ? QString::fromUtf8(lstCabeceras[intSeccion]) : QVariant();
}

Qt::ItemFlags clsModeloFotos::flags(const QModelIndex &indice) const
{
    const Qt::ItemFlags marca = indice.column() == 0 ? Qt::ItemIsUserCheckable : Qt::NoItemFlags;
    return QAbstractTableModel::flags(indice) | Qt::ItemNeverHasChildren | marca;
}

bool clsModeloFotos::setData(const QModelIndex &indice, const QVariant &valor, int intPapel)
{
    if (intPapel != Qt::CheckStateRole || indice.column() != 0) {
        return false;
    }
    m_filas.fMarcar(indice.row(), valor.toInt() == Qt::Checked);
    emit dataChanged(indice, indice, {Qt::CheckStateRole});
    emit fMarcaCambiada(indice.row());
    return true;
}

void clsModeloFotos::fRellenar(const std::function<void(clsFilas &)> &fCambio)
{
    beginResetModel();
    fCambio(m_filas);
    endResetModel();
}

void clsModeloFotos::fReordenar(const std::function<void(clsFilas &)> &fCambio)
{
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    fCambio(m_filas);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void clsModeloFotos::fMarcar(const std::function<void(clsFilas &)> &fCambio)
{
    fCambio(m_filas);
    if (!m_filas.fVacia()) {
        emit dataChanged(index(0, 0), index(m_filas.fCantidad() - 1, 0), {Qt::CheckStateRole});
    }
}
