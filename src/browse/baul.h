#pragma once

#include "browse/copia.h"
#include "sistema/entorno.h"

#include <string>
#include <string_view>

/// The Baúl: a folder of the user's own among the temporary files, to which copies are sent.

/// Where the Baúl is.
struct clsLugarBaul {
    std::string strCarpeta; ///< with a trailing "/"; the one that was tried last on an error
    clsError error;         ///< why there is no Baúl, if so
};

/// Finds the Baúl, and makes it when it is missing: "Miravel" among the temporary files, or
/// "Miravel-" and the user's number when the first is a link, no folder or another user's.
[[nodiscard]] clsLugarBaul fAsegurarBaul(const std::string &strTemporal = fRutaTemporal());

/// How many files and links lie directly in the Baúl; 0 when it cannot be read.
[[nodiscard]] int fContarBaul(const std::string &strCarpeta);

/// Deletes the files and links directly in the Baúl. Errors are ignored; counting shows what is
/// left. Nothing happens when the archive's root is the Baúl, lies in it, or cannot be found.
void fVaciarBaul(const std::string &strCarpeta, const std::string &strRaiz);

/// The name of a file's copy in the Baúl: "yyyy.mm.dd.", of the modification date that the disk
/// tells (local time), and the file's name. The date is left out when there is no such file.
[[nodiscard]] std::string fNombreEnBaul(const std::string &strRuta);

/// The copy's path for copies into the Baúl.
[[nodiscard]] clsDestino fDestinoEnBaul(const std::string &strCarpeta);
