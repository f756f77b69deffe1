#pragma once

#include "browse/mandos.h"

#include <QObject>

/// The Shift state bits of keys that are held, see teclas.h.
[[nodiscard]] int fEstadoMayus(Qt::KeyboardModifiers teclas);

class QKeyEvent;
class QMouseEvent;
class QWidget;

/// The gate before the main window: while it is busy, what the user does to it is dropped; else its
/// keys are seen here before its controls see them.
class clsPuerta : public QObject {
    Q_OBJECT
public:
    /// @param ventana the main window; events of other windows pass.
    /// @param estado  tells whether it is busy; learns that Esc was pressed then.
    /// @param mandos  get its keys.
    clsPuerta(QWidget &ventana, clsEstado &estado, const clsMandos &mandos);

    /// Whether the Ctrl key is held, as far as the window has seen it go down and up.
    [[nodiscard]] bool fCtrl() const { return m_bolCtrl; }
    /// Takes it from the keyboard itself: what happened while the window was busy was not seen.
    void fMirarCtrl();

signals:
    /// A control was double-clicked while the window is busy.
    void fDobleClicOcupada(QWidget *control, const QPoint &punto);

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    void fDobleClic(QObject *objeto, const QMouseEvent &raton);
    [[nodiscard]] bool fTecla(const QObject &objeto, const QKeyEvent &evento) const;
    void fSeguirCtrl(const QEvent &evento);

    QWidget &m_ventana;
    clsEstado &m_estado;
    const clsMandos &m_mandos;
    bool m_bolCtrl = false;
};
