#include "sistema/recinto.h"

#include "sistema/carpeta.h"
#include "soporte/arbol.h"
#include "soporte/fallos.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::optional<struct stat> fDatos(const std::string &strRuta)
{
    struct stat datos {};
    return stat(strRuta.c_str(), &datos) == 0 ? std::optional(datos) : std::nullopt;
}

clsDescriptor fRaiz(const clsArbol &arbol) { return std::move(*fAbrirCarpeta(arbol.fRaiz())); }

clsError fFechar(const std::string &strRuta, std::int64_t lngMomento, const clsDescriptor &raiz,
                 const std::string &strRaiz, long lngNanosegundos = 0)
{
    return clsRecinto(strRaiz, raiz).fFechar(strRuta, lngMomento, lngNanosegundos);
}

TEST(Recinto, SetsTheModificationTimeAndNothingElse)
{
    const clsArbol arbol;
    const clsDescriptor raiz = fRaiz(arbol);
    arbol.fCrear("a.jpg", "foto");
    arbol.fEnlace("e.jpg", "a.jpg");
    const timespec lstMomentos[2] = {{1000, 123'456'789}, {2000, 987'654'321}};
    ASSERT_EQ(utimensat(AT_FDCWD, arbol.fRuta("a.jpg").c_str(), lstMomentos, 0), 0);
    ASSERT_EQ(chmod(arbol.fRuta("a.jpg").c_str(), 0), 0); // it is not opened
    for (const char *const strNombre : {"a.jpg", "e.jpg"}) {
        SCOPED_TRACE(strNombre);
        for (const std::time_t lngMomento : {1247587402, 1231952602, -1, 0}) {
            SCOPED_TRACE(lngMomento);
            EXPECT_EQ(fFechar(arbol.fRuta(strNombre), lngMomento, raiz, arbol.fRaiz()), 0);
            const auto datos = fDatos(arbol.fRuta("a.jpg"));
            ASSERT_TRUE(datos);
            EXPECT_EQ(datos->st_mtim.tv_sec, lngMomento);
            EXPECT_EQ(datos->st_mtim.tv_nsec, 0);
            EXPECT_EQ(datos->st_atim.tv_sec, 1000);
            EXPECT_EQ(datos->st_atim.tv_nsec, 123'456'789);
            EXPECT_EQ(datos->st_size, 4);
            EXPECT_EQ(datos->st_mode & 07777U, 0U);
        }
    }
    EXPECT_EQ(fFechar(arbol.fRuta("a.jpg"), 1000, raiz, arbol.fRaiz(), 123'456'700), 0);
    EXPECT_EQ(fDatos(arbol.fRuta("a.jpg"))->st_mtim.tv_nsec, 123'456'700);
}

TEST(Recinto, ReportsWhatIsNoFileOrHasNoSuchTime)
{
    const clsArbol arbol;
    const clsDescriptor raiz = fRaiz(arbol);
    arbol.fCrear("a.jpg");
    arbol.fCarpeta("c.jpg");
    arbol.fTuberia("t.jpg");
    arbol.fEnlace("rota.jpg", "nada");
    const auto fHora = [&](const char *strNombre) {
        struct stat datos {};
        EXPECT_EQ(lstat(arbol.fRuta(strNombre).c_str(), &datos), 0);
        return datos.st_mtime;
    };
    struct clsCaso {
        const char *strNombre;
        int intError;
    };
    for (const clsCaso &caso : {clsCaso{"falta.jpg", ENOENT},
                                {"rota.jpg", ENOENT},
                                {"c.jpg", EISDIR},
                                {"t.jpg", EINVAL},
                                {"a.jpg/x", ENOTDIR}}) {
        SCOPED_TRACE(caso.strNombre);
        EXPECT_EQ(fFechar(arbol.fRuta(caso.strNombre), 1, raiz, arbol.fRaiz()), caso.intError);
    }
    for (const char *const strNombre : {"rota.jpg", "c.jpg", "t.jpg"}) {
        EXPECT_NE(fHora(strNombre), 1) << strNombre;
    }
    // What takes the place of a file behind its look has its own time changed, at worst.
    arbol.fEnlace("e.jpg", "a.jpg");
    clsRecinto recinto(arbol.fRaiz(), raiz);
    for (const clsCaso &caso :
         {clsCaso{"a.jpg", 0}, {"e.jpg", EINVAL}, {"c.jpg", EISDIR}, {"falta.jpg", ENOENT}}) {
        SCOPED_TRACE(caso.strNombre);
        EXPECT_EQ(recinto.fFechar(arbol.fRuta(caso.strNombre), 9, 0, true), caso.intError);
    }
    EXPECT_EQ(fHora("e.jpg"), 9);
    EXPECT_EQ(recinto.fFechar(arbol.fRuta("a.jpg"), 1000), 0);
    EXPECT_EQ(arbol.fNombres(),
              (std::vector<std::string>{"a.jpg", "c.jpg", "e.jpg", "rota.jpg", "t.jpg"}));
    // The oldest and the last date have a moment, whatever the file system makes of it.
    for (const std::int64_t lngMomento : {-59'000'000'000, 253'402'300'799}) { // years 100, 9999
        const clsError error = fFechar(arbol.fRuta("a.jpg"), lngMomento, raiz, arbol.fRaiz());
        EXPECT_TRUE(!error || error == EINVAL || error == EOVERFLOW || error == ERANGE)
            << error.fNumero();
    }
}

