#include "catalogue/diario.h"

#include "soporte/arbol.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

const clsFecha fechaDiario = fFechaDe({2009, 7, 15, 12, 0, 0}).value_or(clsFecha{});
const std::string strDiario(strFicheroDiario);
constexpr const char *strCopiaDiario = "Miravel.dat.20201231235959";

clsDiario fDeDos()
{
    return {strCopiaDiario,
            {{"a.jpg",
              "20090715_a.jpg",
              fechaDiario,
              {{4, -5, 123'456'789}, {66305, 1ULL << 63}, 2},
              {4, 6, 999'999'999}},
             {"c/Mu\xF1oz .jpg",
              "c/20090715_Mu\xF1oz .jpg",
              fechaDiario,
              {{0, 7, 0}, {1, 2}, 1},
              {0, 8, 0}}}};
}

TEST(Diario, ReadsWhatWasWritten)
{
    const clsArbol arbol;
    EXPECT_FALSE(fLeerDiario(arbol.fRaiz()));
    ASSERT_EQ(fEscribirDiario(arbol.fRaiz(), fDeDos()), 0);
    EXPECT_EQ(arbol.fNombres(), std::vector<std::string>{strDiario});
    const auto diario = fLeerDiario(arbol.fRaiz());
    ASSERT_TRUE(diario);
    EXPECT_EQ(diario->strCopia, strCopiaDiario);
    EXPECT_EQ(diario->lstAnotaciones, fDeDos().lstAnotaciones);
    fBorrarDiario(arbol.fRaiz());
    EXPECT_EQ(arbol.fNombres().size(), 0U);
}

TEST(Diario, CountsWholeOrNotAtAll)
{
    const clsArbol arbol;
    ASSERT_EQ(fEscribirDiario(arbol.fRaiz(), fDeDos()), 0);
    const std::string strEntero = arbol.fLeer(strDiario);
    for (std::size_t lng = 0; lng < strEntero.size(); ++lng) {
        arbol.fCrear(strDiario, strEntero.substr(0, lng));
        EXPECT_FALSE(fLeerDiario(arbol.fRaiz())) << lng;
        std::string strOtro = strEntero; // one byte that no text can have there
        strOtro[lng] = '\0';
        arbol.fCrear(strDiario, strOtro);
        const auto diario = fLeerDiario(arbol.fRaiz());
        EXPECT_TRUE(!diario || strEntero[lng] != ' ') << lng;
    }
    for (const char *const strMas : {"\r\n", "x", "a\r\n", "a\r\nb\r\nfin 2\r\n"}) {
        arbol.fCrear(strDiario, strEntero + strMas);
        EXPECT_FALSE(fLeerDiario(arbol.fRaiz())) << strMas;
    }
    arbol.fCrear(strDiario, strEntero);
    EXPECT_TRUE(fLeerDiario(arbol.fRaiz()));
}

TEST(Diario, TakesNoPathThatLeadsOutOfTheRootAndNoLink)
{
    const clsArbol arbol;
    const std::string strDatos = "\r\n2009/07/15 12:00:00 9 0 1 0 4 1 5 6\r\n";
    const std::string strFin = std::string(strCopiaDiario) + "\r\nfin 1\r\n";
    const auto fVale = [&](const std::string &strTexto) {
        arbol.fCrear(strDiario, strTexto);
        return fLeerDiario(arbol.fRaiz()).has_value();
    };
    EXPECT_TRUE(fVale("a\r\nb" + strDatos + strFin));
    EXPECT_TRUE(fVale("c/a\r\nc/b" + strDatos + strFin));
    EXPECT_FALSE(fVale("c/a\r\nd/b" + strDatos + strFin)) << "a correction moves nothing";
    for (const char *const strMala :
         {"", "/etc/passwd", "../a", "c/../a", "c/..", "./a", ".", "..", "c/", "//a"}) {
        SCOPED_TRACE(strMala);
        EXPECT_FALSE(fVale(strMala + ("\r\nb" + strDatos + strFin)));
        EXPECT_FALSE(fVale(std::string("a\r\n") + strMala + strDatos + strFin));
    }
    for (const char *const strMala :
         {"\r\n2009/02/30 12:00:00 9 0 1 0 4 1 5 6\r\n",
          "\r\n2009/07/15 12:00:00 9 0 1 0 4 1 5\r\n",
          "\r\n2009/07/15 12:00:00 9 0 1 0 4 1 5 6 7\r\n",
          "\r\n2009/07/15 12:00:00 9 0 1 0 4 1 -5 6\r\n",
          "\r\n2009/07/15 12:00:00 9 0 1 0 99999999999999999999 1 5 6\r\n", "\r\n\r\n"}) {
        SCOPED_TRACE(strMala);
        EXPECT_FALSE(fVale(std::string("a\r\nb") + strMala + strFin));
    }
    for (const char *const strMala :
         {"../Miravel.dat.20201231235959\r\nfin 1\r\n", "Miravel.dat\r\nfin 1\r\n",
          "Miravel.dat.20201331235959\r\nfin 1\r\n", "Miravel.dat.20201231235959x\r\nfin 1\r\n"}) {
        SCOPED_TRACE(strMala);
        EXPECT_FALSE(fVale("a\r\nb" + strDatos + strMala));
    }
    arbol.fCrear("otro", "a\r\nb" + strDatos + strFin);
    ASSERT_EQ(unlink(arbol.fRuta(strDiario).c_str()), 0);
    arbol.fEnlace(strDiario, "otro");
    EXPECT_FALSE(fLeerDiario(arbol.fRaiz()));
    ASSERT_EQ(fEscribirDiario(arbol.fRaiz(), fDeDos()), 0); // the link is replaced, not followed
    EXPECT_TRUE(fLeerDiario(arbol.fRaiz()));
    EXPECT_EQ(arbol.fLeer("otro"), "a\r\nb" + strDatos + strFin);
}

