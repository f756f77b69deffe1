#pragma once

#include "repair/lectura_fechas.h"
#include "repair/resumen.h"
#include "shared/clsProgreso.h"

#include <QAbstractTableModel>
#include <QDialog>

#include <functional>
#include <string>
#include <vector>

class QTableView;

/// The overview as a table: a year, how many of its files are dated how, and that as a bar.
class clsModeloResumen : public QAbstractTableModel {
    Q_OBJECT
public:
    static constexpr int intBarra = intEstadosFecha + 1; ///< the column of the bar

    explicit clsModeloResumen(const clsResumenFechas &resumen, QObject *padre = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &indice, int intPapel) const override;
    [[nodiscard]] QVariant headerData(int intSeccion, Qt::Orientation orientacion,
                                      int intPapel) const override;
    /// Shows what the overview has become.
    void fMostrar();

private:
    const clsResumenFechas &m_resumen;
    int m_intFilas = 0; ///< that the views know of
};

/// Shows per year how many files are dated right, wrong, or not at all; the dates are read on
/// threads while it is open.
class frmRevisar : public QDialog {
    Q_OBJECT
public:
    frmRevisar(QWidget *padre, std::vector<std::string> lstRutas, clsLectorFechas fLeer);

    /// Shows it and waits until it is closed.
    /// @return the files that are to be repaired; none when it was only closed.
    [[nodiscard]] std::vector<std::string> fMostrar();
    /// What it has found out until then.
    [[nodiscard]] const clsResumenFechas &fResumen() const { return m_resumen; }

private:
    void fMostrarLeidas();
    void fElegir(const QModelIndex &indice, const QPoint &punto);
    bool eventFilter(QObject *objeto, QEvent *evento) override;

    clsResumenFechas m_resumen;
    clsModeloResumen m_modelo{m_resumen};
    std::vector<std::string> m_lstElegidas;
    QTableView *m_tblResumen;
    QLabel *m_lblResumen;
    clsProgreso m_progreso;
    clsLecturaFechas m_lectura;
};
