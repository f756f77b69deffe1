/// How long the search for duplicates takes in a long list, beside "cat" of the files it has to
/// read.

#include "duplicates/busqueda_copias.h"
#include "duplicates/candidatos.h"
#include "medir.h"

#include "catalogue/filas.h"
#include "dates/clsFile.h"
#include "sistema/archivo.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::int64_t lngPar = 3'000'000; ///< bytes of a file that has a copy, and some more

/// Bytes without any order, those of each seed different.
std::string fAzar(std::size_t lngBytes, std::uint64_t lngSemilla)
{
    std::string strBytes(lngBytes, '\0');
    std::uint64_t lngAzar = lngSemilla;
    for (char &chr : strBytes) {
        lngAzar = lngAzar * 6364136223846793005U + 1442695040888963407U;
        chr = static_cast<char>(lngAzar >> 56U);
    }
    return strBytes;
}

/// Pairs of equal files in two folders; each pair has a size of its own.
void fHacerPares(const std::string &strFolder, int intPares)
{
    for (const char *const strCarpeta : {"a/", "b/"}) {
        std::filesystem::create_directories(strFolder + strCarpeta);
    }
    for (int intPar = 0; intPar < intPares; ++intPar) {
        const std::string strBytes = fAzar(static_cast<std::size_t>(lngPar + intPar),
                                           static_cast<std::uint64_t>(intPar) + 1);
        for (const char *const strCarpeta : {"a/", "b/"}) {
            std::ofstream(strFolder + strCarpeta + std::to_string(10'000 + intPar) + ".jpg",
                          std::ios::binary)
                << strBytes;
        }
    }
}

/// Forgets what the system has read of the files, and of nothing else.
void fEnfriarFicheros(const clsRutas &lstRutas)
{
    for (const std::string &strRuta : lstRutas) {
        const int intFd = open(strRuta.c_str(), O_RDONLY | O_CLOEXEC);
        fsync(intFd);
        posix_fadvise(intFd, 0, 0, POSIX_FADV_DONTNEED);
        close(intFd);
    }
}

/// A list of those files and of as many others as it takes, each of a size of its own. The others
/// need not exist: whatever asks the disk for them would find them missing.
clsFilas fLista(const std::string &strFolder, const clsRutas &lstRutas, int intFilas)
{
    clsFilas filas;
    filas.fFijarRaiz(strFolder);
    for (const std::string &strRuta : lstRutas) {
        filas.fAgregarFila(strRuta, "2009/07/14 18:03:22",
                           static_cast<std::int64_t>(std::filesystem::file_size(strRuta)));
    }
    while (filas.fCantidad() < intFilas) {
        filas.fAgregarFila(strFolder + "c/" + std::to_string(filas.fCantidad()) + ".jpg",
                           "2009/07/14 18:03:22", 2 * lngPar + filas.fCantidad());
    }
    return filas;
}

void fBuscarEnLista(const clsFilas &filas)
{
    std::size_t lngGrupos = 0;
    clsBusquedaCopias busqueda(fCandidatos(filas),
                               {.fFechaBien = fFechaCorrecta,
                                .fGrupo = [&](const clsGrupo &) { ++lngGrupos; },
                                .fAvance = [] {}});
    busqueda.fEmpezar();
    while (busqueda.fBuscando() && busqueda.fAtender(std::chrono::seconds(60))) {
    }
    std::printf("%zu groups, %d missing\n", lngGrupos, busqueda.fOmitidos().intFaltan);
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    const bool bolFrio = intArgumentos > 1 && std::string_view(lstArgumentos[1]) == "--cold";
    char **const lstResto = lstArgumentos + (bolFrio ? 2 : 1);
    const int intResto = intArgumentos - (bolFrio ? 2 : 1);
    if (intResto < 1) {
        std::fputs("miravel_bench_duplicados [--cold] FOLDER [PAIRS [ROWS [ROUNDS]]]\n", stderr);
        return 2;
    }
    const std::string strFolder = std::string(lstResto[0]) + "/duplicados/";
    const int intPares = intResto > 1 ? std::atoi(lstResto[1]) : 1000;
    const int intFilas = intResto > 2 ? std::atoi(lstResto[2]) : 100'000;
    const int intVueltas = intResto > 3 ? std::atoi(lstResto[3]) : 5;
    if (fRutas(strFolder.c_str()).size() != 2 * static_cast<std::size_t>(intPares)) {
        std::filesystem::remove_all(strFolder);
        fHacerPares(strFolder, intPares);
    }
    const clsRutas lstRutas = fRutas(strFolder.c_str());
    const clsFilas filas = fLista(strFolder, lstRutas, intFilas);
    const auto fPreparar = [&] {
        if (bolFrio) {
            fEnfriarFicheros(lstRutas);
        }
    };
    const auto fCat = [&] {
        if (std::system(("cat '" + strFolder + "'a/* '" + strFolder + "'b/* >/dev/null").c_str()) !=
            0) {
            std::_Exit(1);
        }
    };
    const auto fNuestra = [&] { fBuscarEnLista(filas); };
    return fComparar(
        {
            {"cat",         fCat,     fPreparar},
            {"ours",        fNuestra, fPreparar},
            {"cat, again",  fCat,     fPreparar},
            {"ours, again", fNuestra, fPreparar}
    },
        intVueltas);
}
