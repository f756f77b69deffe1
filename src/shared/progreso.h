#pragma once

#include <chrono>
#include <string>
#include <string_view>

/// How far long work has come: "Leyendo fechas: 1.234 de 100.000, quedan 2 minutos". The rest is
/// left out while too little is done to tell.
/// @param pasado since it began.
[[nodiscard]] std::string fTextoProgreso(std::string_view strObra, int lngHechos, int lngTodos,
                                         std::chrono::milliseconds pasado);
