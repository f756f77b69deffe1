#pragma once

#include "dates/fecha_fuente.h"

/// The date in what a video says of itself, lines "key=value" as libav names the keys: the maker's
/// local date with its zone where there is one, else that of the recording (universal time in MP4,
/// MOV and 3GP, local in AVI), else the other dates that programs write. Any bytes are taken; a
/// moment 0 is no date.
[[nodiscard]] std::optional<clsFechaFuente> fFechaDeVideo(std::string_view strDatos);

/// The keys that count, the best first. Case does not matter.
inline constexpr std::string_view lstClavesVideo[] = {"com.apple.quicktime.creationdate",
                                                      "creation_time",
                                                      "date",
                                                      "creationdate",
                                                      "WM/EncodingTime",
                                                      "metadatadate"};
