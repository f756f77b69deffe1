#include "app/puerta.h"

#include "browse/teclas.h"
#include "timeline/frmTiempo.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace {

/// Events by which the user acts on a window.
constexpr QEvent::Type lstAcciones[] = {QEvent::KeyPress,
                                        QEvent::KeyRelease,
                                        QEvent::Shortcut,
                                        QEvent::ShortcutOverride,
                                        QEvent::MouseButtonPress,
                                        QEvent::MouseButtonRelease,
                                        QEvent::MouseButtonDblClick,
                                        QEvent::MouseMove,
                                        QEvent::Wheel,
                                        QEvent::ContextMenu,
                                        QEvent::DragEnter,
                                        QEvent::DragMove,
                                        QEvent::Drop};

bool fEsAccion(QEvent::Type tipo)
{
    return std::find(std::begin(lstAcciones), std::end(lstAcciones), tipo) != std::end(lstAcciones);
}

/// Whether that is a dialog by which the user was kept from the window.
bool fEsDialogo(const QObject *objeto)
{
    const auto *const dialogo = qobject_cast<const QDialog *>(objeto);
    return dialogo != nullptr &&
           (dialogo->isModal() || qobject_cast<const QMessageBox *>(dialogo) != nullptr);
}

} // namespace

int fEstadoMayus(Qt::KeyboardModifiers teclas)
{
    return (teclas & Qt::ShiftModifier ? intMayus : 0) |
           (teclas & Qt::ControlModifier ? intCtrl : 0) | (teclas & Qt::AltModifier ? intAlt : 0) |
           (teclas & Qt::MetaModifier ? intSuper : 0);
}

clsPuerta::clsPuerta(QWidget &ventana, clsEstado &estado, const clsMandos &mandos)
    : QObject(&ventana), m_ventana(ventana), m_estado(estado), m_mandos(mandos)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void clsPuerta::fMirarCtrl()
{
    m_bolCtrl = QGuiApplication::queryKeyboardModifiers() & Qt::ControlModifier;
}

/// A key that goes down while the window is busy does not count; one that comes up always does.
void clsPuerta::fSeguirCtrl(const QEvent &evento)
{
    const bool bolPulsada = evento.type() == QEvent::KeyPress && !m_estado.bolOcupado;
    if ((bolPulsada || evento.type() == QEvent::KeyRelease) &&
        static_cast<const QKeyEvent &>(evento).key() == Qt::Key_Control) {
        m_bolCtrl = bolPulsada;
    }
}

bool clsPuerta::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::Hide && fEsDialogo(objeto) &&
        QGuiApplication::focusWindow() != nullptr) {
        // Without a window manager nobody gives the keyboard back. To another program it is left.
        QTimer::singleShot(0, &m_ventana, [this] {
            if (QApplication::activeModalWidget() == nullptr) {
                m_ventana.activateWindow();
            }
        });
    }
    if (objeto == &m_ventana && evento->type() == QEvent::WindowDeactivate) {
        m_bolCtrl = false;
    } else if (objeto == &m_ventana && evento->type() == QEvent::WindowActivate) {
        fMirarCtrl();
    }
    if (!objeto->isWidgetType() || !fEsAccion(evento->type())) {
        return false;
    }
    const QWidget *const ventana = static_cast<QWidget *>(objeto)->window();
    const bool bolPulsada = evento->type() == QEvent::KeyPress;
    if (m_estado.bolOcupado && bolPulsada &&
        qobject_cast<const QMessageBox *>(ventana) == nullptr &&
        static_cast<const QKeyEvent *>(evento)->key() == Qt::Key_Escape) {
        m_estado.parada = std::max(m_estado.parada, Parada::Esc);
    }
    if (ventana != &m_ventana) {
        return false;
    }
    fSeguirCtrl(*evento);
    if (m_estado.bolOcupado) {
        if (evento->type() == QEvent::MouseButtonDblClick) {
            fDobleClic(objeto, static_cast<const QMouseEvent &>(*evento));
        }
        return true;
    }
    return bolPulsada && fTecla(*objeto, static_cast<const QKeyEvent &>(*evento));
}

void clsPuerta::fDobleClic(QObject *objeto, const QMouseEvent &raton)
{
    if (raton.button() == Qt::LeftButton) {
        emit fDobleClicOcupada(static_cast<QWidget *>(objeto), raton.position().toPoint());
    }
}

bool clsPuerta::fTecla(const QObject &objeto, const QKeyEvent &evento) const
{
    // A key that its control leaves unused comes by again for each parent: only the first counts.
    // Whoever walks through the menu bar with the arrows must be able to; a bar that has kept the
    // focus after the last walk, as it does in a window that is not active, is no obstacle.
    // The window's own focus, since without a window manager it can get keys without being active.
    const QWidget *const control = m_ventana.focusWidget();
    const auto *const barra = qobject_cast<const QMenuBar *>(&objeto);
    if (&objeto != (control != nullptr ? control : &m_ventana) ||
        (barra != nullptr && barra->activeAction() != nullptr)) {
        return false;
    }
    if (const auto *const franja = qobject_cast<const frmTiempo *>(control);
        franja != nullptr && frmTiempo::fEsSuya(evento)) {
        return false;
    }
    const int intTecla = fNumeroTecla(evento.key(), evento.modifiers() & Qt::KeypadModifier,
                                      evento.nativeScanCode());
    if (intTecla == intTeclaEnter && evento.isAutoRepeat()) {
        return true; // a key held too long opens its file once
    }
    return m_mandos.fTecla(intTecla, fEstadoMayus(evento.modifiers()));
}
