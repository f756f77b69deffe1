#include "viewer/mensaje_hijo.h"

bool fCreible(const clsRespuestaHijo &respuesta, std::uint32_t lngLado)
{
    const auto fVale = [&](std::uint32_t lngMedida) {
        return respuesta.estado == EstadoHijo::Imagen ? lngMedida >= 1 && lngMedida <= lngLado
                                                      : lngMedida == 0;
    };
    return respuesta.lngMarca == clsRespuestaHijo::lngMarcaBuena &&
           respuesta.estado <= EstadoHijo::SinImagen && fVale(respuesta.lngAncho) &&
           fVale(respuesta.lngAlto);
}
