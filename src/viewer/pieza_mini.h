#pragma once

#include "sistema/archivo.h"
#include "viewer/almacen.h"
#include "viewer/extraccion.h"

#include <optional>
#include <string>

/// A thumbnail as it is kept: true as long as the file has that time and size.
struct clsMiniGuardada {
    clsHuella huella;
    clsMiniatura miniatura;
    [[nodiscard]] std::int64_t fBytes() const { return miniatura.imagen.sizeInBytes(); }
};
using clsAlmacenMini = clsAlmacen<clsMiniGuardada>;

/// What a thumbnail is kept under: its file, and the side of its box in device pixels.
[[nodiscard]] std::string fClaveMini(const std::string &strRuta, int intLado);

/// The work that makes a thumbnail: first what costs little, whether the file is there and what is
/// kept still true; a video whose file was reached is "Pendiente" until it has had its turn.
/// @param guardada   what is kept of it.
/// @param fFotograma makes the frames of videos; an empty one makes none.
[[nodiscard]] clsAlmacenMini::clsPieza fPiezaMini(const std::string &strRuta, int intLado,
                                                  std::optional<clsMiniGuardada> guardada,
                                                  const clsFotograma &fFotograma);
