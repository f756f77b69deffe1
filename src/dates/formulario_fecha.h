#pragma once

#include "dates/clsFile.h"

#include <array>
#include <string>
#include <string_view>
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

/// A typed date (strFormaUsuario) with what may be left out: a text of 10 characters gets
/// " 12:00:00", one of 16 ":00", any other stays as it is. UTF-8 in and out; nothing is validated.
[[nodiscard]] std::string fNormalizarTecleada(std::string_view strTexto);

/// The warning for a typed text that is no date (UTF-8, line breaks CR LF).
[[nodiscard]] std::string fAvisoFechaNoValida(std::string_view strTexto);

/// The warning for a file that cannot be corrected (UTF-8, line break CR LF).
/// @param strRuta its path as it is shown.
[[nodiscard]] std::string fAvisoFichero(std::string_view strRuta);
