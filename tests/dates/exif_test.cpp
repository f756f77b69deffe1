#include "dates/exif.h"

#include "dates/exif_fecha.h"
#include "dates/ifd.h"
#include "soporte/arbol.h"
#include "tiff_prueba.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

struct clsLeido {
    std::string strMensaje;
    clsTablaExif tabla;
    clsMarcas marcas;
};

/// Reads the bytes; the short way to the dates has to agree with the table.
clsLeido fLeer(std::string_view strBytes)
{
    clsLeido leido;
    clsOrigenMemoria origen(strBytes);
    leido.strMensaje = ReadExifTable(origen, leido.tabla, leido.marcas);
    const auto fFecha = [&](std::string_view strCodigo) {
        const auto valor = GetExifValue(leido.tabla, strCodigo, true);
        const auto *const fecha = valor ? std::get_if<clsFecha>(&*valor) : nullptr;
        return fecha != nullptr ? *fecha : clsFecha();
    };
    const clsFechasExif fechas = fLeerFechasExif(origen);
    EXPECT_EQ(fechas.datFecha, fFecha("0132"));
    EXPECT_EQ(fechas.datTomada, fFecha("9003"));
    return leido;
}

std::string fTexto(const clsTiff &tiff) { return fTextoTabla(fLeer(tiff.fHacer()).tabla); }

std::size_t fFilas(std::string_view strBytes) { return fLeer(strBytes).tabla.lstFilas.size(); }

/// The text of a value with nothing behind it in the file.
std::string fValor(unsigned intTipo, std::uint32_t lngCuenta, std::string_view strBytes)
{
    const auto leido =
        fLeer(clsTiff(Orden::MM).fEntrada(0xC000, intTipo, lngCuenta, strBytes).fHacer());
    return leido.tabla.lstFilas.at(0).strValor;
}

TEST(Exif, ReadsTheSameRowsInBothByteOrdersFromTiffAndJpeg)
{
    for (const Orden orden : {Orden::II, Orden::MM}) {
        const std::string strTiff = clsTiff(orden)
                                        .fTexto(0x010F, "Canon\0"s)
                                        .fCorto(0x0112, 6)
                                        .fTexto(0x0132, "2009:09:01 10:00:00\0"s)
                                        .fExif()
                                        .fTexto(0x9003, "2009:07:14 18:03:22\0"s)
                                        .fEntrada(0x9000, 7, 4, "0220")
                                        .fIfd()
                                        .fCorto(0x0103, 6)
                                        .fIfd()
                                        .fLargo(0xA433, 4000000000U)
                                        .fHacer();
        const std::string strTexto = "Camera Make: Canon\r\nOrientation: Rotate 90\r\n"
                                     "Date Time: 01/09/2009 10:00:00\r\nExif Offset: 88\r\n"
                                     "Date Time Original: 14/07/2009 18:03:22\r\n"
                                     "Exif Version: 0220\r\nCompression: JPEG\r\n"
                                     "A433: 4000000000\r\n";
        for (const std::string &strBytes : {strTiff, fJpeg(fSegmentoExif(strTiff))}) {
            const clsLeido leido = fLeer(strBytes);
            EXPECT_EQ(leido.strMensaje, "");
            EXPECT_EQ(fTextoTabla(leido.tabla), strTexto);
        }
    }
}

TEST(Exif, RecordsWhereThingsLie)
{
    const std::string strTiff = clsTiff(Orden::MM).fTexto(0x010F, "Canon\0"s).fHacer();
    const clsLeido leido = fLeer(
        fJpeg(fSegmento('\xE0', "JFIF\0"s) + fSegmentoExif(strTiff) + fSegmento('\xE1', "x")));
    EXPECT_EQ(leido.marcas, (clsMarcas{21, 8, 2, 11, 7, 40}));
    const clsFilaExif &fila = leido.tabla.lstFilas.at(0);
    EXPECT_EQ(fila.strCodigo, "010F");
    EXPECT_EQ(fila.intTipo, 2);
    EXPECT_EQ(fila.lngCuenta, 6U);
    EXPECT_EQ(fila.lngDesplazamiento, 26U);
    EXPECT_EQ(fila.intPosicion, 2);
}

