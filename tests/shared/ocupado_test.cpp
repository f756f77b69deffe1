#include "shared/ocupado.h"

#include <gtest/gtest.h>

namespace {

TEST(Ocupado, ActsOnlyAtTheOutermostEntryAndExit)
{
    int intEntradas = 0;
    int intSalidas = 0;
    clsOcupacion ocupacion([&] { ++intEntradas; }, [&] { ++intSalidas; });
    ocupacion.fOcupado(false); // nothing was entered
    {
        const clsOcupado fuera(ocupacion);
        const clsOcupado dentro(ocupacion);
        ocupacion.fOcupado(true);
        ocupacion.fOcupado(false);
        EXPECT_EQ(intEntradas, 1);
        EXPECT_EQ(intSalidas, 0);
        EXPECT_TRUE(ocupacion.fEsta());
    }
    EXPECT_EQ(intSalidas, 1);
    EXPECT_FALSE(ocupacion.fEsta());
}

} // namespace
