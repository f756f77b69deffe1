#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Initialisation files as text: "[section]" lines, "key=value" lines, anything else foreign.
/// Sections and keys are compared without regard to the case of A to Z; the first of two equal ones
/// counts; the first "=" of a line splits it; lines that begin with ";" are comments.

/// The value of a key, without the blanks around it and without one pair of quotes around that.
/// Nothing when the section or the key is absent; an empty text when the value is empty.
[[nodiscard]] std::optional<std::string>
fLeerClave(std::string_view strIni, std::string_view strSeccion, std::string_view strClave);

/// The text with the key set to the value; section and key are added when they are absent. Every
/// other byte stays as it is. A value that would lose blanks or quotes when read gets quotes.
[[nodiscard]] std::string fCambiarClave(std::string_view strIni, std::string_view strSeccion,
                                        std::string_view strClave, std::string_view strValor);
