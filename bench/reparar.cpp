/// How long the table of repairs takes for what a window asks of it: best and worst of 15 times.

#include "repair/reparacion.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace {

constexpr std::int64_t lngMediaHora = 1800;

/// A file whose sources nearly agree; of every seventh nothing is known.
clsFechasFichero fFechas(int lngFila)
{
    const clsFecha fecha{std::int64_t{lngFila} % 15'000 * 86400 + 2'210'000'000};
    clsFechasFichero fechas{true, clsFecha{3'700'000'000}, false, {}};
    if (lngFila % 7 != 0) {
        fechas.lstFuentes.push_back({.fecha = fecha, .fuente = Fuente::ExifTomada});
        fechas.lstFuentes.push_back({.fecha = {fecha.lngSegundos + lngMediaHora},
                                     .fuente = Fuente::Gps,
                                     .zona = Zona::Utc});
    }
    return fechas;
}

clsTablaReparacion fTabla(int lngFilas)
{
    clsTablaReparacion tabla("/fotos/", clsFecha{3'900'000'000});
    for (int lngFila = 0; lngFila < lngFilas; ++lngFila) {
        tabla.fAgregar("/fotos/" + std::to_string(lngFila / 200) + "/IMG_" +
                           std::to_string(lngFila * 7919LL % lngFilas) + ".JPG",
                       fFechas(lngFila));
    }
    return tabla;
}

/// Ranks by bytes; the window has a collator.
std::vector<std::uint32_t> fRangos(const std::vector<std::string_view> &lstTextos)
{
    std::vector<std::pair<std::string_view, std::uint32_t>> lstOrden;
    for (std::uint32_t lng = 0; lng < lstTextos.size(); ++lng) {
        lstOrden.emplace_back(lstTextos[lng], lng);
    }
    std::sort(lstOrden.begin(), lstOrden.end());
    std::vector<std::uint32_t> lstRangos(lstTextos.size());
    for (std::uint32_t lng = 0; lng < lstOrden.size(); ++lng) {
        lstRangos[lstOrden[lng].second] = lng;
    }
    return lstRangos;
}

void fMedir(const char *strNombre, const std::function<void()> &fHacer)
{
    using Reloj = std::chrono::steady_clock;
    double dblMejor = 1e9;
    double dblPeor = 0;
    for (int intVez = 0; intVez < 15; ++intVez) {
        const auto desde = Reloj::now();
        fHacer();
        const double dblMs =
            std::chrono::duration<double, std::milli>(Reloj::now() - desde).count();
        dblMejor = std::min(dblMejor, dblMs);
        dblPeor = std::max(dblPeor, dblMs);
    }
    std::printf("%-32s %8.2f %8.2f\n", strNombre, dblMejor, dblPeor);
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    const int lngFilas = intArgumentos > 1 ? std::atoi(lstArgumentos[1]) : 100'000;
    clsTablaReparacion tabla = fTabla(lngFilas);
    bool bolMarca = false;
    std::size_t lngBytes = 0;
    std::printf("%d rows, ms                       best    worst\n", lngFilas);
    fMedir("adding all", [&] { static_cast<void>(fTabla(lngFilas)); });
    fMedir("the text of 50 rows", [&] {
        for (int lngFila = 0; lngFila < std::min(50, lngFilas); ++lngFila) {
            for (int intColumna = 0; intColumna < intColumnasReparacion; ++intColumna) {
                lngBytes +=
                    tabla.fTexto(lngFila, static_cast<ColumnaReparacion>(intColumna)).size();
            }
        }
    });
    fMedir("counting", [&] { lngBytes += fTextoCuentas(tabla.fCuentas()).size(); });
    fMedir("another filter", [&] { tabla.fMostrar(VistaReparacion::Todas); });
    fMedir("order by the new date",
           [&] { tabla.fOrdenar(ColumnaReparacion::Nueva, false, fRangos); });
    fMedir("order by the name", [&] { tabla.fOrdenar(ColumnaReparacion::Nombre, false, fRangos); });
    fMedir("order by the new name",
           [&] { tabla.fOrdenar(ColumnaReparacion::NombreNuevo, true, fRangos); });
    // With what the window asks after each change: what to look for, and how many can be corrected.
    const auto fPie = [&] {
        lngBytes += fTextoCuentas(tabla.fCuentas()).size() + tabla.fPorComprobar().size() +
                    static_cast<std::size_t>(tabla.fReparables());
    };
    const auto fMedirConPie = [&](const char *strNombre, const std::function<void()> &fHacer) {
        fMedir(strNombre, [&] {
            fHacer();
            fPie();
        });
    };
    std::vector<std::pair<std::string, bool>> lstLibres; // no disk is asked here
    for (std::string &strRuta : tabla.fPorComprobar()) {
        lstLibres.emplace_back(std::move(strRuta), false);
    }
    tabla.fComprobado(lstLibres);
    fMedirConPie("ticking one", [&] { tabla.fMarcar(1, bolMarca = !bolMarca); });
    fMedirConPie("ticking all", [&] { tabla.fMarcarVista(bolMarca = !bolMarca); });
    tabla.fMarcarVista(true);
    fMedir("first and last of a shift",
           [&] { lngBytes += tabla.fTramo(lngMediaHora).datUltima.fHay() ? 1 : 0; });
    fMedirConPie("a shift, new names unknown", [&] { tabla.fDesplazar(lngMediaHora); });
    fMedirConPie("names as they are, and back", [&] {
        tabla.fNombres(NombreReparado::SinCambio);
        tabla.fNombres(NombreReparado::AnteponerFecha);
    });
    fMedir("names to look for", [&] { lngBytes += tabla.fPorComprobar().size(); });
    fMedir("what is to be done", [&] { lngBytes += tabla.fReparados().size(); });
    return lngBytes == 0 ? 1 : 0;
}
