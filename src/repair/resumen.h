#pragma once

#include "dates/fuentes.h"

#include <array>
#include <string>
#include <vector>

/// What there is to say about the date of a file.
enum class EstadoFecha {
    Correcta,
    Incorrecta,
    SinFecha ///< nothing inside it, in its name or its folders tells a date; or it is not there
};
inline constexpr int intEstadosFecha = 3;

[[nodiscard]] EstadoFecha fEstadoFecha(const clsFechasFichero &fechas);

/// The files of a year, by the state of their dates.
struct clsAnoResumen {
    int intAno = 0; ///< 0: files without a date of their own
    std::array<std::vector<std::string>, intEstadosFecha> lstRutas;

    [[nodiscard]] int fCuantos(EstadoFecha estado) const;
    [[nodiscard]] int fTodos() const;
};

/// How many files of which year are dated right.
class clsResumenFechas {
public:
    void fAgregar(const std::string &strRuta, const clsFechasFichero &fechas);

    /// The years, the earliest first.
    [[nodiscard]] const std::vector<clsAnoResumen> &fAnos() const { return m_lstAnos; }
    /// The most files of one year.
    [[nodiscard]] int fMayor() const { return m_intMayor; }

private:
    int m_intMayor = 0;
    std::vector<clsAnoResumen> m_lstAnos;
};

/// The foot: "3.214 archivos: 3.000 con la fecha correcta, 160 incorrecta, 54 sin fecha".
[[nodiscard]] std::string fTextoResumen(const clsResumenFechas &resumen);
