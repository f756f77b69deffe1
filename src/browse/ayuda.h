#pragma once

#include "sistema/resultado.h"

#include <string>

/// The file of the help page.
/// @param strRaiz root folder with a trailing "/".
[[nodiscard]] std::string fRutaAyuda(const std::string &strRaiz);

/// The help page: HTML in UTF-8, lines that end with CR LF.
[[nodiscard]] std::string fTextoAyuda();

/// Writes the help page into the root folder in place of the one that is there, which an error
/// leaves untouched. Only for roots that can be written.
[[nodiscard]] clsError fEscribirAyuda(const std::string &strRaiz);
