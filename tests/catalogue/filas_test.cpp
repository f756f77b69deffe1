#include "catalogue/filas.h"

#include "shared/numeros.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

const std::string strTomada = "2009/07/14 18:03:22";

clsFilas fTres()
{
    clsFilas filas;
    filas.fAgregarFila("/f/a.jpg", strTomada, 600);
    filas.fAgregarFila("/f/g/a.jpg", " otra forma ", 3LL << 40);
    filas.fAgregarFila("/f/a.jpg", "", 0);
    return filas;
}

TEST(Filas, KeepDateTextsThatOnlyLookAlmostRight)
{
    for (const char *const strTexto :
         {"0000/00/00 00:00:00", "9999/99/99 99:99:99", "2009/07/14 18:03:2", "2009-07-14 18:03:22",
          "2009/07/14 18:03:2x", "2009/07/14 18:03:222", "\xFF"}) {
        SCOPED_TRACE(strTexto);
        clsFilas filas;
        filas.fAgregarFila("/f/a.jpg", strTexto, 1);
        filas.fAgregarFila("/f/b.jpg", strTomada, 1);
        EXPECT_EQ(filas.fFecha(0), strTexto);
        EXPECT_EQ(filas.fNombre(1), "b.jpg");
    }
}

TEST(Filas, KnowTheDateThatTheirTextMeans)
{
    const std::pair<const char *, std::optional<clsFecha>> lstCasos[] = {
        {"2009/07/14 23:59:59", fFechaDe({2009, 7, 14, 23, 59, 59})},
        {" 2009/07/14 18:03:22 ", fFechaDe({2009, 7, 14, 18, 3, 22})},
        {"9999/12/31 00:00:00", fFechaDe({9999, 12, 31})},
        {"0100/01/01 00:00:00", fFechaDe({100, 1, 1})},
        {"1899/12/30 00:00:00", clsFecha{}}, // what files without one get
        {"2009/07/14 24:00:00", {}},
        {"2009/02/29 18:03:22", {}},
        {"0099/07/14 18:03:22", {}},
        {"2009/07/14", {}},
        {"", {}},
    };
    for (const auto &[strTexto, fecha] : lstCasos) {
        SCOPED_TRACE(strTexto);
        clsFilas filas;
        filas.fAgregarFila("/f/a.jpg", strTexto, 1);
        EXPECT_EQ(filas.fDatFecha(0), fecha.value_or(clsFilas::datNinguna));
        EXPECT_EQ(filas.fFecha(0), strTexto);
        EXPECT_EQ(filas.fFechasExactas(), fecha.has_value() && strTexto[0] != ' ');
    }
}

TEST(Filas, TakeTheDiskDateInPlaceOfATextOfAnotherForm)
{
    clsFilas filas = fTres();
    const clsFecha fecha = fFechaDe({2010, 1, 2, 3, 4, 5}).value();
    filas.fConservar({{2, -1, {}}, {1, 7, fecha}});
    EXPECT_EQ(filas.fFecha(0), "");
    EXPECT_EQ(filas.fFecha(1), "2010/01/02 03:04:05");
    EXPECT_EQ(filas.fDatFecha(0), clsFilas::datNinguna);
    EXPECT_EQ(filas.fDatFecha(1), fecha);
    EXPECT_EQ(filas.fTamano(1), 7);
}

TEST(Filas, FindTheLastRowOfExactlyThePath)
{
    const clsFilas filas = fTres();
    EXPECT_EQ(filas.fBuscarRuta("/f/a.jpg"), 2);
    EXPECT_EQ(filas.fBuscarRuta("/f/g/a.jpg"), 1);
    for (const char *const strRuta : {"/f/A.jpg", "/f/a.jp", "/f/", "a.jpg", "", "/h/a.jpg"}) {
        SCOPED_TRACE(strRuta);
        EXPECT_EQ(filas.fBuscarRuta(strRuta), -1);
    }
}

TEST(Filas, CarryTheirTicksIntoANewOrder)
{
    clsFilas filas = fTres();
    filas.fMarcar(0, true);
    filas.fMarcar(0, true);
    filas.fMarcar(1, true);
    filas.fMarcar(1, false);
    const std::uint64_t lngRevision = filas.fRevision();
    filas.fReordenar({2, 1, 0});
    EXPECT_GT(filas.fRevision(), lngRevision);
    EXPECT_TRUE(filas.fMarcada(2));
    EXPECT_FALSE(filas.fMarcada(0));
    EXPECT_EQ(filas.fContarMarcados(), 1);
    EXPECT_EQ(filas.fBuscarRuta("/f/a.jpg"), 2);
    EXPECT_EQ(filas.fFecha(2), strTomada);
    filas.fConservar({{2, -1, {}}});
    EXPECT_EQ(filas.fContarMarcados(), 0);
}

TEST(Filas, StartAgainWithAHigherRevision)
{
    clsFilas filas = fTres();
    const std::uint64_t lngRevision = filas.fRevision();
    filas.fVaciar();
    EXPECT_GT(filas.fRevision(), lngRevision);
    EXPECT_TRUE(filas.fVacia());
    EXPECT_EQ(filas.fBuscarRuta("/f/a.jpg"), -1);
    filas.fAgregarFila("/f/b.jpg", strTomada, 1);
    EXPECT_EQ(filas.fRuta(0), "/f/b.jpg");
}

TEST(Filas, AreReadByFieldCodesFromRowOne)
{
    const clsFilas filas = fTres();
    const clsSignos signos;
    EXPECT_EQ(fCampo(filas, 2, Campo::Ruta, signos), "/f/g/a.jpg");
    EXPECT_EQ(fCampo(filas, 2, Campo::Nombre, signos), "a.jpg");
    EXPECT_EQ(fCampo(filas, 2, Campo::Fecha, signos), "otra forma");
    EXPECT_EQ(fCampo(filas, 1, Campo::Tamano, signos), "1 KB");
    EXPECT_EQ(fCampo(filas, 3, Campo::Tamano, signos), "0 KB");
    EXPECT_EQ(fCampo(filas, 2, Campo::Tamano, signos), "3.221.225.472 KB");
    EXPECT_EQ(fCampo(filas, 2, Campo::Carpeta, signos), "/f/g/");
    EXPECT_EQ(fCampo(filas, 1, static_cast<Campo>(5), signos), "");
    EXPECT_EQ(fCampo(filas, 0, Campo::Ruta, signos), "");
    EXPECT_EQ(fCampo(filas, 4, Campo::Ruta, signos), "");
}

} // namespace
