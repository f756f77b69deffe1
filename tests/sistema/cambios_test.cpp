#include "sistema/cambios.h"

#include "sistema/carpeta.h"

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

/// A file system by what it lacks.
struct clsSistema {
    const char *strFrase;
    int (*fLibre)(int, const char *, const char *);
    int (*fEnlazar)(int, const char *, const char *);
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
                   ? fFalla<EACCES, int>(intCarpeta, strRuta, intModo)
                   : llamadasReales.fBorrar(intCarpeta, strRuta, intModo);
    };
    fExigir(EACCES);
    disco.fBorrar = fFalla<EIO>; // both names stay rather than none
    EXPECT_EQ(fRenombrar(arbol.fRuta("a.jpg"), arbol.fRuta("b.jpg")), EIO);
    EXPECT_EQ(arbol.fLeer("a.jpg"), "foto");
}

/// Does what was asked and says that it failed, as a server that was asked twice.
template <int intError, auto fMiembro, class... Argumentos> int fMiente(Argumentos... argumentos)
{
    (llamadasReales.*fMiembro)(argumentos...);
    errno = intError;
    return -1;
}

/// Fails once, with nothing done, then works.
template <int intError> int fFallaUnaVez(int intCarpeta, const char *strRuta, int intModo)
{
    static int intVeces = 0;
    return intVeces++ == 0 ? fFalla<intError, int>(intCarpeta, strRuta, intModo)
                           : llamadasReales.fBorrar(intCarpeta, strRuta, intModo);
}

TEST(Renombrar, KeepsTheFileWhenTheDiskDoesWhatItSaysItDidNot)
{
    using Preparar = void (*)(clsLlamadas &);
    struct clsCaso {
        const char *strFrase;
        std::size_t lngSistema;
        Preparar fPreparar;
        int intError;
        Textos lstNombres;
    };
    constexpr auto fEnlazar = &clsLlamadas::fEnlazar;
    constexpr auto fBorrar = &clsLlamadas::fBorrar;
    constexpr std::size_t lngCompleto = 0;
    constexpr std::size_t lngEnlaces = 1;
    constexpr std::size_t lngNada = 3;
    const Textos lstNuevo = {"b.jpg", "d.jpg"};
    const clsCaso lstCasos[] = {
        {"the renaming was done", lngCompleto,
         [](clsLlamadas &disco) {
             disco.fRenombrarLibre = fMiente<EEXIST, &clsLlamadas::fRenombrarLibre>;
         },
         0, lstNuevo},
        {"the plain renaming was done", lngNada,
         [](clsLlamadas &disco) { disco.fRenombrar = fMiente<EIO, &clsLlamadas::fRenombrar>; }, 0,
         lstNuevo},
        {"the link was made, then its name was taken", lngEnlaces,
         [](clsLlamadas &disco) { disco.fEnlazar = fMiente<EEXIST, fEnlazar>; }, 0, lstNuevo},
        {"the link was made, then there were no links", lngEnlaces,
         [](clsLlamadas &disco) { disco.fEnlazar = fMiente<EPERM, fEnlazar>; }, 0, lstNuevo},
        {"the old name was taken away", lngEnlaces,
         [](clsLlamadas &disco) { disco.fBorrar = fMiente<EIO, fBorrar>; }, 0, lstNuevo},
        {"the old name was taken away, then forbidden", lngEnlaces,
         [](clsLlamadas &disco) { disco.fBorrar = fMiente<EACCES, fBorrar>; }, 0, lstNuevo},
        {"nothing was right", lngEnlaces,
         [](clsLlamadas &disco) {
             disco.fEnlazar = fMiente<EEXIST, fEnlazar>;
             disco.fBorrar = fMiente<ENOENT, fBorrar>;
         },
         0, lstNuevo},
        {"the old name went the second time", lngEnlaces,
         [](clsLlamadas &disco) { disco.fBorrar = fFallaUnaVez<ETIMEDOUT>; }, 0, lstNuevo},
        {"the old name may go yet", lngEnlaces,
         [](clsLlamadas &disco) { disco.fBorrar = fFalla<EIO>; }, EIO,
         Textos{"a.jpg", "b.jpg", "d.jpg"}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const clsArbol arbol;
        arbol.fCrear("a.jpg", "foto");
        ASSERT_EQ(link(arbol.fRuta("a.jpg").c_str(), arbol.fRuta("d.jpg").c_str()), 0); // user's
        clsLlamadas disco = fDisco(lstSistemas[caso.lngSistema]);
        caso.fPreparar(disco);
        const clsOtrasLlamadas otras(disco);
        EXPECT_EQ(fRenombrar(arbol.fRuta("a.jpg"), arbol.fRuta("b.jpg")), caso.intError);
        EXPECT_EQ(arbol.fNombres(), caso.lstNombres);
        EXPECT_EQ(arbol.fLeer("b.jpg"), "foto");
    }
}

TEST(Renombrar, LeavesAloneANameTheFileHadBeforeItWasSeen)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    ASSERT_EQ(link(arbol.fRuta("a.jpg").c_str(), arbol.fRuta("dura.jpg").c_str()), 0);
    clsLlamadas disco = fDisco(lstSistemas[1]);
    static int intMiradas;
    intMiradas = 0;
    disco.fConsultar = [](int intCarpeta, const char *strRuta, struct stat *datos, int intModo) {
        // What the client remembers: nothing had that name.
        const bool bolOlvido =
            std::string_view(strRuta).ends_with("/dura.jpg") && intMiradas++ == 0;
        return bolOlvido ? (errno = ENOENT, -1)
                         : llamadasReales.fConsultar(intCarpeta, strRuta, datos, intModo);
    };
    const clsOtrasLlamadas otras(disco);
    EXPECT_EQ(fRenombrar(arbol.fRuta("a.jpg"), arbol.fRuta("dura.jpg")), EEXIST);
    EXPECT_EQ(arbol.fNombres(), (Textos{"a.jpg", "dura.jpg"}));
}

