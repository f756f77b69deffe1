#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

// Pictures that are passed by: a key is held, or pressed again before one could have looked.

/// So long a key rests before what it led to is shown sharply. Held keys repeat faster.
inline constexpr std::chrono::milliseconds reposoUsual{80};

/// So long a step waits for what there is at once of a picture that is passed by.
inline constexpr std::chrono::milliseconds plazoDePaso{10};

/// Whether a step only passes by on the way to another picture: it comes before the key could rest,
/// or not much later, and nobody has seen the last picture sharp.
/// @param desde     since the last step was done; nothing: there was none.
/// @param bolNitida whether all pixels of what that led to are shown by now.
[[nodiscard]] bool fDePaso(std::optional<std::chrono::milliseconds> desde, bool bolNitida,
                           std::chrono::milliseconds reposo = reposoUsual);

/// Whether the photo in a file of so many bytes is decoded as it is to be seen although it is only
/// passed by: that takes hardly longer than looking for something in its place.
[[nodiscard]] bool fEnteraDePaso(std::int64_t lngBytes);

/// Whether a JPEG photo that is passed by, and has nothing in its place, is worth decoding in an
/// eighth of its size: held keys repeat some thirty times a second.
/// @param lngBytes   length of its file.
/// @param intPasadas scans of the picture.
[[nodiscard]] bool fOctavoDePaso(std::int64_t lngBytes, int intPasadas);
