#include "browse/baul.h"

#include "soporte/arbol.h"
#include "soporte/proceso.h"

#include <cerrno>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Textos = std::vector<std::string>;

TEST(Baul, LiesWhereTheEnvironmentHasTemporaryFiles)
{
    setenv("TMPDIR", "/mi/tmp", 1);
    EXPECT_EQ(fRutaTemporal(), "/mi/tmp/");
    setenv("TMPDIR", "relativa", 1);
    EXPECT_EQ(fRutaTemporal(), "/tmp/");
    unsetenv("TMPDIR");
    EXPECT_EQ(fRutaTemporal(), "/tmp/");
}

void fPoner(const clsArbol &arbol, const std::string &strRelativa, const std::string &strQue)
{
    if (strQue == "file" || (strQue == "another user's" && geteuid() != 0)) {
        arbol.fCrear(strRelativa);
    } else if (strQue.ends_with("link")) {
        arbol.fEnlace(strRelativa, strQue == "link" ? "." : "no");
    } else if (strQue != "nothing") {
        arbol.fCarpeta(strRelativa);
        const uid_t lngDueno = strQue == "folder" ? geteuid() : 65534;
        ASSERT_EQ(chown(arbol.fRuta(strRelativa).c_str(), lngDueno, static_cast<gid_t>(-1)), 0);
    }
}

TEST(Baul, IsAFolderOfTheUsersOwn)
{
    const std::string strSegunda = "Miravel-" + std::to_string(geteuid());
    const Textos lstCosas = {"nothing", "folder", "link", "broken link", "file", "another user's"};
    for (std::size_t lngCaso = 0; lngCaso < lstCosas.size() * lstCosas.size(); ++lngCaso) {
        const std::size_t lngPrimera = lngCaso / lstCosas.size();
        const std::size_t lngSegunda = lngCaso % lstCosas.size();
        SCOPED_TRACE(lstCosas[lngPrimera] + ", then " + lstCosas[lngSegunda]);
        const clsArbol arbol;
        fPoner(arbol, "Miravel", lstCosas[lngPrimera]);
        fPoner(arbol, strSegunda, lstCosas[lngSegunda]);
        const bool bolVale = lngPrimera < 2; // the first two of each will do
        for (int intVez = 0; intVez < 2; ++intVez) {
            const clsLugarBaul lugar = fAsegurarBaul(arbol.fRaiz());
            EXPECT_EQ(lugar.strCarpeta, arbol.fRuta(bolVale ? "Miravel/" : strSegunda + '/'));
            EXPECT_EQ(lugar.error, bolVale || lngSegunda < 2 ? 0 : EPERM);
        }
    }
}

TEST(Baul, IsPrivateAndReportsWhyItCannotBe)
{
    const clsArbol arbol;
    EXPECT_EQ(fAsegurarBaul(arbol.fRuta("no/")).error, ENOENT);
    ASSERT_EQ(chmod(arbol.fRaiz().c_str(), 0555), 0);
    EXPECT_EQ(fEnHijo([&] {
                  ASSERT_TRUE(fSoltarRaiz());
                  EXPECT_EQ(fAsegurarBaul(arbol.fRaiz()).error, EACCES);
              }),
              0);
    ASSERT_EQ(chmod(arbol.fRaiz().c_str(), 0777), 0);
    struct stat datos {};
    ASSERT_EQ(stat(fAsegurarBaul(arbol.fRaiz()).strCarpeta.c_str(), &datos), 0);
    EXPECT_EQ(datos.st_mode & 07777U, 0700U);
}

TEST(Baul, PutsTheDateFromTheDiskBeforeTheName)
{
    const clsZona zona("Europe/Madrid");
    const clsArbol arbol;
    arbol.fCrear("a/I.JPG", "una", 1273184999); // 2010/05/07 00:29:59 in Madrid, the 6th elsewhere
    arbol.fCrear("b/I.JPG", "otra", 1273270000);
    arbol.fCrear("c/I.JPG", "tercera", 1273190000);
    EXPECT_EQ(fNombreEnBaul(arbol.fRuta("a/I.JPG")), "2010.05.07.I.JPG");
    EXPECT_EQ(fNombreEnBaul(arbol.fRuta("falta.jpg")), "falta.jpg");
    const std::string strBaul = fAsegurarBaul(arbol.fRaiz()).strCarpeta;
    const Textos lstRutas = {arbol.fRuta("a/I.JPG"), arbol.fRuta("b/I.JPG"), arbol.fRuta("c/I.JPG"),
                             arbol.fRuta("falta.jpg")};
    const clsFinCopia fin =
        fCopiarLista(lstRutas, fDestinoEnBaul(strBaul), [](int) { return true; });
    EXPECT_EQ(fin.lngHechas, 3);
    ASSERT_TRUE(fin.fallo);
    EXPECT_EQ(fin.fallo->error, ENOENT);
    EXPECT_EQ(fContarBaul(strBaul), 2);
    EXPECT_EQ(arbol.fNombres("Miravel"), (Textos{"2010.05.07.I.JPG", "2010.05.08.I.JPG"}));
    EXPECT_EQ(arbol.fLeer("Miravel/2010.05.07.I.JPG"), "tercera"); // one name, one day
    EXPECT_EQ(arbol.fLeer("Miravel/2010.05.08.I.JPG"), "otra");
}

