#include "viewer/mensaje_hijo.h"

#include <cstring>

std::string fBytesPeticion(std::uint32_t lngNumero, std::uint32_t lngLado, std::string_view strRuta)
{
    clsPeticionHijo peticion;
    peticion.lngNumero = lngNumero;
    peticion.lngLado = lngLado;
    peticion.lngLargo = static_cast<std::uint32_t>(strRuta.size());
    std::string strBytes(sizeof peticion, '\0');
    std::memcpy(strBytes.data(), &peticion, sizeof peticion);
    return strBytes.append(strRuta);
}

bool fCreible(const clsRespuestaHijo &respuesta, std::uint32_t lngLado)
{
    const auto fVale = [&](std::uint32_t lngMedida) {
        return respuesta.estado == EstadoHijo::Imagen ? lngMedida >= 1 && lngMedida <= lngLado
                                                      : lngMedida == 0;
    };
    return respuesta.lngMarca == clsRespuestaHijo::lngMarcaBuena &&
           respuesta.estado <= EstadoHijo::NoSeLee && fVale(respuesta.lngAncho) &&
           fVale(respuesta.lngAlto);
}
