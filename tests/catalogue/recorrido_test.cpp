#include "catalogue/recorrido.h"

#include "catalogue/carpeta.h"
#include "catalogue/registro.h"
#include "soporte/arbol.h"
#include "soporte/fallos.h"
#include "soporte/proceso.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <future>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using Textos = std::vector<std::string>;

/// Lines of a catalogue, each without its CR LF, which every line must have.
Textos fLineas(std::string_view strBytes)
{
    Textos lstLineas;
    while (!strBytes.empty()) {
        const std::size_t lngFin = strBytes.find("\r\n");
        EXPECT_NE(lngFin, std::string_view::npos);
        lstLineas.emplace_back(strBytes.substr(0, lngFin));
        strBytes.remove_prefix(std::min(strBytes.size(), lngFin + 2));
    }
    return lstLineas;
}

/// Keeps all that it is told.
class clsOyente : public clsObservador {
public:
    void fCarpeta(const std::string &strCarpeta) override { lstCarpetas.push_back(strCarpeta); }
    void fError(clsError error) override { lstErrores.push_back(error.fNumero()); }
    bool fSeguir() override { return bolSeguir; }

    clsRecorrido fRecorrer(const std::string &strRaiz, const clsOpcionesRecorrido &opciones = {})
    {
        return ::fRecorrer(strRaiz, opciones, *this, [this](std::string_view strLineas) {
            strTodo += strLineas;
            return !bolParar;
        });
    }

    /// The path lines of everything so far.
    [[nodiscard]] Textos fRutas() const
    {
        Textos lstRutas;
        const Textos lstLineas = fLineas(strTodo);
        EXPECT_EQ(lstLineas.size() % 3, 0U);
        for (std::size_t lng = 0; lng < lstLineas.size(); lng += 3) {
            lstRutas.push_back(lstLineas[lng]);
        }
        return lstRutas;
    }

    Textos lstCarpetas;
    std::string strTodo;
    std::vector<int> lstErrores;
    bool bolParar = false;
    bool bolSeguir = true;
};

/// The paths of a tree in the order of the walk, by another way: a folder's files as the system
/// lists them, then its subfolders.
void fEsperadas(const std::string &strCarpeta, Textos &lstRutas)
{
    Textos lstSubcarpetas;
    for (const fs::directory_entry &entrada : fs::directory_iterator(strCarpeta)) {
        if (entrada.is_directory() && !entrada.is_symlink()) {
            lstSubcarpetas.push_back(entrada.path().string() + '/');
        } else if (entrada.is_regular_file()) {
            lstRutas.push_back(entrada.path().string());
        }
    }
    for (const std::string &strSubcarpeta : lstSubcarpetas) {
        fEsperadas(strSubcarpeta, lstRutas);
    }
}

