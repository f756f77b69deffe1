#pragma once

#include "dates/clsFile.h"

#include <array>
#include <string>
#include <vector>

/// What the background of the current date says: green, right; red, wrong; yellow, several files.
struct clsColor {
    int intRojo = 0;
    int intVerde = 0;
    int intAzul = 0;
    friend bool operator==(const clsColor &, const clsColor &) = default;
};

/// What the date correction shows when it opens.
struct clsFormularioFecha {
    std::string strActual;                ///< the file's date, or how many files there are
    clsColor fondo;                       ///< behind it
    const char *strJuicio = "";           ///< what the ground says, in words
    std::array<std::string, 3> lstFechas; ///< EXIF, name as year first, name as day first; empty:
                                          ///< there is none
};

/// With several files the last one that has a date of a kind gives it.
[[nodiscard]] clsFormularioFecha fFormularioFecha(const std::vector<clsFile> &lstFicheros);

/// Whether the correction opens: always when asked for so, else only when no file is right.
[[nodiscard]] bool fSeCorrige(const std::vector<clsFile> &lstFicheros, bool bolSiempre);
