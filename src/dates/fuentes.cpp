#include "dates/fuentes.h"

#include "dates/fecha_nombre.h"
#include "dates/fuentes_exif.h"
#include "shared/rutas.h"
#include "sistema/archivo.h"

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
    if (fLeerCabecera(lector, Busqueda::SoloApp1, marcas, orden).empty()) {
        const clsDatosTiff tiff{lector, marcas.lngInicioTiff, orden};
        lstFuentes = fLeerFuentesExif(tiff, static_cast<std::uint32_t>(marcas.lngIfd0), exif);
    }
    return lstFuentes;
}

clsFechasFichero fLeerFechas(const std::string &strRuta, const std::string &strRaiz)
{
    clsFechasFichero fechas;
    clsFechasExif exif;
    clsHuella huella;
    if (const auto archivo = fAbrirRegular(strRuta)) {
        huella = archivo->huella;
        clsOrigenArchivo origen(*archivo);
        fechas.lstFuentes = fLeerFuentesFoto(origen, exif);
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
