// A JPEG file as the pictures read it: size, orientation, place of the thumbnail, what it takes.

#include "viewer/cabecera_jpeg.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytDatos, std::size_t lngBytes)
{
    const std::string_view strBytes(reinterpret_cast<const char *>(bytDatos), lngBytes);
    clsOrigenMemoria origen(strBytes);
    clsLector lector(origen);
    clsCabeceraJpeg cabecera;
    if (fLeerCabeceraJpeg(lector, cabecera)) {
        const std::int64_t lngFin = cabecera.lngMiniatura + cabecera.lngBytesMini;
        if (cabecera.intOrientacion < 1 || cabecera.intOrientacion > 8 ||
            (cabecera.lngBytesMini != 0 && lngFin > static_cast<std::int64_t>(lngBytes))) {
            std::abort();
        }
        static_cast<void>(fMiniaturaSirve(cabecera.intAncho, cabecera.intAlto, cabecera, 100));
    }
    if (const auto esfuerzo = fMedirJpeg(lector);
        esfuerzo && (esfuerzo->intPasadas < 1 || esfuerzo->lngCoeficientes < 0)) {
        std::abort();
    }
    return 0;
}
