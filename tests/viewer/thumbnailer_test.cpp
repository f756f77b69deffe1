#include "viewer/thumbnailer.h"

#include "soporte/arbol.h"

#include <gtest/gtest.h>

namespace {

using clsTextos = std::vector<std::string>;

TEST(Thumbnailer, FillsTheCodesOfACommandLine)
{
    struct clsCaso {
        const char *strExec;
        clsTextos lstOrden;
    };
    const std::map<char, std::string> datos{
        {'u', "file:///a%20b"}, {'i', "/a b%s\""}, {'o', "/tmp/x.png"}, {'s', "128"}};
    const clsCaso lstCasos[] = {
        {"t -i %i  -o\t%o -s %s", {"t", "-i", "/a b%s\"", "-o", "/tmp/x.png", "-s", "128"}},
        {"t %u --x=%s% %%", {}},
        {"t %u --x=%s%% %%", {"t", "file:///a%20b", "--x=128%", "%"}},
        {"\"a b\" 'c\\d' \"\" \"\\\"%i\"", {"a b", "c\\d", "", "\"/a b%s\""}},
        {"t e\\ f", {"t", "e f"}},
        {"t \"open", {}},
        {"t %x", {}},
        {"t %", {}},
        {"", {}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strExec);
        EXPECT_EQ(fOrden(caso.strExec, datos), caso.lstOrden);
    }
}

TEST(Thumbnailer, IsReadFromItsGroupAlone)
{
    const auto programa = fLeerThumbnailer("[Other]\nExec=no\n# Exec=no\n[Thumbnailer Entry]\r\n"
                                           "TryExec = p\nExec=p\\\\a \\s%i\nMimeType=a/b;;c/d;\n"
                                           "[After]\nExec=no\n");
    ASSERT_TRUE(programa.has_value());
    EXPECT_EQ(programa->strTryExec, "p");
    EXPECT_EQ(programa->strExec, "p\\a  %i");
    EXPECT_EQ(programa->lstTipos, (clsTextos{"a/b", "c/d"}));
    EXPECT_FALSE(fLeerThumbnailer("[Thumbnailer Entry]\nMimeType=a/b\n").has_value());
}

TEST(Thumbnailer, IsFoundByTypeInTheFirstFolderThatHasOne)
{
    const clsArbol arbol;
    const auto fPoner = [&](const char *strNombre, const std::string &strLineas) {
        arbol.fCrear(strNombre, "[Thumbnailer Entry]\n" + strLineas);
    };
    fPoner("uno/a.thumbnailer", "Exec=absent\nTryExec=/nowhere/absent\nMimeType=video/mp4\n");
    fPoner("uno/b.thumbnailer", "Exec=uno\nTryExec=sh\nMimeType=video/mp4;video/x-flv\n");
    fPoner("uno/c.txt", "Exec=no\nMimeType=video/quicktime\n");
    fPoner("dos/b.thumbnailer", "Exec=hidden\nMimeType=video/x-ms-wmv\n");
    fPoner("dos/d.thumbnailer", "Exec=dos\nMimeType=video/mp4;video/mpeg;image/jpeg\n");
    const clsTextos lstCarpetas{arbol.fRuta("nada/"), arbol.fRuta("uno/"), arbol.fRuta("dos/")};
    const std::pair<const char *, std::optional<std::string>> lstCasos[] = {
        {"/v.mp4", "uno"},        {"/v.FLV", "uno"},        {"/v.mpg", "dos"},
        {"/v.wmv", std::nullopt}, {"/v.mov", std::nullopt}, {"/v.jpg", std::nullopt},
        {"/v", std::nullopt},
    };
    for (const auto &[strRuta, exec] : lstCasos) {
        SCOPED_TRACE(strRuta);
        EXPECT_EQ(fBuscarThumbnailer(lstCarpetas, strRuta), exec);
    }
}

} // namespace