TEST(Recinto, NeverChangesAFileOutsideTheFolder)
{
    const clsArbol otra;
    const clsArbol arbol;
    otra.fCrear("ajena.jpg");
    arbol.fCrear("raiz/c/d/a.jpg");
    arbol.fCrear("raiz-no/b.jpg"); // its path begins like that of the folder
    arbol.fEnlace("raiz/fuera.jpg", otra.fRuta("ajena.jpg"));
    arbol.fEnlace("raiz/cerca.jpg", "../raiz-no/b.jpg");
    arbol.fEnlace("raiz/rodeo.jpg", "fuera.jpg");
    arbol.fEnlace("raiz/c/carpeta", otra.fRaiz());
    arbol.fEnlace("raiz/dentro.jpg", arbol.fRuta("raiz/c/d/a.jpg"));
    arbol.fEnlace("raiz/otra", "c");
    arbol.fEnlace("raiz/misma", ".");
    arbol.fEnlace("otro", "raiz"); // another name of the folder
    for (const char *const strRaiz : {"raiz", "otro"}) {
        const auto raiz = fAbrirCarpeta(arbol.fRuta(strRaiz));
        ASSERT_TRUE(raiz);
        const std::string strCarpeta = arbol.fRuta(strRaiz) + '/';
        clsRecinto recinto(strCarpeta, *raiz);
        for (const char *const strNombre : {"fuera.jpg", "cerca.jpg", "rodeo.jpg"}) {
            SCOPED_TRACE(strNombre);
            EXPECT_EQ(recinto.fFechar(strCarpeta + strNombre, 1), EXDEV);
        }
        for (const char *const strNombre : {"c/carpeta/ajena.jpg", "../raiz-no/b.jpg"}) {
            SCOPED_TRACE(strNombre);
            EXPECT_EQ(recinto.fFechar(strCarpeta + strNombre, 1), EXDEV);
            EXPECT_EQ(recinto.fRenombrar(strCarpeta + strNombre, "n.jpg"), EXDEV);
            EXPECT_EQ(recinto.fSoltarNombre(strCarpeta + strNombre, "n.jpg"), EXDEV);
            EXPECT_EQ(recinto.fConsultar(strCarpeta + strNombre).fError(), EXDEV);
        }
        EXPECT_EQ(recinto.fFechar(arbol.fRuta("raiz-no/b.jpg"), 1), EXDEV);
        EXPECT_EQ(recinto.fFechar(otra.fRuta("ajena.jpg"), 1), EXDEV);
        std::time_t lngMomento = 7;
        for (const char *const strNombre :
             {"dentro.jpg", "c/d/a.jpg", "otra/d/a.jpg", "misma/c/d/a.jpg", "misma/dentro.jpg",
              "c/../c/d/a.jpg", "c/d/a.jpg"}) {
            SCOPED_TRACE(strNombre);
            EXPECT_EQ(recinto.fFechar(strCarpeta + strNombre, ++lngMomento), 0);
            EXPECT_EQ(fDatos(arbol.fRuta("raiz/c/d/a.jpg"))->st_mtime, lngMomento);
        }
    }
    EXPECT_EQ(fDatos(otra.fRuta("ajena.jpg"))->st_mtime, clsArbol::lngMomento);
    EXPECT_EQ(fDatos(arbol.fRuta("raiz-no/b.jpg"))->st_mtime, clsArbol::lngMomento);
    const clsDescriptor nada;
    clsRecinto cerrado(arbol.fRuta("raiz/"), nada);
    EXPECT_TRUE(cerrado.fFechar(arbol.fRuta("raiz/c/d/a.jpg"), 9));
    EXPECT_TRUE(cerrado.fRenombrar(arbol.fRuta("raiz/c/d/a.jpg"), "n.jpg"));
    EXPECT_TRUE(cerrado.fRenombrar(arbol.fRuta("raiz/dentro.jpg"), "n.jpg"));
}

