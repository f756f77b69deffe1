#pragma once

#include <QStyledItemDelegate>

/// Rows with a check box in their first column that can be seen: Qt's own style draws them on dark
/// grounds without an edge. A text that is cut can be read as a whole in a tooltip.
class clsDelegadoFilas : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent *evento, QAbstractItemView *lista, const QStyleOptionViewItem &opcion,
                   const QModelIndex &indice) override;
    void paint(QPainter *pintor, const QStyleOptionViewItem &opcion,
               const QModelIndex &indice) const override;
};

/// The folders of a list mostly differ at their ends: what is cut is the beginning.
class clsDelegadoCarpeta : public clsDelegadoFilas {
public:
    using clsDelegadoFilas::clsDelegadoFilas;

protected:
    void initStyleOption(QStyleOptionViewItem *opcion, const QModelIndex &indice) const override;
};
