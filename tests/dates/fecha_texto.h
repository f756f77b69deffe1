#pragma once

#include "dates/fecha_fuente.h"

#include <string>

/// A date with what is known of it: "14/07/2009 18:03:22.500000000 +120", a day without its noon,
/// "UTC" behind universal time.
inline std::string fTextoDeFuente(const clsFechaFuente &fuente)
{
    const bool bolDia = fuente.precision == Precision::Dia;
    const std::string strTodo = fEscribirFecha(fuente.fecha, strFormaUsuario);
    std::string strTexto = strTodo.substr(0, bolDia ? 10 : 16);
    strTexto += fuente.precision == Precision::Segundo ? strTodo.substr(16) : "";
    if (fuente.lngNanos != 0) {
        const std::string strNanos = std::to_string(fuente.lngNanos);
        strTexto += '.' + std::string(9 - strNanos.size(), '0') + strNanos;
    }
    if (fuente.zona == Zona::ConDesfase) {
        strTexto += (fuente.intZona < 0 ? " " : " +") + std::to_string(fuente.intZona);
    }
    return strTexto + (fuente.zona == Zona::Utc ? " UTC" : "");
}

inline std::string fTextoDeFuentes(const clsFuentes &lstFuentes)
{
    std::string strTexto;
    for (const clsFechaFuente &fuente : lstFuentes) {
        strTexto += (strTexto.empty() ? "" : ", ") + fTextoDeFuente(fuente);
    }
    return strTexto;
}
