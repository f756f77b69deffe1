#include "viewer/mensaje_hijo.h"

#include <algorithm>
#include <cmath>

namespace {

bool fEntre(std::uint32_t lngNumero, std::uint32_t lngMinimo, std::uint32_t lngMaximo)
{
    return lngNumero >= lngMinimo && lngNumero <= lngMaximo;
}

} // namespace

bool fCreible(const clsPeticionHijo &peticion)
{
    const clsMarcoHijo &marco = peticion.marco;
    return peticion.lngMarca == clsPeticionHijo::lngMarcaBuena && peticion.lngBytes >= 0 &&
           fEntre(marco.lngAncho, 1, lngLadoMaximo) && fEntre(marco.lngAlto, 1, lngLadoMaximo) &&
           fEntre(marco.lngPixeles, 1, lngPixelesMaximos) && marco.lngZoom <= 100;
}

bool fCreible(const clsRespuestaHijo &respuesta, const clsMarcoHijo &marco)
{
    if (respuesta.lngMarca != clsRespuestaHijo::lngMarcaBuena) {
        return false;
    }
    if (respuesta.estado != EstadoHijo::Imagen) {
        return respuesta.estado == EstadoHijo::SinImagen && respuesta.lngAncho == 0 &&
               respuesta.lngAlto == 0;
    }
    const bool bolCaja = marco.lngZoom == 0;
    const std::uint64_t lngPixeles = std::uint64_t{respuesta.lngAncho} * respuesta.lngAlto;
    const auto fNatural = [](std::uint32_t lngNatural, std::uint32_t lngLado) {
        return lngNatural == 0 || fEntre(lngNatural, lngLado, INT32_MAX);
    };
    return fEntre(respuesta.lngAncho, 1, bolCaja ? marco.lngAncho : lngLadoMaximo) &&
           fEntre(respuesta.lngAlto, 1, bolCaja ? marco.lngAlto : lngLadoMaximo) &&
           lngPixeles <= marco.lngPixeles &&
           fNatural(respuesta.lngAnchoNatural, respuesta.lngAncho) &&
           fNatural(respuesta.lngAltoNatural, respuesta.lngAlto);
}

clsMedidaHijo fMedidaHijo(clsMedidaHijo natural, const clsMarcoHijo &marco)
{
    const double dblAncho = natural.lngAncho;
    const double dblAlto = natural.lngAlto;
    if (natural.lngAncho == 0 || natural.lngAlto == 0) {
        return {};
    }
    double dblEscala = marco.lngZoom > 0
                           ? marco.lngZoom / 100.0
                           : std::min(marco.lngAncho / dblAncho, marco.lngAlto / dblAlto);
    dblEscala = std::min({dblEscala, 1.0, lngLadoMaximo / std::max(dblAncho, dblAlto)});
    const double dblCabe = std::sqrt(marco.lngPixeles / (dblAncho * dblAlto));
    if (dblCabe < dblEscala && marco.lngEntera != 0) {
        return {};
    }
    // The side that is far longer than the other may still be too long by then.
    const auto fLado = [&](double dblLado, std::uint32_t lngMaximo) {
        const double dblReducido = dblLado * std::min(dblEscala, dblCabe);
        const auto lngReducido = static_cast<std::uint32_t>(
            dblCabe < dblEscala ? std::floor(dblReducido) : std::round(dblReducido));
        return std::clamp<std::uint32_t>(lngReducido, 1, std::min(lngMaximo, marco.lngPixeles));
    };
    const bool bolCaja = marco.lngZoom == 0;
    return {fLado(dblAncho, bolCaja ? marco.lngAncho : lngLadoMaximo),
            fLado(dblAlto, bolCaja ? marco.lngAlto : lngLadoMaximo)};
}
