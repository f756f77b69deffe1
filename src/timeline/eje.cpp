#include "timeline/eje.h"

#include <algorithm>
#include <cmath>

using std::chrono::days;
using std::chrono::sys_days;

namespace {

/// A folded gap has this part of what all the rest has.
constexpr double dblPliegue = 0.025;

double fDias(const clsPeriodo &periodo)
{
    return static_cast<double>((periodo.hasta - periodo.desde).count());
}

/// The gaps that are longer than all that is left without them, by their order in time; and how
/// long that is, in days.
std::vector<clsPeriodo> fPliegues(const std::vector<clsBarra> &lstBarras, double &dblResto)
{
    std::vector<clsPeriodo> lstHuecos;
    for (std::size_t lng = 1; lng < lstBarras.size(); ++lng) {
        lstHuecos.push_back({lstBarras[lng - 1].periodo.hasta, lstBarras[lng].periodo.desde});
    }
    std::stable_sort(lstHuecos.begin(), lstHuecos.end(),
                     [](const auto &uno, const auto &otro) { return fDias(uno) > fDias(otro); });
    dblResto = fDias({lstBarras.front().periodo.desde, lstBarras.back().periodo.hasta});
    auto fin = lstHuecos.begin();
    for (; fin != lstHuecos.end() && fDias(*fin) > dblResto - fDias(*fin); ++fin) {
        dblResto -= fDias(*fin);
    }
    lstHuecos.erase(fin, lstHuecos.end());
    std::sort(lstHuecos.begin(), lstHuecos.end(),
              [](const auto &uno, const auto &otro) { return uno.desde < otro.desde; });
    return lstHuecos;
}

} // namespace

clsEje::clsEje(const std::vector<clsBarra> &lstBarras)
{
    std::vector<clsBarra> lstFechadas(lstBarras);
    std::erase_if(lstFechadas, [](const clsBarra &barra) { return barra.fSinFecha(); });
    if (lstFechadas.empty()) {
        return;
    }
    double dblResto = 0;
    const auto fPoner = [this](const clsPeriodo &periodo, double dblLargo, bool bolPlegado) {
        const double dblDesde = fLargo();
        m_lstTrechos.push_back({periodo, dblDesde, dblDesde + dblLargo, bolPlegado});
    };
    sys_days desde = lstFechadas.front().periodo.desde;
    for (const clsPeriodo &hueco : fPliegues(lstFechadas, dblResto)) {
        fPoner({desde, hueco.desde}, fDias({desde, hueco.desde}), false);
        fPoner(hueco, dblResto * dblPliegue, true);
        desde = hueco.hasta;
    }
    const clsPeriodo ultimo{desde, lstFechadas.back().periodo.hasta};
    fPoner(ultimo, fDias(ultimo), false);
}

double clsEje::fLugar(sys_days dia) const
{
    const auto cual =
        std::find_if(m_lstTrechos.begin(), m_lstTrechos.end(),
                     [dia](const clsTrecho &trecho) { return dia < trecho.periodo.hasta; });
    if (cual == m_lstTrechos.end()) {
        return fLargo();
    }
    const double dblParte =
        fDias({cual->periodo.desde, std::max(dia, cual->periodo.desde)}) / fDias(cual->periodo);
    return std::lerp(cual->dblDesde, cual->dblHasta, dblParte);
}

const clsTrecho &clsEje::fTrechoEn(double dblLugar) const
{
    const auto cual =
        std::find_if(m_lstTrechos.begin(), m_lstTrechos.end(),
                     [dblLugar](const clsTrecho &trecho) { return dblLugar < trecho.dblHasta; });
    return cual == m_lstTrechos.end() ? m_lstTrechos.back() : *cual;
}

sys_days clsEje::fDiaEn(double dblLugar) const
{
    const clsTrecho &trecho = fTrechoEn(dblLugar);
    const double dblParte =
        std::clamp((dblLugar - trecho.dblDesde) / (trecho.dblHasta - trecho.dblDesde), 0.0, 1.0);
    constexpr double dblRedondeo = 1e-6; // so that the place of a day is that day's
    return trecho.periodo.desde +
           days{static_cast<int>(fDias(trecho.periodo) * dblParte + dblRedondeo)};
}

const clsTrecho *clsEje::fPlegadoEn(double dblLugar) const
{
    const clsTrecho &trecho = fTrechoEn(dblLugar);
    return trecho.bolPlegado ? &trecho : nullptr;
}
