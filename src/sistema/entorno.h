#pragma once

#include <string>

/// The folder the program's file lies in, with a trailing "/".
[[nodiscard]] std::string fCarpetaPrograma();

/// The present working folder.
[[nodiscard]] std::string fCarpetaTrabajo();

/// Has the desktop open a file or a folder with its default program (xdg-open), detached, with the
/// program's folder as working folder. The path reaches it byte by byte as its only argument.
/// Nothing is reported when that fails.
void fAbrirConSistema(const std::string &strRuta);