TEST(Recinto, RenamesFilesAndLinksInFoldersHoweverTheyAreReached)
{
    const clsArbol arbol;
    const clsDescriptor raiz = fRaiz(arbol);
    arbol.fCrear("c/a.jpg", "foto");
    arbol.fCrear("c/b.jpg", "otra");
    arbol.fCrear("d.jpg", "tercera");
    arbol.fEnlace("c/e.jpg", "a.jpg");
    arbol.fEnlace("otra", "c");
    clsRecinto recinto(arbol.fRaiz(), raiz);
    struct clsCaso {
        const char *strRuta;
        const char *strNombre;
        int intError;
    };
    for (const bool bolFechar : {false, true}) { // what is seen by that is used
        for (const clsCaso &caso : {clsCaso{"c/a.jpg", "b.jpg", EEXIST},
                                    {"c/a.jpg", "n.jpg", 0},
                                    {"c/n.jpg", "a.jpg", 0},
                                    {"d.jpg", "n.jpg", 0},
                                    {"n.jpg", "d.jpg", 0},
                                    {"otra/a.jpg", "n.jpg", 0},
                                    {"c/n.jpg", "a.jpg", 0},
                                    {"c/e.jpg", "n.jpg", 0},
                                    {"c/n.jpg", "e.jpg", 0},
                                    {"falta/a.jpg", "n.jpg", ENOENT},
                                    {"c/falta.jpg", "n.jpg", ENOENT},
                                    {"d.jpg/x", "n.jpg", ENOTDIR},
                                    {"c", "n.jpg", EISDIR}}) {
            SCOPED_TRACE(caso.strRuta);
            if (bolFechar) {
                static_cast<void>(recinto.fFechar(arbol.fRuta(caso.strRuta), 5));
            }
            EXPECT_EQ(recinto.fRenombrar(arbol.fRuta(caso.strRuta), caso.strNombre), caso.intError);
        }
    }
    EXPECT_EQ(recinto.fFechar(arbol.fRuta("d.jpg"), 5), 0); // tells nothing of another one
    EXPECT_EQ(recinto.fRenombrar(arbol.fRuta("c"), "n.jpg"), EISDIR);
    EXPECT_EQ(arbol.fNombres(), (std::vector<std::string>{"c", "d.jpg", "otra"}));
    EXPECT_EQ(arbol.fNombres("c"), (std::vector<std::string>{"a.jpg", "b.jpg", "e.jpg"}));
    EXPECT_EQ(arbol.fLeer("c/a.jpg") + arbol.fLeer("c/b.jpg") + arbol.fLeer("d.jpg"),
              "fotootratercera");
}

/// A name that means something else before one of the calls; see below.
struct clsTrueque {
    int intAntesDe = 0; ///< which call
    int intHechas = 0;
    std::string strNombre;
    std::string strOtro; ///< takes its place
} trueque;

template <auto fMiembro, class... Argumentos> auto fTrasTrueque(Argumentos... argumentos)
{
    if (++trueque.intHechas == trueque.intAntesDe) {
        const int intFin = renameat2(AT_FDCWD, trueque.strNombre.c_str(), AT_FDCWD,
                                     trueque.strOtro.c_str(), RENAME_EXCHANGE);
        EXPECT_TRUE(intFin == 0 || errno == ENOENT); // it has its new name by then
    }
    return (llamadasReales.*fMiembro)(argumentos...);
}

clsLlamadas fDiscoConTrueque()
{
    clsLlamadas disco = llamadasReales;
    disco.fAbrir = fTrasTrueque<&clsLlamadas::fAbrir>;
    disco.fConsultar = fTrasTrueque<&clsLlamadas::fConsultar>;
    disco.fLeerEnlace = fTrasTrueque<&clsLlamadas::fLeerEnlace>;
    disco.fFechar = fTrasTrueque<&clsLlamadas::fFechar>;
    disco.fCerrar = fTrasTrueque<&clsLlamadas::fCerrar>;
    disco.fRenombrarLibre = fTrasTrueque<&clsLlamadas::fRenombrarLibre>;
    return disco;
}

