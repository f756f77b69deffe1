#include "viewer/cabecera_jpeg.h"

#include "jpeg_vacio.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

std::optional<clsEsfuerzoJpeg> fMedir(const std::string &strBytes)
{
    clsOrigenMemoria origen(strBytes);
    clsLector lector(origen);
    return fMedirJpeg(lector);
}

TEST(CabeceraJpeg, TellsWhatDecodingTakes)
{
    const struct {
        const char *strFrase;
        std::string strBytes;
        std::int64_t lngCoeficientes;
        int intPasadas;
    } lstCasos[] = {
        {"all at once", clsJpegVacio{64, 48}.fBytes(), 0, 1},
        {"progressive", clsJpegVacio{64, 48, true, 7}.fBytes(), 64 * 48 * 3 * 2, 7},
        {"a scan for each component", clsJpegVacio{65, 41, false, 3, {}, 50, true}.fBytes(),
         72 * 48 * 3 * 2, 3},
        {"the scans begin beyond the first piece",
         clsJpegVacio{8, 8, true, 2, "\xFF\xE1\xFF\xFF"s + std::string(65533, '\xC0')}.fBytes(),
         8 * 8 * 3 * 2, 2},
        {"bytes between the segments are passed over",
         clsJpegVacio{8, 8, true, 2, std::string(65533, 'x') + "\xFF\xFF\xFF"}.fBytes(),
         8 * 8 * 3 * 2, 2},
        {"zeros behind a marker and restarts are data",
         clsJpegVacio{8, 8, true, 1}.fBytes().insert(160, "\xFF\0\xFF\xD3"s), 8 * 8 * 3 * 2, 1},
        {"cut in the last scan", clsJpegVacio{8, 8, true, 3}.fBytes().substr(0, 270), 8 * 8 * 3 * 2,
         3},
    };
    for (const auto &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const auto esfuerzo = fMedir(caso.strBytes);
        ASSERT_TRUE(esfuerzo);
        EXPECT_EQ(esfuerzo->lngCoeficientes, caso.lngCoeficientes);
        EXPECT_EQ(esfuerzo->intPasadas, caso.intPasadas);
    }
    for (const std::string &strBytes :
         {""s, "\xFF\xD8"s, "II*\0"s, clsJpegVacio{8, 8}.fBytes().substr(0, 120),
          clsJpegVacio{8, 8, false, 0}.fBytes()}) {
        EXPECT_FALSE(fMedir(strBytes));
    }
    std::string strMarcas;
    for (int intCual = 0; intCual < 5000; ++intCual) {
        strMarcas += "\xFF\xE1\0\2"s;
    }
    EXPECT_FALSE(fMedir(clsJpegVacio{8, 8, false, 1, strMarcas}.fBytes()));
}

TEST(CabeceraJpeg, FindsTheColourProfile)
{
    // A segment of application data, its length given or right.
    const auto fSegmento = [](const std::string &strDentro, std::size_t lngMas = 0) {
        const std::size_t lngLargo = strDentro.size() + 2 + lngMas;
        return "\xFF\xE2"s + static_cast<char>(lngLargo >> 8) + static_cast<char>(lngLargo) +
               strDentro;
    };
    const std::string strNombre = "ICC_PROFILE\0"s;
    const struct {
        const char *strFrase;
        std::string strAntes;
        const char *strPerfil;
        bool bolPartido;
    } lstCasos[] = {
        {"none", "", "", false},
        {"in one piece", fSegmento(strNombre + "\1\1perfil"), "perfil", false},
        {"behind others", fSegmento("MPF\0"s) + fSegmento(strNombre + "\1\1perfil"), "perfil",
         false},
        {"in two", fSegmento(strNombre + "\1\2per") + fSegmento(strNombre + "\2\2fil"), "", true},
        {"empty", fSegmento(strNombre + "\1\1"), "", false},
        {"cut", fSegmento(strNombre), "", false},
        {"of another name", fSegmento("ICC_PROFILEX\1\1perfil"), "", false},
    };
    for (const auto &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const std::string strBytes = clsJpegVacio{64, 48, false, 1, caso.strAntes}.fBytes();
        clsOrigenMemoria origen(strBytes);
        clsLector lector(origen);
        clsCabeceraJpeg cabecera;
        ASSERT_TRUE(fLeerCabeceraJpeg(lector, cabecera));
        EXPECT_EQ(cabecera.intAncho, 64);
        EXPECT_EQ(lector.fCopiar(cabecera.lngPerfil, cabecera.lngBytesPerfil), caso.strPerfil);
        EXPECT_EQ(cabecera.bolPerfilPartido, caso.bolPartido);
    }
}

TEST(CabeceraJpeg, SaysWhichPicturesAreWorthDecoding)
{
    constexpr std::int64_t lngMega = 1'000'000;
    const auto fProgresivo = [](std::int64_t lngPixeles, int intBytes, int intPasadas) {
        return clsEsfuerzoJpeg{lngPixeles, lngPixeles * intBytes, intPasadas};
    };
    // Photos of 100 megapixels, however they are stored, and a plain one.
    EXPECT_TRUE(fDecodificable({100 * lngMega, 0, 1}, 30 * lngMega));
    EXPECT_TRUE(fDecodificable(fProgresivo(100 * lngMega, 3, 12), 30 * lngMega));
    EXPECT_TRUE(fDecodificable(fProgresivo(100 * lngMega, 6, 20), 60 * lngMega));
    EXPECT_TRUE(fDecodificable({100 * lngMega, 0, 1}, lngMega));
    EXPECT_TRUE(fDecodificable(fProgresivo(4096, 6, 100), 541));
    EXPECT_TRUE(fDecodificable({400 * lngMega, 0, 1}, 100 * lngMega));
    // A few bytes, too many pixels, too many coefficients, too many scans.
    EXPECT_FALSE(fDecodificable({100 * lngMega, 0, 1}, 541));
    EXPECT_FALSE(fDecodificable({std::int64_t{65500} * 65500, 0, 1}, 13 * lngMega));
    EXPECT_FALSE(fDecodificable(fProgresivo(std::int64_t{65500} * 65500, 3, 1), 20 * lngMega));
    EXPECT_FALSE(fDecodificable(fProgresivo(120 * lngMega, 6, 10), 30 * lngMega));
    EXPECT_FALSE(fDecodificable(fProgresivo(16 * lngMega, 6, 1500), 10 * lngMega));
}

} // namespace
