#pragma once

#include "shared/fecha.h"
#include "sistema/archivo.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A file as a look at the disk shows it.
struct clsVisto {
    clsHuella huella;             ///< its size and time; the time of a link is that of its target
    clsIdentidad identidad;       ///< which file it is, or which link
    std::uint64_t lngNombres = 0; ///< names it has
    bool bolRoto = false;         ///< a link that leads nowhere, so that the time is its own
    bool bolArchivo = false;      ///< a regular file, by a look in this run
    friend bool operator==(const clsVisto &, const clsVisto &) = default;
};

/// Looks at a file or a link.
[[nodiscard]] clsResultado<clsVisto> fVer(const std::string &strRuta);
/// @param nombre what has that path; of a link, the link.
[[nodiscard]] clsResultado<clsVisto> fVer(const std::string &strRuta,
                                          const clsResultado<clsDatosArchivo> &nombre);

/// What a correction has in mind with one file, or what it has made of it.
struct clsAnotacion {
    std::string strDe; ///< its path below the root
    std::string strA;  ///< the one it is to get, or has got; the same when it keeps its name
    clsFecha fecha;    ///< the date that the catalogue gets
    clsVisto antes;    ///< disks get other numbers with time
    clsHuella despues; ///< the time it is to get, or has got

    /// Whether neither its name nor its time is another one.
    [[nodiscard]] bool fIntacta() const;
    friend bool operator==(const clsAnotacion &, const clsAnotacion &) = default;
};

/// Whether a file has that size and time, as exactly as file systems keep times (2 seconds).
[[nodiscard]] bool fParecida(const clsHuella &una, const clsHuella &otra);

/// The journal of a correction, which stands in the root folder from before the first change until
/// behind the last one: who finds it knows that a correction was killed, and what became of it.
/// Then it is kept beside the backup of the catalogue, under a name with the same date, so that the
/// correction can be taken back. Taking back has a journal of its own, which is not kept.
///
/// Text with CR LF behind each line. Of each file three lines: the path it had and the one it is to
/// get, below the root; then, with one blank between them, its new date (strFormaCatalogo), the
/// seconds and nanoseconds of its new time and of its old one, its bytes, its names, its disk and
/// its number there. At the end the name that the backup of the catalogue is to get (of taking
/// back: has), and "fin" or, of taking back, "deshacer" with the number of files. Where that end is
/// missing, or anything else is not as it should be, nothing of it counts.
struct clsDiario {
    std::string strCopia;
    std::vector<clsAnotacion> lstAnotaciones;
    bool bolDeshace = false; ///< it takes a correction back
};

inline constexpr std::string_view strFicheroDiario = ".Miravel.diario";

/// Writes and flushes it. Files that no catalogue can name, or outside the root, do not belong in
/// it.
/// @param strRaiz root folder with a trailing "/".
[[nodiscard]] clsError fEscribirDiario(const std::string &strRaiz, const clsDiario &diario);

/// Nothing when there is none or it does not count; all its paths lie below the root.
/// @param strFichero its name in the root folder.
[[nodiscard]] std::optional<clsDiario> fLeerDiario(const std::string &strRaiz,
                                                   std::string_view strFichero = strFicheroDiario);

void fBorrarDiario(const std::string &strRaiz, std::string_view strFichero = strFicheroDiario);

/// Keeps the journal of a correction that has come to its end: it gets the date of the backup in
/// its name, or one of the next seconds when that is taken.
[[nodiscard]] clsError fGuardarDiario(const std::string &strRaiz, const clsDiario &diario);

/// The name under which a journal is kept beside that backup.
[[nodiscard]] std::string fNombreGuardado(std::string_view strCopia);

/// The names of the journals that are kept, that of the latest correction first. By the time they
/// were written: an hour of autumn comes twice.
[[nodiscard]] std::vector<std::string> fDiariosGuardados(const std::string &strRaiz);

/// The date in the name of a journal that is kept, or of a backup; none in any other name.
[[nodiscard]] std::optional<clsFecha> fFechaDeCopia(std::string_view strNombre);

/// Whether a file that a correction was about to rename has got its new name, as far as its names
/// tell.
[[nodiscard]] bool fRenombrado(const std::string &strRaiz, const clsAnotacion &anotacion);
