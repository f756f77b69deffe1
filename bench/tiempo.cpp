/// How long it takes to make the timeline of a list, from its rows to what is drawn. The reference
/// looks at the date of every row once, as going to a date that none has does.

#include "browse/avance.h"
#include "dates/malas.h"
#include "timeline/rotulos.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

double dblSuma = 0; // keeps the compiler from leaving the work out

/// Files of twenty years, 200 to a folder, in no order of their dates, and one more.
clsFilas fLista(int lngFilas, const std::string &strUltima)
{
    std::mt19937 azar(1);
    const clsFecha primera = fMedianoche(std::chrono::year{2000} / 1 / 1);
    std::uniform_int_distribution<std::int64_t> segundos(0, std::int64_t{20} * 365 * 86400);
    clsFilas filas;
    for (int lngFila = 0; lngFila < lngFilas; ++lngFila) {
        const clsFecha fecha{primera.lngSegundos + segundos(azar)};
        filas.fAgregarFila("/media/disco/Fotos/" + std::to_string(lngFila / 200) + "/IMG_" +
                               std::to_string(lngFila) + ".JPG",
                           fEscribirFecha(fecha), 4096);
    }
    filas.fAgregarFila("/media/disco/Fotos/ultima.jpg", strUltima, 4096);
    return filas;
}

/// Prints best, median and worst time, and how often the best reference goes into the best.
/// @param dblReferencia the best reference; 0: this is it.
/// @return the best.
double fMedir(const char *strNombre, double dblReferencia, const std::function<void()> &fHacer)
{
    constexpr int intVueltas = 51;
    std::vector<double> lstMs;
    for (int intVuelta = 0; intVuelta < intVueltas; ++intVuelta) {
        const auto datInicio = std::chrono::steady_clock::now();
        fHacer();
        lstMs.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - datInicio)
                .count());
    }
    std::sort(lstMs.begin(), lstMs.end());
    std::printf("  %-36s %8.2f %8.2f %8.2f %8.2f\n", strNombre, lstMs.front(),
                lstMs[intVueltas / 2], lstMs.back(),
                dblReferencia > 0 ? lstMs.front() / dblReferencia : 1.0);
    return lstMs.front();
}

void fMedirLista(int lngFilas, const std::string &strUltima)
{
    const clsFilas filas = fLista(lngFilas, strUltima);
    clsMalas malas; // one in a hundred
    for (int lngPos = 0; lngPos < lngFilas; lngPos += 100) {
        malas.fAnotar(filas, lngPos);
    }
    std::printf("%d files, the last of %s\n  %-36s %8s %8s %8s %8s\n", lngFilas, strUltima.c_str(),
                "", "best ms", "median", "worst", "ratio");
    const double dblReferencia = fMedir("every date once", 0, [&] {
        dblSuma += fIrAFecha(filas, 0, fFechaDe({9999, 12, 31}).value()).value_or(0);
    });
    fMedir("bars and axis", dblReferencia, [&] {
        clsTira tira;
        tira.fDisponer({0, 1600}, 60);
        tira.fMostrar(fContarDias(filas));
        dblSuma += tira.fMayor();
    });
    fMedir("the same, 1 % known to be wrong", dblReferencia, [&] {
        clsTira tira;
        tira.fDisponer({0, 1600}, 60);
        tira.fMostrar(fContarDias(filas, malas.fEn(filas)));
        dblSuma += tira.fMayor();
    });
    clsTira tira;
    tira.fDisponer({0, 1600}, 60);
    tira.fMostrar(fContarDias(filas));
    fMedir("years below them", dblReferencia, [&] {
        dblSuma += static_cast<double>(fRotulos(tira, [](const std::string &strTexto) {
                                           return 7.0 * static_cast<double>(strTexto.size());
                                       }).size());
    });
    fMedir("enlarged to days", dblReferencia, [&] {
        clsTira otra = tira;
        otra.fAmpliar(800, 1000);
        dblSuma += otra.fMayor();
    });
    fMedir("a bar's first file, the last one", dblReferencia,
           [&] { dblSuma += fPrimera(filas, clsBarra{}).value_or(0); });
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    const int lngFilas = intArgumentos > 1 ? std::atoi(lstArgumentos[1]) : 1'000'000;
    if (lngFilas < 1) {
        std::fputs("miravel_bench_tiempo [ROWS]\n", stderr);
        return 2;
    }
    fMedirLista(lngFilas, "2019/12/31 12:00:00");
    fMedirLista(lngFilas, "9998/12/31 12:00:00");
    return dblSuma < 0 ? 1 : 0;
}
