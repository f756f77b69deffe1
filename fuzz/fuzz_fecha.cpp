// A typed date takes any bytes: normalising adds at most once, and what reads as a date prints
// back.

#include "dates/formulario_fecha.h"
#include "shared/fecha.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void fExigir(bool bolCierto)
{
    if (!bolCierto) {
        std::abort();
    }
}

/// What is known of every date, wherever it came from.
void fComprobarFecha(clsFecha fecha)
{
    const std::string strFecha = fEscribirFecha(fecha, strFormaUsuario);
    fExigir(fLeerFecha(strFecha, strFormaUsuario) == fecha);
    fExigir(fLeerFecha(fEscribirFecha(fecha)) == fecha);
    fExigir(fEscribirFecha(fecha, strFormaDia) + strFecha.substr(10) == strFecha);
    fExigir(fEscribirFecha(fecha, "yyyyMMddHHmmss").size() == 14 &&
            fEscribirFecha(fecha, "yyyyMMdd_").size() == 9);
    fExigir(fMomento(fecha).has_value());
}

} // namespace

/// The bytes are the typed text; their first eight also are a date's seconds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytDatos, std::size_t lngBytes)
{
    const std::string_view strTecleada(reinterpret_cast<const char *>(bytDatos), lngBytes);
    const std::string strNormal = fNormalizarTecleada(strTecleada);
    fExigir(strNormal.starts_with(strTecleada) && strNormal.size() <= lngBytes + 9);
    fExigir(fNormalizarTecleada(strNormal) == strNormal);
    fExigir(fAvisoFechaNoValida(strNormal).starts_with('\'' + strNormal + "' no"));
    if (const auto fecha = fLeerFecha(strNormal, strFormaUsuario)) {
        fExigir(fEscribirFecha(*fecha, strFormaUsuario) == strNormal);
        fComprobarFecha(*fecha);
    }
    std::uint64_t lngSegundos = 0;
    for (std::size_t lng = 0; lng < 8 && lng < lngBytes; ++lng) {
        lngSegundos = lngSegundos << 8 | bytDatos[lng];
    }
    // Any number of seconds has texts; a date of the valid years has them back.
    const clsFecha fecha{static_cast<std::int64_t>(lngSegundos)};
    const auto leida = fLeerFecha(fEscribirFecha(fecha, strFormaUsuario), strFormaUsuario);
    fExigir(leida == fecha || leida == clsFecha{});
    fComprobarFecha(*leida);
    return 0;
}
