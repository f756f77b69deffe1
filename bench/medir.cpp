#include "medir.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace {

/// Milliseconds that a test takes in a child process; below 0 when the child failed.
double fMedirUna(const clsPrueba &prueba, bool bolCallar)
{
    int lstTubo[2];
    if (pipe(lstTubo) != 0) {
        return -1;
    }
    if (prueba.fPreparar) {
        prueba.fPreparar();
    }
    std::fflush(stdout);
    const pid_t intHijo = fork();
    if (intHijo == 0) {
        if (bolCallar && std::freopen("/dev/null", "w", stdout) == nullptr) {
            _exit(1);
        }
        const auto datInicio = std::chrono::steady_clock::now();
        prueba.fHacer();
        const std::chrono::duration<double, std::milli> lngMs =
            std::chrono::steady_clock::now() - datInicio;
        const double dblMs = lngMs.count();
        std::fflush(stdout);
        _exit(write(lstTubo[1], &dblMs, sizeof dblMs) == sizeof dblMs ? 0 : 1);
    }
    close(lstTubo[1]);
    double dblMs = -1;
    if (read(lstTubo[0], &dblMs, sizeof dblMs) != sizeof dblMs) {
        dblMs = -1;
    }
    close(lstTubo[0]);
    if (intHijo > 0) {
        waitpid(intHijo, nullptr, 0);
    }
    return dblMs;
}

double fMediana(std::vector<double> lstValores)
{
    std::sort(lstValores.begin(), lstValores.end());
    return lstValores[lstValores.size() / 2];
}

double fMenor(const std::vector<double> &lstValores)
{
    return *std::min_element(lstValores.begin(), lstValores.end());
}

} // namespace

int fComparar(const std::vector<clsPrueba> &lstPruebas, int intVueltas)
{
    std::vector<std::vector<double>> lstTiempos(lstPruebas.size());
    for (int intVuelta = 0; intVuelta < std::max(intVueltas, 1); ++intVuelta) {
        for (std::size_t lng = 0; lng < lstPruebas.size(); ++lng) {
            const double dblMs = fMedirUna(lstPruebas[lng], intVuelta > 0);
            if (dblMs < 0) {
                std::fprintf(stderr, "%s: failed\n", lstPruebas[lng].strNombre);
                return 1;
            }
            lstTiempos[lng].push_back(dblMs);
        }
    }
    std::printf("%-28s %9s %9s %9s %9s\n", "", "best ms", "median", "of medians", "of best");
    for (std::size_t lng = 0; lng < lstPruebas.size(); ++lng) {
        std::vector<double> lstRazones;
        for (std::size_t lngVuelta = 0; lngVuelta < lstTiempos[lng].size(); ++lngVuelta) {
            lstRazones.push_back(lstTiempos[lng][lngVuelta] / lstTiempos[0][lngVuelta]);
        }
        std::printf("%-28s %9.2f %9.2f %9.2f %9.2f\n", lstPruebas[lng].strNombre,
                    fMenor(lstTiempos[lng]), fMediana(lstTiempos[lng]), fMediana(lstRazones),
                    fMenor(lstTiempos[lng]) / fMenor(lstTiempos[0]));
    }
    return 0;
}

long fMemoria(const char *strLinea, const std::string &strProceso)
{
    std::ifstream archivo("/proc/" + strProceso + "/status");
    const std::string strInicio = std::string(strLinea) + ':';
    for (std::string strTexto; std::getline(archivo, strTexto);) {
        if (strTexto.starts_with(strInicio)) {
            return std::stol(strTexto.substr(strInicio.size()));
        }
    }
    return -1;
}

clsRutas fRutas(const char *strCarpeta)
{
    clsRutas lstRutas;
    std::error_code error;
    for (const auto &entrada : std::filesystem::recursive_directory_iterator(strCarpeta, error)) {
        if (entrada.is_regular_file(error)) {
            lstRutas.push_back(entrada.path().string());
        }
    }
    std::sort(lstRutas.begin(), lstRutas.end());
    return lstRutas;
}
