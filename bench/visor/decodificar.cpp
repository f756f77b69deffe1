// Time to decode photos for the fit view, against a bare libjpeg decode of the same files at the
// same scale: miravel_bench_decodificar WIDTH HEIGHT FILE...

#include "medir.h"
#include "referencia_jpeg.h"

#include "viewer/fuente.h"

#include <QCoreApplication>

#include <atomic>
#include <cstdio>
#include <cstdlib>

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 4) {
        std::fputs("Usage: miravel_bench_decodificar WIDTH HEIGHT FILE...\n", stderr);
        return 1;
    }
    // Its plug-ins are found once a program, not once a photo.
    const QCoreApplication aplicacion(intArgumentos, lstArgumentos);
    const int intAncho = std::atoi(lstArgumentos[1]);
    const int intAlto = std::atoi(lstArgumentos[2]);
    const auto fTodas = [&](auto fUna) {
        for (int intFoto = 3; intFoto < intArgumentos; ++intFoto) {
            if (!fUna(lstArgumentos[intFoto])) {
                std::fprintf(stderr, "Cannot decode %s\n", lstArgumentos[intFoto]);
                std::exit(1);
            }
        }
    };
    const std::atomic<bool> bolAnulado{false};
    const auto fNuestra = [&](const char *strRuta) {
        const clsPedido pedido{
            strRuta, {intAncho, intAlto},
             0, lngMaximoFoto
        };
        return !fDecodificar(pedido, bolAnulado).imagen.isNull();
    };
    static_cast<void>(fNuestra(lstArgumentos[3])); // loads the plug-in
    constexpr int intVueltas = 7;
    return fComparar(
        {
            {"bare libjpeg",
             [&] {
                 fTodas([&](const char *strRuta) {
                     return fReferenciaJpeg(strRuta, intAncho, intAlto) > 0;
                 });
             }                                        },
            {"fit view",     [&] { fTodas(fNuestra); }},
    },
        intVueltas);
}
