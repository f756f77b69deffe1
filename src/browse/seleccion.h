#pragma once

#include "browse/mover.h"
#include "catalogue/filas.h"
#include "shared/numeros.h"

#include <cstdint>
#include <string>
#include <vector>

/// The selection commands; the numbers are those of their menu entries.
enum class Seleccion { Todo = 0, Pantalla = 1, Nada = 2, Invertir = 3 };

/// Runs a selection command.
/// @param pagina the positions that the viewing panel shows, see fTramoPagina; only Pantalla
///               looks at it. What lies outside the list is left out.
void fSeleccionar(clsFilas &filas, Seleccion seleccion, clsTramo pagina);

/// Inverts the ticks from one position to another, both included, in whatever order they stand.
void fInvertirEntre(clsFilas &filas, int lngUna, int lngOtra);

/// Ticks the rows of these paths, and no others.
void fMarcarSolo(clsFilas &filas, const std::vector<std::string> &lstRutas);

/// Positions of the ticked rows, in list order.
[[nodiscard]] std::vector<int> fMarcadas(const clsFilas &filas);

/// What the totals box says (UTF-8, line breaks CR LF).
/// @param lngFotos   rows of the list.
/// @param lngTotalKB their size in whole kilobytes, as the list keeps it.
[[nodiscard]] std::string fTextoTotales(int lngFotos, std::int64_t lngTotalKB,
                                        const clsSignos &signos);
