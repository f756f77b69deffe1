#include "dates/fecha_fuente.h"

#include "fecha_texto.h"
#include "soporte/arbol.h"

#include <gtest/gtest.h>

TEST(FechaFuente, ReadsDatesOfIso8601)
{
    const struct {
        const char *strTexto;
        const char *strFecha; ///< empty: none
    } lstCasos[] = {
        {"2009-07-14", "14/07/2009"},
        {"2009-07-14T18:03", "14/07/2009 18:03"},
        {"2009-07-14T18:03:22", "14/07/2009 18:03:22"},
        {"2009-07-14 18:03:22", "14/07/2009 18:03:22"},
        {" 2009-07-14T18:03:22\n", "14/07/2009 18:03:22"},
        {"2009-07-14T18:03:22.5", "14/07/2009 18:03:22.500000000"},
        {"2009-07-14T18:03:22.1234567891", "14/07/2009 18:03:22.123456789"},
        {"2009-07-14T18:03:22Z", "14/07/2009 18:03:22 UTC"},
        {"2009-07-14T18:03:22.123456789Z", "14/07/2009 18:03:22.123456789 UTC"},
        {"2009-07-14T18:03:22+02:00", "14/07/2009 18:03:22 +120"},
        {"2009-07-14T18:03:22-0530", "14/07/2009 18:03:22 -330"},
        {"2009-07-14T18:03+02:00", "14/07/2009 18:03 +120"},
        {"", ""},
        {"2009", ""},
        {"2009-07", ""},
        {"2009-02-30", ""},
        {"2009-07-14T24:00:00", ""},
        {"2009-07-14T18", ""},
        {"2009-07-14T18:03:22.", ""},
        {"2009-07-14T18:03.5", ""},
        {"2009-07-14T18:03:22+2", ""},
        {"2009-07-14T18:03:22+16:00", ""},
        {"2009-07-14T18:03:22Z+01:00", ""},
        {"2009-07-14+02:00", ""},
        {"2009:07:14 18:03:22", ""},
        {"1899-12-30T00:00:00", ""},
    };
    for (const auto &caso : lstCasos) {
        const auto fecha = fLeerFechaIso(caso.strTexto, Fuente::Xmp);
        EXPECT_EQ(fecha ? fTextoDeFuente(*fecha) : "", caso.strFecha) << caso.strTexto;
    }
}

TEST(FechaFuente, ShowsUniversalTimeByTheClockOfItsDate)
{
    const clsZona zona("Europe/Madrid");
    const auto fWall = [](const char *strTexto) {
        return fEscribirFecha(fLocal(fLeerFechaIso(strTexto, Fuente::Gps).value()));
    };
    EXPECT_EQ(fWall("2009-07-14T23:03:22Z"), "2009/07/15 01:03:22") << "summer";
    EXPECT_EQ(fWall("2009-01-14T23:03:22Z"), "2009/01/15 00:03:22") << "winter";
    EXPECT_EQ(fWall("2009-07-14T18:03:22-05:00"), "2009/07/14 18:03:22") << "the place's own clock";
    EXPECT_EQ(fWall("2009-07-14T18:03:22"), "2009/07/14 18:03:22");
    EXPECT_EQ(fWall("1969-12-31T23:00:00Z"), "1970/01/01 00:00:00");
}

TEST(FechaFuente, KnowsTheMomentWhereTheZoneIsKnown)
{
    const auto fMoment = [](const char *strTexto) {
        return fInstante(fLeerFechaIso(strTexto, Fuente::Xmp).value());
    };
    EXPECT_EQ(fMoment("2009-07-14T16:03:22Z"), clsArbol::lngMomento);
    EXPECT_EQ(fMoment("2009-07-14T18:03:22+02:00"), clsArbol::lngMomento);
    EXPECT_EQ(fMoment("2009-07-14T18:03:22"), std::nullopt);
    EXPECT_EQ(fEscribirFecha(fFechaUtc(clsArbol::lngMomento)), "2009/07/14 16:03:22");
}

TEST(FechaFuente, ReadsZonesAndSubSeconds)
{
    EXPECT_EQ(fLeerDesfase("+05:45"), 345);
    EXPECT_EQ(fLeerDesfase(std::string_view("-03:00\0", 7)), -180);
    EXPECT_EQ(fLeerDesfase("   :  "), std::nullopt);
    EXPECT_EQ(fLeerDesfase("+02:60"), std::nullopt);
    EXPECT_EQ(fLeerDesfase("02:00"), std::nullopt);
    EXPECT_EQ(fLeerNanos("07  "), 70'000'000);
    EXPECT_EQ(fLeerNanos("999999999999"), 999'999'999);
    EXPECT_EQ(fLeerNanos(""), std::nullopt);
    EXPECT_EQ(fLeerNanos("1 2"), std::nullopt);
}
