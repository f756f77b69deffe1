#include "timeline/rotulos.h"

#include "timeline/textos_tiempo.h"

#include <algorithm>
#include <array>
#include <utility>

using std::chrono::months;
using std::chrono::sys_days;
using std::chrono::year_month;
using std::chrono::year_month_day;

namespace {

constexpr double dblEntre = 8; ///< pixels between two texts at least

/// The steps there are, in months.
constexpr std::array<int, 13> lstPasos{1,        3,        6,        12,      2 * 12,
                                       5 * 12,   10 * 12,  20 * 12,  50 * 12, 100 * 12,
                                       200 * 12, 500 * 12, 1000 * 12};

int fMeses(sys_days dia)
{
    const year_month_day partes{dia};
    return static_cast<int>(partes.year()) * 12 +
           static_cast<int>(static_cast<unsigned>(partes.month())) - 1;
}

sys_days fInicioMes(int intMeses)
{
    return (year_month{std::chrono::year{0}, std::chrono::January} + months{intMeses}) / 1;
}

std::string fTextoRotulo(sys_days dia, Unidad unidad)
{
    return unidad == Unidad::Mes ? fTextoAno(dia) : fTextoMesCorto(dia);
}

/// The texts that have been placed, in no order.
class clsFilaRotulos {
public:
    clsFilaRotulos(const clsTira &tira, const std::function<double(const std::string &)> &fAncho)
        : m_tira(tira), m_fAncho(fAncho)
    {
    }

    /// Places the text of a day where it overlaps none, and lies on the axis.
    void fPoner(sys_days dia)
    {
        const clsIntervalo eje = m_tira.fSitioEje();
        const std::string strTexto = fTextoRotulo(dia, m_tira.fUnidad());
        const double dblDesde = m_tira.fSitio(clsPeriodo{dia, dia}).dblDesde;
        const double dblHasta = dblDesde + m_fAncho(strTexto);
        const bool bolLibre =
            dblDesde >= eje.dblDesde && dblHasta <= eje.dblHasta &&
            std::none_of(m_lstRotulos.begin(), m_lstRotulos.end(), [&](const clsRotulo &otro) {
                return otro.strTexto == strTexto || // before a fold
                       (dblDesde < otro.dblX + m_fAncho(otro.strTexto) + dblEntre &&
                        otro.dblX < dblHasta + dblEntre);
            });
        if (bolLibre) {
            m_lstRotulos.push_back({dblDesde, strTexto});
        }
    }

    std::vector<clsRotulo> fTomar() { return std::move(m_lstRotulos); }

private:
    const clsTira &m_tira;
    const std::function<double(const std::string &)> &m_fAncho;
    std::vector<clsRotulo> m_lstRotulos;
};

/// The step between two texts, in months: the least by which they find room.
/// @param dblDia pixels of a day.
int fPaso(Unidad unidad, double dblDia, double dblAncho)
{
    constexpr double dblMes = 28; // days, at least
    const int intMenor = unidad == Unidad::Mes ? 12 : 1;
    const auto cual = std::find_if(lstPasos.begin(), lstPasos.end(), [&](int intPaso) {
        return intPaso >= intMenor && intPaso * dblMes * dblDia >= dblAncho + dblEntre;
    });
    return cual == lstPasos.end() ? lstPasos.back() : *cual;
}

/// The parts of the axis that can be seen, each as far as it can.
std::vector<clsPeriodo> fVisibles(const clsTira &tira)
{
    const clsIntervalo eje = tira.fSitioEje();
    std::vector<clsPeriodo> lstVisibles;
    for (const clsTrecho &trecho : tira.fEje().fTrechos()) {
        const clsIntervalo sitio = tira.fSitio(trecho.periodo);
        if (!trecho.bolPlegado && sitio.dblDesde < eje.dblHasta && sitio.dblHasta > eje.dblDesde) {
            lstVisibles.push_back({tira.fDiaEn(std::max(sitio.dblDesde, eje.dblDesde)),
                                   tira.fDiaEn(std::min(sitio.dblHasta, eje.dblHasta))});
        }
    }
    return lstVisibles;
}

} // namespace

std::vector<clsRotulo> fRotulos(const clsTira &tira,
                                const std::function<double(const std::string &)> &fAncho)
{
    clsFilaRotulos fila(tira, fAncho);
    const Unidad unidad = tira.fUnidad();
    const std::vector<clsPeriodo> lstVisibles = fVisibles(tira);
    for (const clsPeriodo &visible : lstVisibles) {
        const int intPaso =
            fPaso(unidad, tira.fEscala(), fAncho(fTextoRotulo(visible.desde, unidad)));
        int intMes = (fMeses(visible.desde) + intPaso - 1) / intPaso * intPaso;
        for (; fInicioMes(intMes) < visible.hasta; intMes += intPaso) {
            fila.fPoner(fInicioMes(intMes));
        }
    }
    // And where a part begins with the rest of a year or month, if there is still room.
    for (const clsPeriodo &visible : lstVisibles) {
        fila.fPoner(visible.desde);
    }
    return fila.fTomar();
}
