#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Four hexadecimal digits in capitals.
[[nodiscard]] std::string fCodigoExif(std::uint32_t lngCodigo);

/// The name of a tag; its code when the table has none.
[[nodiscard]] std::string fNombreExif(std::uint32_t lngCodigo);

/// The words for a number in the row of that name. Rows whose name has no words give nothing;
/// numbers without words, and a value that is no number, give "Undefined".
[[nodiscard]] std::optional<std::string_view>
fTextoNumeroExif(std::string_view strNombre, std::optional<std::uint32_t> lngNumero);
