#include "shared/giros.h"

#include <gtest/gtest.h>

namespace {

TEST(Giros, AddUpQuarterByQuarter)
{
    struct clsCaso {
        const char *strFrase;
        int intCuartos; ///< turned by
        int intTodos;   ///< turned altogether
        const char *strTexto;
    };
    const clsCaso lstCasos[] = {
        {"to the right", 1, 1, "girada a la derecha"},
        {"upside down", 1, 2, "girada media vuelta"},
        {"beyond that it is left", 1, 3, "girada a la izquierda"},
        {"a whole turn is none", 1, 0, ""},
        {"to the left of none", -1, 3, "girada a la izquierda"},
        {"more than a turn the same", -5, 2, "girada media vuelta"},
        {"and back", 2, 0, ""},
    };
    clsGiros giros;
    giros.fGirar("", 1);
    EXPECT_TRUE(giros.fNinguno()) << "no file";
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        giros.fGirar("/a/b.jpg", caso.intCuartos);
        EXPECT_EQ(giros.fCuartos("/a/b.jpg"), caso.intTodos);
        EXPECT_EQ(fTextoGiro(caso.intTodos), caso.strTexto);
        EXPECT_EQ(giros.fNinguno(), caso.intTodos == 0);
        EXPECT_EQ(giros.fCuartos("/a/c.jpg"), 0) << "another file";
    }
}

} // namespace
