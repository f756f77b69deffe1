#include "dates/panel.h"

#include "shared/fecha.h"

std::string fTextoInfo1(int lngActual, int lngCantidad)
{
    return std::to_string(lngActual + 1) + " de " + std::to_string(lngCantidad);
}

std::string fTextoInfo2(std::string_view strRuta, std::string_view strFecha,
                        std::string_view strTamano)
{
    const auto fecha = fLeerFecha(strFecha);
    return std::string(strRuta) + "      Fecha: " +
           (fecha ? fEscribirFecha(*fecha, strFormaUsuario) : std::string(strFecha)) +
           "      Tamaño: " + std::string(strTamano);
}
