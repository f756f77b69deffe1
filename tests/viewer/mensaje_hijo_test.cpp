#include "viewer/mensaje_hijo.h"

#include <gtest/gtest.h>

namespace {

TEST(MensajeHijo, GivesPicturesTheSizeThatIsAskedForAndNeverMore)
{
    constexpr std::uint32_t lngMuchos = lngPixelesMaximos;
    struct clsCaso {
        const char *strFrase;
        clsMedidaHijo natural;
        clsMarcoHijo marco;
        clsMedidaHijo medida;
    };
    const clsCaso lstCasos[] = {
        {"into the box", {4000, 3000}, {200, 200, lngMuchos}, {200, 150}},
        {"the higher one", {3000, 4000}, {200, 200, lngMuchos}, {150, 200}},
        {"a box that is no square", {4000, 3000}, {1000, 300, lngMuchos}, {400, 300}},
        {"never enlarged", {40, 30}, {200, 200, lngMuchos}, {40, 30}},
        {"natural, whatever the box", {4000, 3000}, {1, 1, lngMuchos, 100}, {4000, 3000}},
        {"half of it", {4001, 3000}, {1, 1, lngMuchos, 50}, {2001, 1500}},
        {"a thread", {30000, 1}, {100, 100, lngMuchos}, {100, 1}},
        {"longer than any", {200000, 2000}, {1, 1, lngMuchos, 100}, {65536, 655}},
        {"smaller for the memory", {4000, 3000}, {1, 1, 3000000, 100}, {2000, 1500}},
        {"or not at all", {4000, 3000}, {1, 1, 3000000, 100, 1}, {0, 0}},
        {"it fits whole", {4000, 3000}, {1, 1, 12000000, 100, 1}, {4000, 3000}},
        {"none", {0, 3000}, {200, 200, lngMuchos}, {0, 0}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const clsMedidaHijo medida = fMedidaHijo(caso.natural, caso.marco);
        EXPECT_EQ(medida, caso.medida);
        if (medida.lngAncho > 0) {
            EXPECT_TRUE(fCreible(clsRespuestaHijo{.estado = EstadoHijo::Imagen,
                                                  .lngAncho = medida.lngAncho,
                                                  .lngAlto = medida.lngAlto,
                                                  .lngAnchoNatural = caso.natural.lngAncho,
                                                  .lngAltoNatural = caso.natural.lngAlto},
                                 caso.marco));
        }
    }
}

TEST(MensajeHijo, IsBelievedWithinBoundsOnly)
{
    constexpr clsMarcoHijo caja{200, 100, 20000};
    constexpr clsMarcoHijo zoom{1, 1, 20000, 100};
    const auto fResponder = [](std::uint32_t lngAncho, std::uint32_t lngAlto,
                               std::uint32_t lngNatural = 0) {
        clsRespuestaHijo respuesta;
        respuesta.estado = EstadoHijo::Imagen;
        respuesta.lngAncho = lngAncho;
        respuesta.lngAlto = lngAlto;
        respuesta.lngAnchoNatural = respuesta.lngAltoNatural = lngNatural;
        return respuesta;
    };
    EXPECT_TRUE(fCreible(fResponder(200, 100), caja));
    EXPECT_FALSE(fCreible(fResponder(201, 100), caja));
    EXPECT_FALSE(fCreible(fResponder(200, 101), caja));
    EXPECT_FALSE(fCreible(fResponder(0, 100), caja));
    EXPECT_TRUE(fCreible(fResponder(1000, 20), zoom));
    EXPECT_FALSE(fCreible(fResponder(1000, 21), zoom));
    EXPECT_FALSE(fCreible(fResponder(65537, 1), marcoMayor));
    EXPECT_FALSE(fCreible(fResponder(65536, 65536), marcoMayor));
    EXPECT_TRUE(fCreible(fResponder(200, 100, 200), caja));
    EXPECT_FALSE(fCreible(fResponder(200, 100, 150), caja)) << "larger than it is by right";
    EXPECT_FALSE(fCreible(fResponder(200, 100, 0x80000000), caja)) << "more than fits an int";
    clsRespuestaHijo nada;
    EXPECT_TRUE(fCreible(nada, caja));
    nada.lngAncho = 1;
    EXPECT_FALSE(fCreible(nada, caja));
    nada = {};
    nada.lngMarca = 0;
    EXPECT_FALSE(fCreible(nada, caja));
}

TEST(MensajeHijo, IsTakenFromTheOtherSideOnlyWithinBounds)
{
    clsPeticionHijo peticion;
    EXPECT_FALSE(fCreible(peticion)) << "without a box";
    peticion.marco = {1, 1, 1};
    EXPECT_TRUE(fCreible(peticion));
    peticion.marco = marcoMayor;
    EXPECT_TRUE(fCreible(peticion));
    peticion.marco.lngAncho = lngLadoMaximo + 1;
    EXPECT_FALSE(fCreible(peticion));
    peticion.marco = marcoMayor;
    peticion.marco.lngPixeles = lngPixelesMaximos + 1;
    EXPECT_FALSE(fCreible(peticion));
    peticion.marco = marcoMayor;
    peticion.marco.lngZoom = 101;
    EXPECT_FALSE(fCreible(peticion));
    peticion.marco = marcoMayor;
    peticion.lngBytes = -1;
    EXPECT_FALSE(fCreible(peticion));
}

} // namespace
