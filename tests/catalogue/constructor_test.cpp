#include "catalogue/constructor.h"
#include "catalogue/lector.h"
#include "catalogue/mudanza.h"
#include "sistema/carpeta.h"
#include "sistema/reemplazo.h"

#include "soporte/arbol.h"
#include "soporte/fallos.h"
#include "soporte/proceso.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

using Textos = std::vector<std::string>;
constexpr const char *strDat = "Miravel.dat";

/// Lets every build run to its end and counts the errors.
class clsPaciente : public clsObservador {
public:
    void fCarpeta(const std::string &) override {}
    void fError(clsError error) override { lstErrores.push_back(error.fNumero()); }
    bool fSeguir() override { return true; }

    std::vector<int> lstErrores;
};

Construccion fConstruirEn(const clsArbol &arbol)
{
    clsPaciente observador;
    return fConstruir(arbol.fRaiz(), observador).construccion;
}

/// Number of records of a whole catalogue; -1 when it is not one.
int fRegistros(const std::string &strBytes)
{
    const auto lngLineas = std::count(strBytes.begin(), strBytes.end(), '\n');
    const bool bolEntero = strBytes.empty() || strBytes.ends_with(" \r\n");
    return bolEntero && lngLineas % 3 == 0 ? static_cast<int>(lngLineas / 3) : -1;
}

TEST(Constructor, RecordsItselfAsAnEmptyFileTheFirstTime)
{
    const clsArbol arbol;
    EXPECT_EQ(fConstruirEn(arbol), Construccion::Hecha);
    const std::string strPrimero = arbol.fLeer(strDat);
    EXPECT_EQ(fRegistros(strPrimero), 1);
    EXPECT_TRUE(strPrimero.starts_with(arbol.fRuta(strDat) + "\r\n"));
    EXPECT_TRUE(strPrimero.ends_with("\r\n 0 \r\n"));
    EXPECT_EQ(fConstruirEn(arbol), Construccion::Hecha);
    EXPECT_TRUE(
        arbol.fLeer(strDat).ends_with("\r\n " + std::to_string(strPrimero.size()) + " \r\n"));
    EXPECT_EQ(arbol.fNombres(), Textos{strDat});
}

TEST(Constructor, PutsTheCatalogueIntoThePlaceOfALinkWithoutFollowingIt)
{
    for (const char *const strDestino : {"secreto", "nada"}) {
        SCOPED_TRACE(strDestino);
        const clsArbol arbol;
        const clsArbol fuera;
        fuera.fCrear("secreto", "privado");
        ASSERT_EQ(chmod(fuera.fRuta("secreto").c_str(), 0600), 0);
        arbol.fEnlace(strDat, fuera.fRuta(strDestino));
        clsFilas filas;
        EXPECT_EQ(fLeerFicheroCatalogo(arbol.fRuta(strDat), "JPG", filas).fError(), ENOENT);
        EXPECT_EQ(fMudarCatalogo(arbol.fRuta(strDat), {"/m/", arbol.fRaiz()}), ENOENT);
        EXPECT_EQ(fConstruirEn(arbol), Construccion::Hecha);
        EXPECT_EQ(fuera.fNombres(), Textos{"secreto"});
        EXPECT_EQ(fuera.fLeer("secreto"), "privado");
        struct stat datos {};
        ASSERT_EQ(lstat(arbol.fRuta(strDat).c_str(), &datos), 0);
        const mode_t modoUsual = umask(0);
        umask(modoUsual);
        EXPECT_EQ(datos.st_mode, S_IFREG | (0666U & ~modoUsual));
        EXPECT_TRUE(arbol.fLeer(strDat).ends_with("\r\n 0 \r\n")); // of itself, as the first time
    }
}

TEST(Constructor, RemovesWhatKilledBuildsLeftAndDoesNotRecordIt)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    arbol.fCrear(".Miravel.dat.123.0.tmp");
    arbol.fCrear(".Miravel.dat.tmp");
    arbol.fCrear("c/.Miravel.dat.123.0.tmp");
    EXPECT_EQ(fConstruirEn(arbol), Construccion::Hecha);
    EXPECT_EQ(arbol.fNombres(), (Textos{".Miravel.dat.tmp", strDat, "a.jpg", "c"}));
    EXPECT_EQ(fRegistros(arbol.fLeer(strDat)), 4);
}

