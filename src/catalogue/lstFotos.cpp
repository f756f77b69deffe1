#include "catalogue/lstFotos.h"

#include "catalogue/delegados.h"
#include "shared/twips.h"

#include <QAccessible>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <iterator>

namespace {

/// A column: its width in twips, and a text that must fit where the desktop's font is wider than
/// the one the width was made for.
struct clsColumna {
    int lngTwips;
    const char *strMuestra;
};
constexpr clsColumna lstColumnas[] = {
    {3000, "IMG_20180512_181023.jpg"},
    {1800, "2009/07/14 18:03:22"    },
    {1500, "1.234.567 KB"           },
    {1700, ""                       },
};

constexpr int intColumnaCarpeta = 3;

} // namespace

lstFotos::lstFotos(QWidget *padre) : QTableView(padre)
{
    setObjectName(QStringLiteral("lstFotos"));
    setAccessibleName(QStringLiteral("Lista de archivos"));
    setItemDelegate(new clsDelegadoFilas(this));
    setItemDelegateForColumn(intColumnaCarpeta, new clsDelegadoCarpeta(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(
        std::max(fontMetrics().height() + 4, style()->pixelMetric(QStyle::PM_IndicatorHeight) + 2));
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
}

void lstFotos::fSenalarOrden(int intSeccion, bool bolDescendente)
{
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicator(intSeccion,
                                         bolDescendente ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void lstFotos::fAnchosIniciales()
{
    const int intMargen =
        2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    for (int intColumna = 0; intColumna < static_cast<int>(std::size(lstColumnas)); ++intColumna) {
        const clsColumna &columna = lstColumnas[intColumna];
        const int intTexto =
            fontMetrics().horizontalAdvance(QString::fromLatin1(columna.strMuestra)) + intMargen +
            (intColumna == 0 ? style()->pixelMetric(QStyle::PM_IndicatorWidth) + intMargen : 0);
        setColumnWidth(intColumna, std::max(columna.lngTwips / intTwipsPixel, intTexto));
    }
}

void lstFotos::fElegir(int lngPos)
{
    const QModelIndex indice = model()->index(lngPos, 0);
    setCurrentIndex(indice);
    scrollTo(indice);
}

void lstFotos::scrollTo(const QModelIndex &indice, ScrollHint modo)
{
    const int intHorizontal = horizontalScrollBar()->value();
    QTableView::scrollTo(indice, modo);
    horizontalScrollBar()->setValue(intHorizontal);
}

void lstFotos::dataChanged(const QModelIndex &primero, const QModelIndex &ultimo,
                           const QList<int> &lstPapeles)
{
    QTableView::dataChanged(primero, ultimo, lstPapeles);
    const int lngPos = currentIndex().row();
    if (!QAccessible::isActive() || lngPos < std::max(primero.row(), 0) || lngPos > ultimo.row() ||
        !lstPapeles.contains(Qt::CheckStateRole)) {
        return;
    }
    QAccessibleInterface *const lector = QAccessible::queryAccessibleInterface(this);
    if (lector != nullptr && lector->tableInterface() != nullptr) {
        // The tick of the current row is part of its description.
        QAccessibleEvent evento(lector->tableInterface()->cellAt(lngPos, 0),
                                QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&evento);
    }
}

bool lstFotos::fEnCasilla(const QModelIndex &indice, const QPoint &punto) const
{
    if (!indice.isValid() || indice.column() != 0) {
        return false;
    }
    QStyleOptionViewItem opcion;
    initViewItemOption(&opcion);
    opcion.rect = visualRect(indice);
    opcion.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()
        ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &opcion, this)
        .contains(punto);
}

/// Toggles the check box under the mouse, if there is one: that never changes the current row.
/// @return else the row that the left button was pressed on, if there is one.
QModelIndex lstFotos::fPulsar(const QMouseEvent &evento)
{
    const QPoint punto = evento.position().toPoint();
    const QModelIndex indice = indexAt(punto);
    if (evento.button() != Qt::LeftButton) {
        return {};
    }
    if (!fEnCasilla(indice, punto)) {
        return indice;
    }
    const bool bolMarcada = indice.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model()->setData(indice, bolMarcada ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    return {};
}

void lstFotos::mousePressEvent(QMouseEvent *evento)
{
    const QModelIndex indice = fPulsar(*evento);
    if (indice.isValid() && evento->modifiers() == Qt::ShiftModifier) {
        emit fRango(indice.row());
    } else if (indice.isValid()) {
        setCurrentIndex(indice.siblingAtColumn(0));
        emit fFila(indice.row());
    }
}

void lstFotos::mouseDoubleClickEvent(QMouseEvent *evento)
{
    if (const QModelIndex indice = fPulsar(*evento); indice.isValid()) {
        emit fDobleClic(indice.row());
    }
}

void lstFotos::keyPressEvent(QKeyEvent *evento)
{
    const int lngAntes = currentIndex().row();
    QTableView::keyPressEvent(evento);
    const int lngPos = currentIndex().row();
    if (lngPos != lngAntes && lngPos >= 0) {
        emit fFila(lngPos);
    }
}
