#include "repair/resumen.h"

#include "shared/numeros.h"

#include <algorithm>
#include <numeric>

namespace {

std::size_t fIndice(EstadoFecha estado) { return static_cast<std::size_t>(estado); }

int fAnoDe(const clsFechasFichero &fechas)
{
    return fechas.datArchivo.fHay() ? fPartes(fechas.datArchivo).intAno : 0;
}

} // namespace

EstadoFecha fEstadoFecha(const clsFechasFichero &fechas)
{
    return fechas.bolCorrecta          ? EstadoFecha::Correcta
           : fechas.lstFuentes.empty() ? EstadoFecha::SinFecha
                                       : EstadoFecha::Incorrecta;
}

int clsAnoResumen::fCuantos(EstadoFecha estado) const
{
    return static_cast<int>(lstRutas[fIndice(estado)].size());
}

int clsAnoResumen::fTodos() const
{
    return std::accumulate(lstRutas.begin(), lstRutas.end(), 0,
                           [](int intSuma, const auto &lstUnas) {
                               return intSuma + static_cast<int>(lstUnas.size());
                           });
}

void clsResumenFechas::fAgregar(const std::string &strRuta, const clsFechasFichero &fechas)
{
    const int intAno = fAnoDe(fechas);
    auto cual = std::lower_bound(
        m_lstAnos.begin(), m_lstAnos.end(), intAno,
        [](const clsAnoResumen &uno, int intOtro) { return uno.intAno < intOtro; });
    if (cual == m_lstAnos.end() || cual->intAno != intAno) {
        cual = m_lstAnos.insert(cual, {intAno, {}});
    }
    cual->lstRutas[fIndice(fEstadoFecha(fechas))].push_back(strRuta);
    m_intMayor = std::max(m_intMayor, cual->fTodos());
}

std::string fTextoResumen(const clsResumenFechas &resumen)
{
    std::array<int, intEstadosFecha> lstSumas{};
    for (const clsAnoResumen &uno : resumen.fAnos()) {
        for (std::size_t lng = 0; lng < lstSumas.size(); ++lng) {
            lstSumas[lng] += uno.fCuantos(static_cast<EstadoFecha>(lng));
        }
    }
    const auto fNumero = [](int intCuantos) { return fConGrupos(intCuantos, {}); };
    const auto &[intBien, intMal, intSin] = lstSumas;
    const int intTodos = intBien + intMal + intSin;
    return fNumero(intTodos) + (intTodos == 1 ? " archivo: " : " archivos: ") + fNumero(intBien) +
           " con la fecha correcta, " + fNumero(intMal) + " incorrecta, " + fNumero(intSin) +
           " sin fecha";
}
