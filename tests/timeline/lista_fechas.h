#pragma once

#include "catalogue/filas.h"

#include <string>
#include <vector>

/// A list with a file of each of these dates, "yyyy/MM/dd HH:mm:ss" or shorter: what is missing is
/// midnight.
inline clsFilas fListaFechas(const std::vector<std::string> &lstFechas)
{
    const std::string strHora = " 00:00:00";
    clsFilas filas;
    for (const std::string &strFecha : lstFechas) {
        filas.fAgregarFila("/a/" + std::to_string(filas.fCantidad()) + ".jpg",
                           strFecha.size() == 10 ? strFecha + strHora : strFecha, 1);
    }
    return filas;
}
