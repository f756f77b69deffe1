#include "dates/fecha_xmp.h"

#include <algorithm>

namespace {

// What stands between the name of a property and its value, and the value, are never longer.
constexpr std::size_t lngMaximoEtiqueta = 256;
constexpr std::size_t lngMaximoFechaXmp = 64;
constexpr std::string_view strBlancosXml = " \t\r\n";

struct clsPropiedad {
    std::string_view strEspacio; ///< its namespace
    std::string_view strNombre;
};
// ISO 16684-1 (XMP data model and serialization).
constexpr clsPropiedad lstPropiedades[] = {
    {"http://ns.adobe.com/exif/1.0/",      "DateTimeOriginal"},
    {"http://ns.adobe.com/photoshop/1.0/", "DateCreated"     },
    {"http://ns.adobe.com/xap/1.0/",       "CreateDate"      },
};

std::string_view fSinBlancosDelante(std::string_view strTexto)
{
    return strTexto.substr(std::min(strTexto.find_first_not_of(strBlancosXml), strTexto.size()));
}

/// What stands between quotes, or before a sign; empty where the end does not come soon.
std::string_view fHasta(std::string_view strTexto, char chrFin)
{
    const std::size_t lngFin = strTexto.substr(0, lngMaximoFechaXmp).find(chrFin);
    return lngFin == std::string_view::npos ? std::string_view() : strTexto.substr(0, lngFin);
}

/// The value that follows an attribute's name.
std::string_view fValorAtributo(std::string_view strResto)
{
    strResto = fSinBlancosDelante(strResto);
    if (!strResto.starts_with('=')) {
        return {};
    }
    strResto = fSinBlancosDelante(strResto.substr(1));
    const bool bolComillas = strResto.starts_with('"') || strResto.starts_with('\'');
    return bolComillas ? fHasta(strResto.substr(1), strResto.front()) : std::string_view();
}

/// The text of the element whose name this follows.
std::string_view fValorElemento(std::string_view strResto)
{
    // Attributes of its own may follow, but not the rest of a longer name.
    const std::size_t lngFin = strResto.substr(0, lngMaximoEtiqueta).find('>');
    const bool bolAbierto =
        lngFin == 0 ||
        (lngFin != std::string_view::npos &&
         strBlancosXml.find(strResto[0]) < strBlancosXml.size() && strResto[lngFin - 1] != '/');
    if (!bolAbierto) {
        return {};
    }
    return fHasta(strResto.substr(lngFin + 1), '<');
}

/// The prefix that a packet gives to a namespace, with its colon; empty when it gives none.
std::string fPrefijo(std::string_view strPaquete, std::string_view strEspacio)
{
    constexpr std::string_view strDeclara = "xmlns:";
    for (std::size_t lngPos = strPaquete.find(strDeclara); lngPos != std::string_view::npos;
         lngPos = strPaquete.find(strDeclara, lngPos + 1)) {
        const std::string_view strResto = strPaquete.substr(lngPos + strDeclara.size());
        const std::size_t lngFin =
            strResto.substr(0, lngMaximoFechaXmp).find_first_of(" \t\r\n=<>\"'");
        if (lngFin != std::string_view::npos && lngFin != 0 &&
            fValorAtributo(strResto.substr(lngFin)) == strEspacio) {
            return std::string(strResto.substr(0, lngFin)) + ':';
        }
    }
    return {};
}

/// The first date that a property has.
std::optional<clsFechaFuente> fBuscarPropiedad(std::string_view strPaquete,
                                               const clsPropiedad &propiedad)
{
    const std::string strPrefijo = fPrefijo(strPaquete, propiedad.strEspacio);
    if (strPrefijo.empty()) {
        return {};
    }
    const std::string strNombre = strPrefijo + std::string(propiedad.strNombre);
    for (std::size_t lngPos = strPaquete.find(strNombre, 1); lngPos != std::string_view::npos;
         lngPos = strPaquete.find(strNombre, lngPos + 1)) {
        const std::string_view strResto = strPaquete.substr(lngPos + strNombre.size());
        const bool bolElemento = strPaquete[lngPos - 1] == '<';
        const bool bolAtributo = strBlancosXml.find(strPaquete[lngPos - 1]) < strBlancosXml.size();
        const std::string_view strValor = bolElemento   ? fValorElemento(strResto)
                                          : bolAtributo ? fValorAtributo(strResto)
                                                        : std::string_view();
        if (const auto fecha = fLeerFechaIso(strValor, Fuente::Xmp)) {
            return fecha;
        }
    }
    return {};
}

} // namespace

std::optional<clsFechaFuente> fLeerFechaXmp(std::string_view strPaquete)
{
    for (const clsPropiedad &propiedad : lstPropiedades) {
        if (const auto fecha = fBuscarPropiedad(strPaquete, propiedad)) {
            return fecha;
        }
    }
    return {};
}
