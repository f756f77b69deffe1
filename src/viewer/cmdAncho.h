#pragma once

#include <QPushButton>
#include <QRubberBand>

/// The splitter between list and viewing panel: a narrow button that is dragged sideways and shows
/// a line meanwhile. A click without a drag changes nothing.
class cmdAncho : public QPushButton {
    Q_OBJECT
public:
    explicit cmdAncho(QWidget *cliente);
    static constexpr int intPixeles = 5; ///< its width

signals:
    /// Dropped at this x of the client area, in pixels; may lie outside of it.
    void fSoltado(int intX);

protected:
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseMoveEvent(QMouseEvent *evento) override;
    void mouseReleaseEvent(QMouseEvent *evento) override;
    void hideEvent(QHideEvent *evento) override;

private:
    [[nodiscard]] bool fMovido() const { return !m_linea->isHidden(); }
    void fTerminar();

    QRubberBand *m_linea;
    int m_intInicio = 0;
};
