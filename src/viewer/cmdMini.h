#pragma once

#include <QPushButton>

/// A cell of the page of thumbnails: picture (its icon), caption (its text), tick mark and the
/// frame of the current file. Takes no focus.
class cmdMini : public QPushButton {
    Q_OBJECT
public:
    /// @param intIndice number of the cell on the page.
    cmdMini(int intIndice, QWidget *padre);

    /// Shows a picture in the middle; its device pixel ratio counts.
    void fPoner(const QPixmap &imagen, const QString &strTexto);
    /// Shows whether the file is ticked and whether it is the current one.
    void fEstado(bool bolMarcada, bool bolActual);
    /// Shows the picture turned to the right by so many quarters, 0 to 3; until the next fPoner.
    void fGirar(int intCuartos);
    /// Name, date and size of the file: the tooltip, and what screen readers say.
    void fConsejo(const QString &strConsejo);

    [[nodiscard]] bool fMarcada() const { return m_bolMarcada; }
    [[nodiscard]] bool fActual() const { return m_bolActual; }

signals:
    /// A mouse button went down on the cell.
    void fPulsada(Qt::MouseButton boton, Qt::KeyboardModifiers mayus);
    /// The left one did so for the second time in a double click, after fPulsada.
    void fDobleClic();

protected:
    void paintEvent(QPaintEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    // The press alone does it all, whatever happens to the mouse then.
    void mouseReleaseEvent(QMouseEvent *) override {}
    void mouseMoveEvent(QMouseEvent *) override {}
    void mouseDoubleClickEvent(QMouseEvent *evento) override;

private:
    [[nodiscard]] QFont fLetra() const;
    [[nodiscard]] QPixmap fVista() const;
    void fPintarTexto(QPainter &pintor) const;
    void fPintarMarca(QPainter &pintor) const;
    void fNombrar();

    QPixmap m_imagen; ///< as it came
    int m_intCuartos = 0;
    QString m_strConsejo;
    bool m_bolMarcada = false;
    bool m_bolActual = false;
};
