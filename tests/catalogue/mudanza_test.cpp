#include "catalogue/mudanza.h"

#include "catalogue/filas.h"
#include "catalogue/lector.h"
#include "shared/medios.h"
#include "sistema/archivo.h"
#include "sistema/carpeta.h"
#include "soporte/arbol.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace {

using Textos = std::vector<std::string>;
constexpr const char *strFichero = "Miravel.dat";

/// A record of each path.
std::string fCatalogo(const Textos &lstRutas)
{
    std::string strBytes;
    for (const std::string &strRuta : lstRutas) {
        strBytes += strRuta + "\r\n2009/07/14 16:03:22\r\n 1 \r\n";
    }
    return strBytes;
}

struct clsMudado {
    const char *strQue;
    Textos lstCatalogo;   ///< "<" stands for the new root
    Textos lstHay;        ///< below the new root
    const char *strDe;    ///< the old root; empty: nothing is taken over
    bool bolMirar = true; ///< whether files are looked for
};

TEST(Mudanza, FindsTheOldRootByTailsThatExistBelowTheNewOne)
{
    const Textos lstTres = {"/m/fotos/a.jpg", "/m/fotos/2008/b.jpg", "/m/fotos/2009/c.jpg"};
    const clsMudado lstCasos[] = {
        {"at home", {"<a.jpg", "/m/fotos/2008/b.jpg"}, {"a.jpg", "2008/b.jpg"}, "", false},
        {"copied whole", lstTres, {"a.jpg", "2008/b.jpg", "2009/c.jpg"}, "/m/fotos/"},
        {"the first is gone", lstTres, {"2008/b.jpg", "2009/c.jpg"}, "/m/fotos/"},
        {"the root itself was the system's", {"/a/b.jpg", "/c/d.jpg"}, {"a/b.jpg", "c/d.jpg"}, "/"},
        {"now a folder higher",
         {"/m/f/a.jpg", "/m/f/2008/b.jpg"},
         {"f/a.jpg", "f/2008/b.jpg"},
         "/m/"},
        {"one folder only",
         {"/m/a.jpg", "/m/b.jpg", "/m/c.jpg"},
         {"a.jpg", "b.jpg", "c.jpg"},
         "/m/"},
        {"one file only", {"/m/a.jpg"}, {"a.jpg"}, "/m/"},
        {"a name alone proves nothing",
         {"/m/a.jpg", "/m/2008/b.jpg", "/m/2009/c.jpg"},
         {"a.jpg"},
         ""},
        {"another archive's", lstTres, {"z.jpg"}, ""},
        {"nothing that could be a path",
         {"http://m/a.jpg", "--v.jpg", "file:///m/a.jpg", "", "/m/../a.jpg", "a.jpg"},
         {"a.jpg"},
         "",
         false},
    };
    for (const clsMudado &caso : lstCasos) {
        SCOPED_TRACE(caso.strQue);
        const clsArbol arbol;
        for (const std::string &strRelativa : caso.lstHay) {
            arbol.fCrear(strRelativa);
        }
        Textos lstRutas = caso.lstCatalogo;
        for (std::string &strRuta : lstRutas) {
            strRuta = strRuta.starts_with('<') ? arbol.fRuta(strRuta.substr(1)) : strRuta;
        }
        arbol.fCrear(strFichero, fCatalogo(lstRutas));
        std::size_t lngMiradas = 0;
        const clsMudanza mudanza =
            fBuscarMudanza(arbol.fRuta(strFichero), arbol.fRaiz(), [&](const std::string &strRuta) {
                ++lngMiradas;
                EXPECT_TRUE(strRuta.starts_with(arbol.fRaiz())) << strRuta;
                return fExisteArchivo(strRuta);
            });
        EXPECT_EQ(mudanza.strDe, caso.strDe);
        EXPECT_EQ(lngMiradas > 0, caso.bolMirar);
        EXPECT_LE(lngMiradas, 12U); // however many files there are
    }
}

TEST(Mudanza, TakesAllPathsOverAndNothingElse)
{
    const clsArbol arbol;
    const std::string strViejo = fCatalogo({"/m/f/a.jpg", "/m/g/b.jpg", "/m/f/X_c/d.jpg"}) +
                                 "2009/07/14 16:03:22\n/m/f/e.jpg"; // shifted, and cut
    arbol.fCrear(strFichero, strViejo);
    const clsMudanza mudanza{"/m/f/", arbol.fRaiz()};
    clsFilas filas;
    filas.fFijarRaiz(arbol.fRaiz());
    const auto fLeerFilas = [&](const clsMudanza &con) {
        filas.fVaciar();
        EXPECT_TRUE(fLeerFicheroCatalogo(arbol.fRuta(strFichero),
                                         fExtensionesVisibles(Medios::Todos), filas, con));
        Textos lstRutas;
        for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
            lstRutas.push_back(filas.fRuta(lngPos) + " " + filas.fRutaDisco(lngPos));
        }
        return lstRutas;
    };
    const std::string strA = arbol.fRuta("a.jpg");
    const Textos lstEsperadas = {strA + " " + strA, "/m/g/b.jpg "};
    EXPECT_EQ(fLeerFilas(mudanza), lstEsperadas);
    {
        const clsCerrojoArchivo otro(arbol.fRaiz());
        EXPECT_EQ(fMudarCatalogo(arbol.fRuta(strFichero), mudanza), EBUSY);
        EXPECT_EQ(arbol.fLeer(strFichero), strViejo);
    }
    EXPECT_FALSE(fMudarCatalogo(arbol.fRuta(strFichero), mudanza));
    EXPECT_EQ(arbol.fLeer(strFichero), fCatalogo({strA, "/m/g/b.jpg", arbol.fRuta("X_c/d.jpg")}) +
                                           "2009/07/14 16:03:22\n" + arbol.fRuta("e.jpg"));
    EXPECT_EQ(fLeerFilas({}), lstEsperadas);
    EXPECT_EQ(mudanza.fRuta("/m/f/a.jpg"), strA);
    EXPECT_EQ(mudanza.fRuta("/m/a.jpg"), "/m/a.jpg");
    EXPECT_EQ(clsMudanza{}.fRuta("/m/f/a.jpg"), "/m/f/a.jpg");
}

} // namespace
