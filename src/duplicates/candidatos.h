#pragma once

#include "catalogue/filas.h"

#include <string>
#include <vector>

/// Which rows may have the same content as another one.
struct clsCandidatos {
    std::vector<std::string> lstRutas;
    int intFuera = 0; ///< rows left out, since they do not lie below the root
};

/// The rows whose size other rows have, too. The list says how large files were when its catalogue
/// was made; the disk is not asked.
[[nodiscard]] clsCandidatos fCandidatos(const clsFilas &filas);
