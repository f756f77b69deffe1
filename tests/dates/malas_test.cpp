#include "dates/malas.h"

#include <gtest/gtest.h>

namespace {

TEST(Malas, AreFoundInOtherListsAsLongAsNameAndDateAreTheSame)
{
    const auto fLista = [](std::initializer_list<std::pair<const char *, const char *>> lstFilas) {
        clsFilas filas;
        for (const auto &[strRuta, strFecha] : lstFilas) {
            filas.fAgregarFila(strRuta, strFecha, 1);
        }
        return filas;
    };
    const char *const strDia = "2009/07/14 18:30:00";
    clsFilas filas = fLista({{"/a/uno.jpg", strDia}, {"/a/dos.jpg", "?"}, {"/b/uno.jpg", strDia}});
    filas.fReordenar({2, 1, 0});
    clsMalas malas;
    EXPECT_TRUE(malas.fEn(filas).empty());
    malas.fAnotar(filas, 2);
    malas.fAnotar(filas, 1);
    malas.fAnotar(filas, 1);
    EXPECT_EQ(malas.fCuantas(), 2);
    EXPECT_EQ(malas.fEn(filas), (std::vector<bool>{true, true, false}));

    clsFilas despues = fLista({{"/c/uno.jpg", strDia},
                               {"/a/dos.jpg", "2009/07/14 18:30:00"}, // dated since
                               {"/a/20090714_uno.jpg", strDia},       // named since
                               {"/a/uno.jpg", strDia}});
    EXPECT_EQ(malas.fEn(despues), (std::vector<bool>{false, false, false, true}));
    malas.fAnotar(despues, 1); // wrong again
    EXPECT_EQ(malas.fCuantas(), 3);
    EXPECT_EQ(malas.fEn(despues), (std::vector<bool>{false, true, false, true}));
    EXPECT_EQ(malas.fEn(filas), (std::vector<bool>{true, true, false})); // as it was is still wrong
}

} // namespace
