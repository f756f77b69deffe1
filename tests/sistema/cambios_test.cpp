#include "sistema/cambios.h"

#include "soporte/arbol.h"
#include "soporte/fallos.h"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Textos = std::vector<std::string>;

template <int intError> int fFalla(const char *, const char *)
{
    errno = intError;
    return -1;
}

template <int intError> int fFallaBorrar(int, const char *, int)
{
    errno = intError;
    return -1;
}

/// A file system by what it lacks.
struct clsSistema {
    const char *strFrase;
    int (*fLibre)(const char *, const char *);
    int (*fEnlazar)(const char *, const char *);
};
const clsSistema lstSistemas[] = {
    {"refuses taken names itself", llamadasReales.fRenombrarLibre, fFalla<EIO>},
    {"only has links", fFalla<EINVAL>, llamadasReales.fEnlazar},
    {"has links, and a kernel of old", fFalla<ENOSYS>, llamadasReales.fEnlazar},
    {"has no links (EPERM)", fFalla<EINVAL>, fFalla<EPERM>},
    {"has no links (EOPNOTSUPP)", fFalla<EINVAL>, fFalla<EOPNOTSUPP>},
    {"has a kernel that has no links", fFalla<ENOSYS>, fFalla<ENOSYS>},
    {"has links, but no more of a file", fFalla<EINVAL>, fFalla<EMLINK>},
};

clsLlamadas fDisco(const clsSistema &sistema)
{
    clsLlamadas disco = llamadasReales;
    disco.fRenombrarLibre = sistema.fLibre;
    disco.fEnlazar = sistema.fEnlazar;
    return disco;
}

TEST(Renombrar, MovesAFileToAFreeNameOnEveryFileSystem)
{
    for (const clsSistema &sistema : lstSistemas) {
        SCOPED_TRACE(sistema.strFrase);
        const clsLlamadas disco = fDisco(sistema);
        const clsOtrasLlamadas otras(disco);
        const clsArbol arbol;
        arbol.fCrear("a.jpg", "foto");
        arbol.fEnlace("e.jpg", "a.jpg");
        EXPECT_EQ(fRenombrar(arbol.fRuta("e.jpg"), arbol.fRuta("l.jpg")), 0);
        EXPECT_EQ(arbol.fNombres(), (Textos{"a.jpg", "l.jpg"})) << "the link is what moves";
        EXPECT_EQ(fRenombrar(arbol.fRuta("a.jpg"), arbol.fRuta("b.jpg")), 0);
        EXPECT_EQ(arbol.fNombres(), (Textos{"b.jpg", "l.jpg"}));
        EXPECT_EQ(arbol.fLeer("b.jpg"), "foto");
        struct stat datos {};
        ASSERT_EQ(lstat(arbol.fRuta("b.jpg").c_str(), &datos), 0);
        EXPECT_EQ(datos.st_nlink, 1U);
        ASSERT_EQ(lstat(arbol.fRuta("l.jpg").c_str(), &datos), 0);
        EXPECT_TRUE(S_ISLNK(datos.st_mode));
    }
}

TEST(Renombrar, NeverReplacesAndReportsWhy)
{
    struct clsCaso {
        const char *strFrase;
        const char *strDe;
        const char *strA;
        int intError;
    };
    const clsCaso lstCasos[] = {
        {"a file has the name", "a.jpg", "b.jpg", EEXIST},
        {"an empty file has the name", "a.jpg", "vacia.jpg", EEXIST},
        {"a folder has the name", "a.jpg", "carpeta.jpg", EEXIST},
        {"a link to nothing has the name", "a.jpg", "rota.jpg", EEXIST},
        {"the file itself has the name", "a.jpg", "a.jpg", EEXIST},
        {"another link to it has the name", "a.jpg", "dura.jpg", EEXIST},
        {"the file is gone", "falta.jpg", "n.jpg", ENOENT},
        {"a folder has taken the file's name", "carpeta.jpg", "n.jpg", EISDIR},
        {"the folder for the name is gone", "a.jpg", "nada/n.jpg", ENOENT},
        {"a file stands where a folder must", "a.jpg", "b.jpg/n.jpg", ENOTDIR},
    };
    for (const clsSistema &sistema : lstSistemas) {
        SCOPED_TRACE(sistema.strFrase);
        const clsLlamadas disco = fDisco(sistema);
        const clsOtrasLlamadas otras(disco);
        const clsArbol arbol;
        arbol.fCrear("a.jpg", "una");
        arbol.fCrear("b.jpg", "otra");
        arbol.fCrear("vacia.jpg", "");
        arbol.fCarpeta("carpeta.jpg");
        arbol.fEnlace("rota.jpg", "nada");
        ASSERT_EQ(link(arbol.fRuta("a.jpg").c_str(), arbol.fRuta("dura.jpg").c_str()), 0);
        const Textos lstNombres = arbol.fNombres();
        for (const clsCaso &caso : lstCasos) {
            SCOPED_TRACE(caso.strFrase);
            EXPECT_EQ(fRenombrar(arbol.fRuta(caso.strDe), arbol.fRuta(caso.strA)), caso.intError);
            EXPECT_EQ(arbol.fNombres(), lstNombres);
            EXPECT_EQ(arbol.fLeer("a.jpg") + arbol.fLeer("b.jpg"), "unaotra");
        }
        const std::string strLargo(256, 'n');
        EXPECT_EQ(fRenombrar(arbol.fRuta("a.jpg"), arbol.fRuta(strLargo)), ENAMETOOLONG);
    }
}

