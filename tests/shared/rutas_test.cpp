#include "shared/rutas.h"

#include "shared/medios.h"

#include <gtest/gtest.h>

namespace {

TEST(Rutas, GainOrLoseTheFinalSlash)
{
    EXPECT_EQ(fBarraFinal("/fotos", false), "/fotos/");
    EXPECT_EQ(fBarraFinal("/", false), "/");
    EXPECT_EQ(fBarraFinal("/fotos/", true), "/fotos");
    EXPECT_EQ(fBarraFinal("/fotos", true), ""); // deliberate
    EXPECT_EQ(fRutaAbsoluta("/a/../b", "/casa"), "/a/../b");
    EXPECT_EQ(fRutaAbsoluta("a", "/casa"), "/casa/a");
}

TEST(Rutas, SplitIntoFolderNameAndExtension)
{
    struct clsCaso {
        const char *strCarpeta, *strNombre, *strExtension;
    };
    const clsCaso lstCasos[] = {
        {"/fotos/2009/", "a.jpg", "jpg"},
        {"/a.b/", "c", ""},
        {"/a/", "x.tar.gz", "gz"},
        {"/a/", ".jpg", "jpg"},
        {"/a/", "b.", ""},
        {"/a/", "", ""},
        {"", "s.mp4", "mp4"},
    };
    for (const clsCaso &caso : lstCasos) {
        const std::string strRuta = std::string(caso.strCarpeta) + caso.strNombre;
        EXPECT_EQ(fCarpetaDe(strRuta), caso.strCarpeta);
        EXPECT_EQ(fNombreDe(strRuta), caso.strNombre);
        EXPECT_EQ(fExtensionDe(strRuta), caso.strExtension);
    }
}

TEST(Rutas, AreHiddenByAnyPartThatBeginsWithX)
{
    for (const char *const strRuta :
         {"/f/X_/a.jpg", "/f/x_privado/b/a.jpg", "/f/X_a.jpg", "/X_raiz/a", "/_/a_b/x_c"}) {
        EXPECT_TRUE(fRutaOculta(strRuta)) << strRuta;
    }
    for (const char *const strRuta :
         {"", "_", "/f/aX_/a.jpg", "/f/X/_a.jpg", "/f/X-a.jpg", "X_a.jpg", "/fX_"}) {
        EXPECT_FALSE(fRutaOculta(strRuta)) << strRuta;
    }
}

TEST(Rutas, LieBelowTheRootByTheirNamesAlone)
{
    using namespace std::string_view_literals;
    for (const auto strRuta : {"/f/a.jpg"sv, "/f/b/..a/c."sv, "/f/"sv, "/f//.jpg"sv}) {
        EXPECT_TRUE(fBajoRaiz(strRuta, "/f/")) << strRuta;
    }
    for (const auto strRuta :
         {""sv, "/f"sv, "/fa.jpg"sv, "a.jpg"sv, "--version.jpg"sv, "http://f/a.jpg"sv, "/f/.."sv,
          "/f/../a.jpg"sv, "/f/b/../a.jpg"sv, "/f/./a.jpg"sv, "/f/..\0/a.jpg"sv}) {
        EXPECT_FALSE(fBajoRaiz(strRuta, "/f/")) << strRuta;
    }
}

TEST(Medios, GoByTheWholeExtensionInEitherCase)
{
    const auto fEsFoto = [](const char *strRuta) {
        return fExtensionEn(strRuta, fExtensionesVisibles(Medios::Fotos));
    };
    EXPECT_TRUE(fEsFoto("/f/img.JpG"));
    EXPECT_TRUE(fEsFoto("/f/.jpg"));
    EXPECT_TRUE(fEsVideo("/f/clip.mp4"));
    EXPECT_TRUE(fEsVideo("/f/CLIP.3gp"));
    for (const char *const strRuta :
         {"/f/IMG.JPEG", "/f/a.jpg ", "/f.jpg/a", "/f/jpg", "/f/clip.mpeg", "/f/clip.mp",
          "/f/a.G/ ", "/f/a.", "/f/MP4"}) {
        EXPECT_FALSE(fEsFoto(strRuta)) << strRuta;
        EXPECT_FALSE(fEsVideo(strRuta)) << strRuta;
        EXPECT_FALSE(fExtensionEn(strRuta, fExtensionesVisibles(Medios::Todos))) << strRuta;
    }
    EXPECT_FALSE(fEsVideo("/f/img.jpg"));
    EXPECT_TRUE(fExtensionEn("/f/img.jpg", fExtensionesVisibles(Medios::Todos)));
    EXPECT_EQ(fExtensionesVisibles(static_cast<Medios>(3)), "");
}

TEST(Medios, KnowTheOtherFormatsApartFromTheUsualOnes)
{
    struct clsCaso {
        const char *strRuta;
        bool bolFoto, bolVideo, bolCruda, bolOtro;
    };
    const clsCaso lstCasos[] = {
        {"/f/a.jpg", true, false, false, false},  {"/f/a.JPEG", true, false, false, true},
        {"/f/a.jpe", true, false, false, true},   {"/f/a.Heic", true, false, false, true},
        {"/f/a.avif", true, false, false, true},  {"/f/a.png", true, false, false, true},
        {"/f/a.dng", true, false, true, true},    {"/f/a.CR3", true, false, true, true},
        {"/f/a.raf", true, false, true, true},    {"/f/a.mp4", false, true, false, false},
        {"/f/a.m4v", false, true, false, true},   {"/f/a.ts", false, true, false, true},
        {"/f/a.m2ts", false, true, false, true},  {"/f/a.ogv", false, true, false, true},
        {"/f/a.svg", false, false, false, false}, {"/f/a.jpegx", false, false, false, false},
        {"/f/a.m", false, false, false, false},   {"/f/a. ", false, false, false, false},
        {"/f/a.", false, false, false, false},    {"/f.ts/a", false, false, false, false},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strRuta);
        const auto fVisible = [&](Medios medios, bool bolFormatos) {
            return fExtensionEn(caso.strRuta, fExtensionesVisibles(medios, bolFormatos));
        };
        EXPECT_EQ(fVisible(Medios::Fotos, true), caso.bolFoto);
        EXPECT_EQ(fVisible(Medios::Videos, true), caso.bolVideo);
        EXPECT_EQ(fVisible(Medios::Todos, true), caso.bolFoto || caso.bolVideo);
        EXPECT_EQ(fVisible(Medios::Fotos, false), caso.bolFoto && !caso.bolOtro);
        EXPECT_EQ(fVisible(Medios::Videos, false), caso.bolVideo && !caso.bolOtro);
        EXPECT_EQ(fEsVideo(caso.strRuta), caso.bolVideo);
        EXPECT_EQ(fEsCruda(caso.strRuta), caso.bolCruda);
        EXPECT_EQ(fEsOtroFormato(caso.strRuta), caso.bolOtro);
    }
    EXPECT_EQ(fExtensionesVisibles(static_cast<Medios>(3), true), "");
}

} // namespace
