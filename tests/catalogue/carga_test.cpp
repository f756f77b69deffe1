#include "catalogue/constructor.h"

#include <gtest/gtest.h>

namespace {

TEST(Carga, DecidesWhetherACatalogueIsBuilt)
{
    struct clsCaso {
        const char *strFrase;
        bool bolForzar, bolExiste, bolEscritura;
        bool bolAnunciar, bolConstruir, bolSinPermiso;
    };
    const clsCaso lstCasos[] = {
        {"there is one", false, true, true, false, false, false},
        {"there is none", false, false, true, true, true, false},
        {"asked for", true, true, true, false, true, false},
        {"asked for where there is none", true, false, true, false, true, false},
        {"there is one on a read-only disk", false, true, false, false, false, false},
        {"there is none on a read-only disk", false, false, false, true, false, true},
        {"asked for on a read-only disk", true, true, false, false, false, true},
    };
    for (const clsCaso &caso : lstCasos) {
        const auto [bolAnunciar, bolConstruir, bolSinPermiso] =
            fDecidirCarga(caso.bolForzar, caso.bolExiste, caso.bolEscritura);
        EXPECT_EQ(bolAnunciar, caso.bolAnunciar) << caso.strFrase;
        EXPECT_EQ(bolConstruir, caso.bolConstruir) << caso.strFrase;
        EXPECT_EQ(bolSinPermiso, caso.bolSinPermiso) << caso.strFrase;
    }
}

} // namespace
