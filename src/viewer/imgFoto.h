#pragma once

#include "viewer/encaje.h"
#include "viewer/fuente.h"

#include <QWidget>

#include <memory>

/// The visible picture inside its frame: paints a source stretched to its own rectangle, clipped,
/// and is dragged in steps when it is larger than the frame.
class imgFoto : public QWidget {
    Q_OBJECT
public:
    explicit imgFoto(QWidget *recuadro);

    /// Takes a picture, or the same one with more pixels; none (nullptr) empties the control.
    void fPoner(std::shared_ptr<const clsFuente> fuente);
    /// Shows it turned to the right by so many quarters, 0 to 3, from the next fColocar on.
    void fGirar(int intCuartos) { m_intCuartos = intCuartos; }
    /// Places the picture for the frame's present size.
    /// @param intZoom percentage of the natural size, 0: fit.
    void fColocar(int intZoom);

protected:
    void paintEvent(QPaintEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseMoveEvent(QMouseEvent *evento) override;
    void mouseReleaseEvent(QMouseEvent *evento) override;

private:
    [[nodiscard]] clsTam fRecuadro() const;
    void fPintar(QPainter &pintor, QRect visible) const;
    void fAplicar();
    void fTerminarArrastre();

    std::shared_ptr<const clsFuente> m_fuente;
    clsEncaje m_encaje;
    int m_intZoom = 0;
    int m_intCuartos = 0;
    bool m_bolArrastrando = false;
    QPointF m_pulsado; ///< press point in frame coordinates, pixels
};
