// A slide show: what comes next, and when.
#include "viewer/presentacion.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace std::chrono_literals;

constexpr clsPase::Momento datInicio{1000s};

/// One moment of a show.
struct clsInstante {
    const char *strFrase;
    std::chrono::milliseconds desdeInicio;
    char chrMando;            ///< '+' and '-' step, ' ' stops or goes on, '.' nothing
    const char *strFotos;     ///< of each place: P it is still to come, L it is there, F missing
    int intMostrada;          ///< what is to be shown from now on; -1: what was
    std::optional<int> falta; ///< milliseconds until there is something to do
};

void fRepasar(clsPase &pase, const std::vector<clsInstante> &lstInstantes)
{
    for (const clsInstante &instante : lstInstantes) {
        SCOPED_TRACE(instante.strFrase);
        const auto ahora = datInicio + instante.desdeInicio;
        if (instante.chrMando == ' ') {
            pase.fAlternar(ahora);
        } else if (instante.chrMando != '.') {
            pase.fPaso(instante.chrMando == '+' ? 1 : -1, ahora);
        }
        const auto lngVista = pase.fSeguir(ahora, [&](std::size_t lngLugar) {
            const char chrFoto = instante.strFotos[lngLugar];
            return chrFoto == 'L'   ? EstadoFoto::Lista
                   : chrFoto == 'F' ? EstadoFoto::Falta
                                    : EstadoFoto::Pendiente;
        });
        EXPECT_EQ(lngVista ? static_cast<int>(*lngVista) : -1, instante.intMostrada);
        const auto falta = pase.fFalta(ahora);
        EXPECT_EQ(falta.has_value(), instante.falta.has_value());
        if (falta && instante.falta) {
            EXPECT_EQ(falta->count(), *instante.falta);
        }
    }
}

} // namespace

TEST(Presentacion, GoesOnByTheClock)
{
    clsPase pase(3, 1, 5, datInicio);
    fRepasar(pase, {
                       {"waits for the first", 0ms, '.', "PPP", -1, 10000},
                       {"which comes", 300ms, '.', "PLP", 1, 5000},
                       {"and stays", 5299ms, '.', "PLL", -1, 1},
                       {"until it is time", 5300ms, '.', "PLL", 2, 5000},
                       {"behind the last comes the first, when it is there", 10300ms, '.', "PLL",
                        -1, 10000},
                       {"before that the last stays", 12000ms, '.', "PLL", -1, 8300},
                       {"however late", 14000ms, '.', "LLL", 0, 5000},
                   });
    EXPECT_EQ(pase.fVista(), 0U);
}

TEST(Presentacion, StepsAndStops)
{
    clsPase pase(3, 0, 3, datInicio);
    fRepasar(pase, {
                       {"the first", 0ms, '.', "LLL", 0, 3000},
                       {"a step on", 1000ms, '+', "LLL", 1, 3000},
                       {"back", 1500ms, '-', "LLL", 0, 3000},
                       {"before the first comes the last", 2000ms, '-', "LLL", 2, 3000},
                       {"stops", 2500ms, ' ', "LLL", -1, {}},
                       {"whatever the time", 90000ms, '.', "LLL", -1, {}},
                       {"steps all the same", 91000ms, '+', "LLL", 0, {}},
                       {"goes on, with the whole time", 92000ms, ' ', "LLL", -1, 3000},
                       {"then forward", 95000ms, '.', "LLL", 1, 3000},
                       {"two steps while the first is awaited", 95100ms, '+', "LLP", -1, 10000},
                       {"lead past it", 95200ms, '+', "LLP", 0, 3000},
                   });
}

TEST(Presentacion, PassesOverWhatIsMissing)
{
    clsPase pase(4, 0, 5, datInicio);
    fRepasar(pase, {
                       {"the first is missing", 0ms, '.', "FLFL", 1, 5000},
                       {"and so is the next", 5000ms, '.', "FLFL", 3, 5000},
                       {"back the same way", 6000ms, '-', "FLFL", 1, 5000},
                       {"one does not come", 7000ms, '+', "LLPP", -1, 10000},
                       {"for long", 16999ms, '.', "LLPP", -1, 1},
                       {"nor does the other", 17000ms, '.', "LLPP", -1, 10000},
                       {"the next one is there", 27000ms, '.', "LLPP", 0, 5000},
                       {"nothing else is", 32000ms, '.', "LFFF", -1, 5000},
                   });
    EXPECT_EQ(pase.fVista(), 0U);
    clsPase vacio(2, 0, 5, datInicio);
    fRepasar(vacio, {
                        {"there is none", 0ms, '.', "FF", -1, 10000},
                        {"one comes back", 10000ms, '.', "FL", 1, 5000},
                    });
}

TEST(Presentacion, OnePictureStays)
{
    clsPase pase(1, 0, 5, datInicio);
    fRepasar(pase, {
                       {"shown", 0ms, '.', "L", 0, 5000},
                       {"once", 5000ms, '.', "L", -1, 5000},
                       {"whoever steps", 6000ms, '+', "L", -1, 5000},
                   });
    EXPECT_EQ(pase.fDeseadas(), std::vector<std::size_t>{0});
}

TEST(Presentacion, WantsWhatComesNextFirst)
{
    clsPase pase(9, 4, 5, datInicio);
    EXPECT_EQ(pase.fDeseadas(), (std::vector<std::size_t>{4, 5, 6, 3}));
    pase.fSeguir(datInicio, [](std::size_t) { return EstadoFoto::Lista; });
    EXPECT_EQ(pase.fDeseadas(), (std::vector<std::size_t>{4, 5, 6, 3}));
    pase.fPaso(-1, datInicio);
    pase.fPaso(-1, datInicio);
    EXPECT_EQ(pase.fDeseadas(), (std::vector<std::size_t>{2, 1, 0, 3, 4}));
}

TEST(Presentacion, TakesThreeFiveOrTenSeconds)
{
    const struct {
        int intSegundos, intUsados, intMas, intMenos;
    } lstCasos[] = {
        {3, 3, 5, 3}, {5, 5, 10, 3}, {10, 10, 10, 5}, {7, 5, 10, 3}, {-1, 5, 10, 3},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fSegundosPase(caso.intSegundos), caso.intUsados);
        EXPECT_EQ(fOtrosSegundos(caso.intSegundos, 1), caso.intMas);
        EXPECT_EQ(fOtrosSegundos(caso.intSegundos, -1), caso.intMenos);
    }
}

TEST(Presentacion, TellsDateAndFolder)
{
    clsPase pase(120, 2, 5, datInicio);
    EXPECT_EQ(fTextoPie({"14/07/2009 18:03:22", "2009/Playa", false}, pase, 2),
              "14/07/2009 18:03:22 · 2009/Playa · 3 de 120 · cada 5 segundos");
    pase.fAlternar(datInicio);
    EXPECT_EQ(fTextoPie({"ayer", "", true}, pase, 0),
              "ayer · 1 de 120 · parada · vídeo: Enter lo abre");
}
