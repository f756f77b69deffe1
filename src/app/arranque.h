#pragma once

#include "shared/ajustes.h"
#include "shared/medios.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The root folder a command line names, with a trailing "/": the rest behind "___", taken
/// literally and made absolute; anything else, or nothing, means the program's own folder.
/// @param lstArgumentos arguments without the program's name; they are joined with single blanks.
[[nodiscard]] std::string fRaizDeOrdenes(const std::vector<std::string> &lstArgumentos,
                                         std::string_view strCarpetaPrograma,
                                         std::string_view strCarpetaTrabajo);

/// Whether files can be made in the root folder: tries it with one that is deleted again,
/// and touches nothing that is there.
[[nodiscard]] bool fProbarEscritura(const std::string &strRaiz);

/// What the settings hold at start-up.
struct clsPreferencias {
    int lngAncho = 3000;           ///< panel width in twips
    int intTamMini = 2;            ///< index of the thumbnail size
    Medios medios = Medios::Todos; ///< which files the list shows
    bool bolFormatos = false;      ///< and those of other formats, too
    bool bolTiempo = false;        ///< the strip of time is shown
};

/// A setting that cannot be used.
struct clsAjusteMalo {
    std::string strClave;
    std::string strValor;
};

/// Reads the settings; absent ones get their defaults, which are then written, unless they are
/// those of additions. When one cannot be
/// used (no number, or an index that does not exist), nothing is written.
[[nodiscard]] std::optional<clsAjusteMalo> fLeerPreferencias(clsAjustes &ajustes,
                                                             clsPreferencias &preferencias);

inline constexpr std::string_view strSeccionGeneral = "GENERAL";
