#include "app/arranque.h"

#include "soporte/arbol.h"
#include "soporte/proceso.h"

#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST(Arranque, TakesTheRootFromACommandLineOfThreeUnderscores)
{
    struct clsCaso {
        const char *strFrase;
        std::vector<std::string> lstArgumentos;
        const char *strRaiz;
    };
    const clsCaso lstCasos[] = {
        {"nothing: the program's folder", {}, "/prog/"},
        {"no mark: the program's folder", {"/fotos"}, "/prog/"},
        {"a path", {"___/fotos"}, "/fotos/"},
        {"a path with its slash", {"___/fotos/"}, "/fotos/"},
        {"arguments are joined with one blank", {"___/mis", "fotos", "", "x"}, "/mis fotos  x/"},
        {"nothing is trimmed or unquoted", {"___/ \"a\" "}, "/ \"a\" /"},
        {"a relative path is below the folder", {"___fotos"}, "/casa/fotos/"},
        {"an empty argument in front is no mark", {"", "___/fotos"}, "/prog/"},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fRaizDeOrdenes(caso.lstArgumentos, "/prog", "/casa"), caso.strRaiz);
    }
}

TEST(Arranque, TriesWhetherTheRootCanBeWrittenAndLeavesNothing)
{
    const clsArbol arbol;
    EXPECT_TRUE(fProbarEscritura(arbol.fRaiz()));
    EXPECT_TRUE(arbol.fNombres().empty());
    EXPECT_FALSE(fProbarEscritura(arbol.fRuta("falta/")));
}

/// Puts something into the place of the test file.
using Ocupar = std::function<void(const clsArbol &, std::string_view)>;

TEST(Arranque, TriesItUnderAnotherNameWhereThatOneIsTaken)
{
    const Ocupar lstOcupantes[] = {
        [](const clsArbol &arbol, std::string_view strNombre) {
            EXPECT_EQ(link(arbol.fRuta("suyo").c_str(), arbol.fRuta(strNombre).c_str()), 0);
        },
        [](const clsArbol &arbol, std::string_view strNombre) { arbol.fEnlace(strNombre, "suyo"); },
        [](const clsArbol &arbol, std::string_view strNombre) { arbol.fEnlace(strNombre, "nada"); },
        [](const clsArbol &arbol, std::string_view strNombre) { arbol.fTuberia(strNombre); },
        [](const clsArbol &arbol, std::string_view strNombre) { arbol.fCarpeta(strNombre); },
    };
    for (const Ocupar &fOcupar : lstOcupantes) {
        SCOPED_TRACE(&fOcupar - lstOcupantes);
        const clsArbol arbol;
        arbol.fCrear("suyo", "lo del usuario");
        fOcupar(arbol, "prueba_escritura.txt");
        const std::vector<std::string> lstNombres = arbol.fNombres();
        EXPECT_TRUE(fProbarEscritura(arbol.fRaiz()));
        EXPECT_EQ(arbol.fNombres(), lstNombres);
        EXPECT_EQ(arbol.fLeer("suyo"), "lo del usuario");
        ASSERT_EQ(chmod(arbol.fRaiz().c_str(), 0555), 0);
        EXPECT_EQ(fEnHijo([&] {
                      ASSERT_TRUE(fSoltarRaiz());
                      EXPECT_FALSE(fProbarEscritura(arbol.fRaiz()));
                  }),
                  0);
    }
}

TEST(Preferencias, OfAFirstRunAreTheDefaultsAndStayInTheFile)
{
    const clsArbol arbol;
    clsPreferencias preferencias{0, 0, Medios::Fotos};
    {
        clsAjustes ajustes(arbol.fRuta("Miravel.ini"), true);
        EXPECT_FALSE(fLeerPreferencias(ajustes, preferencias));
    }
    EXPECT_EQ(preferencias.lngAncho, 3000);
    EXPECT_EQ(preferencias.intTamMini, 2);
    EXPECT_EQ(preferencias.medios, Medios::Todos);
    EXPECT_FALSE(preferencias.bolFormatos);
    EXPECT_EQ(arbol.fLeer("Miravel.ini"),
              "[GENERAL]\r\nANCHO=3000\r\nTAM_MINI=2\r\nFOTOVIDEO=2\r\n");
}

TEST(Preferencias, AreReadAsTheyStand)
{
    const clsArbol arbol;
    arbol.fCrear("Miravel.ini",
                 "[general]\nancho= 40000 \ntam_mini=\"0\"\nFOTOVIDEO=1\nformatos=1\n");
    clsAjustes ajustes(arbol.fRuta("Miravel.ini"), true);
    clsPreferencias preferencias;
    EXPECT_FALSE(fLeerPreferencias(ajustes, preferencias));
    EXPECT_EQ(preferencias.lngAncho, 40000);
    EXPECT_EQ(preferencias.intTamMini, 0);
    EXPECT_EQ(preferencias.medios, Medios::Videos);
    EXPECT_TRUE(preferencias.bolFormatos);
}

TEST(Preferencias, ThatCannotBeUsedAreNamedAndTheFileStaysAsItIs)
{
    struct clsCaso {
        const char *strIni;
        const char *strClave;
        const char *strValor;
    };
    const clsCaso lstCasos[] = {
        {"[GENERAL]\nANCHO=ancho\n", "ANCHO", "ancho"},
        {"[GENERAL]\nANCHO=99999999999\n", "ANCHO", "99999999999"},
        {"[GENERAL]\nTAM_MINI=3\n", "TAM_MINI", "3"},
        {"[GENERAL]\nTAM_MINI=1\nFOTOVIDEO=-1", "FOTOVIDEO", "-1"},
        {"[GENERAL]\nFORMATOS=2\n", "FORMATOS", "2"},
        {"[GENERAL]\nTIEMPO=no\n", "TIEMPO", "no"},
        {"[GENERAL]\nFOTOVIDEO=\xF1\n", "FOTOVIDEO", "\u00F1"},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strIni);
        const clsArbol arbol;
        arbol.fCrear("Miravel.ini", caso.strIni);
        clsPreferencias preferencias;
        {
            clsAjustes ajustes(arbol.fRuta("Miravel.ini"), true);
            const auto malo = fLeerPreferencias(ajustes, preferencias);
            ASSERT_TRUE(malo);
            EXPECT_EQ(malo->strClave, caso.strClave);
            EXPECT_EQ(malo->strValor, caso.strValor);
        }
        EXPECT_EQ(arbol.fLeer("Miravel.ini"), caso.strIni);
        EXPECT_EQ(preferencias.lngAncho, 3000);
    }
}

} // namespace
