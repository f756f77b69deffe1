#include "dates/exif.h"

#include "dates/exif_fecha.h"
#include "dates/nombres.h"
#include "dates/origen_exif.h"
#include "dates/valor.h"
#include "shared/texto.h"
#include "sistema/archivo.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

// The values of one file together, as they are read and as texts. What comes after that keeps its
// beginning only, so that a small file whose entries all point to one long value fills neither the
// memory nor the time: table, text and window together stay below 64 MiB.
constexpr std::size_t lngMaximoTabla = std::size_t{3} << 20;
constexpr std::size_t lngMinimoValor = 32;

bool fContiene(std::string_view strTexto, std::string_view strParte)
{
    return strTexto.find(strParte) != std::string_view::npos;
}

/// The number that a value text starts with.
std::optional<std::uint32_t> fNumeroDe(std::string_view strValor)
{
    std::uint32_t lngNumero = 0;
    const auto fin = std::from_chars(strValor.data(), strValor.data() + strValor.size(), lngNumero);
    return fin.ec == std::errc() ? std::optional(lngNumero) : std::nullopt;
}

clsConvertido fConvertir(const clsFilaExif &fila, const clsDatosTiff &tiff,
                         const clsEntradaIfd &entrada, std::size_t lngMaximo)
{
    if (fContiene(fila.strNombre, "Date Time")) {
        const auto fecha = fLeerFechaExif(fila.strValor);
        return fecha ? clsConvertido(*fecha) : clsConvertido();
    }
    if (fContiene(fila.strNombre, " Version") && !fila.strValor.empty()) {
        return fTextoBytes(tiff, entrada, lngMaximo);
    }
    if (const auto strTexto = fTextoNumeroExif(fila.strNombre, fNumeroDe(fila.strValor))) {
        return std::string(*strTexto);
    }
    return {};
}

clsFilaExif fFila(const clsDatosTiff &tiff, const clsEntradaIfd &entrada, std::size_t lngMaximo)
{
    clsFilaExif fila;
    fila.strCodigo = fCodigoExif(entrada.lngCodigo);
    fila.strNombre = fNombreExif(entrada.lngCodigo);
    fila.intTipo = static_cast<int>(entrada.lngTipo);
    fila.lngCuenta = entrada.lngCuenta;
    fila.strValor = fTextoValor(tiff, entrada, lngMaximo);
    fila.lngDesplazamiento = fDesplazamiento(tiff, entrada);
    fila.intPosicion = entrada.intPosicion;
    fila.convertido = fConvertir(fila, tiff, entrada, lngMaximo);
    return fila;
}

/// What each byte shows.
std::array<std::string, 256> fLetras()
{
    std::array<std::string, 256> lstLetras;
    for (std::size_t lng = 0; lng < lstLetras.size(); ++lng) {
        // A single byte from 80 on is no UTF-8 and so is read as Windows-1252. Its five unassigned
        // bytes give control characters, too.
        const char chr = static_cast<char>(lng);
        const std::string strLetra = fTextoPantalla({&chr, 1});
        const bool bolControl =
            chr == '\x7F' || strLetra < " " || (strLetra.size() > 1 && strLetra < "\u00A0");
        lstLetras[lng] = bolControl ? " " : strLetra;
    }
    return lstLetras;
}

std::string fTextoConvertido(const clsFilaExif &fila)
{
    if (const auto *const fecha = std::get_if<clsFecha>(&fila.convertido)) {
        return fEscribirFecha(*fecha, strFormaUsuario);
    }
    const auto *const strTexto = std::get_if<std::string>(&fila.convertido);
    return fTextoExif(strTexto != nullptr && !strTexto->empty() ? *strTexto : fila.strValor);
}

} // namespace

std::string ReadExifTable(clsOrigen &origen, clsTablaExif &tabla, clsMarcas &marcas)
{
    tabla.lstFilas.clear();
    marcas = {};
    clsLector lector(origen);
    Orden orden = Orden::II;
    const std::string_view strMensaje = fLeerCabecera(lector, Busqueda::Completa, marcas, orden);
    if (!strMensaje.empty()) {
        return std::string(strMensaje);
    }
    const clsDatosTiff tiff{lector, marcas.lngInicioTiff, orden};
    std::size_t lngQuedan = lngMaximoTabla;
    fRecorrerIfds(
        tiff, static_cast<std::uint32_t>(marcas.lngIfd0), [&](const clsEntradaIfd &entrada) {
            const std::size_t lngMaximo = std::clamp(lngQuedan, lngMinimoValor, lngMaximoValor);
            const std::uint64_t lngAntes = lector.fCopiados();
            tabla.lstFilas.push_back(fFila(tiff, entrada, lngMaximo));
            const std::size_t lngTexto = tabla.lstFilas.back().strValor.size();
            lngQuedan -= std::min<std::size_t>(
                lngQuedan, std::max<std::uint64_t>(lector.fCopiados() - lngAntes, lngTexto));
            return true;
        });
    return {};
}

std::string ReadExifTable(const std::string &strRuta, clsTablaExif &tabla, clsMarcas &marcas)
{
    tabla.lstFilas.clear();
    marcas = {};
    if (strRuta.empty()) {
        return "No file path provided";
    }
    if (const auto archivo = fAbrirRegular(strRuta)) {
        clsOrigenExif origen(*archivo, strRuta);
        return ReadExifTable(origen, tabla, marcas);
    }
    // A file that may not be read gives no bytes to recognise it by.
    return fExisteArchivo(strRuta) ? "Unrecognised image format" : "File does not exist";
}

bool HasExifData(const std::string &strRuta, clsTablaExif &tabla)
{
    clsMarcas marcas;
    return ReadExifTable(strRuta, tabla, marcas).empty() && !tabla.lstFilas.empty();
}

std::optional<clsConvertido> GetExifValue(const clsTablaExif &tabla, std::string_view strCodigo,
                                          bool bolConvertido)
{
    const auto fila =
        std::find_if(tabla.lstFilas.begin(), tabla.lstFilas.end(),
                     [&](const clsFilaExif &una) { return una.strCodigo == strCodigo; });
    if (fila == tabla.lstFilas.end()) {
        return {};
    }
    return bolConvertido ? fila->convertido : clsConvertido(fila->strValor);
}

std::string fTextoExif(std::string_view strBytes)
{
    static const auto lstLetras = fLetras();
    std::string strTexto;
    for (const char chr : strBytes) {
        strTexto += lstLetras[static_cast<unsigned char>(chr)];
    }
    const std::size_t lngDesde = std::min(strTexto.find_first_not_of(' '), strTexto.size());
    return strTexto.substr(lngDesde, strTexto.find_last_not_of(' ') - lngDesde + 1);
}

std::string fTextoTabla(const clsTablaExif &tabla)
{
    if (tabla.lstFilas.empty()) {
        return "(No se ha encontrado información)";
    }
    std::string strTexto;
    for (const clsFilaExif &fila : tabla.lstFilas) {
        strTexto += fila.strNombre + ": " + fTextoConvertido(fila) + "\r\n";
    }
    return strTexto;
}

std::string GetExifText(const std::string &strRuta)
{
    clsTablaExif tabla;
    HasExifData(strRuta, tabla);
    return fTextoTabla(tabla);
}