TEST(Constructor, RemovesNewSettingsOfKilledProgramsNotOfThoseThatWriteThem)
{
    const clsArbol arbol;
    arbol.fCrear("Miravel.ini");
    arbol.fCrear(".Miravel.ini.4194304.0.tmp"); // no process has this number or a higher one
    int lstListo[2];
    ASSERT_EQ(pipe(lstListo), 0);
    clsHijo hijo([&] {
        const clsReemplazo ajustes(arbol.fRuta("Miravel.ini"));
        EXPECT_EQ(write(lstListo[1], "x", 1), 1);
        pause();
    });
    char chrListo = 0;
    ASSERT_EQ(read(lstListo[0], &chrListo, 1), 1);
    EXPECT_EQ(fConstruirEn(arbol), Construccion::Hecha);
    EXPECT_EQ(arbol.fNombres().size(), 3U);
    hijo.fMatar();
    EXPECT_EQ(hijo.fEsperar(), -SIGKILL);
    EXPECT_EQ(fConstruirEn(arbol), Construccion::Hecha);
    EXPECT_EQ(arbol.fNombres(), (Textos{strDat, "Miravel.ini"}));
    close(lstListo[0]);
    close(lstListo[1]);
}

TEST(Constructor, ChangesNothingWhileAnotherProgramHoldsTheArchive)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    arbol.fCrear(strDat, "viejo");
    arbol.fCrear(".Miravel.dat.123.0.tmp"); // may be what the other one writes
    int lstListo[2];
    ASSERT_EQ(pipe(lstListo), 0);
    const clsHijo hijo([&] {
        const clsCerrojoArchivo cerrojo(arbol.fRaiz());
        EXPECT_TRUE(cerrojo.fTenido());
        EXPECT_EQ(write(lstListo[1], "x", 1), 1);
        pause();
    });
    char chrListo = 0;
    ASSERT_EQ(read(lstListo[0], &chrListo, 1), 1);
    EXPECT_FALSE(clsCerrojoArchivo(arbol.fRaiz()).fTenido());
    EXPECT_EQ(fConstruirEn(arbol), Construccion::Ocupada);
    EXPECT_EQ(arbol.fLeer(strDat), "viejo");
    EXPECT_EQ(arbol.fNombres(), (Textos{".Miravel.dat.123.0.tmp", strDat, "a.jpg"}));
    close(lstListo[0]);
    close(lstListo[1]);
}

/// Takes longer over each folder than events may wait, and ends the build when it is asked.
class clsImpaciente : public clsPaciente {
public:
    void fCarpeta(const std::string &) override
    {
        const auto lngHasta = std::chrono::steady_clock::now() + std::chrono::milliseconds(51);
        std::this_thread::sleep_until(lngHasta);
    }
    bool fSeguir() override { return false; }
};

TEST(Constructor, KeepsTheOldCatalogueWhenItIsInterrupted)
{
    const clsArbol arbol;
    arbol.fCrear("a/b/c.jpg");
    arbol.fCrear(strDat, "viejo");
    clsImpaciente observador;
    EXPECT_EQ(fConstruir(arbol.fRaiz(), observador).construccion, Construccion::Interrumpida);
    EXPECT_EQ(arbol.fLeer(strDat), "viejo");
    EXPECT_EQ(arbol.fNombres(), (Textos{strDat, "a"}));
}

TEST(Constructor, KeepsTheOldCatalogueWhenTheRootCannotBeRead)
{
    const clsArbol arbol;
    arbol.fCrear("r/a.jpg");
    arbol.fCrear("r/Miravel.dat", "viejo");
    for (const mode_t modo : {0333U, 0U}) { // files can be made in the first
        SCOPED_TRACE(modo);
        ASSERT_EQ(chmod(arbol.fRuta("r").c_str(), modo), 0);
        EXPECT_EQ(fEnHijo([&] {
                      ASSERT_TRUE(fSoltarRaiz());
                      clsPaciente observador;
                      const clsConstruccion fin = fConstruir(arbol.fRuta("r/"), observador);
                      EXPECT_NE(fin.construccion, Construccion::Hecha);
                      EXPECT_EQ(fin.error, EACCES);
                  }),
                  0);
        ASSERT_EQ(chmod(arbol.fRuta("r").c_str(), 0755), 0);
        EXPECT_EQ(arbol.fLeer("r/Miravel.dat"), "viejo");
        EXPECT_EQ(arbol.fNombres("r"), (Textos{strDat, "a.jpg"}));
    }
}