TEST(Diario, IsKeptWithTheDateOfItsBackup)
{
    const clsArbol arbol;
    ASSERT_EQ(fEscribirDiario(arbol.fRaiz(), fDeDos()), 0);
    ASSERT_EQ(fGuardarDiario(arbol.fRaiz(), fDeDos()), 0);
    EXPECT_FALSE(fLeerDiario(arbol.fRaiz()));
    const std::string strGuardado = ".Miravel.diario.20201231235959";
    EXPECT_EQ(fLeerDiario(arbol.fRaiz(), strGuardado)->lstAnotaciones, fDeDos().lstAnotaciones);
    // A name that is taken is passed over, but for a second name of the journal itself.
    ASSERT_EQ(fEscribirDiario(arbol.fRaiz(), fDeDos()), 0);
    ASSERT_EQ(fGuardarDiario(arbol.fRaiz(), fDeDos()), 0);
    const std::string strOtro = ".Miravel.diario.20210101000000";
    EXPECT_EQ(arbol.fNombres(), (std::vector<std::string>{strGuardado, strOtro}));
    ASSERT_EQ(link(arbol.fRuta(strGuardado).c_str(), arbol.fRuta(strDiario).c_str()), 0);
    ASSERT_EQ(fGuardarDiario(arbol.fRaiz(), fDeDos()), 0);
    EXPECT_EQ(arbol.fNombres(), (std::vector<std::string>{strGuardado, strOtro}));
}

TEST(Diario, ThoseThatAreKeptComeByTheTimeTheyWereWritten)
{
    const clsArbol arbol;
    arbol.fCrear(".Miravel.diario.20201025024000", "x", 1000); // the hour that came twice
    arbol.fCrear(".Miravel.diario.20201025021000", "x", 2000);
    arbol.fCrear(".Miravel.diario.20201025021001", "x", 2000);
    arbol.fCrear(".Miravel.diario.20201325021001");
    arbol.fCrear(".Miravel.diario.20201025021001.tmp");
    arbol.fCrear(".Miravel.diario");
    arbol.fCarpeta(".Miravel.diario.20201025021002");
    arbol.fEnlace(".Miravel.diario.20201025021003", ".Miravel.diario");
    EXPECT_EQ(fDiariosGuardados(arbol.fRaiz()),
              (std::vector<std::string>{".Miravel.diario.20201025021001",
                                        ".Miravel.diario.20201025021000",
                                        ".Miravel.diario.20201025024000"}));
}

TEST(Diario, TellsByNamesAndNumbersWhetherAFileWasRenamed)
{
    struct clsCaso {
        const char *strFrase;
        const char
            *strVieja; ///< what its old name means: "s" the file, "o" another one, "" nothing
        const char *strNueva; ///< and its new one; "m" one of another size
        bool bolRenombrado;
    };
    for (const clsCaso &caso : {clsCaso{"the old name only", "s", "", false},
                                {"the new name only", "", "s", true},
                                {"neither", "", "", false},
                                {"another size", "", "m", false},
                                {"both are names of the file", "s", "s", false},
                                {"both, the new one of another", "s", "o", false},
                                {"both, the old one of another", "o", "s", true},
                                {"both, none of them the file", "o", "o", false}}) {
        SCOPED_TRACE(caso.strFrase);
        const clsArbol arbol;
        arbol.fCrear("fichero", "foto");
        arbol.fCrear("otro", "otra");
        arbol.fCrear("mayor", "otra mayor");
        const clsAnotacion anotacion{
            "a.jpg", "20090715_a.jpg", fechaDiario, *fVer(arbol.fRuta("fichero")), {}};
        for (const auto &[strCual, strNombre] :
             {std::pair(caso.strVieja, "a.jpg"), {caso.strNueva, "20090715_a.jpg"}}) {
            const std::string strQue = *strCual == 's'   ? "fichero"
                                       : *strCual == 'o' ? "otro"
                                                         : "mayor";
            if (*strCual != '\0') {
                ASSERT_EQ(link(arbol.fRuta(strQue).c_str(), arbol.fRuta(strNombre).c_str()), 0);
            }
        }
        EXPECT_EQ(fRenombrado(arbol.fRaiz(), anotacion), caso.bolRenombrado);
    }
}

} // namespace
