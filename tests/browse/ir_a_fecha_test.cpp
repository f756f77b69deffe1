#include "browse/ir_a_fecha.h"

#include <gtest/gtest.h>

namespace {

TEST(IrAFecha, AcceptsEightDigitsThatNameADay)
{
    EXPECT_EQ(fLeerRespuestaFecha("07052010"), fFechaDe({2010, 5, 7}));
    EXPECT_EQ(fLeerRespuestaFecha("29022008"), fFechaDe({2008, 2, 29}));
    EXPECT_EQ(fLeerRespuestaFecha("31129999"), fFechaDe({9999, 12, 31}));
    for (const char *const strRespuesta :
         {"", "7052010", "070520100", "31022010", "29022010", "00052010", "07132010", "07050099",
          "siete de", "07/05/10", "0705201O", " 7052010", "+7052010", "-7052010", "ñ052010"}) {
        SCOPED_TRACE(strRespuesta);
        EXPECT_EQ(fLeerRespuestaFecha(strRespuesta), std::nullopt);
    }
}

TEST(IrAFecha, LeadsToTheFirstFileOnOrAfterTheDay)
{
    clsFilas filas;
    for (const char *const strFecha :
         {"2010/05/03 10:00:00", "sin fecha", "2010/05/07 00:00:00", "2010/05/07 12:00:00"}) {
        filas.fAgregarFila("/f/a.jpg", strFecha, 1);
    }
    struct clsCaso {
        const char *strRespuesta;
        int lngActual;
        std::optional<int> lngDestino;
    };
    const clsCaso lstCasos[] = {
        {"01011990", 3, 0}, // before all files
        {"03052010", 0, 0}, // the current one
        {"04052010", 0, 2},
        {"07052010", 3, 2},
        {"08052010", 0, 3},            // after all files
        {"08052010", 3, std::nullopt}, // and there already
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strRespuesta);
        const auto dia = fLeerRespuestaFecha(caso.strRespuesta);
        ASSERT_TRUE(dia);
        EXPECT_EQ(fIrAFecha(filas, caso.lngActual, *dia), caso.lngDestino);
        EXPECT_EQ(fIrAFecha(clsFilas(), 0, *dia), std::nullopt);
    }
}

} // namespace
