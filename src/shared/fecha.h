#pragma once

#include <chrono>
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

/// Day 0.
inline constexpr std::chrono::sys_days datDiaCero =
    std::chrono::year{1899} / std::chrono::December / std::chrono::day{30};

/// The midnight that a day begins with.
[[nodiscard]] constexpr clsFecha fMedianoche(std::chrono::sys_days dia)
{
    return {std::chrono::seconds{dia - datDiaCero}.count()};
}

/// The day a date lies in.
[[nodiscard]] constexpr std::chrono::sys_days fDia(clsFecha fecha)
{
    return datDiaCero +
           std::chrono::floor<std::chrono::days>(std::chrono::seconds{fecha.lngSegundos});
}

/// Moments of many local dates, the same that fMomento gives. That looks each time whether the
/// system has another zone by now; here one day is remembered. On a day that is as long as it
/// should be, clocks were not changed.
class clsMomentosLocales {
public:
    [[nodiscard]] std::optional<std::time_t> fMomento(clsFecha fecha);

private:
    std::optional<std::chrono::sys_days> m_dia;
    std::optional<std::time_t> m_inicio; ///< of that day; none where clocks were changed
};

/// The forms of date texts. Each letter of y M d H m s stands for one digit of year, month, day,
/// hour, minute and second; every other character for itself.
inline constexpr std::string_view strFormaCatalogo = "yyyy/MM/dd HH:mm:ss"; ///< and of the list
inline constexpr std::string_view strFormaUsuario = "dd/MM/yyyy HH:mm:ss";
inline constexpr std::string_view strFormaDia = "dd/MM/yyyy";

/// Writes a date in a form. Dates outside the valid years are written as the zero date.
[[nodiscard]] std::string fEscribirFecha(clsFecha fecha,
                                         std::string_view strForma = strFormaCatalogo);

/// The same into a place of as many bytes as the form has.
void fEscribirFecha(clsFecha fecha, std::string_view strForma, char *chrDestino);

/// Reads a text of exactly that form; nothing for any other text, and for what is no real date of
/// the valid years. What the form leaves out of the time of day is 0.
[[nodiscard]] std::optional<clsFecha> fLeerFecha(std::string_view strTexto,
                                                 std::string_view strForma = strFormaCatalogo);
