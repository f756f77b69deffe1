#include "shared/progreso.h"

#include <gtest/gtest.h>

TEST(Progreso, TellsHowFarWorkHasComeAndWhatIsLeft)
{
    using namespace std::chrono_literals;
    const struct {
        int lngHechos;
        int lngTodos;
        std::chrono::milliseconds pasado;
        const char *strTexto;
    } lstCasos[] = {
        {0, 10, 5s, "Obra: 0 de 10"},
        {5, 10, 1999ms, "Obra: 5 de 10"},
        {5, 10, 3s, "Obra: 5 de 10, quedan 3 segundos"},
        {9, 10, 2s, "Obra: 9 de 10, queda 1 segundo"},
        {10, 10, 60s, "Obra: 10 de 10"},
        {1'000, 100'000, 2s, "Obra: 1.000 de 100.000, quedan 4 minutos"},
        {50'000, 100'000, 60s, "Obra: 50.000 de 100.000, queda 1 minuto"},
        {100'000, 2'000'000'000, 3600s, "Obra: 100.000 de 2.000.000.000, quedan 1.199.940 minutos"},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fTextoProgreso("Obra", caso.lngHechos, caso.lngTodos, caso.pasado),
                  caso.strTexto);
    }
}
