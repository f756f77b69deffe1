#include "viewer/hijo_imagen/decodificada.h"

namespace hijo {

QSize fMedida(QSize natural, const clsMarcoHijo &marco)
{
    if (natural.isEmpty()) {
        return {};
    }
    const clsMedidaHijo medida = fMedidaHijo(
        {static_cast<std::uint32_t>(natural.width()), static_cast<std::uint32_t>(natural.height())},
        marco);
    return {static_cast<int>(medida.lngAncho), static_cast<int>(medida.lngAlto)};
}

} // namespace hijo
