#pragma once

#include <string>

/// The texts of tags 0132 and 9003 of a JPEG file, as they stand there; empty without.
struct clsFechasDesnudas {
    std::string strFecha;
    std::string strTomada;
};

/// Opens the file, reads 4 KB, walks IFD0 and the Exif IFD, and does nothing else.
[[nodiscard]] clsFechasDesnudas fFechasDesnudas(const char *strRuta);
