#include "catalogue/registro.h"

#include <algorithm>
#include <charconv>

void fAnadirRegistro(std::string &strCatalogo, std::string_view strCarpeta,
                     std::string_view strNombre, clsFecha fecha, std::int64_t lngBytes)
{
    const std::size_t lngInicio = strCatalogo.size();
    strCatalogo.append(strCarpeta).append(strNombre);
    // A line end inside a name would shift every later record. The file shows as missing instead.
    std::transform(strCatalogo.begin() + static_cast<std::ptrdiff_t>(lngInicio), strCatalogo.end(),
                   strCatalogo.begin() + static_cast<std::ptrdiff_t>(lngInicio),
                   [](char chr) { return chr == '\r' || chr == '\n' ? '?' : chr; });
    char chrCifras[24];
    const auto fin = std::to_chars(std::begin(chrCifras), std::end(chrCifras), lngBytes);
    strCatalogo.append("\r\n").append(fTextoCatalogo(fecha)).append("\r\n ");
    strCatalogo.append(chrCifras, fin.ptr).append(" \r\n");
}
