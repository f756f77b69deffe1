#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

/// A date with its time of day, in local time and whole seconds, from 1 January 100 to 31 December
/// 9999. Day 0 is 30/12/1899; the zero value means that there is no date.
struct clsFecha {
    std::int64_t lngSegundos = 0; ///< seconds since 30/12/1899 00:00:00, negative before it

    friend auto operator<=>(const clsFecha &, const clsFecha &) = default;
    [[nodiscard]] bool fHay() const { return lngSegundos != 0; }
};

/// The six numbers of a date as a person writes them.
struct clsPartesFecha {
    int intAno = 0;
    int intMes = 0;
    int intDia = 0;
    int intHora = 0;
    int intMinuto = 0;
    int intSegundo = 0;
};

/// The date of six numbers; nothing unless they name a real day of the years 100 to 9999 and a real
/// time of day (hour 24 and second 60 are refused).
[[nodiscard]] std::optional<clsFecha> fFechaDe(const clsPartesFecha &partes);

/// The six numbers of a date. Dates outside the valid years give those of the zero date.
[[nodiscard]] clsPartesFecha fPartes(clsFecha fecha);

/// A moment of the file system (seconds since 1970, universal time) as a local date. Moments that
/// fall outside the valid years give the zero date.
[[nodiscard]] clsFecha fFechaLocal(std::time_t lngMomento);

/// A local date as a moment of the file system; the system decides whether daylight saving holds,
/// which of the two moments a repeated hour means, and where a skipped hour ends up. Nothing when
/// it has no such moment.
[[nodiscard]] std::optional<std::time_t> fMomento(clsFecha fecha);

/// "yyyy/MM/dd HH:mm:ss", as the catalogue and the list hold it.
[[nodiscard]] std::string fTextoCatalogo(clsFecha fecha);

/// "dd/mm/yyyy hh:mm:ss", as the user reads it.
[[nodiscard]] std::string fTextoUsuario(clsFecha fecha);

/// "dd/mm/yyyy".
[[nodiscard]] std::string fTextoDia(clsFecha fecha);

/// "yyyyMMddHHmmss", as the catalogue's backups end.
[[nodiscard]] std::string fTextoSello(clsFecha fecha);

/// "yyyyMMdd_", as the names of corrected files begin.
[[nodiscard]] std::string fPrefijoNombre(clsFecha fecha);

/// Reads exactly the form of fTextoCatalogo; nothing for any other text.
[[nodiscard]] std::optional<clsFecha> fLeerTextoCatalogo(std::string_view strTexto);
