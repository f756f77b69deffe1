#pragma once

#include "viewer/almacen.h"
#include "viewer/cache_fotos.h"
#include "viewer/fuente.h"

#include <memory>
#include <string>

/// What a glance at a photo is kept under: never what the decoded picture is.
[[nodiscard]] std::string fClaveVistazo(const std::string &strRuta, const clsHuella &huella);

/// The work that makes a picture to be seen while a photo is only passed by, with the size that it
/// has by right: the EXIF thumbnail, else what is kept on the disk; else, and that takes longer, an
/// eighth of it decoded, where that is worth it. Null when there is nothing of this.
/// @param fotos null: nothing is kept.
[[nodiscard]] clsAlmacen<clsFoto>::clsPieza
fPiezaVistazo(const std::string &strRuta, const clsHuella &huella,
              const std::shared_ptr<const clsCacheFotos> &fotos);
