#pragma once

#include <span>
#include <string>
#include <string_view>

/// What is remembered between starts for the user's desktop, whatever archive is shown, lies in a
/// file of settings in the user's own folder for such things, never in an archive.

inline constexpr std::string_view strSeccionEscritorio = "ESCRITORIO";

/// The path of that file; its folder is made. Empty when the user has none: nothing is remembered.
[[nodiscard]] std::string fFicheroEscritorio();

/// A rectangle of the desktop in logical pixels.
struct clsRectEscritorio {
    int intX = 0;
    int intY = 0;
    int intAncho = 0;
    int intAlto = 0;
    friend bool operator==(const clsRectEscritorio &, const clsRectEscritorio &) = default;
};

/// Where the main window stands.
struct clsSitio {
    clsRectEscritorio normal; ///< while it is not maximised, without its frame
    bool bolMaximizada = true;
    friend bool operator==(const clsSitio &, const clsSitio &) = default;
};

/// Where the window goes at start, with its title bar on one of the screens.
/// @param strGuardado what fTextoSitio gave the last time; anything else counts as nothing.
/// @param lstPantallas the part of each screen that windows may have, the main one first; not
/// empty.
[[nodiscard]] clsSitio fSitio(std::string_view strGuardado,
                              std::span<const clsRectEscritorio> lstPantallas);
[[nodiscard]] std::string fTextoSitio(const clsSitio &sitio);
