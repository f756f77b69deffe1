#include "shared/hilos.h"

#include "shared/recados.h"
#include "soporte/eventos.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <future>
#include <memory>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include <dlfcn.h>
#include <pthread.h>

namespace {
std::atomic<bool> bolSinHilos = false;
}

/// Stands for the system's, which gives no thread while bolSinHilos.
extern "C" int pthread_create(pthread_t *hilo, const pthread_attr_t *rasgos,
                              void *(*fHacer)(void *), void *dato)
{
    static const auto fReal =
        reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    return bolSinHilos ? EAGAIN : fReal(hilo, rasgos, fHacer, dato);
}

namespace {

using namespace std::chrono_literals;
using Numeros = std::vector<int>;
class Hilos : public testing::Test {
protected:
    /// Orders a number; it lands in lstTomadas.
    clsHilos::clsOrden fPedir(clsHilos &hilos, int intNumero, const Puerta &puerta = {},
                              int intTurno = 0)
    {
        return hilos.fPedir(
            [intNumero, puerta] {
                if (puerta) {
                    puerta->fEsperar();
                }
                return intNumero;
            },
            [this](int intTomado) { lstTomadas.push_back(intTomado); }, intTurno);
    }
    static void fTomarTodo(clsHilos &hilos)
    {
        while (hilos.fPendientes() > 0 && hilos.fAtender(lngDeSobra)) {
        }
    }

