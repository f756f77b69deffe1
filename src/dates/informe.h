#pragma once

#include "dates/correccion.h"

#include <string>
#include <string_view>
#include <vector>

/// Texts that tell what became of a correction (UTF-8, line breaks CR LF). They list as many files
/// as a screen has room for.

/// Text of the box that names the files which have not got their date: because it could not be set,
/// because the file system has no such time, because the file is a link that leads out of the
/// archive. Empty when all have it.
[[nodiscard]] std::string fAvisoSinFecha(const std::vector<clsCorregido> &lstFicheros);

/// What the box says when the catalogue could not be written: why, and which files have their new
/// names all the same. Empty when it could.
[[nodiscard]] std::string fMotivoSinCatalogo(const clsFinCorreccion &fin,
                                             const std::vector<clsCorregido> &lstFicheros);

/// How many files have all they were to get, and which ones have not, with the reason:
/// "3.160 corregidos, 2 no:", then the files. Those that it did not come to are counted behind it.
/// @param strHecho what became of one, such as "corregido"; of several it has an "s" more.
[[nodiscard]] std::string fInforme(const std::vector<clsCorregido> &lstFicheros,
                                   std::string_view strHecho);
