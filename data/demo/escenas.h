// The scenes. Each one fills the whole canvas, in whatever proportions; what varies (colours,
// places, numbers) comes from the canvas's own generator.
#pragma once

#include "trazos.h"

#include <string_view>

namespace demo {

/// @param strEscena "Playa", "Nieve", ...: a name in the table of scenes; otherwise it throws.
void fPintarEscena(clsLienzo &l, std::string_view strEscena);

} // namespace demo
