#include "dates/fecha_tecleada.h"

#include <gtest/gtest.h>

namespace {

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
    EXPECT_EQ(fTextoFicheros(12), "(12 FICHEROS)");
}

} // namespace
