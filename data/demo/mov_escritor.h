// Motion-JPEG in a QuickTime film. Source: the QuickTime File Format reference.
#pragma once

#include <ctime>
#include <QByteArray>
#include <QSize>
#include <vector>

namespace demo {

/// A whole QuickTime file from its frames, each of them a complete JPEG of the given size.
QByteArray fMov(const std::vector<QByteArray> &lstCuadros, const QSize &tamCuadro,
                int intCuadrosPorSegundo, std::time_t datCreacion);

} // namespace demo
