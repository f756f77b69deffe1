#include "shared/ini.h"

#include <gtest/gtest.h>

namespace {

constexpr const char *strEjemplo =
    "; mi archivo\r\nsuelta=0\r\n[OTRA]\r\nANCHO=1\r\n\r\n[General]\r\n;ANCHO=2\r\nsin signo\r\n"
    " ancho = 3000 \r\nANCHO=4\r\nSELEC=/fotos/a=b.jpg\r\n\r\n[ULTIMA]\r\nTAM_MINI=1\r\n";

TEST(Ini, ReadsTheFirstKeyOfTheSection)
{
    struct clsCaso {
        const char *strFrase, *strIni;
        std::optional<std::string> strValor;
    };
    const clsCaso lstCasos[] = {
        {"lower-case key, blanks, comment", strEjemplo, "3000"},
        {"no such section", "[OTRA]\r\nANCHO=1\r\n", {}},
        {"key before any section", "ANCHO=1\r\n[GENERAL]\r\n", {}},
        {"empty value", "[GENERAL]\r\nANCHO=\r\n", ""},
        {"no line end", "[GENERAL]\r\nANCHO=7", "7"},
        {"LF only", "[GENERAL]\nANCHO=7\n", "7"},
        {"byte-order mark", "\xEF\xBB\xBF[GENERAL]\nANCHO=7", "7"},
        {"one pair of quotes goes", "[GENERAL]\nANCHO=\"\" 7\"\"", "\" 7\""},
        {"unlike quotes stay", "[GENERAL]\nANCHO='7\"", "'7\""},
        {"an unclosed section line", "[GENERAL\nANCHO=7", {}},
        {"second section of the name", "[GENERAL]\n[A]\n[GENERAL]\nANCHO=7", {}},
    };
    for (const clsCaso &caso : lstCasos) {
        EXPECT_EQ(fLeerClave(caso.strIni, "GENERAL", "ANCHO"), caso.strValor) << caso.strFrase;
    }
    EXPECT_EQ(fLeerClave(strEjemplo, "general", "selec"), "/fotos/a=b.jpg");
}

TEST(Ini, ChangesNothingButTheValue)
{
    std::string strEsperado = strEjemplo;
    strEsperado.replace(strEsperado.find(" 3000 "), 6, "15");
    EXPECT_EQ(fCambiarClave(strEjemplo, "GENERAL", "ANCHO", "15"), strEsperado);
}

TEST(Ini, AddsWhatIsMissing)
{
    const std::string strNuevo = "[GENERAL]\r\nANCHO=7\r\n";
    struct clsCaso {
        const char *strFrase, *strAntes;
        std::string strDespues;
    };
    const clsCaso lstCasos[] = {
        {"an empty file", "", strNuevo},
        {"only a byte-order mark", "\xEF\xBB\xBF", "\xEF\xBB\xBF" + strNuevo},
        {"two bytes of the mark", "\xEF\xBB", "\xEF\xBB\r\n" + strNuevo},
        {"other sections", "[A]\nX=1\n", "[A]\nX=1\n" + strNuevo},
        {"foreign text", "hola", "hola\r\n" + strNuevo},
        {"a section line unended", "[GENERAL]", strNuevo},
        {"behind the section's lines", "[GENERAL]\nX=1\n\n[B]", "[GENERAL]\nX=1\nANCHO=7\r\n\n[B]"},
        {"a last key unended", "[GENERAL]\nX=1", "[GENERAL]\nX=1\r\nANCHO=7\r\n"},
    };
    for (const clsCaso &caso : lstCasos) {
        EXPECT_EQ(fCambiarClave(caso.strAntes, "GENERAL", "ANCHO", "7"), caso.strDespues)
            << caso.strFrase;
    }
}

TEST(Ini, ReadsBackEveryValueItWrote)
{
    for (const char *const strValor :
         {"", " ", " a ", "\"a\"", "'", "'a'", "a=b;c", "[x]", "; no", "\xFF\u00F1"}) {
        const std::string strNuevo = fCambiarClave(strEjemplo, "GENERAL", "ANCHO", strValor);
        EXPECT_EQ(fLeerClave(strNuevo, "GENERAL", "ANCHO"), strValor);
    }
}

} // namespace