TEST(Exif, GivesTheValueOfTheFirstRowOfACode)
{
    const auto leido =
        fLeer(clsTiff(Orden::II).fCorto(0x0112, 6).fIfd().fCorto(0x0112, 1).fHacer());
    EXPECT_EQ(GetExifValue(leido.tabla, "0112", false), clsConvertido("6"s));
    EXPECT_EQ(GetExifValue(leido.tabla, "0112", true), clsConvertido("Rotate 90"s));
    EXPECT_EQ(GetExifValue(leido.tabla, "0132", true), std::nullopt);
}

TEST(Exif, SaysWhyThereIsNoTable)
{
    const std::string strTiff = clsTiff(Orden::II).fCorto(0x0112, 6).fHacer();
    const std::string strExif = fSegmentoExif(strTiff);
    const std::string strNada = "No EXIF data found";
    const std::string strOtro = "APP1 marker found, but doesn't contain EXIF data";
    const struct {
        const char *strFrase;
        std::string strBytes;
        std::string strMensaje;
    } lstCasos[] = {
        {"empty", "", "Unrecognised image format"},
        {"one byte", "M", "Unrecognised image format"},
        {"a video", "RIFF....AVI ", "Unrecognised image format"},
        {"a start and nothing more", "\xFF\xD8", strNada},
        {"no APP1", fJpeg(fSegmento('\xE0', "JFIF")), strNada},
        {"nothing but FF", "\xFF\xD8" + std::string(9999, '\xFF'), strNada},
        {"XMP only", fJpeg(fSegmento('\xE1', "http")), strOtro},
        {"XMP before EXIF", fJpeg(fSegmento('\xE1', "http") + strExif), strOtro},
        {"FF E1 inside a segment", fJpeg(fSegmento('\xE0', "\xFF\xE1") + strExif), strOtro},
        {"FF DA inside a segment", fJpeg(fSegmento('\xED', "\xFF\xDA") + strExif), strNada},
        {"FF E1 at the end", "\xFF\xD8\xFF\xE1", strOtro},
        {"E1 behind the start, no FF", "\xFF\xD8\xE1", strNada},
        {"FF before the marker", "\xFF\xD8\xFF" + strExif, ""},
        {"EXIF behind 3 MB", "\xFF\xD8" + std::string(3000000, 'x') + strExif, ""},
        {"a pair across two reads", "\xFF\xD8" + std::string(4093, 'x') + strExif, ""},
        {"no TIFF header", fJpeg(fSegmentoExif("XX*\0"s)), "File is not TIFF format"},
        {"mixed TIFF header", "MM*\0\0\0\0\x08"s, "File is not TIFF format"},
        {"BigTIFF", "II+\0\0\0\0\x08"s, "File is not TIFF format"},
    };
    for (const auto &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const clsLeido leido = fLeer(caso.strBytes);
        EXPECT_EQ(leido.strMensaje, caso.strMensaje);
        EXPECT_EQ(leido.tabla.lstFilas.size(), caso.strMensaje.empty() ? 1U : 0U);
    }
    clsOrigenMemoria origen(strTiff);
    clsLector lector(origen);
    clsMarcas marcas;
    EXPECT_EQ(fPasoJpeg(lector, Busqueda::Completa, marcas), "File is not JPEG format");
}

TEST(Exif, TakesRegularFilesOnly)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", fFoto("2009:07:14 18:03:22"));
    arbol.fEnlace("b.jpg", "a.jpg");
    arbol.fCrear("c.avi", "RIFF");
    arbol.fTuberia("d.jpg");
    clsTablaExif tabla;
    clsMarcas marcas;
    EXPECT_TRUE(HasExifData(arbol.fRuta("b.jpg"), tabla));
    EXPECT_EQ(tabla.lstFilas.size(), 2U);
    EXPECT_FALSE(HasExifData(arbol.fRuta("c.avi"), tabla));
    EXPECT_TRUE(tabla.lstFilas.empty());
    EXPECT_EQ(ReadExifTable("", tabla, marcas), "No file path provided");
    for (const char *const strRuta : {"d.jpg", "no.jpg", "a.jpg/x", ""}) {
        EXPECT_EQ(ReadExifTable(arbol.fRuta(strRuta), tabla, marcas), "File does not exist");
    }
    EXPECT_EQ(GetExifText(arbol.fRuta("c.avi")), "(No se ha encontrado informaci\u00F3n)");
}

