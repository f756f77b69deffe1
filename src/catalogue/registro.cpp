#include "catalogue/registro.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace {

void fDosCifras(char *chr, int intValor)
{
    chr[0] = static_cast<char>('0' + intValor / 10);
    chr[1] = static_cast<char>('0' + intValor % 10);
}

} // namespace

void fAnadirRegistro(std::string &strCatalogo, std::string_view strCarpeta,
                     std::string_view strNombre, clsFecha fecha, std::int64_t lngBytes)
{
    const std::size_t lngInicio = strCatalogo.size();
    strCatalogo.append(strCarpeta).append(strNombre);
    // A line end inside a name would shift every later record. The file shows as missing instead.
    char *const chrRuta = strCatalogo.data() + lngInicio;
    std::transform(chrRuta, strCatalogo.data() + strCatalogo.size(), chrRuta,
                   [](char chr) { return chr == '\r' || chr == '\n' ? '?' : chr; });
    // Date and size in place: a hundred thousand files are written here while their disk waits.
    char chrResto[] = "\r\nyyyy/MM/dd HH:mm:ss\r\n -9223372036854775808 \r\n";
    const clsPartesFecha partes = fPartes(fecha);
    fDosCifras(chrResto + 2, partes.intAno / 100);
    fDosCifras(chrResto + 4, partes.intAno % 100);
    fDosCifras(chrResto + 7, partes.intMes);
    fDosCifras(chrResto + 10, partes.intDia);
    fDosCifras(chrResto + 13, partes.intHora);
    fDosCifras(chrResto + 16, partes.intMinuto);
    fDosCifras(chrResto + 19, partes.intSegundo);
    char *const chrTamano = chrResto + 24;
    char *const chrFin = std::to_chars(chrTamano, std::end(chrResto), lngBytes).ptr;
    strCatalogo.append(chrResto, chrFin).append(" \r\n");
}
