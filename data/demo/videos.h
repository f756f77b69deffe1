// From a row of the plan to the bytes of its film.
#pragma once

#include "plan.h"

#include <QByteArray>

namespace demo {

QByteArray fVideo(const clsFilaVideo &fila);

} // namespace demo
