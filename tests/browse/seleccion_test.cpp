#include "browse/seleccion.h"

#include <gtest/gtest.h>

namespace {

using clsLista = std::vector<int>;

/// Four files, the first and the third ticked, shown in the order they were not added in.
clsFilas fCuatro()
{
    clsFilas filas;
    for (int lngFila = 0; lngFila < 4; ++lngFila) {
        filas.fAgregarFila("/f/a.jpg", "", 1);
    }
    filas.fReordenar({3, 1, 0, 2});
    filas.fMarcar(0, true);
    filas.fMarcar(2, true);
    return filas;
}

TEST(Seleccion, TicksByTheFourCommands)
{
    struct clsCaso {
        Seleccion seleccion;
        clsTramo pagina;
        clsLista lstMarcadas;
    };
    const clsCaso lstCasos[] = {
        {Seleccion::Todo, {0, 1}, {0, 1, 2, 3}},  {Seleccion::Pantalla, {1, 2}, {0, 1, 2}},
        {Seleccion::Pantalla, {2, 9}, {0, 2, 3}}, // a short last page
        {Seleccion::Pantalla, {0, 0}, {0, 2}},    {Seleccion::Nada, {0, 1}, {}},
        {Seleccion::Invertir, {0, 1}, {1, 3}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(static_cast<int>(caso.seleccion));
        clsFilas filas = fCuatro();
        fSeleccionar(filas, caso.seleccion, caso.pagina);
        EXPECT_EQ(fMarcadas(filas), caso.lstMarcadas);
    }
}

TEST(Seleccion, TicksTheFilesOfSomePathsOnly)
{
    clsFilas filas;
    for (const char *const strRuta : {"/f/a.jpg", "/f/b.jpg", "/g/a.jpg", "/g/c.jpg"}) {
        filas.fAgregarFila(strRuta, "", 1);
    }
    filas.fMarcar(1, true);
    fMarcarSolo(filas, {"/g/c.jpg", "/f/a.jpg", "/h/a.jpg"});
    EXPECT_EQ(fMarcadas(filas), clsLista({0, 3}));
    fMarcarSolo(filas, {});
    EXPECT_EQ(fMarcadas(filas), clsLista());
}

TEST(Seleccion, InvertsFromOneRowToAnotherInEitherDirection)
{
    clsFilas filas = fCuatro();
    fInvertirEntre(filas, 2, 1);
    EXPECT_EQ(fMarcadas(filas), clsLista({0, 1}));
    fInvertirEntre(filas, 1, 3);
    EXPECT_EQ(fMarcadas(filas), clsLista({0, 2, 3}));
    fInvertirEntre(filas, 0, 0);
    EXPECT_EQ(fMarcadas(filas), clsLista({2, 3}));
    fInvertirEntre(filas, -5, 99); // what is outside is left out
    EXPECT_EQ(fMarcadas(filas), clsLista({0, 1}));
}

TEST(Seleccion, CountsMegabytes)
{
    struct clsCaso {
        std::int64_t lngKB;
        const char *strMb;
    };
    const clsCaso lstCasos[] = {
        {0, "0,0"},
        {52, "0,1"},
        {256, "0,3"}, // 0.25: half away from zero
        {973, "1,0"}, // the rounding carries
        {1536, "1,5"},
        {1024LL * 1000000, "1.000.000,0"},
        {INT64_MAX, "9.007.199.254.740.992,0"},
        {-1536, "-1,5"},
    };
    for (const clsCaso &caso : lstCasos) {
        EXPECT_EQ(fTextoTotales(12345, caso.lngKB, {}),
                  "12345 fotos.      \r\n\r\n" + std::string(caso.strMb) + " Mb.      \r\n");
    }
    EXPECT_EQ(fTextoTotales(1, 1536000, {",", "."}), "1 fotos.      \r\n\r\n1,500.0 Mb.      \r\n");
}

} // namespace