TEST(Renombrar, PassesOtherErrorsOnAndUndoesHalfARenaming)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    clsLlamadas disco = llamadasReales; // with links: they must not be tried
    const clsOtrasLlamadas otras(disco);
    const auto fExigir = [&](int intError) {
        EXPECT_EQ(fRenombrar(arbol.fRuta("a.jpg"), arbol.fRuta("b.jpg")), intError);
        EXPECT_EQ(arbol.fNombres(), Textos{"a.jpg"});
    };
    disco.fRenombrarLibre = fFalla<EIO>;
    fExigir(EIO);
    disco.fRenombrarLibre = fFalla<EACCES>;
    fExigir(EACCES);
    disco = fDisco(lstSistemas[1]);
    disco.fEnlazar = fFalla<ENOSPC>; // not for want of links: no plain renaming either
    fExigir(ENOSPC);
    disco = fDisco(lstSistemas[1]);
    disco.fBorrar = [](int intCarpeta, const char *strRuta, int intModo) {
        return std::string_view(strRuta).ends_with("/a.jpg")
                   ? fFallaBorrar<EACCES>(intCarpeta, strRuta, intModo)
                   : llamadasReales.fBorrar(intCarpeta, strRuta, intModo);
    };
    fExigir(EACCES);
    disco.fBorrar = fFallaBorrar<EIO>; // both names stay rather than none
    EXPECT_EQ(fRenombrar(arbol.fRuta("a.jpg"), arbol.fRuta("b.jpg")), EIO);
    EXPECT_EQ(arbol.fLeer("a.jpg"), "foto");
}

std::optional<struct stat> fDatos(const std::string &strRuta)
{
    struct stat datos {};
    return stat(strRuta.c_str(), &datos) == 0 ? std::optional(datos) : std::nullopt;
}

TEST(FechaArchivo, SetsTheModificationTimeAndNothingElse)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    arbol.fEnlace("e.jpg", "a.jpg");
    const timespec lstMomentos[2] = {{1000, 123'456'789}, {2000, 987'654'321}};
    ASSERT_EQ(utimensat(AT_FDCWD, arbol.fRuta("a.jpg").c_str(), lstMomentos, 0), 0);
    ASSERT_EQ(chmod(arbol.fRuta("a.jpg").c_str(), 0), 0); // it is not opened
    for (const char *const strNombre : {"a.jpg", "e.jpg"}) {
        SCOPED_TRACE(strNombre);
        for (const std::time_t lngMomento : {1247587402, 1231952602, -1, 0}) {
            SCOPED_TRACE(lngMomento);
            EXPECT_EQ(fFechar(arbol.fRuta(strNombre), lngMomento), 0);
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
}

TEST(FechaArchivo, ReportsWhatIsNoFileOrHasNoSuchTime)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    arbol.fCarpeta("c.jpg");
    arbol.fTuberia("t.jpg");
    arbol.fEnlace("rota.jpg", "nada");
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
        EXPECT_EQ(fFechar(arbol.fRuta(caso.strNombre), 1), caso.intError);
    }
    EXPECT_EQ(arbol.fNombres(), (Textos{"a.jpg", "c.jpg", "rota.jpg", "t.jpg"}));
    // The oldest and the last date have a moment, whatever the file system makes of it.
    for (const std::int64_t lngMomento : {-59'000'000'000, 253'402'300'799}) { // years 100, 9999
        const clsError error = fFechar(arbol.fRuta("a.jpg"), lngMomento);
        EXPECT_TRUE(!error || error == EINVAL || error == EOVERFLOW) << error.fNumero();
    }
}

} // namespace
