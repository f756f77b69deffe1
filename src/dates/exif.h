#pragma once

#include "shared/fecha.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

class clsOrigen;

/// A value made readable: empty, a date-time or a text.
using clsConvertido = std::variant<std::monostate, clsFecha, std::string>;

/// One entry of an IFD. Texts are bytes as the file has them; fTextoExif makes UTF-8 of them.
struct clsFilaExif {
    std::string strCodigo; ///< four hexadecimal digits in capitals, most significant first
    std::string strNombre; ///< from the table of names; the code when it has none
    int intTipo = 0;
    std::uint32_t lngCuenta = 0;
    std::string strValor; ///< numbers separated by blanks; texts without their trailing zero bytes
    clsConvertido convertido;
    std::optional<std::uint32_t>
        lngDesplazamiento; ///< where a value lies that the entry cannot hold
    int intPosicion = 0;   ///< of the entry inside the IFD's bytes
};

/// All entries in the order of the walk: IFD0, the Exif IFD, IFD1 and further.
struct clsTablaExif {
    std::vector<clsFilaExif> lstFilas;
};

/// Where things lie in the file; -1 what was not found.
struct clsMarcas {
    std::int64_t lngInicioTiff = -1;
    std::int64_t lngIfd0 = -1; ///< from the start of the TIFF data
    std::int64_t lngApp0 = -1;
    std::int64_t lngApp1 = -1;
    int intLongitudApp0 = -1;
    int intLongitudApp1 = -1;

    friend bool operator==(const clsMarcas &, const clsMarcas &) = default;
};

/// Reads the EXIF entries of a JPEG file or the tags of a TIFF file. Any bytes are taken; entries
/// that are not whole are left out, and at most 65,536 are kept.
/// @return empty, or an English message that says why there is no table.
std::string ReadExifTable(const std::string &strRuta, clsTablaExif &tabla, clsMarcas &marcas);

/// The same from bytes that come from anywhere.
std::string ReadExifTable(clsOrigen &origen, clsTablaExif &tabla, clsMarcas &marcas);

/// Reads the table; whether it has at least one row.
bool HasExifData(const std::string &strRuta, clsTablaExif &tabla);

/// The value of the first row of that code, converted (empty when it has none) or as its text.
/// Nothing when there is no such row.
[[nodiscard]] std::optional<clsConvertido>
GetExifValue(const clsTablaExif &tabla, std::string_view strCodigo, bool bolConvertido);

/// The whole table for the screen, a line "name: value" each, ended by CR LF, as UTF-8.
/// "(No se ha encontrado información)" when there is no table or no row.
[[nodiscard]] std::string GetExifText(const std::string &strRuta);

/// The same for a table that has been read.
[[nodiscard]] std::string fTextoTabla(const clsTablaExif &tabla);

/// A text of the file for the screen, as UTF-8: bytes 80 to 9F as Windows-1252, the others by their
/// value, control characters as blanks; without blanks at both ends.
[[nodiscard]] std::string fTextoExif(std::string_view strBytes);
