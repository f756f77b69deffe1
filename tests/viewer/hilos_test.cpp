#include "viewer/hilos.h"

#include <atomic>
#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace {

using std::chrono::seconds;

TEST(Hilos, GoOnBesidePiecesThatHang)
{
    const auto puerta = std::make_shared<std::promise<void>>();
    const std::shared_future<void> abierta = puerta->get_future().share();
    {
        clsHilos hilos(2);
        for (int intPieza = 0; intPieza < 5; ++intPieza) {
            hilos.fEncolar([abierta] { abierta.wait(); });
        }
        const auto hecha = std::make_shared<std::promise<void>>();
        hilos.fEncolar([hecha] { hecha->set_value(); });
        std::future<void> listo = hecha->get_future();
        // Twice two hang, then the fifth; each time somebody notices that nothing comes.
        for (int intVez = 0; intVez < 20 && listo.wait_for(seconds(0)) != std::future_status::ready;
             ++intVez) {
            listo.wait_for(std::chrono::milliseconds(500));
            hilos.fReforzar();
        }
        EXPECT_EQ(listo.wait_for(seconds(5)), std::future_status::ready);
    } // and nobody waits for them at the end
    puerta->set_value();
}

TEST(Hilos, GiveUpWhatHasNotBegun)
{
    const auto intHechas = std::make_shared<std::atomic<int>>(0);
    const auto puerta = std::make_shared<std::promise<void>>();
    const std::shared_future<void> abierta = puerta->get_future().share();
    {
        clsHilos hilos(1);
        hilos.fEncolar([intHechas, abierta] {
            abierta.wait();
            ++*intHechas;
        });
        while (intHechas.use_count() < 2) {
            std::this_thread::yield();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        hilos.fEncolar([intHechas] { ++*intHechas; });
        hilos.fVaciar();
        puerta->set_value();
    }
    EXPECT_EQ(*intHechas, 1);
}

} // namespace
