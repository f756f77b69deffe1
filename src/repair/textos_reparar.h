#pragma once

#include "dates/deshacer.h"
#include "dates/fuentes.h"
#include "repair/reparacion.h"

#include <string>
#include <vector>

/// All that is known of a file's date, a line each: "EXIF (tomada): 14/07/2009 18:03:22".
[[nodiscard]] std::string fTextoFuentes(const clsFechasFichero &fechas,
                                        const clsRelojLocal &reloj = fFechaLocal);

/// First and last of the dates that come out: "Del 14/07/2009 18:03:22 al 02/01/2021 10:11:12".
[[nodiscard]] std::string fTextoTramo(const clsTramoFechas &tramo);

/// The button that corrects so many files: "&Corregir 3.160 archivos".
[[nodiscard]] std::string fTextoCorregir(int intFicheros);

/// What is asked before files are changed.
[[nodiscard]] std::string fPreguntaCorregir(int intFicheros, NombreReparado nombre);

/// What is asked before the latest correction is taken back; names them all, as far as a box has
/// room.
/// @param lstHechas the latest first; not empty.
[[nodiscard]] std::string fPreguntaDeshacer(const std::vector<clsCorreccionHecha> &lstHechas);
