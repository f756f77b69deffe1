#pragma once

#include "duplicates/busqueda_copias.h"
#include "duplicates/grupo.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Columns of the table of duplicates.
enum class ColumnaDuplicados { Queda, Nombre, Carpeta, Fecha, Correcta, Tamano };
inline constexpr int intColumnasDuplicados = 6;

/// What a cell says of a file of a group (UTF-8).
/// @param strRaiz of the archive: folders are told from there on.
[[nodiscard]] std::string fTextoDuplicado(const clsGrupo &grupo, std::size_t lngCual,
                                          ColumnaDuplicados columna, std::string_view strRaiz);

/// What was found: "2 grupos, 3 copias (9.000 KB)"; what was left out follows.
/// @param bolBuscando more may come.
[[nodiscard]] std::string fTextoHallados(const std::vector<clsGrupo> &lstGrupos,
                                         const clsOmitidos &omitidos, bool bolBuscando);

/// The button that ticks so many: "&Marcar las copias (3)".
[[nodiscard]] std::string fTextoMarcar(int intCopias);
