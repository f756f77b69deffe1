#pragma once

#include "shared/texto.h"

#include <QString>

#include <string>
#include <string_view>

/// The edge between the core's texts and the window's: UTF-8 to QString and back.
[[nodiscard]] inline QString fQ(std::string_view strUtf8)
{
    return QString::fromUtf8(strUtf8.data(), static_cast<qsizetype>(strUtf8.size()));
}
[[nodiscard]] inline std::string fUtf8(const QString &strTexto) { return strTexto.toStdString(); }

/// Bytes of the disk (names, paths) for the screen.
[[nodiscard]] inline QString fQPantalla(std::string_view strBytes)
{
    return fQ(fTextoPantalla(strBytes));
}
