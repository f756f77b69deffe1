#pragma once

#include "shared/pagina.h"

#include <algorithm>
#include <optional>

/// Where fMover goes; the numbers are those of the commands.
enum class Movimiento { Primero = 1, Anterior = 2, Siguiente = 3, Ultimo = 4 };

/// The position a movement by pages (of one file: file by file) leads to; nothing when it changes
/// nothing. Back and on lead to the first file of a page.
/// @param lngActual position of the current file, from 0.
/// @param lngUltimo position of the last file, -1 for an empty list.
/// @param intCeldas files on a page.
[[nodiscard]] constexpr std::optional<int> fDestino(Movimiento movimiento, int lngActual,
                                                    int lngUltimo, int intCeldas = 1)
{
    if (lngUltimo < 0) {
        return {};
    }
    const int lngInicio = fInicioPagina(lngActual, intCeldas);
    const int intPaso = std::max(intCeldas, 1);
    switch (movimiento) {
    case Movimiento::Primero:
        return lngActual > 0 ? std::optional(0) : std::nullopt;
    case Movimiento::Anterior:
        return lngInicio > 0 ? std::optional(lngInicio - intPaso) : std::nullopt;
    case Movimiento::Siguiente:
        return lngUltimo - lngInicio >= intPaso ? std::optional(lngInicio + intPaso) : std::nullopt;
    case Movimiento::Ultimo:
        return lngActual < lngUltimo ? std::optional(lngUltimo) : std::nullopt;
    }
    return {};
}

/// Positions that follow each other: lngDesde and those after it, without lngHasta.
struct clsTramo {
    int lngDesde = 0;
    int lngHasta = 0;
    friend bool operator==(const clsTramo &, const clsTramo &) = default;
};

/// The positions the viewing panel shows: the page that holds the current file.
/// @param lngCantidad files in the list; none give no position.
[[nodiscard]] constexpr clsTramo fTramoPagina(int lngActual, int lngCantidad, int intCeldas = 1)
{
    const int lngInicio = fInicioPagina(lngActual, intCeldas);
    return {lngInicio, lngInicio + std::clamp(lngCantidad - lngInicio, 0, std::max(intCeldas, 1))};
}
