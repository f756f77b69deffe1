#pragma once

#include <optional>

/// Where fMover goes; the numbers are those of the commands.
enum class Movimiento { Primero = 1, Anterior = 2, Siguiente = 3, Ultimo = 4 };

/// The position a movement file by file leads to; nothing when it changes nothing.
/// @param lngActual position of the current file, from 0.
/// @param lngUltimo position of the last file, -1 for an empty list.
[[nodiscard]] constexpr std::optional<int> fDestino(Movimiento movimiento, int lngActual,
                                                    int lngUltimo)
{
    if (lngUltimo < 0) {
        return {};
    }
    const bool bolAtras = movimiento == Movimiento::Primero || movimiento == Movimiento::Anterior;
    if (lngActual == (bolAtras ? 0 : lngUltimo)) {
        return {};
    }
    switch (movimiento) {
    case Movimiento::Primero:
        return 0;
    case Movimiento::Anterior:
        return lngActual - 1;
    case Movimiento::Siguiente:
        return lngActual + 1;
    case Movimiento::Ultimo:
        return lngUltimo;
    }
    return {};
}
