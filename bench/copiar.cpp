/// How long copying many files takes, beside "cp -p" of the same files.

#include "browse/copia.h"
#include "medir.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

void fEjecutar(const std::string &strOrden)
{
    if (std::system(strOrden.c_str()) != 0) {
        std::fprintf(stderr, "failed: %s\n", strOrden.c_str());
        std::_Exit(1);
    }
}

/// Files of bytes that repeat only after some megabytes and differ from file to file.
void fHacerFicheros(const std::string &strCarpeta, int intCuantos, std::size_t lngBytes)
{
    std::filesystem::create_directories(strCarpeta);
    std::string strBytes(lngBytes, '\0');
    unsigned lngAzar = 1;
    for (char &chr : strBytes) {
        lngAzar = (lngAzar * 1664525U) + 1013904223U;
        chr = static_cast<char>(lngAzar >> 24U);
    }
    for (int intNumero = 0; intNumero < intCuantos; ++intNumero) {
        strBytes.replace(0, 8, std::to_string(10'000'000 + intNumero));
        std::ofstream(strCarpeta + std::to_string(intNumero) + ".jpg", std::ios::binary)
            << strBytes;
    }
}

void fCopiarTodo(const clsRutas &lstRutas, const std::string &strDestino)
{
    const clsFinCopia fin =
        fCopiarLista(lstRutas, fDestinoEn(strDestino), [](int) { return true; });
    if (fin.fallo || static_cast<std::size_t>(fin.lngHechas) != lstRutas.size()) {
        std::fprintf(stderr, "copied %d, error %d\n", fin.lngHechas,
                     fin.fallo ? fin.fallo->error.fNumero() : 0);
        std::_Exit(1);
    }
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    const bool bolFrio = intArgumentos > 1 && std::string_view(lstArgumentos[1]) == "--cold";
    char **const lstResto = lstArgumentos + (bolFrio ? 2 : 1);
    const int intResto = intArgumentos - (bolFrio ? 2 : 1);
    if (intResto < 1) {
        std::fputs("miravel_bench_copiar [--cold] FOLDER [FILES [BYTES [ROUNDS]]]\n", stderr);
        return 2;
    }
    const std::string strFolder = std::string(lstResto[0]) + '/';
    const int intCuantos = intResto > 1 ? std::atoi(lstResto[1]) : 1000;
    const long lngBytes = intResto > 2 ? std::atol(lstResto[2]) : 5'000'000;
    const int intVueltas = intResto > 3 ? std::atoi(lstResto[3]) : 5;
    const std::string strOrigen = strFolder + "origen/";
    const std::string strDestino = strFolder + "destino/";
    fHacerFicheros(strOrigen, intCuantos, static_cast<std::size_t>(lngBytes));
    const clsRutas lstRutas = fRutas(strOrigen.c_str());
    // Every round starts alike: nothing to write back, the sources all in memory or none of them.
    const auto fPreparar = [&] {
        std::filesystem::remove_all(strDestino);
        std::filesystem::create_directories(strDestino);
        sync();
        fEjecutar(bolFrio ? "echo 3 >/proc/sys/vm/drop_caches"
                          : "cat '" + strOrigen + "'* >/dev/null");
    };
    const auto fCp = [&] { fEjecutar("cp -p -r '" + strOrigen + ".' '" + strDestino + "'"); };
    const auto fNuestro = [&] { fCopiarTodo(lstRutas, strDestino); };
    const int intFin = fComparar(
        {
            {"cp -p",        fCp,      fPreparar},
            {"ours",         fNuestro, fPreparar},
            {"cp -p, again", fCp,      fPreparar},
            {"ours, again",  fNuestro, fPreparar}
    },
        intVueltas);
    std::filesystem::remove_all(strOrigen);
    std::filesystem::remove_all(strDestino);
    return intFin;
}
