#pragma once

#include "dates/ifd.h"

/// The most that is kept of one value.
inline constexpr std::size_t lngMaximoValor = std::size_t{1} << 20;

/// How many of a value's numbers are kept that have no byte in the file.
inline constexpr std::uint32_t lngMaximoAusentes = 64;

/// A value as text: numbers in decimal, separated by blanks, rationals as 72/1; texts and undefined
/// bytes byte by byte, without the zero bytes at their end. Types that are not known give nothing;
/// neither do the floating types 11 and 12.
///
/// Numbers whose bytes the file does not have are 0, some of them; texts are as long as the bytes
/// there are.
/// @param lngMaximo the most bytes of text; what would be longer is cut.
[[nodiscard]] std::string fTextoValor(const clsDatosTiff &tiff, const clsEntradaIfd &entrada,
                                      std::size_t lngMaximo = lngMaximoValor);

/// The value's bytes as a text, whatever its type.
[[nodiscard]] std::string fTextoBytes(const clsDatosTiff &tiff, const clsEntradaIfd &entrada,
                                      std::size_t lngMaximo = lngMaximoValor);

/// The first number of the value (of a rational its numerator); nothing when it is no number.
[[nodiscard]] std::optional<std::uint32_t> fPrimerNumero(const clsDatosTiff &tiff,
                                                         const clsEntradaIfd &entrada);

/// Where the value lies, when it is longer than the 4 bytes of its entry.
[[nodiscard]] std::optional<std::uint32_t> fDesplazamiento(const clsDatosTiff &tiff,
                                                           const clsEntradaIfd &entrada);
