#pragma once

#include "timeline/eje.h"

#include <vector>

/// Where something lies across the strip, in pixels; they need not be whole.
struct clsIntervalo {
    double dblDesde = 0;
    double dblHasta = 0;
    friend bool operator==(const clsIntervalo &, const clsIntervalo &) = default;
};

/// What the strip shows: a list's bars on the axis of time, or on the part of it that it is
/// enlarged to. Files without a date have a place of their own left of it.
class clsTira {
public:
    /// Shows a list. Where its axis is the same as before, the part that is shown stays.
    void fMostrar(clsDias dias);
    /// @param sitio       its left and right edge, in pixels.
    /// @param dblSinFecha width of the place of files without a date; it is there when there are
    /// any.
    void fDisponer(const clsIntervalo &sitio, double dblSinFecha);

    [[nodiscard]] const std::vector<clsBarra> &fBarras() const { return m_lstBarras; }
    [[nodiscard]] const clsEje &fEje() const { return m_eje; }
    [[nodiscard]] Unidad fUnidad() const { return m_unidad; }
    /// The most files of a bar.
    [[nodiscard]] int fMayor() const { return m_lngMayor; }
    /// Where the axis begins and ends on the strip, and the pixels of a day.
    [[nodiscard]] clsIntervalo fSitioEje() const { return {m_dblIzq, m_sitio.dblHasta}; }
    [[nodiscard]] double fEscala() const;
    /// The day at a point. The axis must not be empty.
    [[nodiscard]] std::chrono::sys_days fDiaEn(double dblX) const
    {
        return m_eje.fDiaEn(fLugar(dblX));
    }

    /// Where some days lie; it can be beyond the strip.
    [[nodiscard]] clsIntervalo fSitio(const clsPeriodo &periodo) const;
    [[nodiscard]] clsIntervalo fSitio(const clsBarra &barra) const;
    /// The bar at a point; where none is, the day, month or folded gap there as one without files.
    [[nodiscard]] clsBarra fEn(double dblX) const;
    /// The bar that one comes to from a point, by its index; -1 when there is none.
    [[nodiscard]] int fDesde(double dblX) const;
    /// All days and months from one point to another, both included, as one bar; files without a
    /// date are none of them.
    [[nodiscard]] clsBarra fEntre(double dblX, double dblOtra) const;

    /// Enlarges by a factor (below 1: reduces) about a point, which stays where it is.
    void fAmpliar(double dblX, double dblFactor);
    /// Shows what lies so many pixels further on.
    void fCorrer(double dblPixeles);
    /// Shows the part that has a bar in it.
    void fIncluir(const clsBarra &barra);

private:
    [[nodiscard]] double fLugar(double dblX) const;
    void fVer(double dblDesde, double dblLargo);
    void fHacerBarras();

    clsDias m_dias;
    clsEje m_eje;
    double m_dblDesde = 0; ///< the part of the axis that is shown, in its measure
    double m_dblLargo = 0;
    Unidad m_unidad = Unidad::Mes;
    std::vector<clsBarra> m_lstBarras;
    int m_lngMayor = 0;
    double m_dblIzq = 0; ///< where the axis begins
    clsIntervalo m_sitio;
    double m_dblSinFecha = 0;
};
