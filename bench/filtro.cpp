/// How long the filter takes: by words, beside a bare program that puts every text into capitals
/// and looks for the words; by dates, beside a bare fstatat of every file. And how long the order
/// by name takes.

#include "filter/filtro.h"
#include "catalogue/cotejo.h"
#include "catalogue/lector.h"
#include "catalogue/orden.h"
#include "filter/mayusculas.h"
#include "medir.h"
#include "shared/medios.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace {

constexpr std::size_t lngCorte = 4;
const std::vector<std::string> lstPalabras = {"carpeta", "20", "g_12"};

clsFilas fLeerFilas(const char *strCatalogo)
{
    clsFilas filas;
    const auto lectura =
        fLeerFicheroCatalogo(strCatalogo, fExtensionesVisibles(Medios::Todos), filas);
    if (!lectura) {
        std::fprintf(stderr, "not read: error %d\n", lectura.fError().fNumero());
        std::exit(1);
    }
    return filas;
}

/// The same rows with a name in front that has accents: composed, or of letter and mark.
clsFilas fConAcentos(const clsFilas &filas, std::string_view strAcentos)
{
    clsFilas otras;
    for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
        otras.fAgregarFila(
            std::string(filas.fCarpeta(lngPos)).append(strAcentos).append(filas.fNombre(lngPos)),
            "2009/07/14 18:03:22", 1);
    }
    return otras;
}

void fBuscarDesnudo(const std::vector<std::string> &lstTextos)
{
    int lngPasan = 0;
    std::string strMayusculas;
    std::vector<std::string> lstBuscadas = lstPalabras;
    const auto fSubir = [](std::string &str) {
        for (char &chr : str) {
            chr = static_cast<char>(chr >= 'a' && chr <= 'z' ? chr - 0x20 : chr);
        }
    };
    std::for_each(lstBuscadas.begin(), lstBuscadas.end(), fSubir);
    for (const std::string &strTexto : lstTextos) {
        strMayusculas.assign(strTexto, 0, strTexto.size() - lngCorte);
        fSubir(strMayusculas);
        lngPasan += std::all_of(lstBuscadas.begin(), lstBuscadas.end(),
                                [&](const std::string &strPalabra) {
                                    return strMayusculas.find(strPalabra) != std::string::npos;
                                })
                        ? 1
                        : 0;
    }
    std::printf("bare: %zu texts, %d pass\n", lstTextos.size(), lngPasan);
}

void fFiltrarFilas(const clsFilas &filas, const clsFiltro &filtro)
{
    int intPasos = 0;
    const auto filtrado = fFiltrar(filas, filtro, fMayusculasCompuestas, [&](int) {
        ++intPasos;
        return true;
    });
    std::printf("filter: %d rows, %zu pass, %d steps, VmHWM %ld kB\n", filas.fCantidad(),
                filtrado->lstFilas.size(), intPasos, fMemoria("VmHWM"));
}

int fTexto(const char *strCatalogo, int intVueltas)
{
    const clsFilas filas = fLeerFilas(strCatalogo);
    const clsFilas compuestas = fConAcentos(filas, "Cumpleaños de María ");
    const clsFilas sueltas = fConAcentos(filas, "Cumplean\u0303os de Mari\u0301a ");
    std::vector<std::string> lstTextos;
    lstTextos.reserve(static_cast<std::size_t>(filas.fCantidad()));
    for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
        lstTextos.push_back(filas.fRuta(lngPos));
    }
    const clsFiltro filtro{false, {}, {}, lstPalabras, true, ModoTexto::And};
    return fComparar(
        {
            {"bare capitals and find",    [&] { fBuscarDesnudo(lstTextos); }        },
            {"words, whole path",         [&] { fFiltrarFilas(filas, filtro); }     },
            {"the same, accents",         [&] { fFiltrarFilas(compuestas, filtro); }},
            {"the same, letter and mark", [&] { fFiltrarFilas(sueltas, filtro); }   },
    },
        intVueltas);
}

void fMirarDesnudo(const clsRutas &lstRutas)
{
    std::size_t lngHay = 0;
    for (const std::string &strRuta : lstRutas) {
        struct stat datos {};
        lngHay += fstatat(AT_FDCWD, strRuta.c_str(), &datos, 0) == 0 ? 1 : 0;
    }
    std::printf("bare: %zu files\n", lngHay);
}

int fFechas(const char *strCarpeta, const std::string &strCual)
{
    const clsRutas lstRutas = fRutas(strCarpeta);
    clsFilas filas;
    for (const std::string &strRuta : lstRutas) {
        filas.fAgregarFila(strRuta, "2009/07/14 18:03:22", 1);
    }
    const auto fAno = [](int intAno) { return fFechaDe({intAno, 1, 1}).value_or(clsFecha{}); };
    const clsFiltro todas{true, fAno(1901), fAno(2100), {}, false, ModoTexto::And};
    const clsFiltro algunas{true, fAno(2000), fAno(2003), {}, false, ModoTexto::And};
    if (strCual == "nuestro") {
        fFiltrarFilas(filas, algunas);
        return 0;
    }
    return fComparar(
        {
            {"bare fstatat",     [&] { fMirarDesnudo(lstRutas); }      },
            {"dates, some pass", [&] { fFiltrarFilas(filas, algunas); }},
            {"dates, all pass",  [&] { fFiltrarFilas(filas, todas); }  },
    },
        std::atoi(strCual.c_str()));
}

int fOrden(const char *strCatalogo, int intVueltas)
{
    clsFilas filas = fLeerFilas(strCatalogo);
    fOrdenar(filas, Columna::Fecha, false, fRangosEspanol);
    const auto fPor = [&](Columna columna) {
        fOrdenar(filas, columna, false, fRangosEspanol);
        std::printf("%d rows\n", filas.fCantidad());
    };
    return fComparar(
        {
            {"order by name",   [&] { fPor(Columna::Nombre); } },
            {"order by folder", [&] { fPor(Columna::Carpeta); }}
    },
        intVueltas);
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    const std::string_view strClase = intArgumentos > 2 ? lstArgumentos[1] : "";
    const std::string strVueltas = intArgumentos > 3 ? lstArgumentos[3] : "15";
    if (strClase == "texto") {
        return fTexto(lstArgumentos[2], std::atoi(strVueltas.c_str()));
    }
    if (strClase == "fechas") {
        return fFechas(lstArgumentos[2], strVueltas);
    }
    if (strClase == "orden") {
        return fOrden(lstArgumentos[2], std::atoi(strVueltas.c_str()));
    }
    std::fputs("miravel_bench_filtro texto|orden CATALOGUE [ROUNDS]\n"
               "miravel_bench_filtro fechas FOLDER [ROUNDS | nuestro]\n",
               stderr);
    return 2;
}
