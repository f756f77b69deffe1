#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Texts inside the core are bytes; those that are for the screen are UTF-8.

/// Whether every byte belongs to a well-formed UTF-8 sequence (RFC 3629: no surrogates, no overlong
/// forms, nothing beyond U+10FFFF).
[[nodiscard]] bool fEsUtf8(std::string_view strBytes);

/// Bytes that came from the disk, for the screen: valid UTF-8 as it is, anything else read as
/// Windows-1252 (its five unassigned bytes as the control characters of Latin-1).
[[nodiscard]] std::string fTextoPantalla(std::string_view strBytes);

/// A text (UTF-8) in which a replacement character stands for each control character of
/// bidirectional writing, so that the one does not turn what is shown behind it. Source: Unicode
/// Standard Annex 9.
[[nodiscard]] std::string fSinGiros(std::string_view strTexto);

/// Number of characters (code points) of a UTF-8 text.
[[nodiscard]] int fContarCaracteres(std::string_view strUtf8);

/// A to Z for a to z; every other byte unchanged.
[[nodiscard]] constexpr char fMayuscula(char chr)
{
    return chr >= 'a' && chr <= 'z' ? static_cast<char>(chr - 'a' + 'A') : chr;
}
[[nodiscard]] std::string fMayusculasAscii(std::string_view strTexto);

/// Whether two texts are the same but for the case of A to Z.
[[nodiscard]] bool fIgualSinCaja(std::string_view strUno, std::string_view strOtro);

/// The text without blanks and tabs at both ends.
[[nodiscard]] std::string_view fSinBlancos(std::string_view strTexto);

/// The parts of a text between separators, empty ones, too; an empty text has none.
[[nodiscard]] std::vector<std::string> fPartir(std::string_view strTexto, char chrEntre);
