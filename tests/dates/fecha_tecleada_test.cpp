#include "dates/fecha_tecleada.h"

#include "soporte/arbol.h"

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

TEST(FechaTecleada, ReadsTheDayFirst)
{
    const auto fecha = fLeerTecleada("03/04/2009 18:05:06");
    ASSERT_TRUE(fecha);
    EXPECT_EQ(fTextoCatalogo(*fecha), "2009/04/03 18:05:06");
    EXPECT_EQ(fTextoUsuario(*fecha), "03/04/2009 18:05:06");
    EXPECT_EQ(fTextoDia(*fecha), "03/04/2009");
    EXPECT_EQ(fTextoSello(*fecha), "20090403180506");
    EXPECT_EQ(fPrefijoNombre(*fecha), "20090403_");
    for (const char *const strFecha :
         {"29/02/2008 00:00:00", "31/12/9999 23:59:59", "01/01/0100 00:00:00"}) {
        SCOPED_TRACE(strFecha);
        EXPECT_EQ(fTextoUsuario(fLeerTecleada(strFecha).value_or(clsFecha{})), strFecha);
    }
}

TEST(FechaTecleada, RefusesWhatHasAnotherFormOrIsNoRealDate)
{
    for (const char *const strTexto : {"",
                                       "14/07/2009",
                                       "14/07/2009 18:03",
                                       "14/07/2009 18:03:22 ",
                                       " 4/07/2009 18:03:22",
                                       "14-07-2009 18:03:22",
                                       "14/07-2009 18:03:22",
                                       "14/07/2009T18:03:22",
                                       "14/07/2009 18.03:22",
                                       "14/07/2009 18:03.22",
                                       "1a/07/2009 18:03:22",
                                       "14/+7/2009 18:03:22",
                                       "2009/07/14 18:03:22",
                                       "14/07/2009 18:03:2\xB2",
                                       "31/02/2009 10:00:00",
                                       "29/02/2009 10:00:00",
                                       "00/07/2009 10:00:00",
                                       "14/13/2009 10:00:00",
                                       "14/00/2009 10:00:00",
                                       "14/07/0099 10:00:00",
                                       "14/07/0000 10:00:00",
                                       "14/07/2009 24:00:00",
                                       "14/07/2009 10:60:00",
                                       "14/07/2009 10:00:60",
                                       "07/14/2009 10:00:00"}) {
        SCOPED_TRACE(strTexto);
        EXPECT_EQ(fLeerTecleada(strTexto), std::nullopt);
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

TEST(Momento, FollowsDaylightSavingAndComesBack)
{
    const clsZona zona("CET-1CEST,M3.5.0,M10.5.0/3");
    struct clsCaso {
        const char *strFecha;
        std::time_t lngMomento;
    };
    const clsCaso lstCasos[] = {
        {"14/07/2009 18:03:22", 1247587402}, // summer
        {"14/01/2009 18:03:22", 1231952602}, // winter
        {"29/03/2009 01:59:59", 1238288399}, // the last second before the clocks go on
        {"29/03/2009 03:00:00", 1238288400}, // the next one
        {"25/10/2009 01:59:59", 1256428799}, // before the hour that comes twice
        {"25/10/2009 03:00:00", 1256436000}, // behind it
        {"01/01/1970 00:59:59", -1},         {"30/12/1899 00:00:00", -2209165200},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFecha);
        const auto fecha = fLeerTecleada(caso.strFecha);
        ASSERT_TRUE(fecha);
        EXPECT_EQ(fMomento(*fecha), caso.lngMomento);
        EXPECT_EQ(fFechaLocal(caso.lngMomento), *fecha);
    }
    // An hour that comes twice is one of the two; a skipped one ends up beside the gap.
    const auto doble = fMomento(fLeerTecleada("25/10/2009 02:30:00").value_or(clsFecha{}));
    EXPECT_TRUE(doble == 1256430600 || doble == 1256434200);
    const auto nada = fMomento(fLeerTecleada("29/03/2009 02:30:00").value_or(clsFecha{}));
    EXPECT_TRUE(nada == 1238286600 || nada == 1238290200);
}

} // namespace
