#pragma once

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>

/// Presses a key on a control.
inline void fPulsar(QWidget *control, int intTecla)
{
    QKeyEvent evento(QEvent::KeyPress, intTecla, Qt::NoModifier);
    QApplication::sendEvent(control, &evento);
}

/// Lets events run for so many milliseconds, and takes no processor time while there are none.
inline void fDescansar(int intMs)
{
    QEventLoop bucle;
    QTimer::singleShot(intMs, Qt::PreciseTimer, &bucle, &QEventLoop::quit);
    bucle.exec();
}

/// Notes when a control is painted.
class clsVigia : public QObject {
public:
    explicit clsVigia(QWidget *control) { control->installEventFilter(this); }
    bool bolPintado = false;

protected:
    bool eventFilter(QObject *, QEvent *evento) override
    {
        bolPintado = bolPintado || evento->type() == QEvent::Paint;
        return false;
    }
};
