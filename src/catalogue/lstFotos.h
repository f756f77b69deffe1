#pragma once

#include <QTableView>

/// The file list. It selects what the user clicks or steps to and tells it; making a file current
/// is the window's work.
class lstFotos : public QTableView {
    Q_OBJECT
public:
    explicit lstFotos(QWidget *padre);

    /// Column widths as they are at every fill.
    void fAnchosIniciales();
    /// Shows in the header of a section (from 0) that the rows are ordered by it.
    void fSenalarOrden(int intSeccion, bool bolDescendente);
    /// Selects a row (from 0) and scrolls it into view, without telling anybody.
    void fElegir(int lngPos);
    /// Up and down only: who has scrolled to a column keeps seeing it.
    void scrollTo(const QModelIndex &indice, ScrollHint modo = EnsureVisible) override;
    /// No type-ahead search: letters are commands.
    void keyboardSearch(const QString &) override {}

signals:
    /// A row was clicked, or reached with a key.
    void fFila(int lngPos);
    void fDobleClic(int lngPos);
    /// A row was clicked with Shift alone: from the current row to it.
    void fRango(int lngPos);

protected:
    void dataChanged(const QModelIndex &primero, const QModelIndex &ultimo,
                     const QList<int> &lstPapeles) override;
    void mousePressEvent(QMouseEvent *evento) override;
    // Rows are chosen by a press alone: dragging over them chooses none.
    void mouseMoveEvent(QMouseEvent *) override {}
    void mouseReleaseEvent(QMouseEvent *) override {}
    void mouseDoubleClickEvent(QMouseEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;

private:
    [[nodiscard]] bool fEnCasilla(const QModelIndex &indice, const QPoint &punto) const;
    QModelIndex fPulsar(const QMouseEvent &evento);
};
