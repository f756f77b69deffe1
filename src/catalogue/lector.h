#pragma once

#include "catalogue/filas.h"
#include "catalogue/mudanza.h"
#include "catalogue/registro.h"
#include "sistema/resultado.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Why reading a catalogue stopped.
struct clsFallo {
    std::int64_t lngLinea = 0; ///< from 1
    std::string strTexto;      ///< what stands where a size was expected
};

/// What reading a catalogue gave besides the rows.
struct clsLectura {
    std::int64_t lngTotalKB = 0;   ///< size of all rows, whole kilobytes, rest dropped
    int lngContados = 0;           ///< records that were only counted
    std::optional<clsFallo> fallo; ///< empty: everything was read
};

/// Adds a row for every record of the catalogue whose path has one of the extensions (see medios.h)
/// and is not hidden. The format is described in registro.h.
///
/// Nothing is validated: records are told apart by counting lines, a final incomplete one is
/// ignored, a line too few shifts all that follows. Only a size that is no number stops the
/// reading; the rows before it stay, as they do when the bytes end in an error.
/// @param strContadas further extensions: their records give no rows and are counted.
[[nodiscard]] clsLectura fLeerCatalogo(clsRegistros &registros, std::string_view strExtensiones,
                                       clsFilas &filas, const clsMudanza &mudanza = {},
                                       std::string_view strContadas = {});

/// The same from the catalogue's file; ENOENT when it is a link.
/// @param mudanza what the rows' paths are taken over by.
/// @return an error when the file cannot be read to its end or is damaged (EBADMSG, see
///         clsRegistros); the rows before it stay.
[[nodiscard]] clsResultado<clsLectura>
fLeerFicheroCatalogo(const std::string &strRuta, std::string_view strExtensiones, clsFilas &filas,
                     const clsMudanza &mudanza = {}, std::string_view strContadas = {});
