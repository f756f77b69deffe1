#include "viewer/cache_mini.h"

#include "sistema/entorno.h"
#include "soporte/arbol.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace std::string_literals;

constexpr clsHuella huellaFoto{5'000'000'000, 1'000'000'000, 123456789};

TEST(CacheMini, TellsWhatAnEntryBelongsToAndWhetherItIsWhole)
{
    const std::string strEntrada = fEmpaquetarMini("/a/b.jpg", huellaFoto, "picture");
    EXPECT_EQ(fDesempaquetarMini(strEntrada, "/a/b.jpg", huellaFoto), "picture");
    const struct {
        const char *strFrase;
        std::string strRuta;
        clsHuella huella;
    } lstCasos[] = {
        {"another path", "/a/c.jpg", huellaFoto},
        {"a longer one", "/a/b.jpg\0"s, huellaFoto},
        {"another size", "/a/b.jpg", {5'000'000'001, 1'000'000'000, 123456789}},
        {"another second", "/a/b.jpg", {5'000'000'000, 1'000'000'001, 123456789}},
        {"another nanosecond", "/a/b.jpg", {5'000'000'000, 1'000'000'000, 123456788}},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_FALSE(fDesempaquetarMini(strEntrada, caso.strRuta, caso.huella)) << caso.strFrase;
    }
    for (std::size_t lngByte = 0; lngByte < strEntrada.size(); ++lngByte) {
        std::string strOtra = strEntrada;
        strOtra[lngByte] = static_cast<char>(strOtra[lngByte] ^ 1);
        EXPECT_FALSE(fDesempaquetarMini(strOtra, "/a/b.jpg", huellaFoto)) << lngByte;
        EXPECT_FALSE(fDesempaquetarMini(strEntrada.substr(0, lngByte), "/a/b.jpg", huellaFoto));
    }
}

class CacheMiniEnDisco : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> fFicheros() const
    {
        return fExisteCarpeta(strCarpeta) ? arbol.fNombres("cache/miravel/miniaturas")
                                          : std::vector<std::string>();
    }
    static mode_t fPermisos(const std::string &strRuta)
    {
        struct stat datos {};
        return stat(strRuta.c_str(), &datos) == 0 ? datos.st_mode & 0777 : 0;
    }
    /// Makes a file of the cache as old as that.
    static void fEnvejecer(const std::string &strRuta, time_t lngMomento)
    {
        const std::array<timespec, 2> lstMomentos{timespec{lngMomento, 0}, timespec{lngMomento, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, strRuta.c_str(), lstMomentos.data(), 0), 0);
    }

    const clsArbol arbol;
    const std::string strCarpeta = arbol.fRuta("cache/miravel/miniaturas/");
};

TEST_F(CacheMiniEnDisco, KeepsOnePictureOfAFileForItsUserAlone)
{
    clsCacheMini cache(strCarpeta);
    EXPECT_EQ(cache.fLeer("/a", huellaFoto), "");
    cache.fGuardar("/a", huellaFoto, "one");
    cache.fGuardar("/b", huellaFoto, std::string(900000, 'x'));
    EXPECT_EQ(clsCacheMini(strCarpeta).fLeer("/a", huellaFoto), "one");
    EXPECT_EQ(cache.fLeer("/b", huellaFoto).size(), 900000U);
    EXPECT_EQ(fPermisos(arbol.fRuta("cache/miravel")), 0700U);
    ASSERT_EQ(fFicheros().size(), 2U);
    EXPECT_EQ(fPermisos(strCarpeta + fFicheros()[0]), 0600U);
    clsHuella otra = huellaFoto;
    ++otra.lngNanosegundos;
    cache.fGuardar("/a", otra, "two");
    EXPECT_EQ(cache.fLeer("/a", otra), "two");
    EXPECT_EQ(cache.fLeer("/a", huellaFoto), "");
    EXPECT_EQ(fFicheros().size(), 2U) << "it took the place of the old one";
}

TEST_F(CacheMiniEnDisco, IsNoneWhereItCannotBeReadOrWritten)
{
    clsCacheMini ninguna("");
    ninguna.fGuardar("/a", huellaFoto, "one");
    EXPECT_EQ(ninguna.fLeer("/a", huellaFoto), "");
    EXPECT_FALSE(ninguna.fVaciar());
    arbol.fCrear("cache", "a file where the folder should be");
    clsCacheMini cache(strCarpeta);
    cache.fGuardar("/a", huellaFoto, "one");
    EXPECT_EQ(cache.fLeer("/a", huellaFoto), "");
    EXPECT_FALSE(cache.fVaciar());
}

