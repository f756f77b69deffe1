#pragma once

#include "timeline/barras.h"

#include <vector>

/// Days that lie on the axis of time one after the other, in their own measure.
struct clsTrecho {
    clsPeriodo periodo;
    double dblDesde = 0; ///< where they lie on the axis, in days from its start
    double dblHasta = 0;
    bool bolPlegado = false; ///< days without files that take next to no room
    friend bool operator==(const clsTrecho &, const clsTrecho &) = default;
};

/// The axis of time: all days in the same measure, but for gaps that are longer than all the rest.
class clsEje {
public:
    clsEje() = default;
    /// @param lstBarras those of a list; one without a date has no place on the axis.
    explicit clsEje(const std::vector<clsBarra> &lstBarras);

    [[nodiscard]] const std::vector<clsTrecho> &fTrechos() const { return m_lstTrechos; }
    /// Its length; 0 when no file is dated.
    [[nodiscard]] double fLargo() const
    {
        return m_lstTrechos.empty() ? 0 : m_lstTrechos.back().dblHasta;
    }
    /// Where a day begins; one that lies before or after gives the nearer end.
    [[nodiscard]] double fLugar(std::chrono::sys_days dia) const;
    /// The day at a place; beyond the end the day after the last. The axis must not be empty.
    [[nodiscard]] std::chrono::sys_days fDiaEn(double dblLugar) const;
    /// The folded days at a place; nullptr when it has none.
    [[nodiscard]] const clsTrecho *fPlegadoEn(double dblLugar) const;

    friend bool operator==(const clsEje &, const clsEje &) = default;

private:
    [[nodiscard]] const clsTrecho &fTrechoEn(double dblLugar) const;

    std::vector<clsTrecho> m_lstTrechos;
};