TEST(Registro, IsThreeLinesWithoutLineEndsInsideAName)
{
    std::string strCatalogo;
    fAnadirRegistro(strCatalogo, "/f\n/", "a\r\nb.jpg", fFechaDe({2009, 7, 14, 18, 3, 22}).value(),
                    3'000'000'000);
    fAnadirRegistro(strCatalogo, "/f/", "c", {}, 0);
    EXPECT_EQ(strCatalogo, "/f?/a??b.jpg\r\n2009/07/14 18:03:22\r\n 3000000000 \r\n"
                           "/f/c\r\n1899/12/30 00:00:00\r\n 0 \r\n");
}

TEST(Recorrido, ListsFilesThenSubfoldersDepthFirstInTheOrderOfTheSystem)
{
    const clsArbol arbol;
    for (const char *const strRuta : {"z.jpg", "b/2/x.jpg", "b/1/y.jpg", "b/w.txt", "a/v.jpg",
                                      "a.jpg", ".oculta/u.jpg", "X_c/t", "c/1/2/3/s", "c/r"}) {
        arbol.fCrear(strRuta);
    }
    arbol.fCarpeta("vacia/tambien");
    for (int intArchivo = 0; intArchivo < 1200; ++intArchivo) { // several batches of one folder
        arbol.fCrear("b/grande/" + std::to_string(intArchivo));
        if (intArchivo % 100 == 0) {
            arbol.fCrear("b/grande/c" + std::to_string(intArchivo) + "/q");
        }
    }
    Textos lstEsperadas;
    fEsperadas(arbol.fRaiz(), lstEsperadas);
    for (const int intHilos : {0, 1, 3}) {
        SCOPED_TRACE(intHilos);
        clsOyente oyente;
        EXPECT_EQ(oyente.fRecorrer(arbol.fRaiz(), {intHilos, {}}).errorRaiz, 0);
        EXPECT_EQ(oyente.fRutas(), lstEsperadas);
        EXPECT_TRUE(oyente.lstErrores.empty());
    }
}

TEST(Recorrido, KeepsTheBytesOfEveryName)
{
    const clsArbol arbol;
    Textos lstEsperadas;
    for (const std::string &strNombre :
         {std::string("A\u00F1o \u00BFqu\u00E9?.jpg"), std::string("\U0001F600.jpg"),
          std::string("an\u0303o.jpg"), std::string("A\xF1o.jpg"), std::string(" a .jpg "),
          std::string("\x01\x7F.jpg"), std::string("a\\b.jpg"), std::string(255, 'l')}) {
        arbol.fCrear(strNombre);
        arbol.fCrear("c\xE1rpeta " + strNombre.substr(0, 9) + '/' + strNombre);
        lstEsperadas.push_back(arbol.fRuta(strNombre));
        lstEsperadas.push_back(
            arbol.fRuta("c\xE1rpeta " + strNombre.substr(0, 9) + '/' + strNombre));
    }
    arbol.fCrear("con\r\nsalto/y\notro.jpg");
    lstEsperadas.push_back(arbol.fRuta("con??salto/y?otro.jpg"));
    clsOyente oyente;
    EXPECT_EQ(oyente.fRecorrer(arbol.fRaiz()).errorRaiz, 0);
    Textos lstRutas = oyente.fRutas();
    std::sort(lstRutas.begin(), lstRutas.end());
    std::sort(lstEsperadas.begin(), lstEsperadas.end());
    EXPECT_EQ(lstRutas, lstEsperadas);
}

TEST(Recorrido, TakesLinksToFilesAndPassesOverOddEntries)
{
    const clsZona zona("UTC0");
    const clsArbol arbol;
    arbol.fCrear("a/real.jpg", "12345");
    arbol.fEnlace("a/enlace.jpg", "real.jpg");
    arbol.fEnlace("a/padre", "..");
    arbol.fEnlace("a/rota.jpg", "nada");
    arbol.fEnlace("a/yo.jpg", "yo.jpg");
    arbol.fEnlace("a/bajo.jpg", "real.jpg/x");
    arbol.fTuberia("a/x.jpg");
    arbol.fEnlace("a/tubo.jpg", "x.jpg");
    clsOyente oyente;
    EXPECT_EQ(oyente.fRecorrer(arbol.fRaiz()).errorRaiz, 0);
    Textos lstRutas = oyente.fRutas();
    std::sort(lstRutas.begin(), lstRutas.end());
    EXPECT_EQ(lstRutas, (Textos{arbol.fRuta("a/enlace.jpg"), arbol.fRuta("a/real.jpg")}));
    const Textos lstLineas = fLineas(oyente.strTodo);
    EXPECT_EQ(std::count(lstLineas.begin(), lstLineas.end(), " 5 "), 2);
    EXPECT_EQ(std::count(lstLineas.begin(), lstLineas.end(), "2009/07/14 16:03:22"), 2);
    EXPECT_TRUE(oyente.lstErrores.empty());
}

TEST(Recorrido, HasNoLimitOfDepth)
{
    constexpr int intNiveles = 3000;
    const clsArbol arbol;
    std::string strHondo;
    for (int intNivel = 0; intNivel < intNiveles; ++intNivel) {
        strHondo += "nivel/";
    }
    arbol.fCrear(strHondo + "fondo.jpg");
    arbol.fCrear("nivel/nivel/arriba.jpg");
    clsOyente oyente;
    EXPECT_EQ(oyente.fRecorrer(arbol.fRaiz(), {1, {}}).errorRaiz, 0);
    EXPECT_EQ(oyente.fRutas(),
              (Textos{arbol.fRuta("nivel/nivel/arriba.jpg"), arbol.fRuta(strHondo + "fondo.jpg")}));
    EXPECT_EQ(oyente.lstCarpetas.size(), intNiveles + 1U);
    EXPECT_TRUE(oyente.lstErrores.empty());
}

TEST(Recorrido, ReportsAnUnreadableFolderOnceAndListsTheRest)
{
    const clsArbol arbol;
    arbol.fCrear("a/1.jpg");
    arbol.fCrear("cerrada/dentro/2.jpg");
    arbol.fCrear("cerrada/2.jpg");
    arbol.fCrear("z/3.jpg");
    for (const mode_t modo : {0U, 0444U}) { // the second can be listed, but not entered
        SCOPED_TRACE(modo);
        ASSERT_EQ(chmod(arbol.fRuta("cerrada").c_str(), modo), 0);
        EXPECT_EQ(fEnHijo([&] {
                      ASSERT_TRUE(fSoltarRaiz());
                      clsOyente oyente;
                      EXPECT_EQ(oyente.fRecorrer(arbol.fRaiz()).errorRaiz, 0);
                      EXPECT_EQ(oyente.lstErrores, std::vector<int>{EACCES});
                      Textos lstRutas = oyente.fRutas();
                      std::sort(lstRutas.begin(), lstRutas.end());
                      EXPECT_EQ(lstRutas, (Textos{arbol.fRuta("a/1.jpg"), arbol.fRuta("z/3.jpg")}));
                  }),
                  0);
    }
}

/// Names of the files of a tree, sorted, as the walk finds them; no error is told.
Textos fHallados(const clsArbol &arbol)
{
    clsOyente oyente;
    EXPECT_EQ(oyente.fRecorrer(arbol.fRaiz()).errorRaiz, 0);
    EXPECT_TRUE(oyente.lstErrores.empty());
    Textos lstNombres;
    for (const std::string &strRuta : oyente.fRutas()) {
        lstNombres.push_back(strRuta.substr(arbol.fRaiz().size()));
    }
    std::sort(lstNombres.begin(), lstNombres.end());
    return lstNombres;
}

TEST(Recorrido, LeavesOutAloneWhatCannotBeLookedUp)
{
    const clsArbol arbol;
    arbol.fCrear("sola/mala.jpg");
    arbol.fCrear("sola/c/1.jpg");
    for (const char *const strRuta : {"mala.jpg", "a.jpg", "z.jpg", "c/1.jpg"}) {
        arbol.fCrear(strRuta);
    }
    static int intError = 0;
    clsLlamadas disco = llamadasReales;
    disco.fConsultar = [](int intCarpeta, const char *strRuta, struct stat *datos, int intModo) {
        return std::string_view(strRuta) == "mala.jpg"
                   ? (errno = intError, -1)
                   : llamadasReales.fConsultar(intCarpeta, strRuta, datos, intModo);
    };
    const clsOtrasLlamadas otras(disco);
    for (const int intEste : {EACCES, EIO, ESTALE, EOVERFLOW, ENAMETOOLONG}) {
        SCOPED_TRACE(intEste);
        intError = intEste;
        EXPECT_EQ(fHallados(arbol), (Textos{"a.jpg", "c/1.jpg", "sola/c/1.jpg", "z.jpg"}));
    }
}

TEST(Recorrido, LeavesOutAloneLinksThatCannotBeFollowed)
{
    const clsArbol fuera;
    fuera.fCrear("cerrada/x.jpg");
    ASSERT_EQ(chmod(fuera.fRuta("cerrada").c_str(), 0), 0);
    ASSERT_EQ(chmod(fuera.fRaiz().c_str(), 0755), 0);
    const clsArbol arbol;
    ASSERT_EQ(chmod(arbol.fRaiz().c_str(), 0755), 0);
    arbol.fEnlace("cerrado.jpg", fuera.fRuta("cerrada/x.jpg"));
    arbol.fEnlace("largo.jpg", std::string(300, 'n'));
    arbol.fCrear("a.jpg");
    arbol.fCrear("c/1.jpg");
    EXPECT_EQ(fEnHijo([&] {
                  ASSERT_TRUE(fSoltarRaiz());
                  EXPECT_EQ(fHallados(arbol), (Textos{"a.jpg", "c/1.jpg"}));
              }),
              0);
}

TEST(Recorrido, EndsWhenTheReceiverWantsNoMore)
{
    const clsArbol arbol;
    for (int intCarpeta = 0; intCarpeta < 50; ++intCarpeta) {
        arbol.fCrear(std::to_string(intCarpeta) + "/a.jpg");
    }
    clsOyente oyente;
    oyente.bolParar = true;
    EXPECT_TRUE(oyente.fRecorrer(arbol.fRaiz()).bolInterrumpido);
    EXPECT_EQ(oyente.fRutas().size(), 1U);
}

/// Lines of the files of a folder that are named, as the walk examines them.
clsExamen fExaminarNombres(const clsArbol &arbol, const Textos &lstNombres)
{
    const auto carpeta = fAbrirCarpeta(arbol.fRaiz());
    std::vector<clsEntradaCarpeta> lstEntradas;
    for (const std::string &strNombre : lstNombres) {
        lstEntradas.push_back({strNombre, Entrada::Desconocida});
    }
    return fExaminar(carpeta.value(), arbol.fRaiz(), lstEntradas.data(),
                     lstEntradas.data() + lstEntradas.size(), {});
}

TEST(Examen, PassesSilentlyOverAFileThatVanishedMeanwhile)
{
    const clsArbol arbol;
    arbol.fCrear("queda.jpg");
    arbol.fCarpeta("carpeta");
    const clsExamen examen = fExaminarNombres(arbol, {"falta.jpg", "queda.jpg", "carpeta"});
    EXPECT_EQ(examen.error, 0);
    EXPECT_EQ(fLineas(examen.strLineas).size(), 3U);
    EXPECT_EQ(examen.lstCarpetas, Textos{"carpeta"});
}

TEST(Examen, DatesEveryFileByTheZoneHoweverOddItsChanges)
{
    // Clocks change in the middle of a quarter of an hour.
    const clsZona zona("AAA0BBB-1,J100/02:07:30,J300/03:07:30");
    const clsArbol arbol;
    Textos lstNombres;
    Textos lstEsperadas;
    constexpr std::time_t lngCambio = 1239325650; // 10/4/2009 01:07:30 universal time
    for (const std::time_t lngResto : {-4000, -450, -1, 0, 1, 449, 450, 4000}) {
        for (const std::time_t lngDia : {-1, 0, 1}) {
            const std::time_t lngMomento = lngCambio + 3600 + lngDia * 86400 + lngResto;
            lstNombres.push_back(std::to_string(lngMomento));
            arbol.fCrear(lstNombres.back(), "x", lngMomento);
            lstEsperadas.push_back(fEscribirFecha(fFechaLocal(lngMomento)));
        }
    }
    const Textos lstLineas = fLineas(fExaminarNombres(arbol, lstNombres).strLineas);
    ASSERT_EQ(lstLineas.size(), lstEsperadas.size() * 3);
    for (std::size_t lng = 0; lng < lstEsperadas.size(); ++lng) {
        EXPECT_EQ(lstLineas[lng * 3 + 1], lstEsperadas[lng]) << lstNombres[lng];
    }
}

TEST(Examen, GivesNoDateToTimesThatNoCalendarHas)
{
    constexpr const char *strMemoria = "/dev/shm"; // keeps any 64-bit time
    if (!fs::is_directory(strMemoria)) {
        GTEST_SKIP() << "needs a file system that keeps any time";
    }
    const clsArbol arbol(strMemoria);
    using clsLimites = std::numeric_limits<std::time_t>;
    Textos lstNombres;
    for (const std::time_t lngMomento :
         {clsLimites::min(), clsLimites::min() + 450, clsLimites::max() - 1, clsLimites::max()}) {
        lstNombres.push_back(std::to_string(lngMomento));
        arbol.fCrear(lstNombres.back(), "x", lngMomento);
    }
    const Textos lstLineas = fLineas(fExaminarNombres(arbol, lstNombres).strLineas);
    EXPECT_EQ(std::count(lstLineas.begin(), lstLineas.end(), "1899/12/30 00:00:00"), 4);
}

TEST(Recorrido, EndsWhenItsLinesAreRefusedAndThreadsAreStillReading)
{
    // The refused folder has many subfolders: the threads are at work on them at that moment.
    const clsArbol arbol;
    for (int intCarpeta = 0; intCarpeta < 400; ++intCarpeta) {
        arbol.fCrear("a/" + std::to_string(intCarpeta) + "/x.jpg");
    }
    arbol.fCrear("a/primera.jpg");
    for (int intVez = 0; intVez < 20; ++intVez) {
        clsOyente oyente;
        oyente.bolParar = true;
        EXPECT_TRUE(oyente.fRecorrer(arbol.fRaiz()).bolInterrumpido);
    }
}

TEST(Recorrido, EndsWhenItIsToldToWhileTheDiskHangs)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    const auto disco = std::make_shared<std::promise<void>>();
    const std::shared_future<void> contesta = disco->get_future().share();
    const auto fColgarse = [contesta](std::string_view /*strNombre*/) {
        contesta.wait();
        return false;
    };
    clsOyente oyente;
    oyente.bolSeguir = false;
    EXPECT_TRUE(oyente.fRecorrer(arbol.fRaiz(), {0, fColgarse}).bolInterrumpido);
    EXPECT_TRUE(oyente.strTodo.empty());
    disco->set_value();
}

} // namespace
