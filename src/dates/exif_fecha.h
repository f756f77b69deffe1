#pragma once

#include "dates/origen.h"
#include "shared/fecha.h"

#include <optional>

/// Reads a date as EXIF writes it, "2009:07:14 18:03:22". Blanks and zero bytes around it do not
/// matter; seconds, or the whole time, may be missing; a leading zero may be a blank. Nothing for
/// any other text and for days that do not exist.
[[nodiscard]] std::optional<clsFecha> fLeerFechaExif(std::string_view strTexto);

/// How many characters such a text has without what is around it: 10 of a day, 16 down to the
/// minute.
[[nodiscard]] std::size_t fLargoFechaExif(std::string_view strTexto);

/// The two dates of a photo that judge its file; zero where there is none.
struct clsFechasExif {
    clsFecha datFecha;  ///< tag 0132, image date-time
    clsFecha datTomada; ///< tag 9003, when the photo was taken

    /// When the photo was taken, else the date of its image data.
    [[nodiscard]] clsFecha fMejor() const { return datTomada.fHay() ? datTomada : datFecha; }
};

/// The dates that the table of EXIF data would give for 0132 and 9003, without making the table.
[[nodiscard]] clsFechasExif fLeerFechasExif(clsOrigen &origen);

/// The same from texts that were taken from a walk; both codes must be among theirs.
[[nodiscard]] clsFechasExif fFechasExif(const class clsTextosExif &textos);
