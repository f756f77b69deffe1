#include "app/ceder.h"

#include <QCoreApplication>
#include <QEventLoop>

void fCederEventos(bool bolEsperar)
{
    QCoreApplication::processEvents(
        bolEsperar ? QEventLoop::ProcessEventsFlags(QEventLoop::WaitForMoreEvents)
                   : QEventLoop::ProcessEventsFlags(QEventLoop::AllEvents));
}