TEST(Constructor, MakesNothingWhereTheRootIsGone)
{
    const clsArbol arbol;
    clsPaciente observador;
    const clsConstruccion fin = fConstruir(arbol.fRuta("falta/"), observador);
    EXPECT_NE(fin.construccion, Construccion::Hecha);
    EXPECT_EQ(fin.error, ENOENT);
    EXPECT_TRUE(arbol.fNombres().empty());
}

TEST(Constructor, CallsAFailingRootNoSuccess)
{
    clsLlamadas disco = llamadasReales;
    disco.fListar = [](int intFd, void *bytDatos, std::size_t lngBytes) -> ssize_t {
        const ssize_t lngLeidos = llamadasReales.fListar(intFd, bytDatos, lngBytes);
        return lngLeidos == 0 ? (errno = EIO, -1) : lngLeidos;
    };
    const clsOtrasLlamadas otras(disco);
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    EXPECT_EQ(fConstruirEn(arbol), Construccion::RaizIlegible);
    const std::string strParte = arbol.fLeer(strDat);
    EXPECT_EQ(fRegistros(strParte), 2); // better than nothing
    arbol.fCrear("b.jpg");
    EXPECT_EQ(fConstruirEn(arbol), Construccion::RaizIlegible);
    EXPECT_EQ(arbol.fLeer(strDat), strParte);
}

TEST(Constructor, KeepsTheOldCatalogueWhenTheNewOneCannotBeWritten)
{
    const clsArbol arbol;
    arbol.fCrear(strDat, "viejo");
    for (int intArchivo = 0; intArchivo < 200; ++intArchivo) {
        arbol.fCrear("carpeta/" + std::to_string(intArchivo) + ".jpg");
    }
    EXPECT_EQ(fEnHijo([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limite{4096, RLIM_INFINITY};
                  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limite), 0);
                  clsPaciente observador;
                  const clsConstruccion fin = fConstruir(arbol.fRaiz(), observador);
                  EXPECT_EQ(fin.construccion, Construccion::SinEscribir);
                  EXPECT_EQ(fin.error, EFBIG);
              }),
              0);
    EXPECT_EQ(arbol.fLeer(strDat), "viejo");
    EXPECT_EQ(arbol.fNombres(), (Textos{strDat, "carpeta"}));
}

/// Dies when it is told of its n-th folder.
class clsMortal : public clsPaciente {
public:
    explicit clsMortal(int intCarpeta) : m_intQuedan(intCarpeta) {}
    void fCarpeta(const std::string &) override
    {
        if (--m_intQuedan == 0) {
            raise(SIGKILL);
        }
    }

private:
    int m_intQuedan;
};

TEST(Constructor, LeavesTheOldCatalogueWhenItIsKilledBeforeTheNewOneIsWhole)
{
    const clsArbol arbol;
    constexpr int intArchivos = 400;
    constexpr int intCarpetas = 40;
    for (int intArchivo = 0; intArchivo < intArchivos; ++intArchivo) {
        arbol.fCrear(std::to_string(intArchivo % intCarpetas) + '/' + std::to_string(intArchivo));
    }
    ASSERT_EQ(fConstruirEn(arbol), Construccion::Hecha);
    const auto fMatar = [&](int intSenal, const std::function<void()> &fConstruirYMorir) {
        const std::string strViejo = arbol.fLeer(strDat);
        EXPECT_EQ(fEnHijo(fConstruirYMorir), -intSenal);
        EXPECT_TRUE(arbol.fLeer(strDat) == strViejo);
        // The next build cleans up.
        EXPECT_EQ(fConstruirEn(arbol), Construccion::Hecha);
        EXPECT_EQ(fRegistros(arbol.fLeer(strDat)), intArchivos + 1);
        EXPECT_EQ(arbol.fNombres().size(), intCarpetas + 1U);
    };
    for (const int intCarpeta : {1, 2, intCarpetas, intCarpetas + 1}) {
        SCOPED_TRACE(intCarpeta);
        fMatar(SIGKILL, [&] {
            clsMortal observador(intCarpeta);
            static_cast<void>(fConstruir(arbol.fRaiz(), observador));
        });
    }
    for (const rlim_t lngBytes : {0U, 1U, 5000U}) { // of the new one, when death comes to writing
        SCOPED_TRACE(lngBytes);
        fMatar(SIGXFSZ, [&] {
            const rlimit lstLimites[] = {{0, 0}, {lngBytes, RLIM_INFINITY}};
            setrlimit(RLIMIT_CORE, &lstLimites[0]);
            setrlimit(RLIMIT_FSIZE, &lstLimites[1]);
            static_cast<void>(fConstruirEn(arbol));
        });
    }
}

} // namespace
