#pragma once

#include "filter/filtro.h"

#include <string>
#include <string_view>

/// What the dialog held when it last filtered; kept until the program ends.
struct clsValoresFiltro {
    std::string strFiltroDesde; ///< "dd/mm/yyyy" or empty
    std::string strFiltroHasta;
    std::string strFiltroTexto;         ///< UTF-8
    std::string strFiltroCarpeta = "N"; ///< "S": the folders count, too
    int intFiltroModo = 0;              ///< index of the option button, see ModoTexto
};

/// Characters that a date box takes while it is being typed in, and when it shows its date.
inline constexpr int intLargoTecleada = 6;
inline constexpr int intLargoMostrada = 10;

/// Whether a date box takes what a key writes (UTF-8): digits, Backspace, Enter and Esc. Keys that
/// write nothing, such as the arrows, pass.
[[nodiscard]] bool fAdmiteTecla(std::string_view strTexto);

/// What a date box takes of a text that is pasted.
[[nodiscard]] std::string fSoloCifras(std::string_view strTexto);

/// What a date box holds when it is left.
struct clsCajaFecha {
    std::string_view strFallo{}; ///< why it may not be left (UTF-8); empty: it may
    std::string strTexto;        ///< what it shows then
};
/// Six digits DDMMYY become "dd/mm/yyyy" (years 1950 to 2049); an empty box is accepted.
/// @param strValida the date that the box last showed as accepted: it is accepted again.
[[nodiscard]] clsCajaFecha fDejarCaja(std::string_view strTexto, std::string_view strValida);

/// What a date box holds when it gets the focus: six digits in place of a date "dd/mm/yyyy", any
/// other text as it is.
[[nodiscard]] std::string fEditarCaja(std::string_view strTexto);

/// What is asked for, or why it cannot be.
struct clsPeticionFiltro {
    std::string_view strFallo{}; ///< why it cannot be (UTF-8); empty: it can
    clsFiltro filtro;
};
/// Reads the values of a dialog whose date boxes are accepted. The text is trimmed and loses one
/// comma at its end, unless something is wrong.
[[nodiscard]] clsPeticionFiltro fPedirFiltro(clsValoresFiltro &valores);

/// What is said when no file passes.
inline constexpr std::string_view strNingunaImagen = "No se ha encontrado ninguna imagen.";

/// The caption of the dialog.
[[nodiscard]] std::string fTituloFiltro(int lngFilas);
