#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QWidget>

/// Presses a key on a control.
inline void fPulsar(QWidget *control, int intTecla)
{
    QKeyEvent evento(QEvent::KeyPress, intTecla, Qt::NoModifier);
    QApplication::sendEvent(control, &evento);
}

/// Lets events run for so many milliseconds.
inline void fDescansar(int intMs)
{
    QElapsedTimer reloj;
    reloj.start();
    while (reloj.elapsed() < intMs) {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}
