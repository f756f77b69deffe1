#include "shared/fecha.h"

#include "soporte/arbol.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

/// The text of six numbers; empty when they are no date.
std::string fTexto(const clsPartesFecha &partes)
{
    const auto fecha = fFechaDe(partes);
    return fecha ? fTextoCatalogo(*fecha) : std::string();
}

TEST(Fecha, AcceptsRealDaysOfTheYears100To9999)
{
    EXPECT_EQ(fTexto({100, 1, 1}), "0100/01/01 00:00:00");
    EXPECT_EQ(fTexto({9999, 12, 31, 23, 59, 59}), "9999/12/31 23:59:59");
    EXPECT_EQ(fTexto({2000, 2, 29, 0, 0, 1}), "2000/02/29 00:00:01");     // a century that is leap
    EXPECT_EQ(fTexto({1899, 12, 29, 23, 59, 59}), "1899/12/29 23:59:59"); // before day zero
    EXPECT_EQ(fTextoCatalogo({}), "1899/12/30 00:00:00");
    EXPECT_EQ(fTextoUsuario(fFechaDe({2009, 7, 4, 8, 3, 2}).value()), "04/07/2009 08:03:02");
}

TEST(Fecha, RefusesWhatIsNoRealDayOrTimeOfDay)
{
    // 257 is 1 in 8 bits.
    const clsPartesFecha lstCasos[] = {
        {99, 12, 31, 0, 0, 0},    {10000, 1, 1, 0, 0, 0},  {1900, 2, 29, 0, 0, 0},
        {2023, 2, 29, 0, 0, 0},   {2024, 4, 31, 0, 0, 0},  {2024, 0, 1, 0, 0, 0},
        {2024, 13, 1, 0, 0, 0},   {2024, 257, 1, 0, 0, 0}, {2024, 1, 0, 0, 0, 0},
        {2024, 1, 257, 0, 0, 0},  {2024, 1, 1, 24, 0, 0},  {2024, 1, 1, 0, 60, 0},
        {2024, 1, 1, 23, 59, 60}, {2024, 1, 1, 0, 0, -1},
    };
    for (const clsPartesFecha &partes : lstCasos) {
        EXPECT_EQ(fTexto(partes), "");
    }
}

TEST(Fecha, ReadsOnlyTheCatalogueForm)
{
    EXPECT_EQ(fLeerTextoCatalogo("2009/07/04 08:03:02"), fFechaDe({2009, 7, 4, 8, 3, 2}));
    for (const char *const strTexto :
         {"", "2009/07/04", "2009/07/04 08:03", "2009/7/4 8:03:02", "04/07/2009 08:03:02",
          "2009-07-04 08:03:02", "2009/07/04T08:03:02", " 2009/07/04 08:03:02",
          "2009/07/04 08:03:02 ", "+009/07/04 08:03:02", "2009/07/04 24:00:00",
          "2009/13/04 08:03:02", "0099/07/04 08:03:02"}) {
        EXPECT_FALSE(fLeerTextoCatalogo(strTexto)) << strTexto;
    }
}

TEST(Fecha, TurnsAMomentIntoLocalTime)
{
    const clsZona zona("CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(fTextoCatalogo(fFechaLocal(clsArbol::lngMomento)), "2009/07/14 18:03:22");
    EXPECT_EQ(fTextoCatalogo(fFechaLocal(-1)), "1970/01/01 00:59:59");
}

TEST(Fecha, GivesNoDateForMomentsOutsideTheValidYears)
{
    const clsZona zona("UTC0");
    using clsLimites = std::numeric_limits<std::time_t>;
    constexpr std::time_t lngUltimo = 253402300799;  // 31/12/9999 23:59:59
    constexpr std::time_t lngPrimero = -59011459200; // 1/1/100 00:00:00
    EXPECT_EQ(fTextoCatalogo(fFechaLocal(lngUltimo)), "9999/12/31 23:59:59");
    EXPECT_EQ(fTextoCatalogo(fFechaLocal(lngPrimero)), "0100/01/01 00:00:00");
    for (const std::time_t lngMomento : {lngUltimo + 1, lngPrimero - 1, clsLimites::max(),
                                         clsLimites::min(), std::time_t{67768036191676799}}) {
        EXPECT_FALSE(fFechaLocal(lngMomento).fHay()) << lngMomento;
    }
    EXPECT_EQ(fPartes({clsLimites::max()}).intAno, 1899);
    EXPECT_EQ(fPartes({clsLimites::min()}).intAno, 1899);
}

} // namespace
