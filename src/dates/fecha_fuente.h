#pragma once

#include "shared/fecha.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Where a date of a file comes from. Their order is no rank, see propuesta.h.
enum class Fuente : std::uint8_t {
    ExifTomada,       ///< tag 9003: when the photo was taken
    ExifDigitalizada, ///< tag 9004: when it became data
    ExifCambiada,     ///< tag 0132: when its data were changed
    Gps,              ///< the satellites' time
    Xmp,
    Iptc,
    Video, ///< what the maker of a video wrote into it
    Nombre,
    Carpeta,
    Archivo, ///< the file's own time
    Tecleada ///< by the user
};
inline constexpr int intFuentes = static_cast<int>(Fuente::Tecleada) + 1;

/// Down to what a date is known.
enum class Precision : std::uint8_t { Dia, Minuto, Segundo };

/// Which clock shows a date.
enum class Zona : std::uint8_t {
    Local,      ///< that of the place, wherever it was
    ConDesfase, ///< that of the place, which is so many minutes ahead of universal time
    Utc         ///< universal time
};

/// A date of a file and where it comes from.
struct clsFechaFuente {
    clsFecha fecha{}; ///< as its clock shows it; what precision leaves out is 0, of a day noon
    Fuente fuente = Fuente::Archivo;
    Precision precision = Precision::Segundo;
    Zona zona = Zona::Local;
    std::int16_t intZona = 0;  ///< minutes ahead of universal time, with ConDesfase
    std::int32_t lngNanos = 0; ///< rest of the second, 0 to 999,999,999

    friend bool operator==(const clsFechaFuente &, const clsFechaFuente &) = default;
};

using clsFuentes = std::vector<clsFechaFuente>;

/// Turns a moment (seconds since 1970, universal time) into a local date; fFechaLocal is the one
/// of the system.
using clsRelojLocal = std::function<clsFecha(std::time_t)>;

/// The date as a clock on the wall showed it: what is written, of universal time what the reloj
/// makes of it. Zero where that has no date for it.
[[nodiscard]] clsFecha fLocal(const clsFechaFuente &fuente,
                              const clsRelojLocal &reloj = fFechaLocal);

/// The moment in seconds since 1970; nothing where the zone is not known.
[[nodiscard]] std::optional<std::int64_t> fInstante(const clsFechaFuente &fuente);

/// A moment as a date of universal time.
[[nodiscard]] clsFecha fFechaUtc(std::int64_t lngInstante);

/// Noon of a day: what is offered where the time of day is not known.
[[nodiscard]] clsFecha fMediodia(std::chrono::sys_days dia);

/// Reads a date as XMP writes it (ISO 8601): "2009-07-14", "2009-07-14T18:03",
/// "2009-07-14T18:03:22.123+02:00", with "Z" for universal time; a blank may stand for the "T".
/// Blanks around it do not matter. Nothing for any other text, for a year or a month alone, and for
/// what is no real date.
[[nodiscard]] std::optional<clsFechaFuente> fLeerFechaIso(std::string_view strTexto, Fuente fuente);

/// Reads a zone, "+02:00", "-0530" or "Z", as minutes ahead of universal time; at most 15 hours.
/// Nothing for any other text.
[[nodiscard]] std::optional<int> fLeerDesfase(std::string_view strTexto);

/// Reads the digits behind the point of the seconds as nanoseconds; those behind the ninth do not
/// count. Blanks and zero bytes around them do not matter. Nothing for any other text.
[[nodiscard]] std::optional<std::int32_t> fLeerNanos(std::string_view strCifras);

/// A source's name for the screen: "EXIF (tomada)", "nombre", "vídeo".
[[nodiscard]] std::string_view fTextoFuente(Fuente fuente);
