#include "app/escritorio.h"

#include "soporte/arbol.h"
#include "soporte/proceso.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

TEST(Escritorio, PutsTheWindowWithItsTitleBarOnAScreen)
{
    constexpr clsRectEscritorio lstPantallas[] = {
        {0, 30, 1366, 738}, // below a panel
        {1366, 0, 1920, 1080},
    };
    constexpr clsSitio primera{{136, 103, 1092, 590}, true};
    struct clsCaso {
        const char *strFrase;
        const char *strGuardado;
        clsSitio sitio;
    };
    const clsCaso lstCasos[] = {
        {"nothing: in the middle of the main screen", "", primera},
        {"as it was", "100 80 640 480 0", {{100, 80, 640, 480}, false}},
        {"as it was, maximised", "100 80 640 480 1", {{100, 80, 640, 480}, true}},
        {"on the other screen", "1400 40 1800 1000 0", {{1400, 40, 1800, 1000}, false}},
        {"the whole screen", "0 30 1366 738 0", {{0, 30, 1366, 738}, false}},
        {"across two: on that which has more of it",
         "1300 80 640 480 0",
         {{1366, 80, 640, 480}, false}},
        {"larger than the screen", "-20 -20 1400 800 0", {{0, 78, 1366, 690}, false}},
        {"on a screen that is gone", "5000 4000 640 480 0", {{726, 288, 640, 480}, false}},
        {"too small to be found", "100 80 1 -5 0", {{100, 80, 320, 240}, false}},
        {"numbers without measure",
         "-2147483648 2147483647 2147483647 2147483647 0",
         {{0, 78, 1366, 690}, false}},
        {"a number too few", "100 80 640 480", primera},
        {"a number too many", "100 80 640 480 1 1", primera},
        {"a number too large", "100 80 640 99999999999 1", primera},
        {"no numbers", "ancha y alta, por favor, aqui", primera},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fTextoSitio(fSitio(caso.strGuardado, lstPantallas)), fTextoSitio(caso.sitio));
    }
}

TEST(Escritorio, RemembersInTheFolderOfTheUser)
{
    const clsArbol arbol;
    const auto fFichero = [&](const std::string &strEstado, const std::string &strCasa) {
        setenv("XDG_STATE_HOME", strEstado.c_str(), 1);
        setenv("HOME", strCasa.c_str(), 1);
        return fFicheroEscritorio();
    };
    EXPECT_EQ(fEnHijo([&] {
                  EXPECT_EQ(fFichero(arbol.fRuta("estado"), arbol.fRuta("casa")),
                            arbol.fRuta("estado/miravel/escritorio.ini"));
                  EXPECT_EQ(fFichero("relativa", arbol.fRuta("casa")),
                            arbol.fRuta("casa/.local/state/miravel/escritorio.ini"));
                  EXPECT_EQ(fFichero("", ""), "");
                  arbol.fCrear("fichero");
                  EXPECT_EQ(fFichero(arbol.fRuta("fichero"), ""), "");
              }),
              0);
    struct stat datos = {};
    EXPECT_EQ(stat(arbol.fRuta("casa/.local/state/miravel").c_str(), &datos), 0);
    EXPECT_EQ(datos.st_mode & 0777, 0700);
}

} // namespace