TEST(Recinto, GainsNothingForWhoSwapsANameMeanwhile)
{
    const clsLlamadas disco = fDiscoConTrueque();
    struct clsCaso {
        const char *strFrase;
        const char *strNombre;   ///< what is swapped
        const char *strOtro;     ///< with that
        int intLlamadas;         ///< at least
        bool bolArchivo = false; ///< it was seen to be a file
    };
    for (const clsCaso &caso :
         {clsCaso{"a file for a link that leads out", "c/a.jpg", "fuera.jpg", 6},
          {"a file that was seen for such a link", "c/a.jpg", "fuera.jpg", 5, true},
          {"a link that leads out for a file", "c/fuera.jpg", "a.jpg", 3},
          {"a link for one that leads out", "c/e.jpg", "fuera.jpg", 9},
          {"one that leads out for a link", "c/fuera.jpg", "e.jpg", 9},
          {"the folder for a link that leads out", "c", "carpeta", 6},
          {"the folder of a file that was seen", "c", "carpeta", 5, true},
          {"a link that leads out for a folder", "carpeta", "c", 4}}) {
        int intLlamada = 0;
        do {
            const clsArbol otra;
            const clsArbol arbol;
            const clsDescriptor raiz = fRaiz(arbol);
            for (const char *const strAjena : {"ajena.jpg", "a.jpg", "e.jpg", "fuera.jpg"}) {
                otra.fCrear(strAjena);
            }
            arbol.fCrear("c/a.jpg");
            arbol.fCrear("a.jpg");
            arbol.fEnlace("fuera.jpg", otra.fRuta("ajena.jpg"));
            arbol.fEnlace("e.jpg", "a.jpg");
            arbol.fEnlace("c/e.jpg", "a.jpg");
            arbol.fEnlace("c/fuera.jpg", otra.fRuta("ajena.jpg"));
            arbol.fEnlace("carpeta", otra.fRaiz());
            const std::string strNombre = caso.strNombre;
            const std::string strRuta =
                arbol.fRuta(strNombre.ends_with(".jpg") ? strNombre : strNombre + "/a.jpg");
            trueque = {++intLlamada, 0, arbol.fRuta(strNombre), arbol.fRuta(caso.strOtro)};
            SCOPED_TRACE(testing::Message() << caso.strFrase << ", call " << intLlamada);
            {
                const clsOtrasLlamadas otras(disco);
                clsRecinto recinto(arbol.fRaiz(), raiz);
                static_cast<void>(recinto.fFechar(strRuta, 1000, 0, caso.bolArchivo));
                static_cast<void>(recinto.fRenombrar(strRuta, "n.jpg"));
            }
            EXPECT_EQ(otra.fNombres(),
                      (std::vector<std::string>{"a.jpg", "ajena.jpg", "e.jpg", "fuera.jpg"}));
            for (const std::string &strAjena : otra.fNombres()) {
                EXPECT_EQ(fDatos(otra.fRuta(strAjena))->st_mtime, clsArbol::lngMomento);
            }
        } while (trueque.intHechas >= intLlamada && !HasFailure());
        EXPECT_GE(intLlamada, caso.intLlamadas) << caso.strFrase;
    }
}

TEST(Recinto, SetsTimesWhereTheKernelTakesPathsOnly)
{
    const clsArbol arbol;
    const clsDescriptor raiz = fRaiz(arbol);
    arbol.fCrear("c/a.jpg");
    arbol.fEnlace("e.jpg", "c/a.jpg"); // what it leads to is opened
    clsLlamadas disco = llamadasReales;
    disco.fFechar = [](int intCarpeta, const char *strRuta, const timespec *lstMomentos,
                       int intModo) {
        return (intModo & AT_EMPTY_PATH) != 0
                   ? (errno = EINVAL, -1)
                   : llamadasReales.fFechar(intCarpeta, strRuta, lstMomentos, intModo);
    };
    const clsOtrasLlamadas otras(disco);
    EXPECT_EQ(fFechar(arbol.fRuta("e.jpg"), 1000, raiz, arbol.fRaiz()), 0);
    EXPECT_EQ(fDatos(arbol.fRuta("c/a.jpg"))->st_mtime, 1000);
}

TEST(Recinto, TellsWhenTheDiskTookAnotherTime)
{
    const clsArbol arbol;
    const clsDescriptor raiz = fRaiz(arbol);
    arbol.fCrear("a.jpg");
    const clsOtrasLlamadas otras(fDiscoFat());
    for (const auto &[lngMomento, intError] : {std::pair{1247587402, 0},
                                               {1247587403, 0}, // even seconds only
                                               {315532798, 0},  // 1980 less 2 seconds
                                               {315532797, ERANGE},
                                               {0, ERANGE}}) {
        SCOPED_TRACE(lngMomento);
        EXPECT_EQ(fFechar(arbol.fRuta("a.jpg"), lngMomento, raiz, arbol.fRaiz()), intError);
    }
}

} // namespace
