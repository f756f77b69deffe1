#include "shared/ajustes.h"

#include "sistema/archivo.h"
#include "soporte/arbol.h"
#include "soporte/fallos.h"
#include "soporte/proceso.h"

#include <filesystem>
#include <future>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char *strIni = "Miravel.ini";

/// What changes when a file is replaced, even by an equal one.
ino_t fInodo(const clsArbol &arbol)
{
    struct stat datos {};
    return stat(arbol.fRuta(strIni).c_str(), &datos) == 0 ? datos.st_ino : 0;
}

TEST(Ajustes, WriteTheDefaultOfAnAbsentOrEmptyKeyBackUnlessItIsBlank)
{
    const clsArbol arbol;
    clsAjustes ajustes(arbol.fRuta(strIni), true);
    EXPECT_EQ(ajustes.fLeerIni("GENERAL", "SELEC", " "), " ");
    ajustes.fEsperar();
    EXPECT_TRUE(arbol.fNombres().empty());
    arbol.fCrear(strIni, "[GENERAL]\r\nTAM_MINI=\r\n");
    EXPECT_EQ(ajustes.fLeerIni("GENERAL", "ANCHO", "3000"), "3000");
    EXPECT_EQ(ajustes.fLeerIni("GENERAL", "TAM_MINI", "2"), "2");
    ajustes.fEsperar();
    EXPECT_EQ(arbol.fLeer(strIni), "[GENERAL]\r\nTAM_MINI=2\r\nANCHO=3000\r\n");
}

TEST(Ajustes, NeitherReadNorWriteWhenTheRootIsNotWritable)
{
    const clsArbol arbol;
    clsAjustes ajustes(arbol.fRuta(strIni), false);
    ajustes.fGuardarIni("GENERAL", "ANCHO", "5");
    EXPECT_EQ(ajustes.fLeerIni("GENERAL", "ANCHO", "3000"), "3000");
    ajustes.fEsperar();
    EXPECT_TRUE(arbol.fNombres().empty());
    arbol.fCrear(strIni, "[GENERAL]\r\nANCHO=7\r\n");
    EXPECT_EQ(ajustes.fLeerIni("GENERAL", "ANCHO", "3000"), "3000");
}

TEST(Ajustes, LeaveTheFileAloneWhenTheValueIsTheSame)
{
    const clsArbol arbol;
    arbol.fCrear(strIni, "[GENERAL]\nancho = \"7\"");
    const ino_t lngInodo = fInodo(arbol);
    clsAjustes ajustes(arbol.fRuta(strIni), true);
    ajustes.fGuardarIni("GENERAL", "ANCHO", "7");
    ajustes.fEsperar();
    EXPECT_EQ(fInodo(arbol), lngInodo);
    ajustes.fGuardarIni("GENERAL", "ANCHO", "8");
    ajustes.fEsperar();
    EXPECT_NE(fInodo(arbol), lngInodo);
}

TEST(Ajustes, KeepWhatAnotherProgramWroteMeanwhile)
{
    const clsArbol arbol;
    arbol.fCrear(strIni, "[GENERAL]\r\nANCHO=7\r\nTAM_MINI=1\r\n");
    clsAjustes ajustes(arbol.fRuta(strIni), true);
    EXPECT_EQ(ajustes.fConsultar("GENERAL", "ANCHO"), "7");
    arbol.fCrear(strIni, "; nota\r\n[GENERAL]\r\nANCHO=7\r\nTAM_MINI=0\r\n");
    ajustes.fGuardarIni("GENERAL", "ANCHO", "8");
    ajustes.fEsperar();
    EXPECT_EQ(arbol.fLeer(strIni), "; nota\r\n[GENERAL]\r\nANCHO=8\r\nTAM_MINI=0\r\n");
}

TEST(Ajustes, EndWithTheLastOfManyChanges)
{
    const clsArbol arbol;
    {
        clsAjustes ajustes(arbol.fRuta(strIni), true);
        for (int intVez = 0; intVez <= 50; ++intVez) {
            ajustes.fGuardarIni("GENERAL", "SELEC", "/f/" + std::to_string(intVez));
        }
        EXPECT_EQ(ajustes.fConsultar("GENERAL", "SELEC"), "/f/50");
        ajustes.fGuardarIni("GENERAL", "SELEC", "/f/fin");
    }
    EXPECT_EQ(arbol.fLeer(strIni), "[GENERAL]\r\nSELEC=/f/fin\r\n");
    EXPECT_EQ(arbol.fNombres(), std::vector<std::string>{strIni});
}

TEST(Ajustes, DoNotReplaceAFileThatCannotBeRead)
{
    const clsArbol arbol;
    arbol.fCrear(strIni, "[GENERAL]\r\nANCHO=7\r\n");
    const ino_t lngInodo = fInodo(arbol);
    ASSERT_EQ(chmod(arbol.fRuta(strIni).c_str(), 0), 0);
    EXPECT_EQ(fEnHijo([&] {
                  ASSERT_TRUE(fSoltarRaiz());
                  clsAjustes ajustes(arbol.fRuta(strIni), true);
                  EXPECT_EQ(ajustes.fLeerIni("GENERAL", "ANCHO", "3000"), "3000");
              }),
              0);
    EXPECT_EQ(fInodo(arbol), lngInodo);
}

