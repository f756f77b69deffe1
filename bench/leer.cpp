/// How long it takes from the catalogue file to filtered, ordered rows, beside a bare cut into
/// lines of the same file; and how much memory the rows take.

#include "catalogue/lector.h"
#include "catalogue/orden.h"
#include "corte_desnudo.h"
#include "medir.h"
#include "shared/medios.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void fCortar(const std::string &strRuta)
{
    const auto lstLineas = fCortarDesnudo(strRuta);
    std::printf("bare cut: %zu lines, VmHWM %ld kB\n", lstLineas.size(), fMemoria("VmHWM"));
}

void fCargar(const std::string &strRuta, Medios medios)
{
    const long lngAntes = fMemoria("VmRSS");
    clsFilas filas;
    const auto lectura = fLeerFicheroCatalogo(strRuta, fExtensionesVisibles(medios), filas);
    if (!lectura || lectura->fallo) {
        std::fprintf(stderr, "not read: error %d\n", lectura.fError().fNumero());
        std::_Exit(1);
    }
    // Names of one second rank alike here: the alphabet is the window's.
    fOrdenar(filas, Columna::Fecha, false,
             [](const auto &lstNombres) { return std::vector<std::uint32_t>(lstNombres.size()); });
    const long lngDespues = fMemoria("VmRSS");
    std::printf("loaded: %d rows, %ld KB of files; VmRSS +%ld kB, %.0f bytes a row; VmHWM %ld kB\n",
                filas.fCantidad(), static_cast<long>(lectura->lngTotalKB), lngDespues - lngAntes,
                1024.0 * static_cast<double>(lngDespues - lngAntes) /
                    std::max(filas.fCantidad(), 1),
                fMemoria("VmHWM"));
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 2) {
        std::fputs("miravel_bench_leer CATALOGUE [ROUNDS | corte | nuestro]\n", stderr);
        return 2;
    }
    const std::string strRuta = lstArgumentos[1];
    const std::string_view strCual = intArgumentos > 2 ? lstArgumentos[2] : "15";
    if (strCual == "corte") {
        fCortar(strRuta);
        return 0;
    }
    if (strCual == "nuestro") {
        fCargar(strRuta, Medios::Todos);
        return 0;
    }
    return fComparar(
        {
            {"bare cut",        [&] { fCortar(strRuta); }                },
            {"rows, all media", [&] { fCargar(strRuta, Medios::Todos); } },
            {"rows, photos",    [&] { fCargar(strRuta, Medios::Fotos); } },
            {"rows, videos",    [&] { fCargar(strRuta, Medios::Videos); }},
    },
        std::atoi(std::string(strCual).c_str()));
}
