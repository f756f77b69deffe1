// Motion-JPEG in an AVI file. Source: the AVI RIFF File Reference.
#pragma once

#include <QByteArray>
#include <QSize>
#include <vector>

namespace demo {

/// A whole AVI file from its frames, each of them a complete JPEG of the given size.
QByteArray fAvi(const std::vector<QByteArray> &lstCuadros, const QSize &tamCuadro,
                int intCuadrosPorSegundo);

} // namespace demo