TEST(Exif, TurnsEveryTypeIntoText)
{
    const struct {
        const char *strFrase;
        unsigned intTipo;
        std::uint32_t lngCuenta;
        std::string strBytes;
        std::string strValor;
    } lstCasos[] = {
        {"bytes", 1, 3, "\x01\xFF\0"s, "1 255 0"},
        {"signed bytes have no sign", 6, 1, "\xFF", "255"},
        {"a text loses its last zeros", 2, 6, "ab\0c\0\0"s, "ab\0c"s},
        {"undefined bytes are a text", 7, 4, "0220", "0220"},
        {"two shorts lie in the entry", 3, 2, "\0\x01\0\x02"s, "1 2"},
        {"three shorts lie behind it", 3, 3, "\0\x01\0\x02\0\x03"s, "1 2 3"},
        {"signed shorts have no sign", 8, 1, "\xFF\xFF", "65535"},
        {"longs", 4, 1, "\x80\0\0\0"s, "2147483648"},
        {"signed longs have no sign", 9, 1, "\xFF\xFF\xFF\xFF", "4294967295"},
        {"rationals", 5, 1, "\0\0\0H\0\0\0\x01"s, "72/1"},
        {"signed rationals, by nothing", 10, 1, "\xFF\xFF\xFF\xFF\0\0\0\0"s, "4294967295/0"},
        {"missing numbers are 0", 3, 5, "\0\x01\0\x02\0"s, "1 2 0 0 0"},
        {"a text ends with the file", 2, 4000000000, "abcdef", "abcdef"},
        {"floats have no text", 11, 1, "\x3F\x80\0\0"s, ""},
        {"doubles neither", 12, 4000000000, "\x3F\xF0\0\0"s, ""},
        {"no type", 0, 1, "abcd", ""},
        {"type 13", 13, 1, "abcd", ""},
        {"type 65535", 65535, 4294967295, "abcd", ""},
        {"no numbers", 3, 0, "\0\x07"s, ""},
        {"no text", 2, 0, "abcd", ""},
    };
    for (const auto &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fValor(caso.intTipo, caso.lngCuenta, caso.strBytes), caso.strValor);
    }
    EXPECT_EQ(fTexto(clsTiff(Orden::II).fEntrada(0x9286, 14, 2, "Si")), "User Comment: Si\r\n");
}

TEST(Exif, KeepsNoMoreThanOneMebibyteOfAValue)
{
    EXPECT_EQ(fValor(2, 3000000, std::string(3000000, 'a')).size(), 1048576U);
    EXPECT_EQ(fValor(1, 3000000, std::string(3000000, '\7')).size(), 1048575U);
    // Of numbers that lie beyond the file, some zeros tell it.
    const std::string strNumeros = fValor(3, 4294967295, "\0\x07\0\x08\0\x09"s);
    EXPECT_TRUE(strNumeros.starts_with("7 8 9 0 0"));
    EXPECT_LT(strNumeros.size(), 1000U);
    const std::string strAusente = fValor(4, 524288, "\x7F\xFF\xFF\xFF"); // an offset
    EXPECT_TRUE(strAusente.starts_with("0 0 0"));
    EXPECT_LT(strAusente.size(), 1000U);
}

/// Counts the reads.
class clsContador final : public clsOrigen {
public:
    explicit clsContador(std::string_view strBytes) : m_memoria(strBytes) {}
    [[nodiscard]] std::int64_t fTamano() const override { return m_memoria.fTamano(); }
    std::size_t fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes) override
    {
        EXPECT_LE(lngPos + static_cast<std::int64_t>(lngBytes), fTamano());
        ++intLecturas;
        lngLeidos += lngBytes;
        return m_memoria.fLeer(lngPos, chrDestino, lngBytes);
    }
    int intLecturas = 0;
    std::size_t lngLeidos = 0;

private:
    clsOrigenMemoria m_memoria;
};

