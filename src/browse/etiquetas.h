#pragma once

#include "browse/estado.h"

#include <array>
#include <string>

/// What the panels do not show by themselves, in few words (UTF-8): that a filter is on, how many
/// files are ticked, the zoom, that pictures are still to come, what a copy has just done, how many
/// files of other formats there are besides. Each has its place; empty: it does not apply.
using clsEtiquetas = std::array<std::string, 6>;

[[nodiscard]] clsEtiquetas fEtiquetas(const clsEstado &estado);
