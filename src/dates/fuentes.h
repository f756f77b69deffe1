#pragma once

#include "dates/clsFile.h"
#include "dates/exif_fecha.h"
#include "dates/fecha_fuente.h"

/// What is known of a file's date, before anybody proposes another.
struct clsFechasFichero {
    bool bolExiste = false;
    clsFecha datArchivo;      ///< last modification in local time; zero when the file is not there
    bool bolCorrecta = false; ///< the verdict, as clsFile has it
    clsFuentes lstFuentes;    ///< without the file's own time
};

/// Reads all dates of a photo: EXIF with its sub-seconds and zones, GPS, XMP and IPTC. One pass
/// over the file's head, and hardly more than its first bytes of a file that is neither JPEG nor
/// TIFF. Any bytes are taken.
/// @param exif gets the two dates that judge the file, as fLeerFechasExif has them.
[[nodiscard]] clsFuentes fLeerFuentesFoto(clsOrigen &origen, clsFechasExif &exif);

using clsPreguntaVideo = std::function<std::string(const clsAbierto &)>;

/// Gathers the dates of the file at that path: its own time, those inside it, those of its name and
/// of its folders below the root. Has no state outside itself: any thread may call it.
/// @param strRaiz the archive's root, with a trailing "/".
/// @param fVideo  what an open video says of itself, see fFechaDeVideo; empty: nobody asks it.
[[nodiscard]] clsFechasFichero fLeerFechas(const std::string &strRuta, const std::string &strRaiz,
                                           const clsPreguntaVideo &fVideo = {});

/// The folders of a path below the root, without a "/" at the end; of a path outside it, all.
[[nodiscard]] std::string_view fCarpetasBajo(std::string_view strRuta, std::string_view strRaiz);
