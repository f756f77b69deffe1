#include "dates/fecha_nombre.h"

#include <algorithm>
#include <iterator>
#include <string>

clsFechasNombre fFechasDeNombre(std::string_view strNombre)
{
    std::string strCifras;
    std::copy_if(strNombre.begin(), strNombre.end(), std::back_inserter(strCifras),
                 [](char chr) { return chr >= '0' && chr <= '9'; });
    const std::string_view strOcho = std::string_view(strCifras).substr(0, 8);
    return {fLeerFecha(strOcho, "yyyyMMdd").value_or(clsFecha{}),
            fLeerFecha(strOcho, "ddMMyyyy").value_or(clsFecha{})};
}
