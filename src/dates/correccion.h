#pragma once

#include "shared/fecha.h"
#include "sistema/resultado.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// One file of a correction: its path going in, what became of it coming out.
struct clsCorregido {
    std::string strFilePath;    ///< as the catalogue has it, byte by byte
    std::string strFilePathNew; ///< where it is now; its old path when it keeps its name
    clsError errorFecha;        ///< why it has another time; it is renamed all the same
    clsError errorNombre;       ///< why it could not be renamed
};

/// How a correction ended.
enum class Correccion {
    Hecha,      ///< files and catalogue are corrected, a backup stands beside the catalogue
    SinPermiso, ///< the root was not writable at start-up; nothing was touched
    Ocupada,    ///< another Miravel builds or corrects in this archive; nothing was touched
    Imposible,  ///< the new catalogue could not be written, see error; nothing was touched
    SinCatalogo ///< the files are corrected, the catalogue is not, see error
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

/// Text of the box (UTF-8, line breaks CR LF) that names the files which have not got their date:
/// because it could not be set, because the file system has no such time, because the file is a
/// link that leads out of the archive. Empty when all have it.
[[nodiscard]] std::string fAvisoSinFecha(const std::vector<clsCorregido> &lstFicheros);

/// Gives the files their new date and name, one after the other, then rewrites the catalogue.
/// A file that cannot be renamed keeps its path in the catalogue, too, and gets the new date there.
///
/// The new catalogue has its room on the disk, and a journal what is to be done, before the first
/// file is touched. Killed in the middle: files that were already renamed have their old path in
/// the catalogue until fTerminarCorreccion. The catalogue itself is whole at every moment, under
/// its name or, between two renames, under that of its newest backup.
/// @param strRaiz      root folder with a trailing "/".
/// @param bolEscritura whether the root was writable at start-up.
/// @param fPaso        runs after every file, to let events run; may be empty.
[[nodiscard]] clsFinCorreccion fCorregir(const std::string &strRaiz, bool bolEscritura,
                                         std::vector<clsCorregido> &lstFicheros, clsFecha fecha,
                                         const clsFalloNombre &fFallo,
                                         const std::function<void()> &fPaso = {});

/// Finishes the catalogue of a correction that was killed, by its journal: files that have got
/// their new name are listed by it. Files are looked at, never changed. Nothing when another
/// Miravel corrects right now, and when there is no journal, which is nearly always.
void fTerminarCorreccion(const std::string &strRaiz);

/// What the box says (UTF-8, line breaks CR LF) when the catalogue could not be written: why, and
/// which files have their new names all the same. Empty when it could.
[[nodiscard]] std::string fMotivoSinCatalogo(const clsFinCorreccion &fin,
                                             const std::vector<clsCorregido> &lstFicheros);
