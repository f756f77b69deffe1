#include "app/caja_info.h"

#include <QHelpEvent>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int intMargen = 2; // what a line edit leaves free beside its text, in pixels

} // namespace

clsCajaInfo::clsCajaInfo(const char *strNombre, const QString &strAccesible, QWidget *padre)
    : QLineEdit(padre)
{
    setObjectName(QString::fromLatin1(strNombre));
    setAccessibleName(strAccesible);
    setReadOnly(true);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
}

void clsCajaInfo::fHasta(int intX)
{
    setTextMargins(0, 0, std::max(geometry().right() + 1 - intX, 0), 0);
}

QRect clsCajaInfo::fSitio() const
{
    QStyleOptionFrame opcion;
    initStyleOption(&opcion);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &opcion, this)
        .marginsRemoved(textMargins())
        .adjusted(intMargen, 0, -intMargen, 0);
}

bool clsCajaInfo::fCabe() const
{
    return fontMetrics().horizontalAdvance(text()) <= fSitio().width();
}

bool clsCajaInfo::event(QEvent *evento)
{
    if (evento->type() != QEvent::ToolTip) {
        return QLineEdit::event(evento);
    }
    // A path that looks like markup is still a path.
    QToolTip::showText(static_cast<QHelpEvent *>(evento)->globalPos(),
                       fCabe()                       ? QString()
                       : Qt::mightBeRichText(text()) ? Qt::convertFromPlainText(text())
                                                     : text(),
                       this);
    return true;
}

void clsCajaInfo::paintEvent(QPaintEvent *evento)
{
    if (hasSelectedText() || fCabe()) {
        QLineEdit::paintEvent(evento);
        return;
    }
    QStylePainter pintor(this);
    QStyleOptionFrame opcion;
    initStyleOption(&opcion);
    pintor.drawPrimitive(QStyle::PE_PanelLineEdit, opcion);
    const QRect sitio = fSitio();
    pintor.drawItemText(sitio, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        fontMetrics().elidedText(text(), Qt::ElideLeft, sitio.width()),
                        QPalette::Text);
}
