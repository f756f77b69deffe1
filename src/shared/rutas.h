#pragma once

#include <string>
#include <string_view>

/// Paths are bytes, exactly as the disk gave them; "/" separates their parts.

/// The path with a final "/" (bolQuitar false), or without its final "/" (bolQuitar true).
/// Deliberate: taking the "/" away from a path that has none gives an empty text.
[[nodiscard]] std::string fBarraFinal(std::string_view strRuta, bool bolQuitar);

/// What follows the last "/": the file's name. The whole text when there is no "/".
[[nodiscard]] std::string_view fNombreDe(std::string_view strRuta);

/// What stands before the name, with its trailing "/"; empty when there is no "/".
[[nodiscard]] std::string_view fCarpetaDe(std::string_view strRuta);

/// What follows the last dot of the name; empty when the name has no dot.
[[nodiscard]] std::string_view fExtensionDe(std::string_view strRuta);

/// Whether a folder or the file of this path is hidden: "/X_" anywhere in it, in either case.
[[nodiscard]] bool fRutaOculta(std::string_view strRuta);

/// Whether a path certainly names something below strRaiz (with a trailing "/"), as far as names
/// can tell: it starts with it, no part behind it is "." or "..", and there is no byte 0.
[[nodiscard]] bool fBajoRaiz(std::string_view strRuta, std::string_view strRaiz);

/// The path as it is when it is absolute, else below strCarpeta. Nothing is resolved or tidied.
[[nodiscard]] std::string fRutaAbsoluta(std::string_view strRuta, std::string_view strCarpeta);
