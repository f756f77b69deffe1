#include "sistema/reemplazo.h"

#include "soporte/arbol.h"
#include "soporte/fallos.h"
#include "soporte/proceso.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Nombres = std::vector<std::string>;

TEST(Reemplazo, PutsTheNewFileInPlaceWithThePermissionsOfTheOld)
{
    const clsArbol arbol;
    arbol.fCrear("a.dat", "viejo");
    ASSERT_EQ(chmod(arbol.fRuta("a.dat").c_str(), 0640), 0);
    clsReemplazo archivo(arbol.fRuta("a.dat"));
    archivo.fEscribir("nue");
    archivo.fEscribir("vo");
    EXPECT_EQ(arbol.fLeer("a.dat"), "viejo");
    EXPECT_EQ(archivo.fConfirmar(true), 0);
    EXPECT_EQ(arbol.fLeer("a.dat"), "nuevo");
    struct stat datos {};
    ASSERT_EQ(stat(arbol.fRuta("a.dat").c_str(), &datos), 0);
    EXPECT_EQ(datos.st_mode & 07777U, 0640U);
    EXPECT_EQ(arbol.fNombres(), Nombres{"a.dat"});
    clsReemplazo(arbol.fRuta("a.dat")).fEscribir("otro"); // given up
    EXPECT_EQ(arbol.fNombres(), Nombres{"a.dat"});
    EXPECT_EQ(arbol.fLeer("a.dat"), "nuevo");
    EXPECT_EQ(clsReemplazo(arbol.fRuta(std::string(255, 'n'))).fConfirmar(true), 0);
    EXPECT_TRUE(fExisteArchivo(arbol.fRuta(std::string(255, 'n')))); // the longest name there is
}

std::atomic<mode_t> modoVisto{0}; ///< all bits that a new file ever had

TEST(Reemplazo, IsNeverMoreOpenThanTheOldFile)
{
    const clsArbol arbol;
    arbol.fCrear("a.dat", "viejo");
    ASSERT_EQ(chmod(arbol.fRuta("a.dat").c_str(), 0604), 0);
    clsLlamadas disco = llamadasReales;
    disco.fPermitir = [](int intFd, mode_t modo) {
        struct stat datos {};
        modoVisto |= fstat(intFd, &datos) == 0 ? datos.st_mode | modo : 07777U;
        return llamadasReales.fPermitir(intFd, modo);
    };
    const clsOtrasLlamadas otras(disco);
    EXPECT_EQ(clsReemplazo(arbol.fRuta("a.dat")).fConfirmar(false), 0);
    EXPECT_EQ(modoVisto & 07777U, 0604U);
}

TEST(Reemplazo, GivesNothingToAGroupThatTheOldFileWasNotOf)
{
    constexpr gid_t lngGrupo = 12345;
    const clsArbol arbol;
    ASSERT_EQ(chmod(arbol.fRaiz().c_str(), 0777), 0);
    const std::string strRuta = arbol.fRuta("a.dat");
    arbol.fCrear("a.dat", "viejo");
    if (chown(strRuta.c_str(), static_cast<uid_t>(-1), lngGrupo) != 0) {
        GTEST_SKIP() << "needs the right to give files away";
    }
    ASSERT_EQ(chmod(strRuta.c_str(), 0664), 0);
    struct stat datos {};
    EXPECT_EQ(clsReemplazo(strRuta).fConfirmar(false), 0);
    ASSERT_EQ(stat(strRuta.c_str(), &datos), 0);
    EXPECT_EQ(datos.st_gid, lngGrupo);
    EXPECT_EQ(datos.st_mode & 07777U, 0664U);
    EXPECT_EQ(fEnHijo([&] {
                  ASSERT_TRUE(fSoltarRaiz());
                  EXPECT_EQ(clsReemplazo(strRuta).fConfirmar(false), 0);
              }),
              0);
    ASSERT_EQ(stat(strRuta.c_str(), &datos), 0);
    EXPECT_NE(datos.st_gid, lngGrupo);
    EXPECT_EQ(datos.st_mode & 07777U, 0644U);
}

