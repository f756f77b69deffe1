#pragma once

#include <string>
#include <string_view>

/// A UTF-8 text in capitals and composed (NFC), by the rules of Unicode and not of a language.
[[nodiscard]] std::string fMayusculasCompuestas(std::string_view strUtf8);
