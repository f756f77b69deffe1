#include "dates/fecha_tecleada.h"

#include "shared/texto.h"

std::string fNormalizarTecleada(std::string_view strTexto)
{
    std::string strCompleto(strTexto);
    const int intCaracteres = fContarCaracteres(strTexto);
    if (intCaracteres == 10) {
        strCompleto += " 12:00:00";
    } else if (intCaracteres == 16) {
        strCompleto += ":00";
    }
    return strCompleto;
}

std::string fAvisoFechaNoValida(std::string_view strTexto)
{
    std::string strAviso(1, '\'');
    strAviso.append(strTexto);
    return strAviso +
           "' no es una fecha válida.\r\n\r\nFormato permitidos:\r\n- 'dd/mm/yyyy hh:mm:ss'\r\n"
           "- 'dd/mm/yyyy hh:mm'\r\n- 'dd/mm/yyyy'";
}

std::string fAvisoFichero(std::string_view strRuta)
{
    return "Hay algún problema con el fichero: \r\n" + std::string(strRuta);
}

std::string fTextoFicheros(int lngFicheros)
{
    return '(' + std::to_string(lngFicheros) + " FICHEROS)";
}
