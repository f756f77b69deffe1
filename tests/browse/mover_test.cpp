#include "browse/mover.h"

#include <gtest/gtest.h>

namespace {

TEST(Mover, GoesFileByFileAndStopsAtTheEnds)
{
    EXPECT_EQ(fDestino(Movimiento::Primero, 5, 9), 0);
    EXPECT_EQ(fDestino(Movimiento::Primero, 0, 9), std::nullopt);
    EXPECT_EQ(fDestino(Movimiento::Anterior, 1, 9), 0);
    EXPECT_EQ(fDestino(Movimiento::Anterior, 0, 9), std::nullopt);
    EXPECT_EQ(fDestino(Movimiento::Siguiente, 99999, 200000), 100000); // beyond 16 bits
    EXPECT_EQ(fDestino(Movimiento::Siguiente, 9, 9), std::nullopt);
    EXPECT_EQ(fDestino(Movimiento::Ultimo, 0, 9), 9);
    EXPECT_EQ(fDestino(Movimiento::Ultimo, 0, 0), std::nullopt);
    EXPECT_EQ(fDestino(Movimiento::Siguiente, 0, -1), std::nullopt);
}

} // namespace
