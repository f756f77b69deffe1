#include "catalogue/lector.h"

#include "shared/medios.h"
#include "shared/numeros.h"
#include "shared/rutas.h"
#include "shared/texto.h"

#include <array>
#include <cstring>

namespace {

/// Takes the next line, without its line end, off the front of the bytes.
std::string_view fTomarLinea(std::string_view &strBytes)
{
    const void *const pos = std::memchr(strBytes.data(), '\n', strBytes.size());
    const std::size_t lngFin =
        pos == nullptr ? strBytes.size()
                       : static_cast<std::size_t>(static_cast<const char *>(pos) - strBytes.data());
    std::string_view strLinea = strBytes.substr(0, lngFin);
    strBytes.remove_prefix(pos == nullptr ? lngFin : lngFin + 1);
    if (strLinea.ends_with('\r')) {
        strLinea.remove_suffix(1);
    }
    return strLinea;
}

} // namespace

clsLectura fLeerCatalogo(std::string_view strBytes, std::string_view strExtensiones,
                         clsFilas &filas)
{
    clsLectura lectura;
    std::int64_t lngTotal = 0;
    std::int64_t lngLinea = 0;
    bool bolGuardar = false;
    // Kept texts fill path, date and size in turn. An empty text leaves its slot empty, so that the
    // next text takes its place.
    std::array<std::string_view, 3> lstHuecos;
    std::size_t lngHueco = 0;
    while (!strBytes.empty()) {
        const std::string_view strLinea = fTomarLinea(strBytes);
        if (lngLinea % 3 == 0) {
            bolGuardar = fExtensionEn(strLinea, strExtensiones);
        }
        ++lngLinea;
        if (!bolGuardar || strLinea.empty()) {
            continue;
        }
        lstHuecos[lngHueco++] = strLinea;
        if (lngHueco < lstHuecos.size()) {
            continue;
        }
        lngHueco = 0;
        if (fRutaOculta(lstHuecos[0])) {
            continue;
        }
        const auto lngBytes = fLeerTamano(lstHuecos[2]);
        if (!lngBytes) {
            lectura.fallo = clsFallo{lngLinea, fTextoPantalla(lstHuecos[2])};
            break;
        }
        filas.fAgregarFila(lstHuecos[0], lstHuecos[1], *lngBytes);
        // Sums of sizes that nobody's disk holds stop at the limit instead of wrapping.
        if (__builtin_add_overflow(lngTotal, *lngBytes, &lngTotal)) {
            lngTotal = *lngBytes < 0 ? INT64_MIN : INT64_MAX;
        }
    }
    lectura.lngTotalKB = lngTotal / 1024;
    return lectura;
}
