#pragma once

#include "shared/hilos.h"

#include <QMetaObject>
#include <QObject>

/// Brings answers of threads into an object's thread, as events. For threads that the object owns.
[[nodiscard]] inline clsHilos::clsAviso fAvisarA(QObject *objeto)
{
    return [objeto](std::function<void()> fLlegar) {
        QMetaObject::invokeMethod(objeto, std::move(fLlegar), Qt::QueuedConnection);
    };
}