TEST(Ajustes, NeitherReadNorWriteThroughALink)
{
    for (const char *const strDestino : {"secreto", "nada"}) {
        SCOPED_TRACE(strDestino);
        const clsArbol arbol;
        arbol.fCrear("d/secreto", "[GENERAL]\r\nANCHO=7\r\n");
        ASSERT_EQ(chmod(arbol.fRuta("d/secreto").c_str(), 0600), 0);
        arbol.fEnlace(strIni, std::string("d/") + strDestino);
        clsAjustes ajustes(arbol.fRuta(strIni), true);
        EXPECT_EQ(ajustes.fConsultar("GENERAL", "ANCHO"), "");
        ajustes.fGuardarIni("GENERAL", "SELEC", "/f");
        ajustes.fEsperar();
        EXPECT_EQ(arbol.fLeer("d/secreto"), "[GENERAL]\r\nANCHO=7\r\n");
        EXPECT_EQ(arbol.fNombres("d"), std::vector<std::string>{"secreto"});
        struct stat datos {};
        ASSERT_EQ(lstat(arbol.fRuta(strIni).c_str(), &datos), 0);
        EXPECT_TRUE(S_ISREG(datos.st_mode));
        EXPECT_EQ(arbol.fLeer(strIni), "[GENERAL]\r\nSELEC=/f\r\n");
    }
}

TEST(Ajustes, AreNoMoreOpenThanTheFileThatWasReadWhateverHasItsNameMeanwhile)
{
    static const clsArbol arbol;
    arbol.fCrear("secreto", "[GENERAL]\r\nANCHO=7\r\n");
    ASSERT_EQ(chmod(arbol.fRuta("secreto").c_str(), 0600), 0);
    ASSERT_EQ(link(arbol.fRuta("secreto").c_str(), arbol.fRuta(strIni).c_str()), 0);
    arbol.fCrear("abierto", "x");
    static clsLlamadas disco = llamadasReales;
    disco.fLeer = [](int intFd, void *bytDatos, std::size_t lngBytes) {
        rename(arbol.fRuta("abierto").c_str(), arbol.fRuta(strIni).c_str());
        return llamadasReales.fLeer(intFd, bytDatos, lngBytes);
    };
    const clsOtrasLlamadas otras(disco);
    clsAjustes ajustes(arbol.fRuta(strIni), true);
    ajustes.fGuardarIni("GENERAL", "SELEC", "/f");
    ajustes.fEsperar();
    EXPECT_EQ(arbol.fLeer(strIni), "[GENERAL]\r\nANCHO=7\r\nSELEC=/f\r\n");
    struct stat datos {};
    ASSERT_EQ(lstat(arbol.fRuta(strIni).c_str(), &datos), 0);
    EXPECT_EQ(datos.st_mode & 07777U, 0600U);
}

TEST(Ajustes, OfAFileThatIsTooLongAreTheDefaultsAndItStays)
{
    const clsArbol arbol;
    arbol.fCrear(strIni, "[GENERAL]\r\nANCHO=9\r\n");
    constexpr std::uintmax_t lngBytes = std::uintmax_t{40} << 30; // nearly all of it a hole
    std::filesystem::resize_file(arbol.fRuta(strIni), lngBytes);
    {
        clsAjustes ajustes(arbol.fRuta(strIni), true);
        EXPECT_EQ(ajustes.fError(), EFBIG);
        EXPECT_EQ(ajustes.fLeerIni("GENERAL", "ANCHO", "3000"), "3000");
        ajustes.fGuardarIni("GENERAL", "SELEC", "/f/1");
    }
    EXPECT_EQ(std::filesystem::file_size(arbol.fRuta(strIni)), lngBytes);
}

TEST(Ajustes, DoNotKeepTheProgramFromEndingWhenTheDiskHangs)
{
    const clsArbol arbol;
    static std::promise<void> disco;
    static const std::shared_future<void> bolContesta = disco.get_future().share();
    static std::promise<void> bolFin;
    static clsLlamadas atascado = llamadasReales;
    atascado.fVolcar = [](int intFd) {
        bolContesta.wait();
        return llamadasReales.fVolcar(intFd);
    };
    atascado.fRenombrar = [](int intCarpeta, const char *strDe, const char *strA) {
        const int intResultado = llamadasReales.fRenombrar(intCarpeta, strDe, strA);
        bolFin.set_value();
        return intResultado;
    };
    const clsOtrasLlamadas otras(atascado);
    {
        clsAjustes ajustes(arbol.fRuta(strIni), true);
        ajustes.fGuardarIni("GENERAL", "SELEC", "/f/1");
    }
    EXPECT_FALSE(fExisteArchivo(arbol.fRuta(strIni)));
    disco.set_value();
    bolFin.get_future().wait();
    EXPECT_EQ(arbol.fLeer(strIni), "[GENERAL]\r\nSELEC=/f/1\r\n");
}

} // namespace
