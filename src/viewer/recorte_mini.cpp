#include "viewer/recorte_mini.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

std::optional<clsRecorte> fRecorteMini(clsLados mini, clsLados foto)
{
    if (std::min({mini.intAncho, mini.intAlto, foto.intAncho, foto.intAlto}) <= 0) {
        return {};
    }
    // Cross products: how far each side is from the one that the other side asks for.
    const std::int64_t lngPorAlto = std::int64_t{mini.intAncho} * foto.intAlto;
    const std::int64_t lngPorAncho = std::int64_t{mini.intAlto} * foto.intAncho;
    clsRecorte recorte{0, 0, mini.intAncho, mini.intAlto};
    if (std::abs(lngPorAlto - lngPorAncho) <= std::max(foto.intAncho, foto.intAlto)) {
        return recorte;
    }
    // What is too much of one side, halved and rounded up.
    const auto fFranja = [](std::int64_t lngSobra, std::int64_t lngLado) {
        return static_cast<int>((lngSobra + 2 * lngLado - 1) / (2 * lngLado));
    };
    if (lngPorAlto < lngPorAncho) {
        recorte.intY = fFranja(lngPorAncho - lngPorAlto, foto.intAncho);
        recorte.intAlto -= 2 * recorte.intY;
    } else {
        recorte.intX = fFranja(lngPorAlto - lngPorAncho, foto.intAlto);
        recorte.intAncho -= 2 * recorte.intX;
    }
    return std::min(recorte.intAncho, recorte.intAlto) > 0 ? std::optional(recorte) : std::nullopt;
}

bool fOscura(std::span<const std::uint32_t> lstPuntos)
{
    constexpr std::uint32_t lngOscuro = 0x40; // of red, green and blue
    constexpr std::size_t lngPocos = 16;      // one of so many may be brighter
    const auto lngClaros = std::ranges::count_if(lstPuntos, [](std::uint32_t lngPunto) {
        return (lngPunto >> 16 & 0xff) > lngOscuro || (lngPunto >> 8 & 0xff) > lngOscuro ||
               (lngPunto & 0xff) > lngOscuro;
    });
    return static_cast<std::size_t>(lngClaros) * lngPocos <= lstPuntos.size();
}

bool fBastanPixeles(clsLados mini, clsLados foto, int intLado)
{
    return std::max(mini.intAncho, mini.intAlto) >=
           std::min(std::max(foto.intAncho, foto.intAlto), intLado);
}
