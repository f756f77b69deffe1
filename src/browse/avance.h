#pragma once

#include "catalogue/filas.h"
#include "shared/fecha.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

/// Advance modes: how far one step goes. The numbers are indexes into strModosAvance.
enum class Avance { Normal = 0, Carpeta = 1, Dia = 2, Semana = 3, Mes = 4, Ano = 5 };
inline constexpr std::array<const char *, 6> strModosAvance = {"Normal", "Carpeta", "Día",
                                                               "Semana", "Mes",     "Año"};

/// The mode after a mode; after the last one comes the first.
[[nodiscard]] constexpr Avance fSiguienteAvance(Avance modo)
{
    return modo == Avance::Ano ? Avance::Normal : static_cast<Avance>(static_cast<int>(modo) + 1);
}

/// What the menu bar says about a mode (UTF-8); empty for Normal, which it does not show.
[[nodiscard]] std::string fTextoAvance(Avance modo);

enum class Sentido { Atras = -1, Adelante = 1 };

/// The position a step leads to; nothing when it changes nothing. The list's order is taken as it
/// stands. Without a place to go to, a step leads to the end of the list that lies ahead.
///
/// By dates: on to the first file of the next day, week (from Monday), month or year that has any;
/// back to the last file of the nearest earlier one. A current file without a date leads nowhere;
/// others without one are passed over. By folders: on to the first file of another folder; back to
/// the first file of the run before the current one.
/// @param lngActual position of the current file, from 0.
/// @param modo      in Normal nothing is found: that step is fDestino's.
[[nodiscard]] std::optional<int> fAvanzar(const clsFilas &filas, int lngActual, Avance modo,
                                          Sentido sentido);

/// Reads the answer to where to go: exactly eight digits, day first, that name a real day of the
/// years 100 to 9999; nothing for any other text.
[[nodiscard]] std::optional<clsFecha> fLeerRespuestaFecha(std::string_view str);

/// The position of the first file on or after a day (its midnight), from the start of the list,
/// which may be the current one; the last position if there is none. Nothing when the list is
/// empty, and when there is none and the last file is the current one.
[[nodiscard]] std::optional<int> fIrAFecha(const clsFilas &filas, int lngActual, clsFecha dia);