TEST(Reemplazo, ReportsWhyItCannotWork)
{
    const clsArbol arbol;
    arbol.fCarpeta("c");
    clsReemplazo sinCarpeta(arbol.fRuta("falta/a.dat"));
    EXPECT_EQ(sinCarpeta.fError(), ENOENT);
    sinCarpeta.fEscribir("nuevo");
    EXPECT_EQ(sinCarpeta.fConfirmar(true), ENOENT);
    clsReemplazo sobreCarpeta(arbol.fRuta("c"));
    sobreCarpeta.fEscribir("nuevo");
    EXPECT_EQ(sobreCarpeta.fConfirmar(true), EISDIR);
    EXPECT_EQ(arbol.fNombres(), Nombres{"c"});
}

/// Writes more than there is room for: an error, and the old file as it was.
void fDesbordar(const std::string &strRuta, int intEsperado)
{
    const std::string strMucho(300'000, 'n');
    clsReemplazo archivo(strRuta);
    archivo.fEscribir(strMucho);
    archivo.fEscribir("y mas");
    EXPECT_EQ(archivo.fError(), intEsperado);
    EXPECT_EQ(archivo.fConfirmar(true), intEsperado);
    EXPECT_EQ(fLeerArchivo(strRuta), "viejo");
}

TEST(Reemplazo, KeepsTheOldFileWhenTheNewOneGrowsTooLarge)
{
    const clsArbol arbol;
    arbol.fCrear("a.dat", "viejo");
    EXPECT_EQ(fEnHijo([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limite{100'000, RLIM_INFINITY};
                  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limite), 0);
                  fDesbordar(arbol.fRuta("a.dat"), EFBIG);
              }),
              0);
    EXPECT_EQ(arbol.fNombres(), Nombres{"a.dat"});
}

TEST(Reemplazo, KeepsTheOldFileOnAFullDisk)
{
    const clsArbol arbol;
    constexpr int intSinDisco = 77;
    const int intFin = fEnHijo([&] {
        if (unshare(CLONE_NEWNS) != 0 ||
            mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", arbol.fRaiz().c_str(), "tmpfs", 0, "size=128k") != 0) {
            _exit(intSinDisco);
        }
        arbol.fCrear("a.dat", "viejo");
        fDesbordar(arbol.fRuta("a.dat"), ENOSPC);
        EXPECT_EQ(arbol.fNombres(), Nombres{"a.dat"});
    });
    if (intFin == intSinDisco) {
        GTEST_SKIP() << "needs the right to mount a small disk";
    }
    EXPECT_EQ(intFin, 0);
}

TEST(Reemplazo, KnowsItsTemporaryNames)
{
    for (const char *const strNombre : {".M.dat.1.0.tmp", ".M.dat.4194304.12.tmp"}) {
        SCOPED_TRACE(strNombre);
        EXPECT_TRUE(clsReemplazo::fEsTemporal(strNombre, "M.dat"));
    }
    for (const char *const strNombre :
         {"M.dat", ".M.dat.tmp", ".M.dat..tmp", ".M.dat.1.tmp", ".M.dat.1..tmp", ".M.dat.1.0.tmpx",
          "M.dat.1.0.tmp", ".M.dat.1.x.tmp", ".m.dat.1.0.tmp", ".M.dat.1.0.0.tmp", ".N.dat.1.0.tmp",
          "M.dat.20090714180322"}) {
        SCOPED_TRACE(strNombre);
        EXPECT_FALSE(clsReemplazo::fEsTemporal(strNombre, "M.dat"));
    }
    const clsArbol arbol;
    const clsReemplazo archivo(arbol.fRuta("Miravel.dat"));
    EXPECT_TRUE(clsReemplazo::fEsTemporal(arbol.fNombres().at(0), "Miravel.dat"));
}

} // namespace
