// The catalogue reader takes any bytes; what it made of them can be shown and sorted.

#include "catalogue/lector.h"
#include "catalogue/orden.h"
#include "shared/medios.h"
#include "shared/rutas.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <string_view>
#include <vector>

namespace {

void fExigir(bool bolCierto)
{
    if (!bolCierto) {
        std::abort();
    }
}

/// Ranks by length: many texts share theirs.
std::vector<std::uint32_t> fRangos(const std::vector<std::string_view> &lstTextos)
{
    std::vector<std::uint32_t> lstRangos;
    for (const std::string_view strTexto : lstTextos) {
        lstRangos.push_back(static_cast<std::uint32_t>(strTexto.size()));
    }
    return lstRangos;
}

void fComprobarFilas(const clsFilas &filas, std::string_view strExtensiones)
{
    for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
        const std::string strRuta = filas.fRuta(lngPos);
        fExigir(fExtensionEn(strRuta, strExtensiones) || !filas.fFecha(lngPos).empty());
        fExigir(!fRutaOculta(strRuta));
        fExigir(filas.fBuscarRuta(strRuta) >= lngPos);
        fExigir(!fCampo(filas, lngPos + 1, Campo::Tamano, {}).empty());
    }
}

void fComprobarOrden(clsFilas &filas)
{
    for (const Columna columna :
         {Columna::Nombre, Columna::Fecha, Columna::Tamano, Columna::Carpeta}) {
        for (const bool bolDescendente : {true, false}) {
            fOrdenar(filas, columna, bolDescendente, fRangos);
            std::vector<std::uint32_t> lstFilas = filas.fOrden();
            std::sort(lstFilas.begin(), lstFilas.end());
            std::vector<std::uint32_t> lstTodas(lstFilas.size());
            std::iota(lstTodas.begin(), lstTodas.end(), 0U);
            fExigir(lstFilas == lstTodas);
        }
        for (int lngPos = 1; columna == Columna::Fecha && lngPos < filas.fCantidad(); ++lngPos) {
            fExigir(filas.fFecha(lngPos - 1) <= filas.fFecha(lngPos));
        }
    }
}

/// Reads a catalogue in blocks of a size.
clsLectura fLeer(std::string_view strCatalogo, std::string_view strExtensiones,
                 std::size_t lngBloque, clsFilas &filas)
{
    clsRegistros registros(
        [strCatalogo](char *chrDestino, std::size_t lngBytes) mutable {
            const std::size_t lngDados = strCatalogo.copy(chrDestino, lngBytes);
            strCatalogo.remove_prefix(lngDados);
            return lngDados;
        },
        lngBloque);
    return fLeerCatalogo(registros, strExtensiones, filas);
}

/// Nothing of what was read depends on where the blocks end.
void fComprobarBloques(const clsFilas &filas, const clsFilas &otras)
{
    fExigir(filas.fCantidad() == otras.fCantidad());
    for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
        fExigir(filas.fRuta(lngPos) == otras.fRuta(lngPos));
        fExigir(filas.fFecha(lngPos) == otras.fFecha(lngPos));
        fExigir(filas.fTamano(lngPos) == otras.fTamano(lngPos));
    }
}

} // namespace

/// The first byte chooses the media kind, the rest is the catalogue.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytDatos, std::size_t lngBytes)
{
    const std::string_view strTodo(reinterpret_cast<const char *>(bytDatos), lngBytes);
    const auto medios = static_cast<Medios>(strTodo.empty() ? 0 : bytDatos[0] % 4);
    const std::string_view strCatalogo = strTodo.substr(strTodo.empty() ? 0 : 1);
    const std::string_view strExtensiones = fExtensionesVisibles(medios);

    clsFilas filas;
    const clsLectura lectura = fLeer(strCatalogo, strExtensiones, 1 << 16, filas);
    clsFilas otras;
    const clsLectura otra = fLeer(strCatalogo, strExtensiones, 16, otras);
    fExigir(lectura.fallo.has_value() == otra.fallo.has_value());
    fExigir(!lectura.fallo || lectura.fallo->lngLinea == otra.fallo->lngLinea);
    fExigir(lectura.lngTotalKB == otra.lngTotalKB);
    fComprobarBloques(filas, otras);
    const auto lngLineas =
        std::count(strCatalogo.begin(), strCatalogo.end(), '\n') + !strCatalogo.ends_with('\n');
    fExigir(std::int64_t{filas.fCantidad()} * 3 <= lngLineas);
    fExigir(!lectura.fallo ||
            (lectura.fallo->lngLinea >= 3 && lectura.fallo->lngLinea <= lngLineas));
    fExigir(!filas.fVacia() || lectura.lngTotalKB == 0);
    fComprobarFilas(filas, strExtensiones);
    fComprobarOrden(filas);
    return 0;
}