TEST(Baul, LosesOnlyTheFilesDirectlyInIt)
{
    const clsArbol arbol;
    const std::string strBaul = arbol.fRuta("Miravel/");
    EXPECT_EQ(fContarBaul(strBaul), 0);
    arbol.fCrear("raiz/a.jpg");
    for (const char *const strNombre : {"a.jpg", "sin punto", ".oculta", "\xF1\n"}) {
        arbol.fCrear(std::string("Miravel/") + strNombre);
    }
    arbol.fEnlace("Miravel/carpeta enlazada", "../raiz");
    arbol.fEnlace("Miravel/roto", "no");
    arbol.fCrear("Miravel/sub/b.jpg");
    arbol.fTuberia("Miravel/tubo");
    arbol.fEnlace("otro", "Miravel");
    EXPECT_EQ(fContarBaul(strBaul), 6);
    EXPECT_EQ(fContarBaul(arbol.fRuta("otro/")), 0); // a link is no Baúl
    arbol.fCrear("ajeno/a.jpg");
    if (chown(arbol.fRuta("ajeno").c_str(), 65534, 65534) == 0) { // as root
        EXPECT_EQ(fContarBaul(arbol.fRuta("ajeno/")), 0);
    }

    // Nothing is deleted where the archive is, or may be.
    arbol.fEnlace("raiz/dentro", "../Miravel/sub");
    for (const char *const strRaiz : {"Miravel/", "Miravel/sub/", "otro/", "raiz/dentro/", "no/"}) {
        SCOPED_TRACE(strRaiz);
        fVaciarBaul(strBaul, arbol.fRuta(strRaiz));
        EXPECT_EQ(fContarBaul(strBaul), 6);
    }
    fVaciarBaul(arbol.fRuta("otro/"), arbol.fRuta("raiz/"));
    EXPECT_EQ(fContarBaul(strBaul), 6);
    fVaciarBaul(strBaul, arbol.fRuta("raiz/"));
    EXPECT_EQ(arbol.fNombres("Miravel"), (Textos{"sub", "tubo"}));
    EXPECT_EQ(arbol.fNombres("Miravel/sub"), Textos{"b.jpg"});
    EXPECT_EQ(arbol.fNombres("raiz"), (Textos{"a.jpg", "dentro"}));
    arbol.fCrear("Miravel/c.jpg");
    fVaciarBaul(strBaul, arbol.fRaiz()); // the archive's own folder may hold the Baúl
    EXPECT_EQ(fContarBaul(strBaul), 0);
}

TEST(Baul, SaysWhenItsDiskIsFullOrReadOnly)
{
    const clsArbol arbol;
    constexpr int intSinDisco = 77;
    arbol.fCrear("a.jpg", std::string(300'000, 'n'));
    arbol.fCarpeta("t");
    const int intFin = fEnHijo([&] {
        const std::string strTemporal = arbol.fRuta("t/");
        if (unshare(CLONE_NEWNS) != 0 ||
            mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", strTemporal.c_str(), "tmpfs", 0, "size=64k") != 0) {
            _exit(intSinDisco);
        }
        const auto fAgregar = [&] {
            const clsLugarBaul lugar = fAsegurarBaul(strTemporal);
            const clsFinCopia fin = fCopiarLista(
                {arbol.fRuta("a.jpg")}, fDestinoEnBaul(lugar.strCarpeta), [](int) { return true; });
            EXPECT_EQ(fContarBaul(lugar.strCarpeta), 0);
            return fin.fallo ? fin.fallo->error : clsError();
        };
        EXPECT_EQ(fAgregar(), ENOSPC);
        ASSERT_EQ(mount("none", strTemporal.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
        EXPECT_EQ(fAgregar(), EROFS);
        EXPECT_EQ(rmdir(arbol.fRuta("t/Miravel").c_str()), -1);
        ASSERT_EQ(umount2(strTemporal.c_str(), MNT_DETACH), 0);
        ASSERT_EQ(mount("none", strTemporal.c_str(), "tmpfs", MS_RDONLY, nullptr), 0);
        EXPECT_EQ(fAsegurarBaul(strTemporal).error, EROFS);
    });
    if (intFin == intSinDisco) {
        GTEST_SKIP() << "needs the right to mount a small disk";
    }
    EXPECT_EQ(intFin, 0);
}

} // namespace
