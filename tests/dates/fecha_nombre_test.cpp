#include "dates/fecha_nombre.h"

#include "fecha_texto.h"

#include <gtest/gtest.h>

TEST(FechaNombre, FindsDaysAndTimesWhereverTheyStand)
{
    const struct {
        const char *strNombre;
        const char *strFechas;
    } lstCasos[] = {
        {"IMG-20190714-WA0012.jpg", "14/07/2019"},
        {"20090714_DSC01234.JPG", "14/07/2009"},
        {"2009-07-14.jpg", "14/07/2009"},
        {"Playa 2009_07_14 (3).jpg", "14/07/2009"},
        {"2009 07 14.jpg", "14/07/2009"},
        {"2009.07.14.jpg", "14/07/2009"},
        {"Boda de Ana 14-07-2009.jpg", "14/07/2009"},
        {"14072009.jpg", "14/07/2009"},
        {"20090714_183022.jpg", "14/07/2009 18:30:22"},
        {"20090714183022.jpg", "14/07/2009 18:30:22"},
        {"20090714183022.345.jpg", "14/07/2009 18:30:22.345000000"},
        {"200907141830.jpg", "14/07/2009 18:30"},
        {"20190714180322123.jpg", "14/07/2019 18:03:22.123000000"},
        {"PXL_20210102_101112345.MP.jpg", "02/01/2021 10:11:12.345000000"},
        {"IMG_20190714_180322_123.jpg", "14/07/2019 18:03:22.123000000"},
        {"2009 07 14 183022.jpg", "14/07/2009 18:30:22"},
        {"20090714T183022.jpg", "14/07/2009 18:30:22"},
        {"WhatsApp Image 2019-07-14 at 18.03.22.jpeg", "14/07/2019 18:03:22"},
        {"WhatsApp Image 2019-07-14 at 18.03.22 (1).jpeg", "14/07/2019 18:03:22"},
        {"WhatsApp Image 2019-07-14 at 6.03.22 PM.jpeg", "14/07/2019 18:03:22"},
        {"Captura 2019-07-14 a las 6.03.22 p. m..png", "14/07/2019 18:03:22"},
        {"Screen Shot 2019-07-14 at 12.03.22\u202FAM.png", "14/07/2019 00:03:22"},
        {"Screenshot_2019-07-14-18-03-22-123_com.app.png", "14/07/2019 18:03:22.123000000"},
        {"vlcsnap-2019-07-14-18h03m22s123.png", "14/07/2019 18:03:22.123000000"},
        {"2019-07-14 18:03.jpg", "14/07/2019 18:03"},
        {"2007-08-15-14-42-46-sep-2007-08-15-14-42-46a.jpg",
         "15/08/2007 14:42:46, 15/08/2007 14:42:46"},
        {"20080508_PXL_20080501_101112.jpg", "08/05/2008, 01/05/2008 10:11:12"},
        {"18000101.jpg", "01/01/1800"},
        {"21991231.jpg", "31/12/2199"},
        // A time that does not exist leaves the day.
        {"20090714_256199.jpg", "14/07/2009"},
        {"2009-07-14 at 13.03.22 PM.jpg", "14/07/2009"},
        {"2009-07-14 24.00.00.jpg", "14/07/2009"},
        // Numbers that are not a time.
        {"20090714_1234.jpg", "14/07/2009"},
        {"20090714_12345678.jpg", "14/07/2009"},
        {"2009-07-14 3.15.jpg", "14/07/2009"},
        {"2009-07-14-12-30.jpg", "14/07/2009"},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fTextoDeFuentes(fFechasEnNombre(caso.strNombre)), caso.strFechas)
            << caso.strNombre;
    }
}

TEST(FechaNombre, RefusesWhatIsNoDate)
{
    for (const char *const strNombre : {"",
                                        "DSC01234.JPG",
                                        "20090230.jpg",
                                        "20091314.jpg",
                                        "00000000.jpg",
                                        "17991231.jpg",
                                        "22000101.jpg",
                                        "2009-02-30.jpg",
                                        "31-04-2009.jpg",
                                        "2009-07_14.jpg",
                                        "2009-7-14.jpg",
                                        "120090714.jpg",
                                        "200907141.jpg",
                                        "20090714256199.jpg",
                                        "200907142561.jpg",
                                        "FB_IMG_1563127402123.jpg",
                                        "2009-07-141.jpg",
                                        "12009-07-14.jpg",
                                        "14-07-20091.jpg",
                                        "12-34-5678.jpg",
                                        "2009-0714.jpg",
                                        "2009.jpg",
                                        "IMG_2_0_0_9_0_7_1_4.jpg"}) {
        EXPECT_TRUE(fFechasEnNombre(strNombre).empty()) << strNombre;
    }
}

TEST(FechaNombre, KeepsAFewOfManyDates)
{
    std::string strNombre;
    for (int intVez = 0; intVez < 50; ++intVez) {
        strNombre += "20090714 ";
    }
    EXPECT_EQ(fFechasEnNombre(strNombre).size(), lngMaximoNombre);
}

TEST(FechaNombre, TellsTheDateThatANameBeginsWith)
{
    EXPECT_TRUE(fFechaAlPrincipio("20090714_a.jpg"));
    EXPECT_TRUE(fFechaAlPrincipio("14-07-2009 a.jpg"));
    EXPECT_FALSE(fFechaAlPrincipio("1_20090714_a.jpg"));
    EXPECT_FALSE(fFechaAlPrincipio("a_20090714.jpg"));
}

TEST(FechaCarpeta, TakesTheDayOfTheInnermostFolder)
{
    const struct {
        const char *strCarpeta;
        const char *strFecha;
    } lstCasos[] = {
        {"2009/2009-07-14 Playa", "14/07/2009"},
        {"2009-07-14 Playa/Ana", "14/07/2009"},
        {"2009-07-14 Playa/2009-07-15", "15/07/2009"},
        {"20090714_183022", "14/07/2009"},
        {"Fotos/2009/07/14", "14/07/2009"},
        {"Fotos/2009/07/14/elegidas", "14/07/2009"},
        {"2009/07/2009-07-20 Playa/14", "20/07/2009"},
        {"", ""},
        {"2009", ""},
        {"2009/07", ""},
        {"2009/7/14", ""},
        {"2009/02/30", ""},
        {"//", ""},
    };
    for (const auto &caso : lstCasos) {
        const auto fecha = fFechaEnCarpeta(caso.strCarpeta);
        EXPECT_EQ(fecha ? fTextoDeFuentes({*fecha}) : "", caso.strFecha) << caso.strCarpeta;
        EXPECT_TRUE(!fecha || fecha->fuente == Fuente::Carpeta);
    }
}
