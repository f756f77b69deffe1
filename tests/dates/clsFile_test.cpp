#include "dates/clsFile.h"

#include "dates/exif.h"
#include "dates/exif_fecha.h"
#include "soporte/arbol.h"
#include "soporte/proceso.h"
#include "tiff_prueba.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using namespace std::string_literals;

std::string fTexto(clsFecha fecha) { return fecha.fHay() ? fEscribirFecha(fecha) : "-"; }

std::string fExif(std::string_view strTexto)
{
    return fTexto(fLeerFechaExif(strTexto).value_or(clsFecha{}));
}

TEST(FechaExif, ReadsTheFormOfExifWithSecondsOrTimeMissing)
{
    const struct {
        std::string strTexto;
        const char *strFecha;
    } lstCasos[] = {
        {"2009:07:14 18:03:22", "2009/07/14 18:03:22"},
        {"2009:07:14 18:03:22 \0 \0"s, "2009/07/14 18:03:22"},
        {"\0 2009:07:14 18:03:22"s, "2009/07/14 18:03:22"},
        {" 2009:07:14 18:03:2", "2009/07/14 18:03:02"}, // shifted, so that the last is cut
        {"2009: 7: 4  8: 3: 2", "2009/07/04 08:03:02"},
        {"2009:07:14 18:03", "2009/07/14 18:03:00"},
        {"2009:07:14", "2009/07/14 00:00:00"},
        {"2009/07/14", "2009/07/14 00:00:00"},
        {"2000:02:29 00:00:00", "2000/02/29 00:00:00"},
        {"0100:01:01 00:00:00", "0100/01/01 00:00:00"},
        {"9999:12:31 23:59:59", "9999/12/31 23:59:59"},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fExif(caso.strTexto), caso.strFecha) << caso.strTexto;
    }
}

TEST(FechaExif, RefusesEverythingElse)
{
    for (const std::string &strTexto : {""s,
                                        "0000:00:00 00:00:00"s,
                                        "    :  :     :  :  "s,
                                        "                   "s,
                                        "2009:07:14   :  :  "s,
                                        "2009:07:14 24:61:61"s,
                                        "2009:07:14 24:00:00"s,
                                        "2009:07:14 23:60:00"s,
                                        "2009:07:14 23:59:60"s,
                                        "2009:02:29 10:00:00"s,
                                        "2009:13:01 10:00:00"s,
                                        "2001:12:00 00:00:00"s,
                                        "0099:12:31 23:59:59"s,
                                        "99:12:31 23:59:59"s,
                                        "10000:01:01 00:00:00"s,
                                        "2009-07-14 18:03:22"s,
                                        "2009/07/14 18:03:22"s,
                                        "2009:07:14T18:03:22"s,
                                        "2015-06-29T18:19:12+01:00"s,
                                        "2009:07:14 18:03:22Z"s,
                                        "2009:07:14 18:03:22\0x"s,
                                        "2009:07:14 18"s,
                                        "2009:07"s,
                                        "2009:7:4 8:3:2"s,
                                        "14:07:2009 18:03:22"s,
                                        "2 09:07:14"s,
                                        "-009:07:14"s,
                                        "20 9 0 0"s}) {
        EXPECT_EQ(fExif(strTexto), "-") << strTexto;
    }
}

TEST(FechaNombre, ReadsTheFirstEightDigitsBothWays)
{
    const struct {
        const char *strNombre;
        const char *strAnoPrimero;
        const char *strDiaPrimero;
    } lstCasos[] = {
        {"20090714_183022.jpg", "2009/07/14 00:00:00", "0714/09/20 00:00:00"},
        {"IMG_2009-07-14.JPG", "2009/07/14 00:00:00", "0714/09/20 00:00:00"},
        {"20031201.jpg", "2003/12/01 00:00:00", "1201/03/20 00:00:00"},
        {"01022003.jpg", "-", "2003/02/01 00:00:00"},
        {"2009071.3gp", "2009/07/13 00:00:00", "0713/09/20 00:00:00"},
        {"20090714183022123456.jpg", "2009/07/14 00:00:00", "0714/09/20 00:00:00"},
        {"29022000.jpg", "-", "2000/02/29 00:00:00"},
        {"DSC01234.JPG", "-", "-"},
        {"2009071.jpg", "-", "-"},
        {"99999999.jpg", "-", "-"},
        {"00000000.jpg", "-", "-"},
        {"00990101.jpg", "-", "-"},
        {"20090231.jpg", "-", "0231/09/20 00:00:00"},
        {"\u0662\u0660\u0660\u0669\u0660\u0667\u0661\u0664.jpg", "-", "-"},
        {"\uFF12\uFF10\u00B2\u00B3"
         "20090714",
         "2009/07/14 00:00:00", "0714/09/20 00:00:00"},
        {"\xFF\x80"
         "20090714",
         "2009/07/14 00:00:00", "0714/09/20 00:00:00"},
        {"", "-", "-"},
    };
    for (const auto &caso : lstCasos) {
        SCOPED_TRACE(caso.strNombre);
        EXPECT_EQ(fTexto(fFechasDeNombre(caso.strNombre).datAnoPrimero), caso.strAnoPrimero);
        EXPECT_EQ(fTexto(fFechasDeNombre(caso.strNombre).datDiaPrimero), caso.strDiaPrimero);
    }
}

/// Every file of these tests is of 14/07/2009 18:03:22 local time.
class File : public ::testing::Test {
protected:
    clsFile fCargar(const std::string &strNombre, std::string_view strBytes) const
    {
        arbol.fCrear(strNombre, strBytes);
        clsFile file;
        file.fCargar(arbol.fRuta(strNombre));
        return file;
    }
    clsZona zona{"CET-1CEST,M3.5.0,M10.5.0/3"};
    clsArbol arbol;
};

