// A JPEG file as the pictures read it: size, orientation, place of the thumbnail, what it takes.

#include "viewer/cabecera_jpeg.h"
#include "viewer/recorte_mini.h"

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
        const auto recorte = fRecorteMini({160, 120}, {cabecera.intAncho, cabecera.intAlto});
        if (recorte && (recorte->intX < 0 || recorte->intY < 0 || recorte->intAncho <= 0 ||
                        recorte->intAlto <= 0)) {
            std::abort();
        }
    }
    if (const auto esfuerzo = fMedirJpeg(lector);
        esfuerzo && (esfuerzo->intPasadas < 1 || esfuerzo->lngCoeficientes < 0)) {
        std::abort();
    }
    return 0;
}
