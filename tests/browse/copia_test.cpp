#include "browse/copia.h"

#include "soporte/arbol.h"
#include "soporte/fallos.h"
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

TEST(ListaDeCopias, LeavesTheOldFileOnAFullDisk)
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
        EXPECT_EQ(fin.fallo->error, ENOSPC);
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
    EXPECT_EQ(fin.fallo->error, EEXIST);
    EXPECT_EQ(fMotivo(*fin.fallo), "Lo que tiene ese nombre en el destino es uno de los archivos "
                                   "que se están copiando: no se reemplaza.");
    EXPECT_EQ(fMotivo({{}, {}, ENOSPC}), "28: No queda espacio en el dispositivo");
    EXPECT_EQ(arbol.fLeer("b/x.jpg"), "otra");
}

TEST(ListaDeCopias, CountsThoseThatTakeAnotherFilesPlace)
{
    const clsArbol arbol;
    arbol.fCrear("a/x.jpg", "una");
    arbol.fCrear("b/x.jpg", "otra");
    arbol.fCrear("b/y.jpg", "y");
    arbol.fCarpeta("d");
    // The second of one name takes the place of the first.
    const Textos lstRutas{arbol.fRuta("a/x.jpg"), arbol.fRuta("b/x.jpg"), arbol.fRuta("b/y.jpg")};
    for (const int lngReemplazadas : {1, 3}) {
        const clsFinCopia fin =
            fCopiarLista(lstRutas, fDestinoEn(arbol.fRuta("d")), [](int) { return true; });
        EXPECT_EQ(fin.lngHechas, 3);
        EXPECT_EQ(fin.lngReemplazadas, lngReemplazadas);
        EXPECT_EQ(arbol.fLeer("d/x.jpg"), "otra");
    }
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
    static clsLlamadas disco = llamadasReales;
    disco.fClonar = [](int, int) { return -1; };
    disco.fTrasladar = [](int, int, std::size_t) {
        while (bolAtascado) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return ssize_t{1}; // a file without end
    };
    const clsOtrasLlamadas otras(disco);
    bolAtascado = true;
    int intVeces = 0;
    arbol.fCarpeta("e");
    fin = fCopiarLista(lstRutas, fDestinoEn(arbol.fRuta("e")), [&](int) {
        bolAtascado = ++intVeces < 4;
        return bolAtascado.load();
    });
    EXPECT_EQ(fin.lngHechas, 0);
    EXPECT_FALSE(fin.fallo);
    EXPECT_EQ(intVeces, 4);
    EXPECT_EQ(arbol.fNombres("e"), Textos{});
}

} // namespace