TEST(Exif, DoesNotMultiplyALongValueThatManyEntriesShare)
{
    constexpr std::size_t lngMega = std::size_t{1} << 20;
    const struct {
        const char *strFrase;
        unsigned intCodigo;
        unsigned intTipo;
        int intEntradas;
        char chrByte;
    } lstCasos[] = {
        {"zeros, which are trimmed", 0xC000, 7, 1000, '\0'},
        {"a text", 0xC000, 2, 1000, 'x'},
        {"letters that take three bytes on the screen", 0xC000, 7, 65535, '\x80'},
        {"a text that is kept twice", 0x9000, 7, 65535, '\x80'},
        {"numbers", 0xC000, 1, 65535, '\xFF'},
    };
    for (const auto &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        clsTiff tiff(Orden::II);
        for (int intCual = 0; intCual < caso.intEntradas; ++intCual) {
            tiff.fEntrada(caso.intCodigo, caso.intTipo, lngMega, tiff.fNumero(8, 4));
        }
        // All point to what follows the IFD.
        std::string strBytes = tiff.fHacer();
        const std::string strDonde = tiff.fNumero(static_cast<std::uint32_t>(strBytes.size()), 4);
        for (int intCual = 0; intCual < caso.intEntradas; ++intCual) {
            strBytes.replace(10 + 12 * static_cast<std::size_t>(intCual) + 8, 4, strDonde);
        }
        strBytes.append(lngMega, caso.chrByte);
        clsContador origen(strBytes);
        clsTablaExif tabla;
        clsMarcas marcas;
        ASSERT_EQ(ReadExifTable(origen, tabla, marcas), "");
        ASSERT_EQ(tabla.lstFilas.size(), static_cast<std::size_t>(caso.intEntradas));
        EXPECT_LT(origen.lngLeidos, 512 * lngMega);
        std::size_t lngBytes = fTextoTabla(tabla).size();
        for (const clsFilaExif &fila : tabla.lstFilas) {
            const auto *const strTexto = std::get_if<std::string>(&fila.convertido);
            lngBytes += sizeof fila + fila.strValor.capacity() +
                        (strTexto != nullptr ? strTexto->capacity() : 0);
        }
        EXPECT_LT(lngBytes, 48 * lngMega);
    }
}

TEST(Exif, ShowsWordsForTheNumbersOfSomeTags)
{
    const struct {
        unsigned intCodigo;
        unsigned intNumero;
        const char *strLinea;
    } lstCasos[] = {
        {0x0112, 1, "Orientation: Normal"},
        {0x0112, 8, "Orientation: Rotate 270"},
        {0x0112, 9, "Orientation: Undefined"},
        {0x9207, 255, "Metering Mode: Other"},
        {0x9207, 7, "Metering Mode: Undefined"},
        {0x9209, 0, "Flash: No flash"},
        {0x9209, 16, "Flash: Undefined"},
        {0xA20B, 1, "Flash Energy 2: 1"},
        {0xA001, 65535, "Color Space: Uncalibrated"},
        {0x0106, 2, "Photometric Interpretation: RGB"},
        {0x011C, 2, "Planar Configuration: Planes"},
        {0x0128, 2, "Resolution Unit: inch"},
        {0xA210, 4, "Focal Plane Resolution Unit: undefined"},
        {0x011A, 72, "X Resolution: 72"},
        {0x0211, 1, "YCbCr Coefficients: 1"},
        {0xA433, 5, "A433: 5"},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fTexto(clsTiff(Orden::MM).fCorto(caso.intCodigo, caso.intNumero)),
                  caso.strLinea + "\r\n"s);
    }
}

TEST(Exif, ShowsTextsAsOneCharacterAByte)
{
    EXPECT_EQ(fTextoExif("  a\x80\xE9\x81\x7F\xC3\xA9\tb\0c\r\n"s),
              "a\u20AC\u00E9  \u00C3\u00A9 b c");
    EXPECT_EQ(fTextoExif("\0 \n"s), "");
}

