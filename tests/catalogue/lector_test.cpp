#include "catalogue/lector.h"

#include "shared/medios.h"

#include "soporte/arbol.h"
#include <cerrno>
#include <filesystem>

#include <gtest/gtest.h>
#include <vector>

namespace {

/// The lines of a catalogue, each ended as its writer ends them.
std::string fLineas(const std::vector<std::string> &lstLineas)
{
    std::string strBytes;
    for (const std::string &strLinea : lstLineas) {
        strBytes += strLinea + "\r\n";
    }
    return strBytes;
}

/// Rows as "path|date|size".
std::vector<std::string> fFilas(const clsFilas &filas)
{
    std::vector<std::string> lstFilas;
    for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
        lstFilas.push_back(filas.fRuta(lngPos) + '|' + filas.fFecha(lngPos) + '|' +
                           std::to_string(filas.fTamano(lngPos)));
    }
    return lstFilas;
}

/// What was read: rows, fault, kilobytes, and the error that the bytes ended in.
struct clsLeido {
    std::vector<std::string> lstFilas;
    std::int64_t lngFallo = 0;
    std::string strFallo;
    std::int64_t lngTotalKB = 0;
    clsError error;
    friend bool operator==(const clsLeido &, const clsLeido &) = default;
};

/// @param errorFinal what the bytes end in instead of their end.
clsLeido fLeerEnBloques(std::string_view strBytes, Medios medios, std::size_t lngBloque,
                        clsError errorFinal = {})
{
    clsRegistros registros(
        [&](char *chrDestino, std::size_t lngBytes) {
            const std::size_t lngDados = strBytes.copy(chrDestino, lngBytes);
            strBytes.remove_prefix(lngDados);
            const bool bolFallo = lngDados == 0 && errorFinal;
            return bolFallo ? clsResultado<std::size_t>(errorFinal) : lngDados;
        },
        lngBloque);
    clsFilas filas;
    const clsLectura lectura = fLeerCatalogo(registros, fExtensionesVisibles(medios), filas);
    const clsFallo fallo = lectura.fallo.value_or(clsFallo{});
    return {fFilas(filas), fallo.lngLinea, fallo.strTexto, lectura.lngTotalKB, registros.fError()};
}

/// Reads a catalogue in a few blocks and in many.
clsLeido fLeer(std::string_view strBytes, Medios medios = Medios::Todos)
{
    clsLeido leido = fLeerEnBloques(strBytes, medios, 1 << 18);
    for (const std::size_t lngBloque : {1, 2, 3, 16, 61}) {
        EXPECT_EQ(fLeerEnBloques(strBytes, medios, lngBloque), leido) << lngBloque;
    }
    return leido;
}

struct clsLectura {
    const char *strFrase;
    std::string strBytes;
    std::vector<std::string> lstFilas;
    std::int64_t lngFallo; ///< line of the fault, 0: none
};

void fComprobar(const clsLectura &caso)
{
    SCOPED_TRACE(caso.strFrase);
    const clsLeido leido = fLeer(caso.strBytes);
    EXPECT_EQ(leido.lstFilas, caso.lstFilas);
    EXPECT_EQ(leido.lngFallo, caso.lngFallo);
}

const std::string strFecha = "2009/07/14 18:03:22";

TEST(Lector, ReadsEveryRecordWhateverItsLineEnds)
{
    const std::string strA = "/f/a.jpg|2009/07/14 18:03:22|5";
    const std::string strB = "/f/b.MP4|2010/01/01 00:00:00|3000000000";
    const std::string strUno = fLineas({"/f/a.jpg", strFecha, " 5 "});
    const std::string strDos = strUno + "/f/b.MP4\r\n2010/01/01 00:00:00\r\n 3000000000 ";
    std::string strSoloLF = strDos + '\n';
    std::erase(strSoloLF, '\r');
    const std::string strCortado = "/f/b.MP4|2010/01/01 00:00:00|30000";
    fComprobar({"nothing", "", {}, 0});
    fComprobar({"two records", strDos + "\r\n", {strA, strB}, 0});
    fComprobar({"LF only", strSoloLF, {strA, strB}, 0});
    fComprobar({"no line end at the end", strDos, {strA, strB}, 0});
    fComprobar({"half a line end at the end", strDos + '\r', {strA, strB}, 0});
    fComprobar({"no size at the end", strUno + "/f/b.MP4\r\n2010\r\n", {strA}, 0});
    fComprobar({"no date at the end", strUno + "/f/b.MP4", {strA}, 0});
    fComprobar({"a cut size", strDos.substr(0, strDos.size() - 6), {strA, strCortado}, 0});
    fComprobar({"empty lines at the end", strDos + "\r\n\r\n\r\n", {strA, strB}, 0});
}

