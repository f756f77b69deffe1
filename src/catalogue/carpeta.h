#pragma once

#include "sistema/archivo.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// One entry of a folder as the walk sees it.
enum class Entrada { Archivo, Carpeta, Desconocida };

struct clsEntrada {
    std::string strNombre;
    Entrada entrada = Entrada::Archivo;
};

/// Opens the folder strRelativa ("" or "a/b/") below an open one, however long the path is. It
/// is not opened when it is a link.
[[nodiscard]] clsDescriptor fAbrirCarpeta(int intFdRaiz, std::string_view strRelativa,
                                          int &intError);

/// The entries of an open folder in the order of the file system, "." and ".." left out.
/// @return 0, or the error number that ended the listing; what was listed before it stays.
[[nodiscard]] int fListarCarpeta(int intFdCarpeta, std::vector<clsEntrada> &lstEntradas);

/// What examining entries gave.
struct clsExamen {
    std::string strLineas;                ///< catalogue lines of the files
    std::vector<std::string> lstCarpetas; ///< names of subfolders, known or found out
    int intError = 0;                     ///< error number that ended the examination
};

/// Asks the file system for date and size of some entries of an open folder.
/// @param strCarpeta the folder's full path with a trailing "/", as the records hold it.
/// @param fOmitir    names that are not recorded; may be empty.
[[nodiscard]] clsExamen fExaminar(int intFdCarpeta, const std::string &strCarpeta,
                                  const clsEntrada *primera, const clsEntrada *fin,
                                  const std::function<bool(std::string_view)> &fOmitir);
