#pragma once

#include "timeline/barras.h"

#include <string>

// Texts are UTF-8.

/// Some days in words: "julio de 2009", "14 de julio de 2009", "de julio de 2009 a mayo de 2010",
/// "de 3 de enero de 2010 a ...".
[[nodiscard]] std::string fTextoPeriodo(const clsPeriodo &periodo);

/// What a bar is: "julio de 2009: 214 archivos, 3 con la fecha incorrecta".
[[nodiscard]] std::string fTextoBarra(const clsBarra &barra);

/// The short name of a month with its year: "jul. 2009".
[[nodiscard]] std::string fTextoMesCorto(std::chrono::sys_days dia);
/// The year: "2009".
[[nodiscard]] std::string fTextoAno(std::chrono::sys_days dia);
