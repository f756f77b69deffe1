#include "dates/fuentes.h"

#include "dates/fecha_video.h"
#include "dates/origen.h"
#include "fecha_texto.h"
#include "soporte/arbol.h"
#include "tiff_prueba.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

/// The sources of a file of these bytes, "source: date" each.
std::string fFuentesDe(std::string_view strBytes)
{
    clsOrigenMemoria origen(strBytes);
    clsFechasExif exif;
    std::string strTexto;
    for (const clsFechaFuente &fuente : fLeerFuentesFoto(origen, exif)) {
        strTexto += (strTexto.empty() ? "" : ", ") + std::string(fTextoFuente(fuente.fuente)) +
                    ": " + fTextoDeFuente(fuente);
    }
    return strTexto;
}

/// TIFF data with nothing but a GPS IFD: the day, and the time as three fractions.
std::string fTiffGps(std::string_view strDia, const std::vector<std::uint32_t> &lstHora,
                     Orden orden = Orden::MM)
{
    const clsTiff tiff(orden);
    const std::uint32_t lngGps = 8 + 2 + 12 + 4;
    const std::uint32_t lngValores = lngGps + 2 + 24 + 4;
    std::string strTiff = clsTiff(orden).fLargo(0x8825, lngGps).fHacer();
    strTiff += tiff.fNumero(2, 2);
    strTiff += tiff.fNumero(0x07, 2) + tiff.fNumero(5, 2) + tiff.fNumero(3, 4) +
               tiff.fNumero(lngValores, 4);
    strTiff += tiff.fNumero(0x1D, 2) + tiff.fNumero(2, 2) + tiff.fNumero(11, 4) +
               tiff.fNumero(lngValores + 24, 4) + tiff.fNumero(0, 4);
    for (const std::uint32_t lngNumero : lstHora) {
        strTiff += tiff.fNumero(lngNumero, 4);
    }
    return strTiff + std::string(strDia) + '\0';
}

std::string fSegmentoXmp(const std::string &strPaquete)
{
    return fSegmento('\xE1', "http://ns.adobe.com/xap/1.0/\0"s + strPaquete);
}

/// A packet with one description that has these attributes and elements.
std::string fPaquete(const std::string &strAtributos, const std::string &strElementos = {})
{
    return "<x:xmpmeta><rdf:RDF><rdf:Description xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" "
           "xmlns:exif='http://ns.adobe.com/exif/1.0/'\n"
           "xmlns:photoshop = \"http://ns.adobe.com/photoshop/1.0/\" " +
           strAtributos + ">" + strElementos + "</rdf:Description></rdf:RDF></x:xmpmeta>";
}

std::string fRegistro(char chrCual, const std::string &strDatos)
{
    return "\x1C\x02"s + chrCual + '\0' + static_cast<char>(strDatos.size()) + strDatos;
}

/// An image resource; the name has an even length with its own length before it.
std::string fRecurso(const char *strNumero, const std::string &strNombre,
                     const std::string &strDatos)
{
    return "8BIM" + std::string(strNumero, 2) + static_cast<char>(strNombre.size()) + strNombre +
           std::string(strNombre.size() % 2 == 0 ? 1 : 0, '\0') +
           clsTiff(Orden::MM).fNumero(static_cast<std::uint32_t>(strDatos.size()), 4) + strDatos +
           std::string(strDatos.size() % 2, '\0');
}

std::string fSegmentoIptc(const std::string &strRegistros)
{
    return fSegmento('\xED', "Photoshop 3.0\0"s + fRecurso("\x04\x25", "abc", "odd") +
                                 fRecurso("\x04\x04", "", strRegistros));
}

} // namespace