TEST(Lector, EndsAtAnErrorOfTheDiskWithTheWholeRecordsBefore)
{
    const std::string strBytes = fLineas({"/f/a.jpg", strFecha, "1", "/f/b.jpg", strFecha, "22"});
    // The second size may be cut: it must not count as far as it was read.
    for (const std::size_t lngBloque : {1, 16, 1 << 18}) {
        const auto leido = fLeerEnBloques(std::string_view(strBytes).substr(0, strBytes.size() - 3),
                                          Medios::Todos, lngBloque, EIO);
        EXPECT_EQ(leido.lstFilas, std::vector<std::string>{"/f/a.jpg|" + strFecha + "|1"});
        EXPECT_EQ(leido.error, EIO);
    }
}

TEST(Lector, EndsAtAMegabyteOfZeroBytesWithTheRecordsBefore)
{
    const clsArbol arbol;
    const std::string strRuta = arbol.fRuta("Miravel.dat");
    const std::string strRegistro = fLineas({"/f/a.jpg", strFecha, "5"});
    const std::string strHueco(std::size_t{1} << 20, '\0');
    const auto fError = [&](int intFilas) {
        clsFilas filas;
        const auto lectura = fLeerFicheroCatalogo(strRuta, "/JPG/", filas);
        EXPECT_EQ(filas.fCantidad(), intFilas);
        return lectura.fError();
    };
    arbol.fCrear("Miravel.dat", strRegistro + strRegistro);
    EXPECT_FALSE(fError(2));
    // A terabyte without anything in it.
    std::filesystem::resize_file(strRuta, std::uintmax_t{1} << 40);
    EXPECT_EQ(fError(2), EBADMSG);
    arbol.fCrear("Miravel.dat", strRegistro + strHueco + "\r\n" + strRegistro);
    EXPECT_EQ(fError(1), EBADMSG);
    arbol.fCrear("Miravel.dat", strRegistro + strHueco.substr(1) + strRegistro + strRegistro);
    EXPECT_FALSE(fError(3));
    arbol.fCrear("Miravel.dat", strRegistro + std::string(std::size_t{17} << 20, 'x'));
    EXPECT_EQ(fError(1), EBADMSG);
}

TEST(Lector, KeepsTheBytesOfPathsAndDates)
{
    fComprobar({"Windows-1252, blanks, a date of another form",
                fLineas({"/f/A\xF1o  /a .jpg", " ayer\t", "7"}),
                {"/f/A\xF1o  /a .jpg| ayer\t|7"},
                0});
}

TEST(Lector, LeavesOutWhatIsHiddenOrOfAnotherKind)
{
    fComprobar({"hidden and other files, whatever their size says",
                fLineas({"/f/a.txt", strFecha, "x", "/f/X_p/a.jpg", strFecha, "x", "/f/x_a.jpg",
                         strFecha, "7", "/f/jpg", strFecha, "7", "/f/aX_/b.jpg", strFecha, "7"}),
                {"/f/aX_/b.jpg|" + strFecha + "|7"},
                0});
    const std::string strBytes = fLineas({"/f/a.jpg", strFecha, "1", "/f/b.avi", strFecha, "2"});
    EXPECT_EQ(fLeer(strBytes, Medios::Videos).lstFilas,
              std::vector<std::string>{"/f/b.avi|" + strFecha + "|2"});
}