TEST(Sustituir, CountsAsDoneWhatWasDone)
{
    const clsArbol arbol;
    arbol.fCrear("a", "nuevo");
    arbol.fCrear("b", "viejo");
    clsLlamadas disco = llamadasReales;
    const clsOtrasLlamadas otras(disco);
    disco.fRenombrar = fFalla<EIO>;
    EXPECT_EQ(fSustituir(arbol.fRuta("a"), arbol.fRuta("b")), EIO);
    EXPECT_EQ(arbol.fLeer("b"), "viejo");
    disco.fRenombrar = fMiente<EIO, &clsLlamadas::fRenombrar>;
    EXPECT_EQ(fSustituir(arbol.fRuta("a"), arbol.fRuta("b")), 0);
    EXPECT_EQ(arbol.fLeer("b"), "nuevo");
}

TEST(SoltarNombre, TakesANameOnlyFromAFileThatHasTheOther)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    arbol.fCrear("gemela.jpg", "foto");
    arbol.fEnlace("e.jpg", "a.jpg");
    arbol.fCarpeta("c");
    ASSERT_EQ(link(arbol.fRuta("a.jpg").c_str(), arbol.fRuta("b.jpg").c_str()), 0);
    struct clsCaso {
        const char *strNombre;
        const char *strOtro;
        int intError;
    };
    for (const clsCaso &caso : {clsCaso{"a.jpg", "gemela.jpg", EEXIST},
                                {"a.jpg", "e.jpg", EEXIST},
                                {"a.jpg", "falta.jpg", EEXIST},
                                {"e.jpg", "a.jpg", EEXIST},
                                {"gemela.jpg", "gemela.jpg", EEXIST},
                                {"falta.jpg", "a.jpg", ENOENT},
                                {"c", "a.jpg", EISDIR},
                                {"a.jpg", "b.jpg", 0},
                                {"b.jpg", "a.jpg", EEXIST}}) {
        SCOPED_TRACE(caso.strNombre);
        EXPECT_EQ(fSoltarNombre(arbol.fRuta(caso.strNombre), arbol.fRuta(caso.strOtro)),
                  caso.intError);
    }
    EXPECT_EQ(arbol.fNombres(), (Textos{"b.jpg", "c", "e.jpg", "gemela.jpg"}));
}

} // namespace
