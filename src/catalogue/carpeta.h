#pragma once

#include "sistema/carpeta.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// What examining entries gave.
struct clsExamen {
    std::string strLineas;                ///< catalogue lines of the files
    std::vector<std::string> lstCarpetas; ///< names of subfolders, known or found out
    clsError error;                       ///< what ended the examination, if something did
};

/// Asks the file system for date and size of some entries of an open folder.
/// @param strCarpeta the folder's full path with a trailing "/", as the records hold it.
/// @param fOmitir    names that are not recorded; may be empty.
[[nodiscard]] clsExamen fExaminar(const clsDescriptor &carpeta, const std::string &strCarpeta,
                                  const clsEntradaCarpeta *primera, const clsEntradaCarpeta *fin,
                                  const std::function<bool(std::string_view)> &fOmitir);
