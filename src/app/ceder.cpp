#include "app/ceder.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

void fCederEventos(int intMs)
{
    if (intMs <= 0) {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        return;
    }
    QTimer despertador;
    despertador.setSingleShot(true);
    despertador.start(intMs);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
