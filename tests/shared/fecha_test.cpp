#include "shared/fecha.h"

#include "soporte/arbol.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(Fecha, IsWrittenAndReadInEveryForm)
{
    struct clsCaso {
        std::string_view strForma;
        const char *strTexto;
        std::optional<clsFecha> fecha;
    };
    const auto fecha = fFechaDe({2009, 7, 4, 8, 3, 2});
    const auto dia = fFechaDe({2009, 7, 4});
    const clsCaso lstCasos[] = {
        {strFormaCatalogo, "2009/07/04 08:03:02", fecha},
        {strFormaUsuario, "04/07/2009 08:03:02", fecha},
        {strFormaDia, "04/07/2009", dia},
        {"ddMMyyyy", "04072009", dia},
        {"yyyyMMddHHmmss", "20090704080302", fecha},
        {"yyyyMMdd_", "20090704_", dia},
        {"dd/MM/yyyy 12:00:00", "04/07/2009 12:00:00", dia},
        {"yyyy/MM/dd HH:mm:s", "2009/07/04 08:03:2", fecha},
        {strFormaCatalogo, "0100/01/01 00:00:00", fFechaDe({100, 1, 1})},
        {strFormaCatalogo, "9999/12/31 23:59:59", fFechaDe({9999, 12, 31, 23, 59, 59})},
        {strFormaDia, "29/02/2000", fFechaDe({2000, 2, 29})},
        {strFormaUsuario, "29/12/1899 23:59:59", clsFecha{-1}},
        {strFormaCatalogo, "1899/12/30 00:00:00", clsFecha{}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strTexto);
        EXPECT_EQ(fEscribirFecha(caso.fecha.value(), caso.strForma), caso.strTexto);
        EXPECT_EQ(fLeerFecha(caso.strTexto, caso.strForma), caso.fecha);
        EXPECT_EQ(fMedianoche(fDia(*caso.fecha)),
                  fLeerFecha(fEscribirFecha(*caso.fecha, strFormaDia), strFormaDia));
    }
}

TEST(Fecha, RefusesWhatHasAnotherFormOrIsNoRealDate)
{
    const auto fRechaza = [](std::string_view strTexto) {
        EXPECT_FALSE(fLeerFecha(strTexto, strFormaUsuario)) << strTexto;
    };
    for (const char *const strForma :
         {"", "14/07/2009", "14/07/2009 18:03", "14/07/2009 18:03:22 ", " 4/07/2009 18:03:22",
          "4/7/2009 8:03:02", "14-07/2009 18:03:22", "14/07-2009 18:03:22", "14/07/2009T18:03:22",
          "14/07/2009 18.03:22", "14/07/2009 18:03.22", "1a/07/2009 18:03:22",
          "14/+7/2009 18:03:22", "2009/07/14 18:03:22", "14/07/2009 18:03:2\xB2"}) {
        fRechaza(strForma);
    }
    for (const char *const strDia :
         {"31/02/2009", "29/02/2009", "29/02/1900", "31/04/2024", "00/07/2009", "32/07/2009",
          "14/13/2009", "14/00/2009", "31/12/0099", "14/07/0000", "07/14/2009"}) {
        fRechaza(std::string(strDia) + " 10:00:00");
    }
    for (const char *const strHora : {"24:00:00", "10:60:00", "10:00:60"}) {
        fRechaza(std::string("14/07/2009 ") + strHora);
    }
    // What no text can say; 257 is 1 in 8 bits.
    for (const auto &[intAno, intMes, intDia, intSegundo] :
         {std::array{10000, 1, 1, 0}, {2024, 257, 1, 0}, {2024, 1, 257, 0}, {2024, 1, 1, -1}}) {
        EXPECT_FALSE(fFechaDe({intAno, intMes, intDia, 0, 0, intSegundo})) << intAno;
    }
}

TEST(Fecha, GivesNoDateForMomentsOutsideTheValidYears)
{
    const clsZona zona("UTC0");
    using clsLimites = std::numeric_limits<std::time_t>;
    constexpr std::time_t lngUltimo = 253402300799;  // 31/12/9999 23:59:59
    constexpr std::time_t lngPrimero = -59011459200; // 1/1/100 00:00:00
    EXPECT_EQ(fEscribirFecha(fFechaLocal(lngUltimo)), "9999/12/31 23:59:59");
    EXPECT_EQ(fEscribirFecha(fFechaLocal(lngPrimero)), "0100/01/01 00:00:00");
    for (const std::time_t lngMomento : {lngUltimo + 1, lngPrimero - 1, clsLimites::max(),
                                         clsLimites::min(), std::time_t{67768036191676799}}) {
        EXPECT_FALSE(fFechaLocal(lngMomento).fHay()) << lngMomento;
    }
    EXPECT_EQ(fPartes({clsLimites::max()}).intAno, 1899);
    EXPECT_EQ(fPartes({clsLimites::min()}).intAno, 1899);
}

TEST(Fecha, FollowsDaylightSavingAndComesBack)
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
        const auto fecha = fLeerFecha(caso.strFecha, strFormaUsuario);
        ASSERT_TRUE(fecha);
        EXPECT_EQ(fMomento(*fecha), caso.lngMomento);
        EXPECT_EQ(fFechaLocal(caso.lngMomento), *fecha);
    }
    // An hour that comes twice is one of the two; a skipped one ends up beside the gap.
    const auto doble =
        fMomento(fLeerFecha("25/10/2009 02:30:00", strFormaUsuario).value_or(clsFecha{}));
    EXPECT_TRUE(doble == 1256430600 || doble == 1256434200);
    const auto nada =
        fMomento(fLeerFecha("29/03/2009 02:30:00", strFormaUsuario).value_or(clsFecha{}));
    EXPECT_TRUE(nada == 1238286600 || nada == 1238290200);
}

TEST(Fecha, ManyMomentsAreThoseOfEachDate)
{
    for (const char *const strZona : {"Europe/Madrid", "America/Sao_Paulo", "Australia/Lord_Howe",
                                      "Pacific/Apia", "America/St_Johns", "UTC"}) {
        SCOPED_TRACE(strZona);
        const clsZona zona(strZona);
        clsMomentosLocales momentos;
        const clsFecha primera = fFechaDe({2009, 1, 1}).value_or(clsFecha{});
        for (clsFecha fecha = primera; fecha.lngSegundos < primera.lngSegundos + 700 * 86400;
             fecha.lngSegundos += 1800) {
            const auto lngMomento = momentos.fMomento(fecha);
            const bool bolUno = lngMomento && fFechaLocal(*lngMomento) == fecha; // of two, perhaps
            ASSERT_TRUE(bolUno || lngMomento == fMomento(fecha)) << fEscribirFecha(fecha);
        }
        EXPECT_EQ(momentos.fMomento(clsFecha{-1}), fMomento(clsFecha{-1}));
    }
}

} // namespace
