#pragma once

#include "shared/fecha.h"
#include "sistema/archivo.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a correction has in mind with one file.
struct clsAnotacion {
    std::string strDe;      ///< its path below the root
    std::string strA;       ///< the one it is to get
    clsFecha fecha;         ///< the date it is to get
    clsHuella antes;        ///< its size and time; the time of a link is that of its target
    clsIdentidad identidad; ///< which file it is, or which link; disks get other numbers with time
};

/// The journal of a correction, which stands in the root folder from before the first change until
/// behind the last one: who finds it knows that a correction was killed, and what became of it.
///
/// Text with CR LF behind each line. Of each file three lines: the path it had and the one it is to
/// get, below the root; then, with one blank between them, its new date (strFormaCatalogo), and the
/// seconds and nanoseconds of its old time, its bytes, its disk and its number there. At the end
/// the name that the backup of the catalogue is to get, and "fin" with the number of files. Where
/// that end is missing, or anything else is not as it should be, nothing of it counts.
struct clsDiario {
    std::string strCopia;
    std::vector<clsAnotacion> lstAnotaciones;
};

inline constexpr std::string_view strFicheroDiario = ".Miravel.diario";

/// Writes and flushes it. Files that no catalogue can name, or outside the root, do not belong in
/// it.
/// @param strRaiz root folder with a trailing "/".
[[nodiscard]] clsError fEscribirDiario(const std::string &strRaiz, const clsDiario &diario);

/// Nothing when there is none or it does not count; all its paths lie below the root.
[[nodiscard]] std::optional<clsDiario> fLeerDiario(const std::string &strRaiz);

void fBorrarDiario(const std::string &strRaiz);

/// Whether a file that a correction was about to rename has got its new name, as far as its names
/// tell.
[[nodiscard]] bool fRenombrado(const std::string &strRaiz, const clsAnotacion &anotacion);
