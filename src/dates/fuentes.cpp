#include "dates/fuentes.h"

#include "dates/fecha_iptc.h"
#include "dates/fecha_nombre.h"
#include "dates/fecha_video.h"
#include "dates/fecha_xmp.h"
#include "dates/fuentes_exif.h"
#include "dates/origen_exif.h"
#include "dates/segmentos.h"
#include "dates/valor.h"
#include "shared/medios.h"
#include "shared/rutas.h"
#include "sistema/archivo.h"

#include <algorithm>

namespace {

constexpr std::uint32_t intMarcaExif = 0xE1; // XMP, too
constexpr std::uint32_t intMarcaRecursos = 0xED;
constexpr std::uint32_t lngEtiquetaXmp = 0x02BC;
constexpr std::uint32_t lngEtiquetaIptc = 0x83BB;
constexpr std::size_t lngMaximoPaquete = 64 * 1024;
constexpr std::string_view strNombreExif("Exif\0\0", 6);
constexpr std::string_view strNombreXmp("http://ns.adobe.com/xap/1.0/\0", 29);
constexpr std::string_view strNombreRecursos("Photoshop 3.0\0", 14);

void fAnadir(clsFuentes &lstFuentes, const std::optional<clsFechaFuente> &fuente)
{
    if (fuente && std::none_of(lstFuentes.begin(), lstFuentes.end(),
                               [&](const auto &una) { return una.fuente == fuente->fuente; })) {
        lstFuentes.push_back(*fuente);
    }
}

clsFuentes fLeerTiff(clsLector &lector, const clsMarcas &marcas, Orden orden, clsFechasExif &exif)
{
    return fLeerFuentesExif({lector, marcas.lngInicioTiff, orden},
                            static_cast<std::uint32_t>(marcas.lngIfd0), exif);
}

/// EXIF that the search byte by byte does not find, since something else comes first: it judges
/// nothing.
clsFuentes fLeerExifEn(clsLector &lector, std::int64_t lngContenido)
{
    clsMarcas marcas;
    marcas.lngInicioTiff = lngContenido + static_cast<std::int64_t>(strNombreExif.size());
    Orden orden = Orden::II;
    clsFechasExif exif;
    return fCabeceraTiff(lector, marcas, orden).empty() ? fLeerTiff(lector, marcas, orden, exif)
                                                        : clsFuentes();
}

/// The dates of one segment.
/// @param bolExif whether EXIF has been read.
void fAnadirDeSegmento(clsLector &lector, const clsSegmento &segmento, bool &bolExif,
                       clsFuentes &lstFuentes)
{
    const auto fContenido = [&](std::string_view strNombre) {
        const std::string_view strBytes = lector.fMirar(segmento.lngContenido, strNombre.size());
        return segmento.lngBytes >= strNombre.size() && strBytes == strNombre
                   ? lector.fCopiar(segmento.lngContenido +
                                        static_cast<std::int64_t>(strNombre.size()),
                                    segmento.lngBytes - strNombre.size())
                   : std::string();
    };
    if (segmento.lngMarca == intMarcaRecursos) {
        fAnadir(lstFuentes, fLeerFechaRecursos(fContenido(strNombreRecursos)));
    } else if (segmento.lngMarca == intMarcaExif && !bolExif &&
               lector.fMirar(segmento.lngContenido, strNombreExif.size()) == strNombreExif) {
        bolExif = true;
        const clsFuentes lstExif = fLeerExifEn(lector, segmento.lngContenido);
        lstFuentes.insert(lstFuentes.begin(), lstExif.begin(), lstExif.end());
    } else if (segmento.lngMarca == intMarcaExif) {
        fAnadir(lstFuentes, fLeerFechaXmp(fContenido(strNombreXmp)));
    }
}

void fAnadirDeSegmentos(clsLector &lector, bool bolExif, clsFuentes &lstFuentes)
{
    fRecorrerSegmentos(lector, [&](const clsSegmento &segmento) {
        fAnadirDeSegmento(lector, segmento, bolExif, lstFuentes);
        return !fEsMarco(segmento.lngMarca);
    });
}

/// XMP and IPTC of a TIFF file.
void fAnadirDeIfd0(const clsDatosTiff &tiff, std::uint32_t lngIfd0, clsFuentes &lstFuentes)
{
    fRecorrerIfd(tiff, lngIfd0, [&](const clsEntradaIfd &entrada) {
        if (entrada.lngCodigo == lngEtiquetaXmp) {
            fAnadir(lstFuentes, fLeerFechaXmp(fTextoBytes(tiff, entrada, lngMaximoPaquete)));
        } else if (entrada.lngCodigo == lngEtiquetaIptc) {
            fAnadir(lstFuentes, fLeerFechaIptc(fTextoBytes(tiff, entrada, lngMaximoPaquete)));
        }
        return true;
    });
}

} // namespace

std::string_view fCarpetasBajo(std::string_view strRuta, std::string_view strRaiz)
{
    std::string_view strCarpeta = fCarpetaDe(strRuta);
    if (strCarpeta.starts_with(strRaiz)) {
        strCarpeta.remove_prefix(strRaiz.size());
    }
    return strCarpeta.ends_with('/') ? strCarpeta.substr(0, strCarpeta.size() - 1) : strCarpeta;
}

clsFuentes fLeerFuentesFoto(clsOrigen &origen, clsFechasExif &exif)
{
    clsLector lector(origen);
    clsMarcas marcas;
    Orden orden = Orden::II;
    clsFuentes lstFuentes;
    const bool bolExif = fLeerCabecera(lector, Busqueda::SoloApp1, marcas, orden).empty();
    if (bolExif) {
        lstFuentes = fLeerTiff(lector, marcas, orden, exif);
    }
    if (marcas.lngInicioTiff == 0) {
        fAnadirDeIfd0({lector, 0, orden}, static_cast<std::uint32_t>(marcas.lngIfd0), lstFuentes);
    } else {
        fAnadirDeSegmentos(lector, bolExif, lstFuentes);
    }
    return lstFuentes;
}

clsFechasFichero fLeerFechas(const std::string &strRuta, const std::string &strRaiz,
                             const clsPreguntaVideo &fVideo)
{
    clsFechasFichero fechas;
    clsFechasExif exif;
    clsHuella huella;
    if (const auto archivo = fAbrirRegular(strRuta)) {
        huella = archivo->huella;
        clsOrigenExif origen(*archivo, strRuta);
        fechas.lstFuentes = fLeerFuentesFoto(origen, exif);
        if (fVideo && fEsVideo(strRuta)) {
            fAnadir(fechas.lstFuentes, fFechaDeVideo(fVideo(*archivo)));
        }
    } else if (const auto cerrado = fHuella(strRuta)) {
        huella = *cerrado; // It exists and may not be read.
    } else {
        return fechas;
    }
    const std::string_view strNombre = fNombreDe(strRuta);
    for (const clsFechaFuente &fuente : fFechasEnNombre(strNombre)) {
        fechas.lstFuentes.push_back(fuente);
    }
    if (const auto carpeta = fFechaEnCarpeta(fCarpetasBajo(strRuta, strRaiz))) {
        fechas.lstFuentes.push_back(*carpeta);
    }
    fechas.bolExiste = true;
    fechas.datArchivo = fFechaLocal(huella.lngSegundos);
    fechas.bolCorrecta = fCorrecta(fechas.datArchivo, exif, fFechasDeNombre(strNombre));
    return fechas;
}
