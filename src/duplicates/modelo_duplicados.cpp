#include "duplicates/modelo_duplicados.h"

#include "shared/qtexto.h"

#include <QGuiApplication>
#include <QPalette>

#include <iterator>

namespace {

constexpr const char *lstTitulosDuplicados[] = {"Se queda", "Nombre",         "Carpeta",
                                                "Fecha",    "Fecha correcta", "Tamaño"};
static_assert(std::size(lstTitulosDuplicados) == intColumnasDuplicados);

} // namespace

clsModeloDuplicados::clsModeloDuplicados(std::string strRaiz, QObject *padre)
    : QAbstractTableModel(padre), m_strRaiz(std::move(strRaiz))
{
}

int clsModeloDuplicados::rowCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : static_cast<int>(m_lstFilas.size());
}

int clsModeloDuplicados::columnCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : intColumnasDuplicados;
}

QVariant clsModeloDuplicados::data(const QModelIndex &indice, int intPapel) const
{
    const auto [lngGrupo, lngCual] = fSitio(indice.row());
    const clsGrupo &grupo = m_lstGrupos[lngGrupo];
    const auto columna = static_cast<ColumnaDuplicados>(indice.column());
    switch (intPapel) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return fQ(fTextoDuplicado(grupo, lngCual, columna, m_strRaiz));
    case Qt::CheckStateRole:
        return columna == ColumnaDuplicados::Queda
                   ? QVariant(lngCual == grupo.lngQueda ? Qt::Checked : Qt::Unchecked)
                   : QVariant();
    case Qt::TextAlignmentRole:
        return columna == ColumnaDuplicados::Tamano
                   ? QVariant(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter))
                   : QVariant();
    case Qt::BackgroundRole: // every other group on another ground
        return lngGrupo % 2 == 0
                   ? QVariant()
                   : QVariant(QGuiApplication::palette().brush(QPalette::AlternateBase));
    default:
        return {};
    }
}

QVariant clsModeloDuplicados::headerData(int intSeccion, Qt::Orientation orientacion,
                                         int intPapel) const
{
    return orientacion == Qt::Horizontal && intPapel == Qt::DisplayRole
               ? QString::fromUtf8(lstTitulosDuplicados[intSeccion])
               : QVariant();
}

Qt::ItemFlags clsModeloDuplicados::flags(const QModelIndex &indice) const
{
    const Qt::ItemFlags todas = QAbstractTableModel::flags(indice);
    return indice.column() == 0 ? todas | Qt::ItemIsUserCheckable : todas;
}

bool clsModeloDuplicados::setData(const QModelIndex &indice, const QVariant &valor, int intPapel)
{
    if (intPapel != Qt::CheckStateRole || indice.column() != 0 || valor.toInt() != Qt::Checked) {
        return false;
    }
    fElegir(indice.row());
    return true;
}

void clsModeloDuplicados::fAgregar(std::vector<clsGrupo> lstNuevos)
{
    std::size_t lngNuevas = 0;
    for (const clsGrupo &grupo : lstNuevos) {
        lngNuevas += grupo.lstGemelos.size();
    }
    if (lngNuevas == 0) {
        return;
    }
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(lngNuevas) - 1);
    for (clsGrupo &grupo : lstNuevos) {
        for (std::size_t lngCual = 0; lngCual < grupo.lstGemelos.size(); ++lngCual) {
            m_lstFilas.emplace_back(m_lstGrupos.size(), lngCual);
        }
        m_lstGrupos.push_back(std::move(grupo));
    }
    endInsertRows();
}

void clsModeloDuplicados::fElegir(int intFila)
{
    const auto [lngGrupo, lngCual] = fSitio(intFila);
    m_lstGrupos[lngGrupo].lngQueda = lngCual;
    const int intPrimera = intFila - static_cast<int>(lngCual);
    const int intUltima =
        intPrimera + static_cast<int>(m_lstGrupos[lngGrupo].lstGemelos.size()) - 1;
    emit dataChanged(index(intPrimera, 0), index(intUltima, 0));
    emit fElegido();
}
