#pragma once

#include "sistema/archivo.h"

#include <functional>
#include <string>

namespace hijo {

/// What a video says of its date: lines "key=value" with the keys of lstClavesVideo, each from
/// the file, else from the first of its streams that has it. Only its head is read.
/// @param fAnulado asked at every read of the file; true gives up.
[[nodiscard]] std::string fTomarFechas(const clsAbierto &video,
                                       const std::function<bool()> &fAnulado);

} // namespace hijo