TEST(Lector, CountsThoseOfFurtherExtensionsWithoutListingThem)
{
    std::string_view strBytes =
        "/f/a.jpg\n2009/07/14 18:03:22\n1\n/f/b.HEIC\n2009/07/14 18:03:22\n2\n"
        "/f/X_c.png\n2009/07/14 18:03:22\n3\n/f/d.txt\n2009/07/14 18:03:22\n4\n"
        "/f/e.mkv\n2009/07/14 18:03:22\nno size\n/f/f.mp4\n2009/07/14 18:03:22\n5\n";
    for (const auto &[medios, lngFilas, lngContados] :
         {std::tuple(Medios::Fotos, 1, 1), {Medios::Videos, 1, 1}, {Medios::Todos, 2, 2}}) {
        clsRegistros registros(
            [strResto = strBytes](char *chrDestino, std::size_t lngBytes) mutable {
                const std::size_t lngDados = strResto.copy(chrDestino, lngBytes);
                strResto.remove_prefix(lngDados);
                return clsResultado<std::size_t>(lngDados);
            });
        clsFilas filas;
        const auto lectura = fLeerCatalogo(registros, fExtensionesVisibles(medios), filas, {},
                                           fExtensionesVisibles(medios, true));
        EXPECT_EQ(filas.fCantidad(), lngFilas);
        EXPECT_EQ(lectura.lngContados, lngContados);
        EXPECT_FALSE(lectura.fallo);
    }
}

TEST(Lector, StopsAtASizeThatIsNoNumberAndKeepsTheRowsBefore)
{
    const clsLeido leido = fLeer(fLineas({"/f/a.jpg", strFecha, " 2048 ", "/f/b.jpg", strFecha,
                                          " \xF1 ", "/f/c.jpg", strFecha, " 1 "}));
    EXPECT_EQ(leido.lngFallo, 6);
    EXPECT_EQ(leido.strFallo, " \u00F1 ");
    EXPECT_EQ(leido.lstFilas.size(), 1U);
    EXPECT_EQ(leido.lngTotalKB, 2);
}

TEST(Lector, CountsLinesAndDoesNotFindItsWayBackAfterALostOne)
{
    fComprobar({"the path of the first is lost: no line stands where a path is looked for",
                fLineas({strFecha, "5", "/f/b.jpg", strFecha, "6"}),
                {},
                0});
    fComprobar({"the size of the first is lost: the next path is taken for it",
                fLineas({"/f/a.jpg", strFecha, "/f/b.jpg", strFecha, "6"}),
                {},
                3});
    fComprobar(
        {"an empty line in front shifts all", fLineas({"", "/f/a.jpg", strFecha, "5"}), {}, 0});
    fComprobar(
        {"an empty size: the next kept text takes its place",
         fLineas({"/f/a.jpg", strFecha, "", "/f/x.txt", "a", "b", "/f/b.jpg", strFecha, "6"}),
         {},
         7});
    fComprobar({"an empty date likewise",
                fLineas({"/f/a.jpg", "", "5", "/f/b.jpg", strFecha, "6"}),
                {},
                4});
    fComprobar({"an empty date, and a number where a path should be",
                fLineas({"/f/a.jpg", "", strFecha, "7.jpg", "8", "9"}),
                {},
                4});
    fComprobar({"an empty date of the last record: it stays incomplete",
                fLineas({"/f/a.jpg", "", "5"}),
                {},
                0});
    fComprobar({"an empty date, and the rest of a cut catalogue takes its turn",
                fLineas({"/f/a.jpg", "", strFecha}) + "9.jpg",
                {},
                4});
}

TEST(Lector, SumsTheBytesOfTheRowsAndDropsTheRest)
{
    struct clsSuma {
        const char *strFrase;
        const char *strUno;
        const char *strOtro;
        std::int64_t lngTotalKB;
    };
    const clsSuma lstCasos[] = {
        {"the sum is divided, not the sizes", "1023", "1", 1},
        {"the rest is dropped", "1024", "1023", 1},
        {"beyond 32 bits", "4294967296", "4294967296", 8388608},
        {"no wrap at the limit", "9223372036854775807", "9223372036854775807", 9007199254740991},
    };
    for (const clsSuma &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fLeer(fLineas({"/f/a.jpg", strFecha, caso.strUno, "/f/b.jpg", strFecha,
                                 caso.strOtro, "/f/X_c.jpg", strFecha, "999999"}))
                      .lngTotalKB,
                  caso.lngTotalKB);
    }
}

} // namespace
