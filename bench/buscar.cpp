/// How long the search for a wrong date takes through files that are all right, on one thread and
/// on several, and whether it keeps memory.

#include "dates/busqueda.h"
#include "dates/clsFile.h"
#include "medir.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

constexpr int intVueltas = 3;

/// Forgets what the system has read of the disk; needs the rights of root.
bool fEnfriar()
{
    sync();
    std::ofstream archivo("/proc/sys/vm/drop_caches");
    archivo << "3\n" << std::flush;
    return archivo.good();
}

/// Searches through all files, last to first; milliseconds.
double fBuscar(const clsRutas &lstRutas, int intHilos)
{
    clsPreguntas preguntas;
    preguntas.fRuta = [&](int lngPos) { return lstRutas[static_cast<std::size_t>(lngPos)]; };
    preguntas.fCorrecta = [](const std::string &strRuta) {
        clsFile fichero;
        fichero.fCargar(strRuta);
        return fichero.bolFechaCorrecta();
    };
    preguntas.fPaso = [](int /*lngPos*/) { return true; };
    const long lngAntes = fMemoria("VmRSS");
    const auto datInicio = std::chrono::steady_clock::now();
    const auto lngHallada =
        fBuscarIncorrecta(static_cast<int>(lstRutas.size()) - 1, preguntas, intHilos);
    const std::chrono::duration<double, std::milli> lngMs =
        std::chrono::steady_clock::now() - datInicio;
    std::printf("%2d threads: %9.1f ms, VmRSS %ld kB before, %ld kB after\n", intHilos,
                lngMs.count(), lngAntes, fMemoria("VmRSS"));
    if (lngHallada) {
        std::printf("wrong, the search ended there: %s\n",
                    lstRutas[static_cast<std::size_t>(*lngHallada)].c_str());
    }
    return lngMs.count();
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    std::vector<const char *> lstResto(lstArgumentos + 1, lstArgumentos + intArgumentos);
    const bool bolFrio =
        std::erase_if(lstResto, [](std::string_view str) { return str == "--cold"; }) > 0;
    const int intHilos = lstResto.size() > 1 ? std::atoi(lstResto[1]) : 8;
    const clsRutas lstRutas = lstResto.empty() ? clsRutas() : fRutas(lstResto[0]);
    if (lstRutas.empty() || intHilos < 1) {
        std::fputs("miravel_bench_buscar [--cold] FOLDER [THREADS]\n", stderr);
        return 2;
    }
    std::printf("%zu files\n", lstRutas.size());
    for (int intVuelta = 0; intVuelta < intVueltas; ++intVuelta) {
        double lstMs[2];
        for (const int intCual : {0, 1}) {
            if (bolFrio && !fEnfriar()) {
                std::fputs("the page cache cannot be dropped\n", stderr);
                return 1;
            }
            lstMs[intCual] = fBuscar(lstRutas, intCual == 0 ? 1 : intHilos);
        }
        std::printf("ratio %.2f\n", lstMs[0] / lstMs[1]);
    }
    return 0;
}
