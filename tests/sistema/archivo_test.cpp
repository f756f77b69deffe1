#include "sistema/archivo.h"

#include "soporte/arbol.h"

#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

TEST(AbrirRegular, OpensFilesAndLinksToThem)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "12345");
    arbol.fEnlace("b.jpg", "a.jpg");
    const auto abierto = fAbrirRegular(arbol.fRuta("b.jpg"));
    ASSERT_TRUE(abierto);
    EXPECT_EQ(abierto->huella, (clsHuella{5, clsArbol::lngMomento, 0}));
    EXPECT_TRUE(fExisteArchivo(arbol.fRuta("b.jpg")));
    EXPECT_FALSE(fExisteCarpeta(arbol.fRuta("b.jpg")));
}

TEST(AbrirRegular, RefusesAnythingElseWithoutWaiting)
{
    const clsArbol arbol;
    arbol.fTuberia("x.jpg");
    arbol.fCarpeta("c.jpg");
    arbol.fEnlace("rota.jpg", "nada");
    struct clsCaso {
        const char *strNombre;
        int intError;
    };
    for (const clsCaso &caso :
         {clsCaso{"x.jpg", EINVAL}, {"c.jpg", EISDIR}, {"rota.jpg", ENOENT}}) {
        SCOPED_TRACE(caso.strNombre);
        EXPECT_EQ(fAbrirRegular(arbol.fRuta(caso.strNombre)).fError(), caso.intError);
        EXPECT_FALSE(fExisteArchivo(arbol.fRuta(caso.strNombre)));
    }
    EXPECT_TRUE(fExisteCarpeta(arbol.fRuta("c.jpg")));
}

TEST(LeerArchivo, ReadsTheWholeFileWhateverItsSizeSays)
{
    const clsArbol arbol;
    arbol.fCrear("vacio", "");
    arbol.fCrear("binario", std::string("a\0\xFF\r\n", 5));
    EXPECT_EQ(fLeerArchivo(arbol.fRuta("vacio")), "");
    EXPECT_EQ(fLeerArchivo(arbol.fRuta("binario")), std::string("a\0\xFF\r\n", 5));
    // Files of /proc have content and a size of 0.
    EXPECT_NE(fLeerArchivo("/proc/self/status").value_or("").find("Threads:"), std::string::npos);
    EXPECT_EQ(fLeerArchivo(arbol.fRuta("falta")).fError(), ENOENT);
    arbol.fCrear("mega", std::string(std::size_t{1} << 20, 'x'));
    EXPECT_EQ(fLeerArchivo(arbol.fRuta("mega")).value_or("").size(), std::size_t{1} << 20);
    std::filesystem::resize_file(arbol.fRuta("vacio"), std::uintmax_t{40} << 30); // a hole
    EXPECT_EQ(fLeerArchivo(arbol.fRuta("vacio")).fError(), EFBIG);
}

} // namespace
