#pragma once

#include "catalogue/filas.h"
#include "shared/numeros.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

/// Columns of the list, numbered from 1 as their headers stand.
enum class Columna { Nombre = 1, Fecha = 2, Tamano = 3, Carpeta = 4 };

/// Places texts (bytes of names or folders) in the user's alphabetical order: for every text its
/// rank; texts that compare equal have the same rank.
using clsRangos = std::function<std::vector<std::uint32_t>(const std::vector<std::string_view> &)>;

/// Orders the rows by a column, in place: dates and sizes by the code points of their texts, names
/// and folders by rank. Rows that compare equal stand by name, then by path. Descending is the
/// reverse of it all.
void fOrdenar(clsFilas &filas, Columna columna, bool bolDescendente, const clsRangos &fRangos);
