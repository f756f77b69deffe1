#include "catalogue/lstFotos.h"

#include "shared/twips.h"

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
    {3000, ""                   },
    {1800, "2009/07/14 18:03:22"},
    {1500, "1.234.567 KB"       },
    {1700, ""                   },
};

} // namespace

lstFotos::lstFotos(QWidget *padre) : QTableView(padre)
{
    setObjectName(QStringLiteral("lstFotos"));
    setAccessibleName(tr("Lista de archivos"));
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
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
}

void lstFotos::fAnchosIniciales()
{
    const int intMargen =
        2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    for (int intColumna = 0; intColumna < static_cast<int>(std::size(lstColumnas)); ++intColumna) {
        const clsColumna &columna = lstColumnas[intColumna];
        const int intTexto =
            fontMetrics().horizontalAdvance(QString::fromLatin1(columna.strMuestra)) + intMargen;
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

/// Toggles the check box under the mouse, if there is one.
bool lstFotos::fAlternarCasilla(const QMouseEvent &evento)
{
    const QPoint punto = evento.position().toPoint();
    const QModelIndex indice = indexAt(punto);
    if (evento.button() != Qt::LeftButton || !fEnCasilla(indice, punto)) {
        return false;
    }
    const bool bolMarcada = indice.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model()->setData(indice, bolMarcada ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    return true;
}

void lstFotos::mousePressEvent(QMouseEvent *evento)
{
    // A click in a check box never changes the current row.
    if (fAlternarCasilla(*evento)) {
        return;
    }
    const QModelIndex indice = indexAt(evento->position().toPoint());
    if (!indice.isValid() || evento->button() != Qt::LeftButton) {
        return; // nor does one beside the rows
    }
    if (evento->modifiers() == Qt::ShiftModifier) {
        emit fRango(indice.row());
        return;
    }
    setCurrentIndex(indice.siblingAtColumn(0));
    emit fFila(indice.row());
}

void lstFotos::mouseDoubleClickEvent(QMouseEvent *evento)
{
    if (fAlternarCasilla(*evento)) {
        return;
    }
    const QModelIndex indice = indexAt(evento->position().toPoint());
    if (indice.isValid() && evento->button() == Qt::LeftButton) {
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
