#pragma once

#include "sistema/archivo.h"
#include "viewer/almacen.h"
#include "viewer/cache_fotos.h"
#include "viewer/extraccion.h"

#include <memory>
#include <optional>
#include <string>

/// A thumbnail as it is kept: true as long as the file has that time and size.
struct clsMiniGuardada {
    clsHuella huella;
    int intLado = 0; ///< side of the box it was made for, in device pixels
    clsMiniatura miniatura;
    [[nodiscard]] std::int64_t fBytes() const { return miniatura.imagen.sizeInBytes(); }
};
using clsAlmacenMini = clsAlmacen<clsMiniGuardada>;

/// Where thumbnails come from besides the files themselves.
struct clsFuentesMini {
    clsFotograma fFotograma{};              ///< frames of videos; empty: none are made
    std::shared_ptr<clsCacheFotos> fotos{}; ///< null: photos are decoded every time
};

/// What a thumbnail is kept under: its file, and the side of its box in device pixels.
[[nodiscard]] std::string fClaveMini(const std::string &strRuta, int intLado);

/// The work that makes a thumbnail: first what costs little, whether the file is there, what is
/// kept still true, what there is at once, sharp or not; then what takes long: decoding a photo,
/// having a frame of a video made. What lacks a picture altogether comes a turn before what is not
/// sharp.
/// @param guardada what is kept of it, for this box or another one.
[[nodiscard]] clsAlmacenMini::clsPieza fPiezaMini(const std::string &strRuta, int intLado,
                                                  std::optional<clsMiniGuardada> guardada,
                                                  const clsFuentesMini &fuentes);

/// The same without what would only make it sharper.
[[nodiscard]] clsAlmacenMini::clsPieza fSinAfinar(clsAlmacenMini::clsPieza fPieza);