TEST(Exif, StopsAtLoopsAndAtLinksBeyondTheFile)
{
    const auto fUno = [] { return clsTiff(Orden::MM).fCorto(0x0112, 6); };
    const struct {
        const char *strFrase;
        std::string strBytes;
        std::size_t lngFilas;
    } lstCasos[] = {
        {"a link to itself", fUno().fEnlace(8).fHacer(), 1},
        {"a link back", fUno().fIfd().fCorto(1, 1).fEnlace(8).fHacer(), 2},
        {"a link past the end", fUno().fEnlace(26).fHacer(), 1},
        {"a link beyond 31 bits", fUno().fEnlace(0xFFFFFFFF).fHacer(), 1},
        {"the Exif IFD is IFD0", fUno().fLargo(0x8769, 8).fIfd().fCorto(1, 1).fHacer(), 3},
        {"it lies past the end", fUno().fLargo(0x8769, 999).fIfd().fCorto(1, 1).fHacer(), 3},
        {"its link is not followed", fUno().fExif().fCorto(1, 1).fEnlace(8).fHacer(), 3},
        {"its pointer is a rational",
         fUno().fEntrada(0x8769, 5, 1, "\0\0\0\x2E\0\0\0\x01"s).fIfd().fCorto(1, 1).fHacer(), 3},
        {"its pointer is a text", fUno().fEntrada(0x8769, 2, 4, "\0\0\0\x08"s).fHacer(), 2},
        {"no entries", clsTiff(Orden::II).fIfd().fCorto(1, 1).fHacer(), 1},
        {"no IFD0", "MM\0*\0\0\0\0\0\x01"s, 0},
    };
    for (const auto &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fFilas(caso.strBytes), caso.lngFilas);
    }
    // Inside a JPEG file these offsets come back to its beginning when they are added in 32 bits.
    const auto leido = fLeer(fJpeg(fSegmentoExif(clsTiff(Orden::II)
                                                     .fEntrada(0xC000, 2, 9, "\xF8\xFF\xFF\xFF")
                                                     .fEnlace(0xFFFFFFFC)
                                                     .fHacer())));
    EXPECT_EQ(fTextoTabla(leido.tabla), "C000: \r\n");
}

TEST(Exif, WalksLongChainsAndManyEntriesUpToItsLimits)
{
    // An IFD of one entry in 18 bytes, linked to the next one.
    const auto fCadena = [](std::uint32_t lngCuantos, const std::string &strEntrada) {
        const clsTiff tiff(Orden::MM);
        std::string strBytes = "MM\0*\0\0\0\x08"s;
        for (std::uint32_t lng = 1; lng <= lngCuantos; ++lng) {
            const std::size_t lngSiguiente = strBytes.size() + 6 + strEntrada.size();
            strBytes += tiff.fNumero(strEntrada.empty() ? 0 : 1, 2) + strEntrada +
                        tiff.fNumero(static_cast<std::uint32_t>(lngSiguiente), 4);
        }
        return strBytes;
    };
    const std::string strEntrada = "\x01\x12\0\x03\0\0\0\x01\0\x06\0\0"s;
    EXPECT_EQ(fFilas(fCadena(10000, strEntrada)), 10000U);
    EXPECT_EQ(fFilas(fCadena(70000, strEntrada)), 65536U);
    EXPECT_EQ(fFilas(fCadena(300000, "")), 0U);
    clsTiff tiff(Orden::II);
    for (int intCual = 0; intCual < 40000; ++intCual) {
        tiff.fCorto(0x0112, 1);
        if (intCual == 20000) {
            tiff.fIfd();
        }
    }
    EXPECT_EQ(fFilas(tiff.fHacer()), 40000U);
}

TEST(Exif, TakesAFileCutAtEveryByte)
{
    const std::string strEntera =
        fJpeg(fSegmento('\xE0', "JFIF") + fSegmentoExif(clsTiff(Orden::MM)
                                                            .fTexto(0x010F, "Canon")
                                                            .fTexto(0x0132, "2009:07:14 18:03:22")
                                                            .fExif()
                                                            .fTexto(0x9003, "2009:07:14 18:03:22")
                                                            .fIfd()
                                                            .fEntrada(0x011A, 5, 1, "12345678")
                                                            .fHacer()));
    std::size_t lngAntes = 0;
    for (std::size_t lng = 0; lng <= strEntera.size(); ++lng) {
        const std::size_t lngFilas = fFilas(std::string_view(strEntera).substr(0, lng));
        EXPECT_GE(lngFilas, lngAntes);
        lngAntes = lngFilas;
    }
    EXPECT_EQ(lngAntes, 5U);
}

TEST(Exif, CostsOneSmallReadForThePhotoThatHasItsDatesInFront)
{
    const std::string strLejos = fFoto("2009:07:14 18:03:22") + std::string(9000, 'x');
    clsContador origen(strLejos);
    EXPECT_TRUE(fLeerFechasExif(origen).datTomada.fHay());
    EXPECT_EQ(origen.intLecturas, 1);
    const std::string strVideo(100000, '\xFF');
    clsContador video(strVideo);
    EXPECT_FALSE(fLeerFechasExif(video).datTomada.fHay());
    EXPECT_EQ(video.intLecturas, 1);
}

} // namespace
