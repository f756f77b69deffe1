#include "browse/copia.h"

#include "soporte/arbol.h"
#include "soporte/proceso.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

using Textos = std::vector<std::string>;

struct stat fDatos(const std::string &strRuta)
{
    struct stat datos {};
    EXPECT_EQ(stat(strRuta.c_str(), &datos), 0) << strRuta;
    return datos;
}

/// A copy tells the same as its source.
void fExigirCopia(const std::string &strOrigen, const std::string &strCopia)
{
    const struct stat origen = fDatos(strOrigen);
    const struct stat copia = fDatos(strCopia);
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
    EXPECT_LT(fDatos(arbol.fRuta("b.mov")).st_blocks, 20'000);
}

// The k-th call of the table fails, whichever it is.
int intPaso = 0;
int intFalla = 0;
int intMotivo = 0;
template <auto fMiembro, class... Argumentos> auto fFragil(Argumentos... argumentos)
{
    if (++intPaso != intFalla) {
        return (discoReal.*fMiembro)(argumentos...);
    }
    errno = intMotivo;
    return decltype((discoReal.*fMiembro)(argumentos...)){-1};
}

clsDisco fDiscoFragil(bool bolTraslada)
{
    clsDisco disco = discoReal;
    disco.fAbrir = fFragil<&clsDisco::fAbrir>;
    disco.fEscribir = [](int intFd, const void *bytDatos, std::size_t lngBytes) {
        return fFragil<&clsDisco::fEscribir>(intFd, bytDatos, std::min<std::size_t>(lngBytes, 99));
    };
    disco.fLeer = fFragil<&clsDisco::fLeer>;
    disco.fTrasladar = [](int, int, std::size_t) -> ssize_t { return errno = EXDEV, -1; };
    if (bolTraslada) {
        disco.fTrasladar = [](int intDe, int intA, std::size_t lngBytes) {
            return fFragil<&clsDisco::fTrasladar>(intDe, intA, std::min<std::size_t>(lngBytes, 99));
        };
    }
    disco.fClonar = fFragil<&clsDisco::fClonar>;
    disco.fAlargar = fFragil<&clsDisco::fAlargar>;
    disco.fPermitir = fFragil<&clsDisco::fPermitir>;
    disco.fFecharAbierto = fFragil<&clsDisco::fFecharAbierto>;
    disco.fRenombrar = fFragil<&clsDisco::fRenombrar>;
    disco.fCerrar = [](int intFd) { // a file is closed even when that reports an error
        const int intFin = fFragil<&clsDisco::fCerrar>(intFd);
        return intFin == 0 ? 0 : (close(intFd), errno = intMotivo, -1);
    };
    return disco;
}

/// A copy in which one call fails is made all the same, or reported and not there.
/// @return whether it was made.
bool fCopiarConFallo(const clsArbol &arbol, const std::string &strNuevo, bool bolTraslada)
{
    arbol.fCrear("b.mov", "viejo");
    intPaso = 0;
    const int intError =
        fCopiar(arbol.fRuta("a.mov"), arbol.fRuta("b.mov"), fDiscoFragil(bolTraslada));
    EXPECT_TRUE(intError == 0 || intError == intMotivo) << intError;
    EXPECT_EQ(arbol.fLeer("b.mov"), intError == 0 ? strNuevo : "viejo");
    EXPECT_EQ(arbol.fNombres(), (Textos{"a.mov", "b.mov"}));
    if (intError == 0) {
        fExigirCopia(arbol.fRuta("a.mov"), arbol.fRuta("b.mov"));
    }
    return intError == 0;
}

TEST(Copia, IsWholeOrNotThereWhicheverCallFails)
{
    const clsArbol arbol;
    arbol.fCrear("a.mov", std::string(3000, 'a'));
    ASSERT_EQ(truncate(arbol.fRuta("a.mov").c_str(), 1 << 20), 0); // a hole at its end
    const std::string strNuevo = arbol.fLeer("a.mov");
    for (const bool bolTraslada : {true, false}) {
        for (const int intMotivoCaso : {ENOSPC, EIO, EINTR}) {
            intMotivo = intMotivoCaso;
            int intFallidas = 0;
            for (intFalla = 1; intFalla == 1 || intPaso >= intFalla - 1; ++intFalla) {
                SCOPED_TRACE(testing::Message() << intMotivo << " at " << intFalla);
                intFallidas += fCopiarConFallo(arbol, strNuevo, bolTraslada) ? 0 : 1;
            }
            EXPECT_GT(intFalla, 30);
            // A signal stops nothing but closing and renaming, other reasons nearly everything.
            EXPECT_EQ(intMotivo == EINTR, intFallidas == 2) << intFallidas;
        }
    }
}

TEST(Copia, LeavesTheOldFileOnAFullDisk)
{
    const clsArbol arbol;
    constexpr int intSinDisco = 77;
    arbol.fCrear("a.jpg", "cabe");
    arbol.fCrear("b.jpg", std::string(300'000, 'n'));
    arbol.fCarpeta("d");
    const int intFin = fEnHijo([&] {
        if (unshare(CLONE_NEWNS) != 0 ||
            mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", arbol.fRuta("d").c_str(), "tmpfs", 0, "size=128k") != 0) {
            _exit(intSinDisco);
        }
        arbol.fCrear("d/b.jpg", "viejo");
        const clsFinCopia fin =
            fCopiarLista({arbol.fRuta("a.jpg"), arbol.fRuta("b.jpg"), arbol.fRuta("a.jpg")},
                         fDestinoEn(arbol.fRuta("d")), [](int) { return true; });
        EXPECT_EQ(fin.lngHechas, 1);
        ASSERT_TRUE(fin.fallo);
        EXPECT_EQ(fin.fallo->intError, ENOSPC);
        EXPECT_EQ(fin.fallo->strOrigen, arbol.fRuta("b.jpg"));
        EXPECT_EQ(fin.fallo->strDestino, arbol.fRuta("d/b.jpg"));
        EXPECT_EQ(arbol.fNombres("d"), (Textos{"a.jpg", "b.jpg"}));
        EXPECT_EQ(arbol.fLeer("d/b.jpg"), "viejo");
    });
    if (intFin == intSinDisco) {
        GTEST_SKIP() << "needs the right to mount a small disk";
    }
    EXPECT_EQ(intFin, 0);
}

TEST(ListaDeCopias, NeverReplacesAFileThatIsSentToo)
{
    const clsArbol arbol;
    arbol.fCrear("a/x.jpg", "una");
    arbol.fCrear("b/x.jpg", "otra");
    const clsFinCopia fin = fCopiarLista({arbol.fRuta("a/x.jpg"), arbol.fRuta("b/x.jpg")},
                                         fDestinoEn(arbol.fRuta("b")), [](int) { return true; });
    EXPECT_EQ(fin.lngHechas, 0);
    ASSERT_TRUE(fin.fallo);
    EXPECT_EQ(fin.fallo->intError, EEXIST);
    EXPECT_EQ(arbol.fLeer("b/x.jpg"), "otra");
}

std::atomic<bool> bolAtascado;

TEST(ListaDeCopias, GoesOnUntilItIsToldToStop)
{
    const clsArbol arbol;
    Textos lstRutas;
    for (const char *const strNombre : {"a.jpg", "b.jpg", "c.jpg"}) {
        arbol.fCrear(strNombre, strNombre);
        lstRutas.push_back(arbol.fRuta(strNombre));
    }
    arbol.fCarpeta("d");
    clsFinCopia fin = fCopiarLista(lstRutas, fDestinoEn(arbol.fRuta("d/")),
                                   [](int lngHechas) { return lngHechas < 2; });
    EXPECT_GE(fin.lngHechas, 2); // the next may have been ready by then
    EXPECT_FALSE(fin.fallo);
    EXPECT_EQ(arbol.fNombres("d").size(), static_cast<std::size_t>(fin.lngHechas));
    EXPECT_EQ(fCopiarLista(lstRutas, {}, [](int) { return false; }).lngHechas, 0);

    // The caller's thread goes on while a call hangs, and nothing is left of the file then.
    clsDisco disco = discoReal;
    disco.fClonar = [](int, int) { return -1; };
    disco.fTrasladar = [](int, int, std::size_t) {
        while (bolAtascado) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return ssize_t{1}; // a file without end
    };
    bolAtascado = true;
    int intVeces = 0;
    arbol.fCarpeta("e");
    fin = fCopiarLista(
        lstRutas, fDestinoEn(arbol.fRuta("e")),
        [&](int) {
            bolAtascado = ++intVeces < 4;
            return bolAtascado.load();
        },
        disco);
    EXPECT_EQ(fin.lngHechas, 0);
    EXPECT_FALSE(fin.fallo);
    EXPECT_EQ(intVeces, 4);
    EXPECT_EQ(arbol.fNombres("e"), Textos{});
}

} // namespace
