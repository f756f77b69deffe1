#include "catalogue/delegados.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QTextDocument>
#include <QToolTip>

namespace {

/// Whether the controls look as Qt's own style paints them, alone or inside another one.
bool fEsFusion(const QStyle *estilo)
{
    while (const auto *const envoltura = qobject_cast<const QProxyStyle *>(estilo)) {
        estilo = envoltura->baseStyle();
    }
    return estilo->inherits("QFusionStyle");
}

} // namespace

bool clsDelegadoFilas::helpEvent(QHelpEvent *evento, QAbstractItemView *lista,
                                 const QStyleOptionViewItem &opcion, const QModelIndex &indice)
{
    if (evento->type() != QEvent::ToolTip) {
        return QStyledItemDelegate::helpEvent(evento, lista, opcion, indice);
    }
    const QString strTexto = indice.data().toString();
    const bool bolCabe = sizeHint(opcion, indice).width() <= opcion.rect.width();
    // A name that looks like markup is still a name.
    QToolTip::showText(evento->globalPos(),
                       bolCabe                         ? QString()
                       : Qt::mightBeRichText(strTexto) ? Qt::convertFromPlainText(strTexto)
                                                       : strTexto,
                       lista);
    return true;
}

void clsDelegadoFilas::paint(QPainter *pintor, const QStyleOptionViewItem &opcion,
                             const QModelIndex &indice) const
{
    QStyledItemDelegate::paint(pintor, opcion, indice);
    const QStyle *const estilo = opcion.widget->style();
    if (indice.column() != 0 || !fEsFusion(estilo)) {
        return;
    }
    QStyleOptionViewItem fila(opcion);
    initStyleOption(&fila, indice);
    const QRect casilla =
        estilo->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &fila, opcion.widget);
    const bool bolElegida = fila.state.testFlag(QStyle::State_Selected);
    QColor borde = fila.palette.color(bolElegida ? QPalette::HighlightedText : QPalette::Text);
    borde.setAlphaF(0.6F);
    pintor->save();
    pintor->setRenderHint(QPainter::Antialiasing);
    pintor->setPen(borde);
    pintor->setBrush(Qt::NoBrush);
    pintor->drawRoundedRect(QRectF(casilla).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    pintor->restore();
}

void clsDelegadoCarpeta::initStyleOption(QStyleOptionViewItem *opcion,
                                         const QModelIndex &indice) const
{
    clsDelegadoFilas::initStyleOption(opcion, indice);
    opcion->textElideMode = Qt::ElideLeft;
}
