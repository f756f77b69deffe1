#pragma once

#include <string>
#include <string_view>

/// A typed date (strFormaUsuario) with what may be left out: a text of 10 characters gets "
/// 12:00:00", one of 16
/// ":00", any other stays as it is. UTF-8 in and out; nothing is validated.
[[nodiscard]] std::string fNormalizarTecleada(std::string_view strTexto);

/// The warning for a typed text that is no date (UTF-8, line breaks CR LF).
[[nodiscard]] std::string fAvisoFechaNoValida(std::string_view strTexto);

/// The warning for a file that cannot be corrected (UTF-8, line break CR LF).
/// @param strRuta its path as it is shown.
[[nodiscard]] std::string fAvisoFichero(std::string_view strRuta);

/// What the date of several files shows instead of one: "(12 FICHEROS)".
[[nodiscard]] std::string fTextoFicheros(int lngFicheros);