TEST(FuentesFoto, ReadsTheDatesOfExifWithSubSecondsAndZones)
{
    const struct {
        const char *strFrase;
        std::string strTiff;
        const char *strFuentes;
    } lstCasos[] = {
        {"all three, each with its own",
         clsTiff(Orden::II)
             .fTexto(0x0132, "2012:05:01 10:00:00")
             .fExif()
             .fTexto(0x9003, "2009:07:14 18:03:22")
             .fTexto(0x9004, "2009:07:14 18:03:23")
             .fTexto(0x9010, "+01:00")
             .fTexto(0x9011, "+02:00")
             .fTexto(0x9012, "-03:30")
             .fTexto(0x9290, "1")
             .fTexto(0x9291, "25\0\0"s)
             .fTexto(0x9292, "999")
             .fHacer(),
         "EXIF (tomada): 14/07/2009 18:03:22.250000000 +120, "
         "EXIF (digitalizada): 14/07/2009 18:03:23.999000000 -210, "
         "EXIF (modificada): 01/05/2012 10:00:00.100000000 +60"},
        {"without seconds, and a day",
         clsTiff(Orden::MM)
             .fTexto(0x0132, "2009:07:14")
             .fExif()
             .fTexto(0x9003, "2009:07:14 18:03")
             .fTexto(0x9291, "25")
             .fHacer(),
         "EXIF (tomada): 14/07/2009 18:03, EXIF (modificada): 14/07/2009"},
        {"what is no date is left out, what is no zone counts for nothing",
         clsTiff(Orden::II)
             .fTexto(0x0132, "    :  :     :  :  ")
             .fExif()
             .fTexto(0x9003, "0000:00:00 00:00:00")
             .fTexto(0x9004, "2009:07:14 18:03:22")
             .fTexto(0x9012, "   :  ")
             .fTexto(0x9292, "ab")
             .fHacer(),
         "EXIF (digitalizada): 14/07/2009 18:03:22"},
        {"the first row decides, as the verdict has it",
         clsTiff(Orden::II)
             .fExif()
             .fTexto(0x9003, "no date")
             .fTexto(0x9003, "2009:07:14 18:03:22")
             .fIfd()
             .fTexto(0x0132, "2012:05:01 10:00:00")
             .fHacer(),
         "EXIF (modificada): 01/05/2012 10:00:00"},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fFuentesDe(fJpeg(fSegmentoExif(caso.strTiff))), caso.strFuentes) << caso.strFrase;
        EXPECT_EQ(fFuentesDe(caso.strTiff), caso.strFuentes) << "TIFF: " << caso.strFrase;
    }
}

TEST(FuentesFoto, ReadsTheTimeOfTheSatellites)
{
    const struct {
        const char *strDia;
        std::vector<std::uint32_t> lstHora;
        const char *strFuentes;
    } lstCasos[] = {
        {"2009:07:14", {16, 1, 3, 1, 22, 1}, "GPS: 14/07/2009 16:03:22 UTC"},
        {"2009:07:14", {16, 1, 3, 1, 22123, 1000}, "GPS: 14/07/2009 16:03:22.123000000 UTC"},
        {"2009:07:14", {16, 1, 7, 2, 0, 1}, "GPS: 14/07/2009 16:03:30 UTC"},
        {"2009:07:14", {24, 1, 0, 1, 0, 1}, ""},
        {"2009:07:14", {16, 1, 3, 1, 22, 0}, ""},
        {"2009:07:14", {16, 1, 3, 1}, ""},
        {"2009:02:30", {16, 1, 3, 1, 22, 1}, ""},
        {"0000:00:00", {0, 1, 0, 1, 0, 1}, ""},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fFuentesDe(fTiffGps(caso.strDia, caso.lstHora, Orden::II)), caso.strFuentes);
        EXPECT_EQ(fFuentesDe(fTiffGps(caso.strDia, caso.lstHora)), caso.strFuentes);
    }
}

