#pragma once

#include "repair/reparacion.h"

#include <QAbstractTableModel>

#include <functional>

/// The table of repairs as its window shows it. Changes go through here, so that the views learn of
/// them.
class clsModeloReparacion : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit clsModeloReparacion(clsTablaReparacion &tabla, QObject *padre = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &indice, int intPapel) const override;
    [[nodiscard]] QVariant headerData(int intSeccion, Qt::Orientation orientacion,
                                      int intPapel) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &indice) const override;
    bool setData(const QModelIndex &indice, const QVariant &valor, int intPapel) override;

    /// Shows the rows that were added to the table since the last call.
    void fMostrarNuevas();
    /// Changes which rows there are or their order.
    void fRehacer(const std::function<void()> &fCambio);
    /// Changes what the rows say.
    void fCambiar(const std::function<void()> &fCambio);

signals:
    /// The user set or cleared a tick.
    void fMarcaCambiada();

private:
    clsTablaReparacion &m_tabla;
    int m_lngFilas = 0; ///< that the views know of
};
