#include "timeline/barras.h"

#include <algorithm>
#include <cmath>
#include <numeric>

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

namespace {

int fSumar(const std::vector<int> &lstCuentas, std::ptrdiff_t lngDesde, std::ptrdiff_t lngHasta)
{
    return lstCuentas.empty()
               ? 0
               : std::accumulate(lstCuentas.begin() + lngDesde, lstCuentas.begin() + lngHasta, 0);
}

} // namespace

clsDias fContarDias(const clsFilas &filas, const std::vector<bool> &lstMalos)
{
    const auto lngFilas = static_cast<std::uint32_t>(filas.fCantidad());
    clsDias cuentas;
    clsFecha primera{INT64_MAX};
    clsFecha ultima = clsFilas::datNinguna;
    for (std::uint32_t lngFila = 0; lngFila < lngFilas; ++lngFila) {
        const clsFecha fecha = filas.fDatFecha(lngFila);
        const bool bolHay = fecha != clsFilas::datNinguna;
        cuentas.lngSinFecha += bolHay ? 0 : 1;
        primera = bolHay ? std::min(primera, fecha) : primera;
        ultima = std::max(ultima, fecha);
    }
    if (ultima == clsFilas::datNinguna) {
        return cuentas;
    }
    cuentas.primero = fDia(primera);
    const auto lngDias = static_cast<std::size_t>((fDia(ultima) - cuentas.primero).count()) + 1;
    cuentas.lstArchivos.resize(lngDias);
    cuentas.lstMalos.resize(lstMalos.empty() ? 0 : lngDias);
    for (std::uint32_t lngFila = 0; lngFila < lngFilas; ++lngFila) {
        if (const clsFecha fecha = filas.fDatFecha(lngFila); fecha != clsFilas::datNinguna) {
            const auto lngDia = static_cast<std::size_t>((fDia(fecha) - cuentas.primero).count());
            ++cuentas.lstArchivos[lngDia];
            if (!lstMalos.empty() && lstMalos[lngFila]) {
                ++cuentas.lstMalos[lngDia];
            }
        }
    }
    return cuentas;
}

clsPeriodo fPeriodo(sys_days dia, Unidad unidad)
{
    if (unidad == Unidad::Dia) {
        return {dia, dia + days{1}};
    }
    const year_month_day partes{dia};
    const auto mes = partes.year() / partes.month();
    return {mes / 1, (mes + std::chrono::months{1}) / 1};
}

std::vector<clsBarra> fBarras(const clsDias &dias, Unidad unidad)
{
    std::vector<clsBarra> lstBarras;
    if (dias.lngSinFecha > 0) {
        lstBarras.push_back({.lngArchivos = dias.lngSinFecha});
    }
    const auto lngDias = std::ssize(dias.lstArchivos);
    // A single date that is far off makes millions of days without files.
    const auto fConArchivos = [&dias](std::ptrdiff_t lngDia) {
        return std::find_if(dias.lstArchivos.begin() + lngDia, dias.lstArchivos.end(),
                            [](int lngArchivos) { return lngArchivos > 0; }) -
               dias.lstArchivos.begin();
    };
    for (std::ptrdiff_t lngDesde = fConArchivos(0), lngHasta = 0; lngDesde < lngDias;
         lngDesde = fConArchivos(lngHasta)) {
        const clsPeriodo periodo = fPeriodo(dias.primero + days{lngDesde}, unidad);
        lngHasta = std::min<std::ptrdiff_t>(lngDias, (periodo.hasta - dias.primero).count());
        lstBarras.push_back({periodo, fSumar(dias.lstArchivos, lngDesde, lngHasta),
                             fSumar(dias.lstMalos, lngDesde, lngHasta)});
    }
    return lstBarras;
}

int fBarraDe(const std::vector<clsBarra> &lstBarras, clsFecha fecha)
{
    const int lngBarra = fecha == clsFilas::datNinguna ? 0 : fBarraDesde(lstBarras, fDia(fecha));
    const bool bolSuya = lngBarra >= 0 && !lstBarras.empty() &&
                         lstBarras[static_cast<std::size_t>(lngBarra)].fContiene(fecha);
    return bolSuya ? lngBarra : -1;
}

int fBarraDesde(const std::vector<clsBarra> &lstBarras, sys_days dia)
{
    const auto cual = std::upper_bound(
        lstBarras.begin(), lstBarras.end(), dia,
        [](sys_days uno, const clsBarra &barra) { return uno < barra.periodo.hasta; });
    return static_cast<int>(std::min(cual - lstBarras.begin(), std::ssize(lstBarras) - 1));
}

std::optional<int> fPrimera(const clsFilas &filas, const clsBarra &barra)
{
    const auto &lstOrden = filas.fOrden();
    const auto cual = std::find_if(lstOrden.begin(), lstOrden.end(), [&](std::uint32_t lngFila) {
        return barra.fContiene(filas.fDatFecha(lngFila));
    });
    return cual == lstOrden.end() ? std::nullopt
                                  : std::optional(static_cast<int>(cual - lstOrden.begin()));
}

double fAltura(int lngArchivos, int lngMayor, double dblAlto)
{
    return lngMayor > 0 ? dblAlto * std::sqrt(static_cast<double>(lngArchivos) / lngMayor) : 0;
}
