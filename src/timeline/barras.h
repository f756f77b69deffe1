#pragma once

#include "catalogue/filas.h"
#include "shared/fecha.h"

#include <chrono>
#include <optional>
#include <vector>

/// What one bar stands for.
enum class Unidad { Dia, Mes };

/// How many files a list has of each day.
struct clsDias {
    std::chrono::sys_days primero{}; ///< the earliest one
    std::vector<int> lstArchivos;    ///< of it and of each day to the latest; empty: none is dated
    std::vector<int> lstMalos; ///< how many of them are dated wrong; empty: of none is it known
    int lngSinFecha = 0;       ///< files whose date text is no date
};

/// Counts them, from the rows alone.
/// @param lstMalos by the number of a row, whether its date is known to be wrong; empty: of none.
[[nodiscard]] clsDias fContarDias(const clsFilas &filas, const std::vector<bool> &lstMalos = {});

/// The unit for so many days: days for a year at most, else months.
[[nodiscard]] constexpr Unidad fUnidad(std::chrono::days span)
{
    return span <= std::chrono::days{365} ? Unidad::Dia : Unidad::Mes;
}
/// The day, or the month, that a day lies in: its first day, and that of the next one.
struct clsPeriodo {
    std::chrono::sys_days desde;
    std::chrono::sys_days hasta;
    friend bool operator==(const clsPeriodo &, const clsPeriodo &) = default;
};
[[nodiscard]] clsPeriodo fPeriodo(std::chrono::sys_days dia, Unidad unidad);

/// The files of some days that follow each other.
struct clsBarra {
    /// Where those without a date stand: before all others, and of no length.
    static constexpr std::chrono::sys_days datSinFecha = std::chrono::sys_days::min();

    clsPeriodo periodo{datSinFecha, datSinFecha};
    int lngArchivos = 0;
    int lngMalos = 0; ///< so many of them are known to be dated wrong

    [[nodiscard]] bool fSinFecha() const { return periodo.desde == datSinFecha; }
    [[nodiscard]] bool fContiene(clsFecha fecha) const
    {
        return fecha == clsFilas::datNinguna
                   ? fSinFecha()
                   : fDia(fecha) >= periodo.desde && fDia(fecha) < periodo.hasta;
    }
    friend bool operator==(const clsBarra &, const clsBarra &) = default;
};

/// The days or months that have files, in their order; before them the files without a date.
[[nodiscard]] std::vector<clsBarra> fBarras(const clsDias &dias, Unidad unidad);

/// The index of the bar that a date belongs to; -1 when there is none.
[[nodiscard]] int fBarraDe(const std::vector<clsBarra> &lstBarras, clsFecha fecha);
/// The index of the first bar that ends after a day, else of the last one: where one comes to who
/// goes to that day. -1 when there is none.
[[nodiscard]] int fBarraDesde(const std::vector<clsBarra> &lstBarras, std::chrono::sys_days dia);

/// The position of a bar's first file, as the list is ordered; nothing when it has none there. In
/// a list by dates it is where going to the bar's first day leads.
[[nodiscard]] std::optional<int> fPrimera(const clsFilas &filas, const clsBarra &barra);

/// How high a bar is drawn: by the square root of its files, so that few can be seen beside many.
/// @param lngMayor files of the highest bar.
/// @param dblAlto  its height.
[[nodiscard]] double fAltura(int lngArchivos, int lngMayor, double dblAlto);
