#pragma once

#include "sistema/entorno.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The signs of the user's locale (LC_NUMERIC of the environment) as UTF-8 texts. A locale without
/// a group sign, such as C, gives the Spanish ones.
[[nodiscard]] clsSignos fSignosLocales();

/// A whole number with its digits in groups of three.
[[nodiscard]] std::string fConGrupos(std::int64_t lngValor, const clsSignos &signos);

/// Bytes as whole kilobytes, halves away from zero; less than one byte counts as one byte.
[[nodiscard]] std::int64_t fKilobytes(std::int64_t lngBytes);

/// Text of the size column: kilobytes with grouped digits, right-aligned with blanks to 11
/// characters (a longer number is not cut), then " KB".
[[nodiscard]] std::string fTextoKB(std::int64_t lngBytes, const clsSignos &signos);

/// Reads a size in bytes: a decimal number with blanks around it and nothing else; decimals are
/// accepted and dropped. Nothing when the text is no number or too large for 64 bits.
[[nodiscard]] std::optional<std::int64_t> fLeerTamano(std::string_view strTexto);

/// Reads a whole decimal number, blanks around it allowed. Nothing when it is none or does not fit.
[[nodiscard]] std::optional<int> fLeerEntero(std::string_view strTexto);
