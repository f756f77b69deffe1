#include "sistema/copia_archivo.h"

#include "soporte/arbol.h"
#include "soporte/proceso.h"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Textos = std::vector<std::string>;

struct stat fSegunDisco(const std::string &strRuta)
{
    struct stat datos {};
    EXPECT_EQ(stat(strRuta.c_str(), &datos), 0) << strRuta;
    return datos;
}

/// A copy tells the same as its source.
void fExigirCopia(const std::string &strOrigen, const std::string &strCopia)
{
    const struct stat origen = fSegunDisco(strOrigen);
    const struct stat copia = fSegunDisco(strCopia);
    EXPECT_EQ(copia.st_size, origen.st_size);
    EXPECT_EQ(copia.st_mode, origen.st_mode);
    EXPECT_EQ(copia.st_mtim.tv_sec, origen.st_mtim.tv_sec);
    EXPECT_EQ(copia.st_mtim.tv_nsec, origen.st_mtim.tv_nsec);
}

void fExigirCopias(const clsArbol &arbol, const clsArbol &destino)
{
    const Textos lstNombres = {"a.jpg",    "#1 %41 \"'&;$(x)",    "-rf",   "a\r\nb",
                               "\xF1\xFF", std::string(255, 'n'), "vacia", "enlace"};
    for (const std::string &strNombre : lstNombres) {
        SCOPED_TRACE(strNombre);
        const std::string strBytes = strNombre == "vacia" ? "" : "bytes de " + strNombre;
        arbol.fCrear(strNombre == "enlace" ? "otra" : strNombre, strBytes);
        if (strNombre == "enlace") {
            arbol.fEnlace(strNombre, "otra");
        }
        const timespec lstMomentos[2] = {{0, UTIME_OMIT}, {1247587402, 123'456'789}};
        ASSERT_EQ(utimensat(AT_FDCWD, arbol.fRuta(strNombre).c_str(), lstMomentos, 0), 0);
        ASSERT_EQ(chmod(arbol.fRuta(strNombre).c_str(), 0464), 0);
        for (const char *const strVuelta : {"new", "replacing"}) {
            SCOPED_TRACE(strVuelta);
            EXPECT_EQ(fCopiar(arbol.fRuta(strNombre), destino.fRuta(strNombre)), 0);
            EXPECT_EQ(destino.fLeer(strNombre), strBytes);
            fExigirCopia(arbol.fRuta(strNombre), destino.fRuta(strNombre));
            ASSERT_EQ(unlink(destino.fRuta(strNombre).c_str()), 0);
            destino.fCrear(strNombre, "old and much longer than what takes its place");
            ASSERT_EQ(chmod(destino.fRuta(strNombre).c_str(), 0400), 0);
        }
    }
    EXPECT_EQ(destino.fNombres().size(), 8U); // nothing temporary
}

TEST(Copia, IsWholeWhateverTheNameAndReplacesSilently)
{
    fExigirCopias(clsArbol(), clsArbol());
    if (access("/dev/shm", W_OK) == 0) {
        fExigirCopias(clsArbol(), clsArbol("/dev/shm")); // mostly another file system
    }
}

TEST(Copia, IsRefusedAndTouchesNothing)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "una");
    arbol.fCrear("c/x.jpg", "otra");
    arbol.fEnlace("blando.jpg", "a.jpg");
    arbol.fEnlace("lc", "c");
    arbol.fTuberia("tubo");
    ASSERT_EQ(link(arbol.fRuta("a.jpg").c_str(), arbol.fRuta("duro.jpg").c_str()), 0);
    struct clsCaso {
        const char *strOrigen;
        const char *strDestino;
        int intError;
    };
    const Textos lstAntes = arbol.fNombres();
    for (const clsCaso &caso : {clsCaso{"a.jpg", "a.jpg", EEXIST},
                                {"a.jpg", "lc/../a.jpg", EEXIST},
                                {"a.jpg", "blando.jpg", EEXIST},
                                {"blando.jpg", "a.jpg", EEXIST},
                                {"a.jpg", "duro.jpg", EEXIST},
                                {"a.jpg", "c", EISDIR},
                                {"a.jpg", "lc", EISDIR},
                                {"c", "d", EISDIR},
                                {"tubo", "d", EINVAL},
                                {"falta.jpg", "d", ENOENT},
                                {"a.jpg", "falta/d", ENOENT},
                                {"a.jpg", "a.jpg/d", ENOTDIR}}) {
        SCOPED_TRACE(std::string(caso.strOrigen) + " to " + caso.strDestino);
        EXPECT_EQ(fCopiar(arbol.fRuta(caso.strOrigen), arbol.fRuta(caso.strDestino)),
                  caso.intError);
        EXPECT_EQ(arbol.fNombres(), lstAntes);
        EXPECT_EQ(arbol.fLeer("a.jpg"), "una");
        EXPECT_EQ(arbol.fNombres("c"), Textos{"x.jpg"});
    }
    EXPECT_EQ(fCopiar(arbol.fRuta("c/x.jpg"), arbol.fRuta("blando.jpg")), 0);
    EXPECT_EQ(arbol.fLeer("a.jpg"), "una"); // the link was replaced, not what it leads to
    ASSERT_EQ(chmod(arbol.fRuta("c").c_str(), 0555), 0);
    EXPECT_EQ(fEnHijo([&] {
                  ASSERT_TRUE(fSoltarRaiz());
                  EXPECT_EQ(fCopiar(arbol.fRuta("a.jpg"), arbol.fRuta("c/a.jpg")), EACCES);
              }),
              0);
}

TEST(Copia, KeepsTheHolesOfFilesLargerThanMemory)
{
    const clsArbol arbol;
    arbol.fCrear("a.mov", "principio");
    constexpr off_t lngIsla = 4'500'000'000;
    constexpr off_t lngFin = 5'368'709'120;
    const auto fTrozo = [](const std::string &strRuta, off_t lngPos) {
        std::string strBytes(9, '?');
        const int intFd = open(strRuta.c_str(), O_RDONLY | O_CLOEXEC);
        EXPECT_EQ(pread(intFd, strBytes.data(), strBytes.size(), lngPos), 9);
        close(intFd);
        return strBytes;
    };
    const int intFd = open(arbol.fRuta("a.mov").c_str(), O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(pwrite(intFd, "islaislas", 9, lngIsla), 9);
    EXPECT_EQ(ftruncate(intFd, lngFin), 0); // and a hole at the end
    close(intFd);
    EXPECT_EQ(fCopiar(arbol.fRuta("a.mov"), arbol.fRuta("b.mov")), 0);
    fExigirCopia(arbol.fRuta("a.mov"), arbol.fRuta("b.mov"));
    EXPECT_EQ(fTrozo(arbol.fRuta("b.mov"), 0), "principio");
    EXPECT_EQ(fTrozo(arbol.fRuta("b.mov"), lngIsla), "islaislas");
    EXPECT_EQ(fTrozo(arbol.fRuta("b.mov"), lngFin - 9), std::string(9, '\0'));
    EXPECT_LT(fSegunDisco(arbol.fRuta("b.mov")).st_blocks, 20'000);
}

} // namespace
