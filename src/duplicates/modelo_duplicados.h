#pragma once

#include "duplicates/textos_duplicados.h"

#include <QAbstractTableModel>

#include <string>
#include <utility>
#include <vector>

/// The groups of duplicates as a table: a row for each file. The check mark of its first column
/// says which of a group stays; there is always one.
class clsModeloDuplicados : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit clsModeloDuplicados(std::string strRaiz, QObject *padre = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &indice, int intPapel) const override;
    [[nodiscard]] QVariant headerData(int intSeccion, Qt::Orientation orientacion,
                                      int intPapel) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &indice) const override;
    bool setData(const QModelIndex &indice, const QVariant &valor, int intPapel) override;

    /// Appends groups.
    void fAgregar(std::vector<clsGrupo> lstNuevos);
    [[nodiscard]] const std::vector<clsGrupo> &fGrupos() const { return m_lstGrupos; }
    /// The group of a row, and which of its files that is.
    [[nodiscard]] std::pair<std::size_t, std::size_t> fSitio(int intFila) const
    {
        return m_lstFilas[static_cast<std::size_t>(intFila)];
    }
    /// The file of a row is the one of its group that stays.
    void fElegir(int intFila);

signals:
    /// Another one of some group stays.
    void fElegido();

private:
    const std::string m_strRaiz;
    std::vector<clsGrupo> m_lstGrupos;
    std::vector<std::pair<std::size_t, std::size_t>> m_lstFilas;
};