    Numeros lstTomadas;
    const Puerta atasco = std::make_shared<clsPuerta>();
};

TEST_F(Hilos, BringAnswersToTheThreadThatAsked)
{
    clsHilos hilos({});
    const auto yo = std::this_thread::get_id();
    hilos.fPedir([] { return std::this_thread::get_id(); },
                 [yo](std::thread::id otro) {
                     EXPECT_NE(otro, yo);
                     EXPECT_EQ(std::this_thread::get_id(), yo);
                 });
    EXPECT_TRUE(hilos.fAtender(lngDeSobra));
    EXPECT_FALSE(hilos.fAtender(lngDeSobra)) << "and does not wait where nothing is to come";
}

TEST_F(Hilos, AnswerAsTheyAreReadyOrInTheOrderOfAsking)
{
    for (const bool bolEnOrden : {false, true}) {
        SCOPED_TRACE(bolEnOrden);
        lstTomadas.clear();
        const Puerta primera = std::make_shared<clsPuerta>();
        clsHilos hilos({.intHilos = 2, .intMaximo = 2, .bolEnOrden = bolEnOrden});
        const auto lenta = fPedir(hilos, 0, primera);
        ASSERT_TRUE(primera->fParados(1));
        for (int intNumero = 1; intNumero < 5; ++intNumero) {
            fPedir(hilos, intNumero);
        }
        const auto ultima = hilos.fPedir([] { return 5; }, [](int) {});
        if (bolEnOrden) {
            EXPECT_FALSE(hilos.fAtender());
        } else {
            EXPECT_TRUE(hilos.fEsperar(ultima, lngDeSobra)); // they come beside the slow one
        }
        primera->fAbrir();
        EXPECT_TRUE(hilos.fEsperar(lenta, lngDeSobra));
        fTomarTodo(hilos);
        EXPECT_EQ(lstTomadas, bolEnOrden ? Numeros({0, 1, 2, 3, 4}) : Numeros({1, 2, 3, 4, 0}));
    }
}

TEST_F(Hilos, BeginInTheOrderOfTheirTurns)
{
    clsHilos hilos({.intHilos = 1, .intMaximo = 1});
    fPedir(hilos, 0, atasco, 9); // begins before the others are there
    ASSERT_TRUE(atasco->fParados(1));
    for (const auto &[intNumero, intTurno] :
         {std::pair(5, 2), {3, 1}, {1, -1}, {6, 2}, {2, 0}, {4, 1}}) {
        fPedir(hilos, intNumero, {}, intTurno);
    }
    atasco->fAbrir();
    fTomarTodo(hilos);
    EXPECT_EQ(lstTomadas, Numeros({0, 1, 2, 3, 4, 5, 6}));
}

TEST_F(Hilos, PostOneNoticeForAllThatComesUntilItIsRead)
{
    clsEventos eventos;
    clsHilos hilos({.intHilos = 1, .intMaximo = 1, .fAvisar = eventos.fAviso()});
    fPedir(hilos, 1);
    fPedir(hilos, 2);
    fPedir(hilos, 3, atasco);
    ASSERT_TRUE(atasco->fParados(1)); // both others are ready by then
    EXPECT_TRUE(eventos.fAtender());
    EXPECT_EQ(lstTomadas, Numeros({1, 2}));
    EXPECT_TRUE(eventos.fVacia());
    atasco->fAbrir();
    EXPECT_TRUE(eventos.fAtender());
    EXPECT_EQ(lstTomadas, Numeros({1, 2, 3}));
}

TEST_F(Hilos, DropWhatNobodyWants)
{
    clsHilos hilos({.intHilos = 1, .intMaximo = 1});
    const auto empezada = hilos.fPedir(
        [puerta = atasco](const clsAnulado &anulado) {
            puerta->fEsperar();
            return anulado ? 1 : 0;
        },
        [this](int) { lstTomadas.push_back(-1); });
    ASSERT_TRUE(atasco->fParados(1));
    const auto sinEmpezar = fPedir(hilos, 2);
    fPedir(hilos, 3);
    hilos.fVaciar();
    EXPECT_TRUE(clsHilos::fAnulada(sinEmpezar));
    EXPECT_FALSE(clsHilos::fAnulada(empezada)) << "what has begun goes on";
    EXPECT_EQ(hilos.fPendientes(), 1U);
    hilos.fAnular(empezada);
    EXPECT_EQ(hilos.fPendientes(), 0U);
    const auto ultima = fPedir(hilos, 4);
    atasco->fAbrir();
    EXPECT_TRUE(hilos.fEsperar(ultima, lngDeSobra));
    EXPECT_EQ(lstTomadas, Numeros{4});
    // An answer that lies there already is dropped, too; and one that was taken counts as such.
    const auto lista = fPedir(hilos, 5);
    const auto centinela = hilos.fPedir([] { return 0; }, [](int) {});
    hilos.fAnular(lista);
    EXPECT_TRUE(hilos.fEsperar(centinela, lngDeSobra));
    hilos.fAnular(centinela);
    EXPECT_FALSE(clsHilos::fAnulada(centinela));
    EXPECT_EQ(lstTomadas, Numeros{4});
    EXPECT_FALSE(hilos.fEsperar(lista, lngDeSobra)) << "nobody waits for what was given up";
}

TEST_F(Hilos, ReplaceThreadsThatHangAndTakeThemBack)
{
    clsHilos hilos({.intHilos = 2, .intMaximo = 6});
    for (int intPieza = 0; intPieza < 5; ++intPieza) {
        fPedir(hilos, intPieza, atasco);
    }
    EXPECT_TRUE(hilos.fEsperar(fPedir(hilos, 9), lngDeSobra)); // nobody had to ask for help
    EXPECT_EQ(lstTomadas, Numeros{9});
    atasco->fAbrir();
    fTomarTodo(hilos);
    EXPECT_EQ(std::accumulate(lstTomadas.begin(), lstTomadas.end(), 0), 0 + 1 + 2 + 3 + 4 + 9);
}

TEST_F(Hilos, RunOneAfterTheOtherWhereNoneGetsASubstitute)
{
    clsHilos hilos({.intHilos = 1, .intMaximo = 1});
    fPedir(hilos, 1, atasco);
    const auto segunda = fPedir(hilos, 2);
    EXPECT_FALSE(hilos.fEsperar(segunda, 600ms)) << "longer than pieces take that hang";
    atasco->fAbrir();
    EXPECT_TRUE(hilos.fEsperar(segunda, lngDeSobra));
    EXPECT_EQ(lstTomadas, Numeros({1, 2}));
}

TEST_F(Hilos, WorkNoFurtherAheadThanTheAskerGives)
{
    constexpr std::size_t lngAdelanto = 3;
    clsHilos hilos({.bolEnOrden = true});
    const auto intEmpezadas = std::make_shared<std::atomic<int>>(0);
    int intDadas = 0;
    while (lstTomadas.size() < 20) {
        for (; intDadas < 20 && hilos.fPendientes() < lngAdelanto; ++intDadas) {
            hilos.fPedir([intEmpezadas, intDadas] { return ++*intEmpezadas, intDadas; },
                         [this](int intTomado) { lstTomadas.push_back(intTomado); });
        }
        EXPECT_LE(*intEmpezadas, static_cast<int>(lstTomadas.size() + lngAdelanto));
        ASSERT_TRUE(hilos.fAtender(lngDeSobra));
    }
    Numeros lstTodas(20);
    std::iota(lstTodas.begin(), lstTodas.end(), 0);
    EXPECT_EQ(lstTomadas, lstTodas);
}

TEST_F(Hilos, AreWaitedForByNobodyAtTheEnd)
{
    clsEventos eventos;
    const auto bolAnulada = std::make_shared<std::atomic<bool>>(false);
    const Puerta fuera = std::make_shared<clsPuerta>();
    {
        clsHilos hilos({.intHilos = 1, .intMaximo = 1, .fAvisar = eventos.fAviso()});
        fPedir(hilos, 1);
        EXPECT_TRUE(eventos.fAtender());
        fPedir(hilos, 2);
        hilos.fPedir(
            [puerta = atasco, fuera, bolAnulada](const clsAnulado &anulado) {
                puerta->fEsperar();
                *bolAnulada = anulado.load();
                fuera->fEsperar();
                return 3;
            },
            [this](int) { lstTomadas.push_back(3); });
        ASSERT_TRUE(atasco->fParados(1));
    } // it hangs: without waiting
    atasco->fAbrir();
    ASSERT_TRUE(fuera->fParados(1));
    EXPECT_TRUE(*bolAnulada);
    fuera->fAbrir();
    clsHilos::fDespedir();
    EXPECT_TRUE(eventos.fAtender()); // of the second, which was ready; it comes too late
    EXPECT_TRUE(eventos.fVacia());
    EXPECT_EQ(lstTomadas, Numeros{1});
}

TEST_F(Hilos, WithoutAThreadTheAskerWorksAndIsToldOnce)
{
    std::vector<clsError> lstErrores;
    clsHilos::fAvisarSinHilo([&](clsError error) { lstErrores.push_back(error); });
    bolSinHilos = true;
    {
        clsHilos hilos({});
        fPedir(hilos, 1);
        fPedir(hilos, 2);
        fTomarTodo(hilos);
        EXPECT_EQ(lstTomadas, (Numeros{1, 2}));
        // Once there are threads again, they work.
        bolSinHilos = false;
        const auto yo = std::this_thread::get_id();
        hilos.fPedir([] { return std::this_thread::get_id(); },
                     [yo](std::thread::id otro) { EXPECT_NE(otro, yo); });
        fTomarTodo(hilos);
        // Where there is one, it does all.
        fPedir(hilos, 3, atasco);
        ASSERT_TRUE(atasco->fParados(1));
        bolSinHilos = true;
        fPedir(hilos, 4);
        atasco->fAbrir();
        fTomarTodo(hilos);
        EXPECT_EQ(lstTomadas, (Numeros{1, 2, 3, 4}));
    }
    bolSinHilos = false;
    clsHilos::fAvisarSinHilo(nullptr);
    EXPECT_EQ(lstErrores, std::vector{clsError(EAGAIN)});
}

TEST(Recados, AreDoneInTheAskersThreadUntilNobodyAttends)
{
    static std::vector<std::thread::id> lstDonde; // the thread may outlive this
    lstDonde.clear();
    const auto fin = std::make_shared<std::promise<void>>();
    const auto respuesta = fHacerAparte(
        [fin](clsRecados &recados) {
            while (!recados.fCerrados()) {
                recados.fPedir([] { lstDonde.push_back(std::this_thread::get_id()); });
            }
            fin->set_value(); // the one that waits is not left waiting
            return true;
        },
        [](const clsRecados & /*recados*/) { return lstDonde.size() < 2; });
    EXPECT_FALSE(respuesta);
    EXPECT_EQ(fin->get_future().wait_for(lngDeSobra), std::future_status::ready);
    EXPECT_EQ(lstDonde, std::vector(2, std::this_thread::get_id()));
}

TEST(Recados, TellHowFarTheWorkHasComeAndWhetherItGetsOn)
{
    std::vector<std::string> lstDichos;
    const auto respuesta = fHacerAparte(
        [](clsRecados &recados) {
            recados.fDecir("a");
            while (recados.fDicho() == "a") { // until that was seen
            }
            return 7;
        },
        [&](clsRecados &recados) {
            lstDichos.push_back(recados.fDicho());
            EXPECT_FALSE(recados.fCallado(lngDeSobra));
            EXPECT_TRUE(recados.fCallado(std::chrono::milliseconds(-1)));
            recados.fDecir("b");
            return true;
        });
    EXPECT_EQ(respuesta, 7);
    EXPECT_EQ(lstDichos.at(0), "a");
}

} // namespace
