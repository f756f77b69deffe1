#pragma once

#include "shared/qtexto.h"

/// A UTF-8 text in capitals and composed (NFC), by the rules of Unicode and not of a language.
[[nodiscard]] inline std::string fMayusculasCompuestas(std::string_view strUtf8)
{
    return fUtf8(fQ(strUtf8).toUpper().normalized(QString::NormalizationForm_C));
}
