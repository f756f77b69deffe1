#include "sistema/memoria.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(Memoria, IsGivenBackWithinTheBlockOnly)
{
    constexpr std::byte bytLleno{7};
    constexpr std::size_t lngBorde = 100; // of bytes that belong to others
    for (const std::size_t lngBytes : {0, 1, 4095, 4096, 20000, 9 << 20}) {
        SCOPED_TRACE(lngBytes);
        std::vector<std::byte> lstTodos(lngBytes + 2 * lngBorde, bytLleno);
        fDesocupar(std::span(lstTodos).subspan(lngBorde, lngBytes));
        const auto fLlenos = [&](std::size_t lngDesde, std::size_t lngHasta) {
            return static_cast<std::size_t>(
                std::count(lstTodos.begin() + static_cast<std::ptrdiff_t>(lngDesde),
                           lstTodos.begin() + static_cast<std::ptrdiff_t>(lngHasta), bytLleno));
        };
        EXPECT_EQ(fLlenos(0, lngBorde), lngBorde);
        EXPECT_EQ(fLlenos(lngBorde + lngBytes, lstTodos.size()), lngBorde);
        constexpr std::size_t lngPaginas = 1 << 18; // two parts of a page; pages may be large ones
        EXPECT_LE(fLlenos(lngBorde, lngBorde + lngBytes), std::min(lngPaginas, lngBytes));
    }
}

} // namespace