TEST_F(CacheMiniEnDisco, FollowsNoLinkAndWaitsForNoPipe)
{
    clsCacheMini cache(strCarpeta);
    cache.fGuardar("/a", huellaFoto, "one");
    const std::string strEntrada = strCarpeta + fFicheros().at(0);
    const std::string strFuera = arbol.fRuta("fuera");
    ASSERT_EQ(rename(strEntrada.c_str(), strFuera.c_str()), 0);
    ASSERT_EQ(symlink(strFuera.c_str(), strEntrada.c_str()), 0);
    EXPECT_EQ(cache.fLeer("/a", huellaFoto), "");
    cache.fGuardar("/a", huellaFoto, "two");
    EXPECT_EQ(cache.fLeer("/a", huellaFoto), "two");
    EXPECT_TRUE(fExisteArchivo(strFuera));
    unlink(strEntrada.c_str());
    ASSERT_EQ(mkfifo(strEntrada.c_str(), 0600), 0);
    EXPECT_EQ(cache.fLeer("/a", huellaFoto), "");
}

TEST_F(CacheMiniEnDisco, DoesNotKeepWhatWasChangedAMomentAgo)
{
    clsCacheMini cache(strCarpeta);
    const clsHuella reciente{1, fAhora(), 0};
    cache.fGuardar("/a", reciente, "one");
    EXPECT_EQ(cache.fLeer("/a", reciente), "");
}

TEST_F(CacheMiniEnDisco, LosesWhatWasNotUsedForLongest)
{
    constexpr std::int64_t lngBloque = 4096;
    const std::string strImagen(2000, 'x'); // a block on the disk
    for (int intFoto = 0; intFoto < 10; ++intFoto) {
        const std::string strRuta = "/" + std::to_string(intFoto);
        clsCacheMini cache(strCarpeta, 100 * lngBloque);
        const auto lstAntes = fFicheros();
        cache.fGuardar(strRuta, huellaFoto, strImagen);
        for (const std::string &strFichero : fFicheros()) {
            if (std::find(lstAntes.begin(), lstAntes.end(), strFichero) == lstAntes.end()) {
                fEnvejecer(strCarpeta + strFichero, 1'000'000'000 + intFoto);
            }
        }
    }
    clsCacheMini cache(strCarpeta, 10 * lngBloque);
    EXPECT_NE(cache.fLeer("/0", huellaFoto), ""); // used
    cache.fGuardar("/nueva", huellaFoto, strImagen);
    EXPECT_EQ(fFicheros().size(), 9U);
    EXPECT_NE(cache.fLeer("/0", huellaFoto) + cache.fLeer("/nueva", huellaFoto), "");
    EXPECT_EQ(cache.fLeer("/1", huellaFoto) + cache.fLeer("/2", huellaFoto), "");
    EXPECT_NE(cache.fLeer("/3", huellaFoto), "");
}

TEST_F(CacheMiniEnDisco, IsEmptiedOfWhatIsItsOwn)
{
    clsCacheMini cache(strCarpeta);
    cache.fGuardar("/a", huellaFoto, "one");
    const std::string strResto = '.' + fFicheros().at(0) + ".12345.7.tmp"; // of one that was killed
    arbol.fCrear("cache/miravel/miniaturas/" + strResto);
    arbol.fCrear("cache/miravel/miniaturas/foto.jpg");
    arbol.fCrear("cache/miravel/miniaturas/0123456789abcdef/dentro");
    arbol.fCrear("fuera");
    arbol.fEnlace("cache/miravel/miniaturas/0123456789abcdee", arbol.fRuta("fuera"));
    EXPECT_FALSE(cache.fVaciar());
    EXPECT_EQ(fFicheros(), std::vector<std::string>({"0123456789abcdef", "foto.jpg"}));
    EXPECT_EQ(arbol.fNombres("cache/miravel/miniaturas/0123456789abcdef").size(), 1U);
    EXPECT_TRUE(fExisteArchivo(arbol.fRuta("fuera")));
    cache.fGuardar("/a", huellaFoto, "one");
    EXPECT_EQ(cache.fLeer("/a", huellaFoto), "one");
}

} // namespace
