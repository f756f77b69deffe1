/// How long a step and a selection take in a list in which a step finds nothing, so that it looks
/// at every row.

#include "browse/avance.h"
#include "browse/seleccion.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

int lngSuma = 0; // keeps the compiler from leaving the work out

/// Files of one folder and of one date text. The first and the last, which steps start from, are
/// of one real day in any case.
clsFilas fLista(int lngFilas, const std::string &strFecha)
{
    clsFilas filas;
    for (int lngFila = 0; lngFila < lngFilas; ++lngFila) {
        const bool bolExtremo = lngFila == 0 || lngFila == lngFilas - 1;
        filas.fAgregarFila("/media/disco/Fotos/2010/IMG_" + std::to_string(lngFila) + ".JPG",
                           bolExtremo ? "2010/01/01 12:00:00" : strFecha, 4096);
    }
    return filas;
}

/// Puts the rows where hardly two that follow each other lie together in memory.
void fMezclar(clsFilas &filas)
{
    std::vector<std::uint32_t> lstOrden(static_cast<std::size_t>(filas.fCantidad()));
    std::iota(lstOrden.begin(), lstOrden.end(), 0U);
    std::shuffle(lstOrden.begin(), lstOrden.end(), std::mt19937(1));
    filas.fReordenar(std::move(lstOrden));
}

void fMedir(const char *strNombre, const std::function<void()> &fHacer)
{
    constexpr int intVueltas = 101;
    std::vector<double> lstMs;
    for (int intVuelta = 0; intVuelta < intVueltas; ++intVuelta) {
        const auto datInicio = std::chrono::steady_clock::now();
        fHacer();
        lstMs.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - datInicio)
                .count());
    }
    std::sort(lstMs.begin(), lstMs.end());
    std::printf("  %-24s %8.2f %8.2f %8.2f\n", strNombre, lstMs.front(), lstMs[intVueltas / 2],
                lstMs.back());
}

void fMedirLista(const char *strNombre, clsFilas &filas)
{
    std::printf("%s\n  %-24s %8s %8s %8s\n", strNombre, "", "best ms", "median", "worst");
    const int lngUltimo = filas.fCantidad() - 1;
    for (const Avance modo :
         {Avance::Carpeta, Avance::Dia, Avance::Semana, Avance::Mes, Avance::Ano}) {
        const std::string strModo = fTextoAvance(modo);
        fMedir((strModo + " on").c_str(),
               [&] { lngSuma += fAvanzar(filas, 0, modo, Sentido::Adelante).value_or(0); });
        fMedir((strModo + " back").c_str(),
               [&] { lngSuma += fAvanzar(filas, lngUltimo, modo, Sentido::Atras).value_or(0); });
    }
    fMedir("to a date", [&] {
        lngSuma += fIrAFecha(filas, 0, fFechaDe({9999, 12, 31}).value()).value_or(0);
    });
    fMedir("select all", [&] { fSeleccionar(filas, Seleccion::Todo, {}); });
    fMedir("invert the selection", [&] { fSeleccionar(filas, Seleccion::Invertir, {}); });
    fMedir("invert a range", [&] { fInvertirEntre(filas, lngUltimo, 0); });
    fMedir("ticked rows", [&] { lngSuma += static_cast<int>(fMarcadas(filas).size()); });
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    const int lngFilas = intArgumentos > 1 ? std::atoi(lstArgumentos[1]) : 1'000'000;
    if (lngFilas < 2) {
        std::fputs("miravel_bench_comandos [ROWS]\n", stderr);
        return 2;
    }
    clsFilas filas = fLista(lngFilas, "2010/01/01 18:30:00");
    fMedirLista("As they lie in memory", filas);
    fMezclar(filas);
    fMedirLista("Shuffled", filas);
    filas = fLista(lngFilas, "4096");
    fMedirLista("No dates but in the first and the last row", filas);
    return lngSuma == 1 ? 1 : 0;
}
