#include "dates/fecha_nombre.h"

#include <array>

clsFechasNombre fFechasDeNombre(std::string_view strNombre)
{
    std::array<int, 8> lstCifras{};
    std::size_t lngCifras = 0;
    for (const char chr : strNombre) {
        if (chr >= '0' && chr <= '9' && lngCifras < lstCifras.size()) {
            lstCifras[lngCifras++] = chr - '0';
        }
    }
    if (lngCifras < lstCifras.size()) {
        return {};
    }
    const auto fDos = [&](std::size_t lng) { return lstCifras[lng] * 10 + lstCifras[lng + 1]; };
    const auto fFecha = [](int intAno, int intMes, int intDia) {
        return fFechaDe({intAno, intMes, intDia}).value_or(clsFecha{});
    };
    return {fFecha(fDos(0) * 100 + fDos(2), fDos(4), fDos(6)),
            fFecha(fDos(4) * 100 + fDos(6), fDos(2), fDos(0))};
}
