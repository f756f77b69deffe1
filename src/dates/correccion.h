#pragma once

#include "shared/fecha.h"
#include "shared/ritmo.h"
#include "sistema/resultado.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// One file of a correction: its path, date and name going in, what became of it coming out.
struct clsCorregido {
    std::string strFilePath;      ///< as the catalogue has it, byte by byte
    clsFecha fecha{};             ///< the date it gets
    bool bolNombre = true;        ///< whether it gets a new name (fRutaCorregida), too
    std::string strFilePathNew{}; ///< where it is now; its old path when it keeps its name
    clsError errorFecha{};        ///< why it has another time; it is renamed all the same
    clsError errorNombre{};       ///< why it could not be renamed
    bool bolTratado = false;      ///< false: the correction ended before it came to this file

    /// Whether it has got all it was to get.
    [[nodiscard]] bool fBien() const { return bolTratado && !errorFecha && !errorNombre; }
};

/// How a correction ended.
enum class Correccion {
    Hecha,       ///< files and catalogue are corrected, a backup stands beside the catalogue
    SinPermiso,  ///< the root was not writable at start-up; nothing was touched
    Ocupada,     ///< another Miravel builds or corrects in this archive; nothing was touched
    Imposible,   ///< the new catalogue could not be written, see error; nothing was touched
    SinCatalogo, ///< the files are corrected, the catalogue is not, see error
    Ninguna      ///< there is none that could be taken back
};

struct clsFinCorreccion {
    Correccion correccion = Correccion::Hecha;
    clsError error;
    std::string strCopia; ///< full path of the backup, empty when there is none
};

/// Called once for every file that could not be renamed, with the text of its box (UTF-8, line
/// breaks CR LF), while the others still wait. The list of files must not be changed meanwhile.
using clsFalloNombre = std::function<void(const std::string &strAviso)>;

/// The path a file gets by a correction: "yyyyMMdd_" before its name, whatever that begins with.
[[nodiscard]] std::string fRutaCorregida(std::string_view strRuta, clsFecha fecha);

/// Gives the files their new dates and names, one after the other, then rewrites the catalogue.
/// A file that cannot be renamed keeps its path in the catalogue, too, and gets the new date there.
///
/// The new catalogue has its room on the disk, and a journal what is to be done, before the first
/// file is touched. Killed in the middle: files that were already renamed have their old path in
/// the catalogue until fTerminarCorreccion. The catalogue itself is whole at every moment, under
/// its name or, between two renames, under that of its newest backup. The journal is kept, and by
/// it the correction can be taken back (deshacer.h).
/// @param strRaiz      root folder with a trailing "/".
/// @param bolEscritura whether the root was writable at start-up.
/// @param fSeguir      runs after every file, to let events run; false ends the correction there,
///                     with what is done in the catalogue. May be empty.
[[nodiscard]] clsFinCorreccion fCorregir(const std::string &strRaiz, bool bolEscritura,
                                         std::vector<clsCorregido> &lstFicheros,
                                         const clsFalloNombre &fFallo,
                                         const clsSeguir &fSeguir = {});

/// Finishes the catalogue of a correction that was killed, or of one that was being taken back, by
/// its journal: files that have got their new name are listed by it. Files are looked at, never
/// changed. Nothing when another Miravel corrects right now, and when there is no journal, which is
/// nearly always.
void fTerminarCorreccion(const std::string &strRaiz);
