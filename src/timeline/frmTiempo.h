#pragma once

#include "timeline/tira.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QFontMetrics;
class QPainter;

/// The strip of time: bars of a list's files by months or days, years below them. It draws, takes
/// mouse, wheel and keys, and says what the user wants.
class frmTiempo : public QWidget {
    Q_OBJECT
public:
    /// What the user asks of it.
    struct clsPeticiones {
        /// To go to the first file of a bar; false: not now, it is asked again.
        std::function<bool(const clsBarra &)> fIr;
        /// To list the files of these days only.
        std::function<void(const clsPeriodo &)> fFiltrar;
        /// To give the focus back.
        std::function<void()> fDejar;
    };
    frmTiempo(QWidget *padre, clsPeticiones peticiones);

    /// The height it needs, in pixels.
    [[nodiscard]] static int fAlto(const QFontMetrics &letra);
    /// Whether a key is one that it takes for itself while it has the focus.
    [[nodiscard]] static bool fEsSuya(const QKeyEvent &evento);

    /// Shows a list.
    void fMostrar(clsDias dias);
    /// Tells where in it we are: the date of the current file, and those of the files that the page
    /// shows.
    void fSituar(clsFecha actual, std::vector<clsFecha> lstPagina);

protected:
    bool event(QEvent *evento) override;
    void paintEvent(QPaintEvent *evento) override;
    void resizeEvent(QResizeEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseMoveEvent(QMouseEvent *evento) override;
    void mouseReleaseEvent(QMouseEvent *evento) override;
    void leaveEvent(QEvent *evento) override;
    void wheelEvent(QWheelEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;
    void focusInEvent(QFocusEvent *evento) override;
    void focusOutEvent(QFocusEvent *evento) override;

private:
    /// What the pressed mouse button does.
    enum class Gesto { Ninguno, Ir, Rango };

    void fDisponerTira();
    [[nodiscard]] int fActual() const { return fBarraDe(m_tira.fBarras(), m_actual); }
    [[nodiscard]] int fCursor() const;
    void fMoverCursor(int lngBarra);
    void fPedir(int lngBarra);
    void fAtenderPedida();
    void fAmpliar(double dblX, double dblFactor);
    void fDecir(const clsBarra &barra, double dblX);
    void fDecirRaton();
    void fDecirCursor();
    void fCallar();

    [[nodiscard]] QFont fLetra() const;
    [[nodiscard]] QRectF fHueco(const clsBarra &barra) const;
    void fPintarEje(QPainter &pintor) const;
    void fPintarRotulos(QPainter &pintor) const;
    void fPintarBarra(QPainter &pintor, const clsBarra &barra, QRgb color) const;
    void fPintarBarras(QPainter &pintor) const;
    void fPintarMarca(QPainter &pintor, const QRectF &hueco) const;
    void fPintarCursor(QPainter &pintor) const;

    const clsPeticiones m_peticiones;
    clsTira m_tira;
    clsFecha m_actual;
    std::vector<clsFecha> m_lstPagina;
    clsBarra m_cursor; ///< where the keyboard is
    Gesto m_gesto = Gesto::Ninguno;
    double m_dblPulsado = 0;          ///< where the button went down
    std::optional<double> m_dblRaton; ///< where the pointer is; empty: elsewhere
    std::optional<clsBarra> m_pedida; ///< where the user wants to go as soon as possible
    QTimer m_ritmo;                   ///< runs for a while after it was gone somewhere
};
