#pragma once

#include "dates/fuentes.h"

/// What there is to say about a file's date. Those from primeraDuda on make a proposal doubtful.
enum class Reparo : std::uint8_t {
    Ninguno,
    NoExiste,      ///< there is no such file
    SinFuentes,    ///< nothing tells its date
    Coincide,      ///< the present date is what the sources tell
    Correcta,      ///< the file counts as right; it is only that a better date is known
    Contradiccion, ///< another source is more than a day away
    Antiguo,       ///< before 1970
    Futuro         ///< after now
};
inline constexpr Reparo primeraDuda = Reparo::Contradiccion;

/// The new date of a file.
struct clsPropuesta {
    clsFecha fecha;                  ///< local; zero: no proposal
    Fuente fuente = Fuente::Archivo; ///< where it comes from
    Reparo reparo = Reparo::Ninguno;
    // Places in the file's list of sources; -1: none.
    int intAcuerdo = -1;   ///< one of another kind that is within an hour or of the same day
    int intContraria = -1; ///< with Contradiccion, the first one that is more than a day away

    [[nodiscard]] bool fHay() const { return fecha.fHay(); }
    [[nodiscard]] bool fDudosa() const { return fHay() && reparo >= primeraDuda; }
    /// Whether its row is ticked at first: what is sure, and wrong today.
    [[nodiscard]] bool fMarcada() const { return fHay() && reparo == Reparo::Ninguno; }

    friend bool operator==(const clsPropuesta &, const clsPropuesta &) = default;
};

/// Proposes a date.
///
/// Sources in their order: EXIF taken, EXIF digitised, video; XMP, name with a time of day, IPTC,
/// GPS, EXIF changed; name and folder as days. Among those behind the video, one that another kind
/// confirms goes before those nobody confirms. EXIF changed says when somebody worked on the photo:
/// it counts only where EXIF has nothing else. What is known by the day gives noon.
///
/// No proposal where the present date agrees: within an hour, as the verdict has it, or, of what is
/// known by the day, on that day.
/// @param datAhora the present local date.
[[nodiscard]] clsPropuesta fProponer(const clsFechasFichero &fechas, clsFecha datAhora,
                                     const clsRelojLocal &reloj = fFechaLocal);

/// The proposal that the user makes; only before 1970 and the future are doubtful.
[[nodiscard]] clsPropuesta fProponerManual(clsFecha fecha, Fuente fuente, clsFecha datAhora);

/// The remark for the screen, empty where there is none: "El nombre dice 08/05/2008".
[[nodiscard]] std::string fTextoReparo(const clsPropuesta &propuesta, const clsFuentes &lstFuentes,
                                       const clsRelojLocal &reloj = fFechaLocal);
