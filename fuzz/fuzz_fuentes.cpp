// Names, XMP, IPTC and whole photos of any bytes: every date is valid, or there is none.

#include "dates/exif_fecha.h"
#include "dates/fecha_iptc.h"
#include "dates/fecha_nombre.h"
#include "dates/fecha_video.h"
#include "dates/fecha_xmp.h"
#include "dates/fuentes.h"
#include "dates/origen.h"
#include "repair/nombre_reparado.h"

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

void fComprobarFuente(const clsFechaFuente &fuente)
{
    fExigir(fuente.fecha.fHay() && fLeerFecha(fEscribirFecha(fuente.fecha)) == fuente.fecha);
    fExigir(fuente.lngNanos >= 0 && fuente.lngNanos < 1'000'000'000);
    fExigir(fuente.intZona >= -900 && fuente.intZona <= 900);
    fExigir(fuente.zona == Zona::ConDesfase || fuente.intZona == 0);
    fExigir(fInstante(fuente).has_value() == (fuente.zona != Zona::Local));
}

void fComprobarNombre(const std::string &strNombre)
{
    const clsFuentes lstFechas = fFechasEnNombre(strNombre);
    fExigir(lstFechas.size() <= lngMaximoNombre);
    for (const clsFechaFuente &fuente : lstFechas) {
        fComprobarFuente(fuente);
    }
    if (const auto carpeta = fFechaEnCarpeta(strNombre)) {
        fComprobarFuente(*carpeta);
    }
    // A name that got its day keeps it.
    const clsFecha datDia{std::int64_t{40000} * 86400};
    const std::string strUna = fRutaReparada(strNombre, datDia, NombreReparado::AnteponerFecha);
    fExigir(fRutaReparada(strUna, datDia, NombreReparado::AnteponerFecha) == strUna);
}

void fComprobarFoto(std::string_view strBytes)
{
    clsOrigenMemoria origen(strBytes);
    clsFechasExif exif;
    for (const clsFechaFuente &fuente : fLeerFuentesFoto(origen, exif)) {
        fComprobarFuente(fuente);
    }
    const clsFechasExif veredicto = fLeerFechasExif(origen);
    fExigir(exif.datFecha == veredicto.datFecha && exif.datTomada == veredicto.datTomada);
}

} // namespace

/// The bytes are a name, a packet, records, resources and a photo.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytDatos, std::size_t lngBytes)
{
    const std::string_view strTodo(reinterpret_cast<const char *>(bytDatos), lngBytes);
    fComprobarNombre(std::string(strTodo));
    for (const auto &fuente :
         {fLeerFechaXmp(strTodo), fLeerFechaIptc(strTodo), fLeerFechaRecursos(strTodo),
          fLeerFechaIso(strTodo, Fuente::Xmp), fFechaDeVideo(strTodo)}) {
        if (fuente) {
            fComprobarFuente(*fuente);
        }
    }
    fComprobarFoto(strTodo);
    return 0;
}
