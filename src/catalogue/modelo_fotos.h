#pragma once

#include "catalogue/filas.h"
#include "shared/numeros.h"

#include <QAbstractTableModel>

#include <functional>

/// The rows of the list as lstFotos shows them: name with its check box, date, size, folder.
class clsModeloFotos : public QAbstractTableModel {
    Q_OBJECT
public:
    clsModeloFotos(clsFilas &filas, clsSignos signos, QObject *padre = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &indice, int intPapel) const override;
    [[nodiscard]] QVariant headerData(int intSeccion, Qt::Orientation orientacion,
                                      int intPapel) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &indice) const override;
    bool setData(const QModelIndex &indice, const QVariant &valor, int intPapel) override;

    /// Changes which rows there are.
    void fRellenar(const std::function<void(clsFilas &)> &fCambio);
    /// Changes the order of the rows.
    void fReordenar(const std::function<void(clsFilas &)> &fCambio);

    /// Changes ticks, without telling anybody but the views.
    void fMarcar(const std::function<void(clsFilas &)> &fCambio);

signals:
    /// The user set or cleared a tick.
    void fMarcaCambiada(int lngPos);

private:
    clsFilas &m_filas;
    const clsSignos m_signos;
};
