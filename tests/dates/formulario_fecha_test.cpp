#include "dates/formulario_fecha.h"

#include "soporte/arbol.h"

#include <gtest/gtest.h>

namespace {

clsFile fFichero(const clsArbol &arbol, const std::string &strNombre, const std::string &strFecha)
{
    const auto fecha = fLeerFecha(strFecha);
    arbol.fCrear(strNombre, "no picture", fMomento(fecha.value()).value());
    clsFile fichero;
    fichero.fCargar(arbol.fRuta(strNombre));
    return fichero;
}

} // namespace

TEST(FormularioFecha, TellsOneFileByItsDateAndSeveralByTheirNumber)
{
    const clsArbol arbol;
    const clsFile bien = fFichero(arbol, "20090714_a.jpg", "2009/07/14 18:03:22");
    const clsFile mal = fFichero(arbol, "20090714_b.jpg", "2012/03/04 18:20:00");
    const clsFile sinFecha = fFichero(arbol, "c.jpg", "2012/03/04 18:20:00");

    const clsFormularioFecha deBien = fFormularioFecha({bien});
    EXPECT_EQ(deBien.strActual, "14/07/2009 18:03:22");
    EXPECT_EQ(deBien.fondo, (clsColor{128, 255, 128}));
    EXPECT_EQ(deBien.lstFechas[0], "") << "no EXIF";
    EXPECT_EQ(deBien.lstFechas[1], "14/07/2009 12:00:00") << "the day of the name, at noon";
    EXPECT_EQ(deBien.lstFechas[2], "20/09/0714 12:00:00") << "the same digits day first";

    EXPECT_EQ(fFormularioFecha({mal}).fondo, (clsColor{255, 128, 128}));

    const clsFormularioFecha deVarios = fFormularioFecha({bien, mal, sinFecha});
    EXPECT_EQ(deVarios.strActual, "(3 FICHEROS)");
    EXPECT_EQ(deVarios.fondo, (clsColor{255, 255, 128}));
    EXPECT_EQ(deVarios.lstFechas[1], "14/07/2009 12:00:00") << "the last one that has a date";
}

TEST(FormularioFecha, OpensForWrongFilesOnlyUnlessAskedTo)
{
    const clsArbol arbol;
    const clsFile bien = fFichero(arbol, "20090714_a.jpg", "2009/07/14 18:03:22");
    const clsFile mal = fFichero(arbol, "20090714_b.jpg", "2012/03/04 18:20:00");
    EXPECT_TRUE(fSeCorrige({mal, mal}, false));
    EXPECT_FALSE(fSeCorrige({mal, bien, mal}, false)) << "one right file is enough to refuse";
    EXPECT_TRUE(fSeCorrige({mal, bien, mal}, true));
}

TEST(FechaTecleada, AddsTheTimeThatWasLeftOut)
{
    struct clsCaso {
        const char *strTecleada;
        const char *strNormal;
    };
    const clsCaso lstCasos[] = {
        {"14/07/2009", "14/07/2009 12:00:00"},
        {"14/07/2009 18:03", "14/07/2009 18:03:00"},
        {"14/07/2009 18:03:22", "14/07/2009 18:03:22"},
        {"", ""},
        {"4/07/2009", "4/07/2009"},
        {"14/07/2009 ", "14/07/2009 "},
        {"14/07/2009 18:0", "14/07/2009 18:0"},
        {"diez letra", "diez letra 12:00:00"}, // validated later
        {"10 ñandúes", "10 ñandúes 12:00:00"}, // characters, not bytes
        {"ñ4/07/200", "ñ4/07/200"},            // nine of them
        {"\xFF"
         "4/07/2009 18:03x",
         "\xFF"
         "4/07/2009 18:03x"},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strTecleada);
        EXPECT_EQ(fNormalizarTecleada(caso.strTecleada), caso.strNormal);
        EXPECT_EQ(fNormalizarTecleada(caso.strNormal), caso.strNormal);
    }
}

TEST(FechaTecleada, WordsTheWarnings)
{
    EXPECT_EQ(fAvisoFechaNoValida("14-07-2009 12:00:00"),
              "'14-07-2009 12:00:00' no es una fecha válida.\r\n"
              "\r\n"
              "Formato permitidos:\r\n"
              "- 'dd/mm/yyyy hh:mm:ss'\r\n"
              "- 'dd/mm/yyyy hh:mm'\r\n"
              "- 'dd/mm/yyyy'");
    EXPECT_EQ(fAvisoFichero("/f/ñ.jpg"), "Hay algún problema con el fichero: \r\n/f/ñ.jpg");
}