TEST(FuentesFoto, ReadsTheDateOfXmp)
{
    const struct {
        std::string strPaquete;
        const char *strFecha; ///< empty: none
    } lstCasos[] = {
        {fPaquete("xmp:CreateDate=\"2009-07-14T18:03:22+02:00\""), "14/07/2009 18:03:22 +120"},
        {fPaquete("xmp:CreateDate = '2009-07-14'"), "14/07/2009"},
        {fPaquete("", "<xmp:CreateDate>2009-07-14T18:03:22Z</xmp:CreateDate>"),
         "14/07/2009 18:03:22 UTC"},
        {fPaquete("", "<xmp:CreateDate rdf:x=\"1\">\n 2009-07-14\n </xmp:CreateDate>"),
         "14/07/2009"},
        {fPaquete("xmp:CreateDate=\"2009-07-16\" photoshop:DateCreated=\"2009-07-15\"",
                  "<exif:DateTimeOriginal>2009-07-14</exif:DateTimeOriginal>"),
         "14/07/2009"},
        {fPaquete("xmp:CreateDate=\"2009-07-16\" photoshop:DateCreated=\"2009-07-15\""),
         "15/07/2009"},
        {fPaquete("photoshop:DateCreated=\"2009\" xmp:CreateDate=\"2009-07-16\""), "16/07/2009"},
        {"<a xmlns:xap=\"http://ns.adobe.com/xap/1.0/\" xap:CreateDate=\"2009-07-14\"/>",
         "14/07/2009"},
        {"<a xmlns:xmp=\"http://elsewhere/\" xmp:CreateDate=\"2009-07-14\"/>", ""},
        {"<a xmp:CreateDate=\"2009-07-14\"/>", ""},
        {fPaquete("my-xmp:CreateDate=\"2009-07-14\""), ""},
        {fPaquete("xmp:CreateDateOfMine=\"2009-07-14\""), ""},
        {fPaquete("", "<xmp:CreateDateOfMine>2009-07-14</xmp:CreateDateOfMine>"), ""},
        {fPaquete("", "<xmp:CreateDate/>2009-07-14<a/>"), ""},
        {fPaquete("xmp:CreateDate=2009-07-14"), ""},
        {fPaquete("xmp:CreateDate=\"" + std::string(100, ' ') + "2009-07-14\""), ""},
    };
    for (const auto &caso : lstCasos) {
        const std::string strFecha =
            std::string(*caso.strFecha == '\0' ? "" : "XMP: ") + caso.strFecha;
        EXPECT_EQ(fFuentesDe(fJpeg(fSegmentoXmp(caso.strPaquete))), strFecha) << caso.strPaquete;
        const std::string strTiff =
            clsTiff(Orden::MM)
                .fEntrada(0x02BC, 1, static_cast<std::uint32_t>(caso.strPaquete.size()),
                          caso.strPaquete)
                .fHacer();
        EXPECT_EQ(fFuentesDe(strTiff), strFecha) << "TIFF: " << caso.strPaquete;
    }
}

TEST(FuentesFoto, ReadsTheDateOfIptc)
{
    const std::string strDia = fRegistro('\x37', "20090714");
    const struct {
        std::string strRegistros;
        const char *strFecha; ///< empty: none
    } lstCasos[] = {
        {fRegistro('\x05', "Playa") + strDia, "14/07/2009"},
        {strDia + fRegistro('\x3C', "180322"), "14/07/2009 18:03:22"},
        {strDia + fRegistro('\x3C', "180322+0200"), "14/07/2009 18:03:22 +120"},
        {fRegistro('\x3C', "180322-0930") + strDia, "14/07/2009 18:03:22 -570"},
        {strDia + fRegistro('\x37', "20100101"), "14/07/2009"},
        {strDia + fRegistro('\x3C', "256199+0200"), "14/07/2009"},
        {strDia + fRegistro('\x3C', ""), "14/07/2009"},
        {fRegistro('\x37', "20090000"), ""},
        {fRegistro('\x37', "00000000"), ""},
        {fRegistro('\x37', "2009"), ""},
        {fRegistro('\x3C', "180322+0200"), ""},
        {"x" + strDia, ""},
    };
    for (const auto &caso : lstCasos) {
        const std::string strFecha =
            std::string(*caso.strFecha == '\0' ? "" : "IPTC: ") + caso.strFecha;
        EXPECT_EQ(fFuentesDe(fJpeg(fSegmentoIptc(caso.strRegistros))), strFecha);
        const std::string strTiff =
            clsTiff(Orden::II)
                .fEntrada(0x83BB, 7, static_cast<std::uint32_t>(caso.strRegistros.size()),
                          caso.strRegistros)
                .fHacer();
        EXPECT_EQ(fFuentesDe(strTiff), strFecha);
    }
}

