/// How long the verdict on the dates of many files takes, beside a bare program that opens each
/// file, reads 4 KB and looks for the two EXIF dates; and how long it takes to read all dates.

#include "dates/clsFile.h"
#include "dates/exif.h"
#include "dates/fuentes.h"
#include "fechas_desnudas.h"
#include "medir.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

void fReferencia(const clsRutas &lstRutas)
{
    int intConFecha = 0;
    for (const std::string &strRuta : lstRutas) {
        const clsFechasDesnudas fechas = fFechasDesnudas(strRuta.c_str());
        intConFecha += fechas.strTomada.empty() && fechas.strFecha.empty() ? 0 : 1;
    }
    std::printf("bare: %zu files, %d with a date\n", lstRutas.size(), intConFecha);
}

void fVeredicto(const clsRutas &lstRutas)
{
    int intConFecha = 0;
    int intCorrectos = 0;
    for (const std::string &strRuta : lstRutas) {
        clsFile file;
        file.fCargar(strRuta);
        intConFecha += file.datExif().fHay() ? 1 : 0;
        intCorrectos += file.bolFechaCorrecta() ? 1 : 0;
    }
    std::printf("verdict: %d with a date, %d right\n", intConFecha, intCorrectos);
}

void fFuentes(const clsRutas &lstRutas, const std::string &strRaiz)
{
    int intConFuentes = 0;
    int intCorrectos = 0;
    for (const std::string &strRuta : lstRutas) {
        const clsFechasFichero fechas = fLeerFechas(strRuta, strRaiz);
        intConFuentes += fechas.lstFuentes.empty() ? 0 : 1;
        intCorrectos += fechas.bolCorrecta ? 1 : 0;
    }
    std::printf("all dates: %d with a date, %d right\n", intConFuentes, intCorrectos);
}

void fTabla(const clsRutas &lstRutas)
{
    std::size_t lngFilas = 0;
    for (const std::string &strRuta : lstRutas) {
        clsTablaExif tabla;
        lngFilas += HasExifData(strRuta, tabla) ? tabla.lstFilas.size() : 0;
    }
    std::printf("whole table: %zu rows\n", lngFilas);
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 2) {
        std::fputs("miravel_bench_verdicto FOLDER [ROUNDS | desnudo | nuestro | todas]\n", stderr);
        return 2;
    }
    const clsRutas lstRutas = fRutas(lstArgumentos[1]);
    const std::string_view strCual = intArgumentos > 2 ? lstArgumentos[2] : "15";
    if (strCual == "desnudo") {
        fReferencia(lstRutas);
        return 0;
    }
    if (strCual == "nuestro") {
        fVeredicto(lstRutas);
        return 0;
    }
    if (strCual == "todas") {
        fFuentes(lstRutas, lstArgumentos[1]);
        return 0;
    }
    return fComparar(
        {
            {"bare reading of 4 KB", [&] { fReferencia(lstRutas); }               },
            {"verdict",              [&] { fVeredicto(lstRutas); }                },
            {"all dates",            [&] { fFuentes(lstRutas, lstArgumentos[1]); }},
            {"whole table",          [&] { fTabla(lstRutas); }                    }
    },
        std::atoi(std::string(strCual).c_str()));
}
