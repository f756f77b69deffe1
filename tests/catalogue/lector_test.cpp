#include "catalogue/lector.h"

#include "shared/medios.h"

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

struct clsCaso {
    const char *strFrase;
    std::string strBytes;
    std::vector<std::string> lstFilas;
    std::int64_t lngFallo; ///< line of the fault, 0: none
};

void fComprobar(const clsCaso &caso)
{
    SCOPED_TRACE(caso.strFrase);
    clsFilas filas;
    const clsLectura lectura =
        fLeerCatalogo(caso.strBytes, fExtensionesVisibles(Medios::Todos), filas);
    EXPECT_EQ(fFilas(filas), caso.lstFilas);
    EXPECT_EQ(lectura.fallo ? lectura.fallo->lngLinea : 0, caso.lngFallo);
}

const std::string strFecha = "2009/07/14 18:03:22";

TEST(Lector, ReadsEveryRecordWhateverItsLineEnds)
{
    const std::string strA = "/f/a.jpg|2009/07/14 18:03:22|5";
    const std::string strB = "/f/b.MP4|2010/01/01 00:00:00|3000000000";
    const std::string strDos =
        fLineas({"/f/a.jpg", strFecha, " 5 ", "/f/b.MP4", "2010/01/01 00:00:00", " 3000000000 "});
    std::string strSoloLF = strDos;
    std::erase(strSoloLF, '\r');
    const clsCaso lstCasos[] = {
        {"nothing", "", {}, 0},
        {"two records", strDos, {strA, strB}, 0},
        {"LF only", strSoloLF, {strA, strB}, 0},
        {"no line end at the end", strDos.substr(0, strDos.size() - 2), {strA, strB}, 0},
        {"half a line end at the end", strDos.substr(0, strDos.size() - 1), {strA, strB}, 0},
        {"last record without a size", strDos.substr(0, strDos.find(" 3000")), {strA}, 0},
        {"last record without a date", strDos.substr(0, strDos.find("2010")), {strA}, 0},
        {"last line cut",
         strDos.substr(0, strDos.find("00000 \r")),
         {strA, "/f/b.MP4|2010/01/01 00:00:00|30000"},
         0},
        {"empty lines at the end", strDos + "\r\n\r\n", {strA, strB}, 0},
    };
    for (const clsCaso &caso : lstCasos) {
        fComprobar(caso);
    }
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
    clsFilas filas;
    const std::string strBytes = fLineas({"/f/a.jpg", strFecha, "1", "/f/b.avi", strFecha, "2"});
    static_cast<void>(fLeerCatalogo(strBytes, fExtensionesVisibles(Medios::Videos), filas));
    EXPECT_EQ(fFilas(filas), std::vector<std::string>{"/f/b.avi|" + strFecha + "|2"});
}

TEST(Lector, StopsAtASizeThatIsNoNumberAndKeepsTheRowsBefore)
{
    clsFilas filas;
    const clsLectura lectura =
        fLeerCatalogo(fLineas({"/f/a.jpg", strFecha, " 2048 ", "/f/b.jpg", strFecha, " \xF1 ",
                               "/f/c.jpg", strFecha, " 1 "}),
                      fExtensionesVisibles(Medios::Fotos), filas);
    ASSERT_TRUE(lectura.fallo);
    EXPECT_EQ(lectura.fallo->lngLinea, 6);
    EXPECT_EQ(lectura.fallo->strTexto, " \u00F1 ");
    EXPECT_EQ(filas.fCantidad(), 1);
    EXPECT_EQ(lectura.lngTotalKB, 2);
}

TEST(Lector, CountsLinesAndDoesNotFindItsWayBackAfterALostOne)
{
    const clsCaso lstCasos[] = {
        {"the path of the first is lost: no line stands where a path is looked for",
         fLineas({strFecha, "5", "/f/b.jpg", strFecha, "6"}),
         {},
         0},
        {"the size of the first is lost: the next path is taken for it",
         fLineas({"/f/a.jpg", strFecha, "/f/b.jpg", strFecha, "6"}),
         {},
         3},
        {"an empty line in front shifts all", fLineas({"", "/f/a.jpg", strFecha, "5"}), {}, 0},
        {"an empty size: the next kept text takes its place",
         fLineas({"/f/a.jpg", strFecha, "", "/f/x.txt", "a", "b", "/f/b.jpg", strFecha, "6"}),
         {},
         7},
        {"an empty date likewise",
         fLineas({"/f/a.jpg", "", "5", "/f/b.jpg", strFecha, "6"}),
         {},
         4},
        {"an empty date of the last record: it stays incomplete",
         fLineas({"/f/a.jpg", "", "5"}),
         {},
         0},
    };
    for (const clsCaso &caso : lstCasos) {
        fComprobar(caso);
    }
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
        clsFilas filas;
        const std::string strBytes =
            fLineas({"/f/a.jpg", strFecha, caso.strUno, "/f/b.jpg", strFecha, caso.strOtro,
                     "/f/X_c.jpg", strFecha, "999999"});
        EXPECT_EQ(fLeerCatalogo(strBytes, fExtensionesVisibles(Medios::Todos), filas).lngTotalKB,
                  caso.lngTotalKB);
    }
}

} // namespace