TEST(FuentesFoto, FindsExifThatIsNotTheFirst)
{
    const std::string strExif =
        fSegmentoExif(clsTiff(Orden::II).fExif().fTexto(0x9003, "2009:07:14 18:03:22").fHacer());
    const std::string strXmp = fSegmentoXmp(fPaquete("xmp:CreateDate=\"2009-07-15\""));
    const std::string strIptc = fSegmentoIptc(fRegistro('\x37', "20090716"));
    const char *const strTodas =
        "EXIF (tomada): 14/07/2009 18:03:22, XMP: 15/07/2009, IPTC: 16/07/2009";
    EXPECT_EQ(fFuentesDe(fJpeg(strExif + strXmp + strIptc)), strTodas);
    EXPECT_EQ(fFuentesDe(fJpeg(strXmp + strIptc + strExif)), strTodas);
    const std::string strDespues = fJpeg(strXmp + strExif);
    clsOrigenMemoria origen(strDespues);
    clsFechasExif exif;
    static_cast<void>(fLeerFuentesFoto(origen, exif));
    EXPECT_FALSE(exif.fMejor().fHay()) << "it does not judge";
}

TEST(FuentesFoto, TakesBytesThatEndAnywhere)
{
    const std::string strFoto =
        fJpeg(fSegmentoXmp(fPaquete("xmp:CreateDate=\"2009-07-14\"")) +
              fSegmentoIptc(fRegistro('\x37', "20090714") + fRegistro('\x3C', "180322")) +
              fSegmentoExif(fTiffGps("2009:07:14", {16, 1, 3, 1, 22, 1})));
    std::size_t lngCuantas = 0;
    for (std::size_t lngLargo = 0; lngLargo <= strFoto.size(); ++lngLargo) {
        const std::string strParte = strFoto.substr(0, lngLargo);
        clsOrigenMemoria origen(strParte);
        clsFechasExif exif;
        const clsFuentes lstFuentes = fLeerFuentesFoto(origen, exif);
        EXPECT_GE(lstFuentes.size(), lngCuantas) << "more bytes, fewer dates at " << lngLargo;
        lngCuantas = lstFuentes.size();
    }
    EXPECT_EQ(lngCuantas, 3U);
}

TEST(FechasFichero, GathersWhatIsKnownAndJudgesAsTheVerdictDoes)
{
    const clsZona zona("Europe/Madrid");
    const clsArbol arbol;
    arbol.fCrear("2009/2009-07-14 Playa/20090714_183022.jpg", fFoto("2009:07:14 18:03:22"));
    arbol.fCrear("x/foto.jpg", fFoto("2009:07:14 20:03:22"));
    arbol.fCrear("video.mp4", "no picture");
    const struct {
        const char *strNombre;
        const char *strFuentes;
        bool bolCorrecta;
    } lstCasos[] = {
        {"2009/2009-07-14 Playa/20090714_183022.jpg",
         "14/07/2009 18:03:22, 14/07/2009 18:30:22, 14/07/2009", true},
        {"x/foto.jpg", "14/07/2009 20:03:22", false},
        {"video.mp4", "", false},
    };
    for (const auto &caso : lstCasos) {
        const std::string strRuta = arbol.fRuta(caso.strNombre);
        const clsFechasFichero fechas = fLeerFechas(strRuta, arbol.fRaiz());
        EXPECT_TRUE(fechas.bolExiste);
        EXPECT_EQ(fEscribirFecha(fechas.datArchivo), "2009/07/14 18:03:22");
        EXPECT_EQ(fTextoDeFuentes(fechas.lstFuentes), caso.strFuentes);
        EXPECT_EQ(fechas.bolCorrecta, caso.bolCorrecta);
        EXPECT_EQ(fechas.bolCorrecta, fFechaCorrecta(strRuta));
    }
    EXPECT_FALSE(fLeerFechas(arbol.fRuta("nadie.jpg"), arbol.fRaiz()).bolExiste);
}