TEST_F(File, AgreesWithTheExifDateToOneHourInWholeMinutes)
{
    const struct {
        const char *strTomada;
        bool bolCorrecta;
    } lstCasos[] = {
        {"2009:07:14 18:03:22", true},
        {"2009:07:14 19:03:59", true}, // 60 minutes, seconds dropped
        {"2009:07:14 19:04:00", false},
        {"2009:07:14 17:03:00", true},
        {"2009:07:14 17:02:59", false},
        {"2010:07:14 18:03:22", false},
        {"1899:12:30 00:00:00", false}, // the zero date is none
        {"0000:00:00 00:00:00", false},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fCargar("a.jpg", fFoto(caso.strTomada)).bolFechaCorrecta(), caso.bolCorrecta)
            << caso.strTomada;
    }
}

TEST_F(File, PrefersTheDateTakenOfThePhoto)
{
    const auto fCon = [](const char *strFecha, const char *strTomada) {
        return fJpeg(fSegmentoExif(clsTiff(Orden::MM)
                                       .fTexto(0x0132, strFecha)
                                       .fExif()
                                       .fTexto(0x9003, strTomada)
                                       .fIfd()
                                       .fTexto(0x9003, "2001:01:01 00:00:00")
                                       .fHacer()));
    };
    const clsFile file = fCargar("a.jpg", fCon("2009:07:14 18:03:22", "2009:08:01 00:00:00"));
    EXPECT_EQ(fTexto(file.datExif()), "2009/08/01 00:00:00");
    EXPECT_FALSE(file.bolFechaCorrecta());
    // The first row of a code counts, even when its date does not read.
    EXPECT_TRUE(fCargar("b.jpg", fCon("2009:07:14 18:03:22", "    ")).bolFechaCorrecta());
}

TEST_F(File, AgreesWithADateOfTheNameToTheDay)
{
    EXPECT_TRUE(fCargar("20090714_9.jpg", "x").bolFechaCorrecta());
    EXPECT_TRUE(fCargar("20090714/14-07-2009.avi", "RIFF").bolFechaCorrecta());
    EXPECT_TRUE(fCargar("20090714.jpg", fFoto("2001:01:01 00:00:00")).bolFechaCorrecta());
    EXPECT_FALSE(fCargar("20090715.jpg", "x").bolFechaCorrecta());
    EXPECT_FALSE(fCargar("20090714/a.jpg", "x").bolFechaCorrecta()) << "only the name counts";
    arbol.fCrear("DSC01234.JPG", "x", -2209161600); // 30/12/1899, day zero, and nothing to agree
    clsFile file;
    file.fCargar(arbol.fRuta("DSC01234.JPG"));
    EXPECT_FALSE(file.bolFechaCorrecta());
}

TEST_F(File, HoldsWhatItWasLoadedWithAndNothingOfBefore)
{
    clsFile file = fCargar("b/20090714.jpg", fFoto("2009:07:14 18:03:22"));
    EXPECT_TRUE(file.bolDatos());
    EXPECT_EQ(file.strFileName(), "20090714.jpg");
    EXPECT_EQ(fTexto(file.datFile()), "2009/07/14 18:03:22");
    file.strFilePathNew("/x");
    file.fCargar(file.strFilePath());
    EXPECT_TRUE(file.bolFechaCorrecta());
    EXPECT_EQ(file.strFilePath(), arbol.fRuta("b/20090714.jpg"));
    EXPECT_EQ(file.strFilePathNew(), "");
    arbol.fTuberia("tubo");
    for (const char *const strRuta : {"no.jpg", "b", "tubo"}) {
        file.fCargar(arbol.fRuta(strRuta));
        EXPECT_FALSE(file.bolDatos());
        EXPECT_FALSE(file.bolFechaCorrecta());
        EXPECT_EQ(file.strFilePath() + file.strFileName(), "");
        EXPECT_FALSE(file.datFile().fHay() || file.datExif().fHay() || file.datNombre1().fHay());
    }
}

TEST_F(File, ThatMayNotBeReadHasItsOtherDates)
{
    fCargar("20090714.jpg", fFoto("2009:07:14 18:03:22"));
    const std::string strRuta = arbol.fRuta("20090714.jpg");
    ASSERT_EQ(chmod(strRuta.c_str(), 0), 0);
    ASSERT_EQ(chmod(arbol.fRaiz().c_str(), 0755), 0);
    EXPECT_EQ(fEnHijo([&] {
                  ASSERT_TRUE(fSoltarRaiz());
                  clsFile file;
                  file.fCargar(strRuta);
                  EXPECT_TRUE(file.bolDatos() && file.bolFechaCorrecta());
                  EXPECT_FALSE(file.datExif().fHay());
                  clsTablaExif tabla;
                  clsMarcas marcas;
                  EXPECT_EQ(ReadExifTable(strRuta, tabla, marcas), "Unrecognised image format");
              }),
              0);
}

TEST_F(File, HasItsDateInEveryCentury)
{
    for (const char *const strFecha : {"1700/01/02 03:04:05", "2400/01/02 03:04:05"}) {
        const auto lngMomento = fMomento(fLeerFecha(strFecha).value()).value();
        arbol.fCrear("siglo.jpg", "x", lngMomento);
        struct stat datos {};
        ASSERT_EQ(stat(arbol.fRuta("siglo.jpg").c_str(), &datos), 0);
        clsFile file;
        file.fCargar(arbol.fRuta("siglo.jpg"));
        // The file system may not have that year; whatever it has is what the file has.
        EXPECT_EQ(file.datFile(), fFechaLocal(datos.st_mtim.tv_sec)) << strFecha;
    }
}

} // namespace