TEST(FechasFichero, LooksAtFoldersBelowTheRootOnly)
{
    EXPECT_EQ(fCarpetasBajo("/2009-07-14/f/a/b.jpg", "/2009-07-14/f/"), "a");
    EXPECT_EQ(fCarpetasBajo("/f/b.jpg", "/f/"), "");
    EXPECT_EQ(fCarpetasBajo("/g/b.jpg", "/f/"), "/g");
}

TEST(FechaVideo, TakesTheMakersLocalDateFirst)
{
    const struct {
        const char *strDatos;
        const char *strFecha; ///< empty: none
    } lstCasos[] = {
        {"creation_time=2009-07-14T16:03:22.000000Z\n", "14/07/2009 16:03:22 UTC"},
        {"creation_time=2009-07-14 18:03:22\n", "14/07/2009 18:03:22"}, // of an AVI
        {"creation_time=2009-07-14T16:03:22.000000Z\n"
         "com.apple.quicktime.creationdate=2009-07-14T18:03:22+0200\n",
         "14/07/2009 18:03:22 +120"},
        {"creation_time=2009-07-14T16:03:22Z\ndate=2009-07-14T18:03:20+02:00\n",
         "14/07/2009 18:03:20 +120"},
        {"date=2009-07-14\ncreation_time=2009-07-14T16:03:22Z\n", "14/07/2009 16:03:22 UTC"},
        {"DATE=2009-07-14", "14/07/2009"},
        {"WM/EncodingTime=128920610020000000\n", "14/07/2009 16:03:22 UTC"},
        {"metadatadate=2007-06-12T19:03:11.528553Z\n", "12/06/2007 19:03:11.528553000 UTC"},
        {"creation_time=1970-01-01T00:00:00.000000Z\n", ""},
        {"creation_time=1904-01-01T00:00:00Z\n", ""},
        {"creation_time=1970-01-01T00:00:00Z\ndate=2009-07-14\n", "14/07/2009"},
        {"date=2009\n", ""},
        {"WM/EncodingTime=9223372036854775807\n", ""},
        {"WM/EncodingTime=-1\n", ""},
        {"title=2009-07-14\n", ""},
        {"", ""},
        {"\n\n=\ncreation_time", ""},
    };
    for (const auto &caso : lstCasos) {
        const auto fecha = fFechaDeVideo(caso.strDatos);
        EXPECT_EQ(fecha ? fTextoDeFuente(*fecha) : "", caso.strFecha) << caso.strDatos;
    }
}

TEST(FechasFichero, AsksForWhatIsInsideAVideo)
{
    const clsArbol arbol;
    arbol.fCrear("VID_20090715.mp4", "no picture");
    arbol.fCrear("foto.jpg", "no picture");
    const auto fVideo = [](const clsAbierto &abierto) {
        EXPECT_EQ(abierto.huella.lngBytes, 10);
        return std::string("creation_time=2009-07-14T16:03:22Z\n");
    };
    const auto fSources = [&](const char *strNombre) {
        return fTextoDeFuentes(
            fLeerFechas(arbol.fRuta(strNombre), arbol.fRaiz(), fVideo).lstFuentes);
    };
    EXPECT_EQ(fSources("VID_20090715.mp4"), "14/07/2009 16:03:22 UTC, 15/07/2009");
    EXPECT_EQ(fSources("foto.jpg"), "");
}
