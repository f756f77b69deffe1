#include "dates/fuentes_exif.h"

#include "dates/exif_fecha.h"
#include "dates/textos_exif.h"
#include "dates/valor.h"

#include <array>
#include <charconv>
#include <cmath>

namespace {

/// Exif 2.32, section 4.6.5: each date has tags for its sub-seconds and its zone.
struct clsEtiquetasFecha {
    Fuente fuente;
    std::uint32_t lngFecha;
    std::uint32_t lngFraccion;
    std::uint32_t lngZona;
};
constexpr clsEtiquetasFecha lstEtiquetas[] = {
    {Fuente::ExifTomada,       lngExifTomada,       0x9291, 0x9011},
    {Fuente::ExifDigitalizada, lngExifDigitalizada, 0x9292, 0x9012},
    {Fuente::ExifCambiada,     lngExifCambiada,     0x9290, 0x9010},
};
constexpr std::array<std::uint32_t, 9> lstCodigosFecha{
    lngExifTomada, lngExifDigitalizada, lngExifCambiada, 0x9290, 0x9291, 0x9292, 0x9010, 0x9011,
    0x9012};

constexpr std::uint32_t lngPunteroGps = 0x8825;
constexpr std::uint32_t lngGpsHora = 0x0007;
constexpr std::uint32_t lngGpsDia = 0x001D;

std::optional<clsFechaFuente> fFechaDeEtiquetas(const clsTextosExif &textos,
                                                const clsEtiquetasFecha &etiquetas)
{
    const std::string_view strFecha = textos.fTexto(etiquetas.lngFecha);
    const auto fecha = fLeerFechaExif(strFecha);
    if (!fecha || !fecha->fHay()) {
        return {};
    }
    clsFechaFuente leida{.fecha = *fecha, .fuente = etiquetas.fuente};
    const std::size_t lngLargo = fLargoFechaExif(strFecha);
    leida.precision = lngLargo == 10   ? Precision::Dia
                      : lngLargo == 16 ? Precision::Minuto
                                       : Precision::Segundo;
    if (leida.precision == Precision::Segundo) {
        leida.lngNanos = fLeerNanos(textos.fTexto(etiquetas.lngFraccion)).value_or(0);
    }
    if (const auto intZona = fLeerDesfase(textos.fTexto(etiquetas.lngZona));
        intZona && leida.precision != Precision::Dia) {
        leida.zona = Zona::ConDesfase;
        leida.intZona = static_cast<std::int16_t>(*intZona);
    }
    return leida;
}

/// Takes the next fraction "72/1" off a text of some.
std::optional<double> fTomarFraccion(std::string_view &strTexto)
{
    std::uint32_t lngArriba = 0;
    std::uint32_t lngAbajo = 0;
    const char *const chrFin = strTexto.data() + strTexto.size();
    const auto arriba = std::from_chars(strTexto.data(), chrFin, lngArriba);
    if (arriba.ec != std::errc() || arriba.ptr == chrFin || *arriba.ptr != '/') {
        return {};
    }
    const auto abajo = std::from_chars(arriba.ptr + 1, chrFin, lngAbajo);
    if (abajo.ec != std::errc() || lngAbajo == 0) {
        return {};
    }
    strTexto.remove_prefix(static_cast<std::size_t>(abajo.ptr - strTexto.data()));
    strTexto.remove_prefix(strTexto.starts_with(' ') ? 1 : 0);
    return static_cast<double>(lngArriba) / lngAbajo;
}

/// Hours, minutes and seconds, three fractions, in microseconds; nothing from a whole day on.
std::optional<std::int64_t> fMicrosegundosGps(std::string_view strTexto)
{
    constexpr double dblDia = 86400;
    double dblSegundos = 0;
    for (const int intFactor : {3600, 60, 1}) {
        const auto dblParte = fTomarFraccion(strTexto);
        if (!dblParte) {
            return {};
        }
        dblSegundos += *dblParte * intFactor;
    }
    return dblSegundos < dblDia ? std::optional(std::llround(dblSegundos * 1e6)) : std::nullopt;
}

std::optional<clsFechaFuente> fFechaGps(const clsDatosTiff &tiff, std::uint32_t lngIfd)
{
    constexpr std::array<std::uint32_t, 2> lstCodigos{lngGpsHora, lngGpsDia};
    clsTextosExif textos(lstCodigos);
    fRecorrerIfd(tiff, lngIfd, [&](const clsEntradaIfd &entrada) {
        textos.fTomar(tiff, entrada);
        return !textos.fVistos();
    });
    const std::string_view strDia = textos.fTexto(lngGpsDia);
    const auto dia = fLeerFechaExif(strDia);
    const auto lngMicros = fMicrosegundosGps(textos.fTexto(lngGpsHora));
    if (!dia || !dia->fHay() || fLargoFechaExif(strDia) != 10 || !lngMicros) {
        return {};
    }
    return clsFechaFuente{.fecha = {dia->lngSegundos + *lngMicros / 1'000'000},
                          .fuente = Fuente::Gps,
                          .zona = Zona::Utc,
                          .lngNanos = static_cast<std::int32_t>(*lngMicros % 1'000'000 * 1000)};
}

} // namespace

clsFuentes fLeerFuentesExif(const clsDatosTiff &tiff, std::uint32_t lngIfd0, clsFechasExif &exif)
{
    clsTextosExif textos(lstCodigosFecha);
    std::uint32_t lngGps = 0;
    fRecorrerIfds(
        tiff, lngIfd0,
        [&](const clsEntradaIfd &entrada) {
            textos.fTomar(tiff, entrada);
            if (entrada.lngCodigo == lngPunteroGps && lngGps == 0) {
                lngGps = fPrimerNumero(tiff, entrada).value_or(0);
            }
            return true;
        },
        // What judges the file may stand in any IFD, the rest stands in the first two.
        [&] { return !textos.fVisto(lngExifTomada) || !textos.fVisto(lngExifCambiada); });
    exif = fFechasExif(textos);
    clsFuentes lstFuentes;
    for (const clsEtiquetasFecha &etiquetas : lstEtiquetas) {
        if (const auto leida = fFechaDeEtiquetas(textos, etiquetas)) {
            lstFuentes.push_back(*leida);
        }
    }
    if (const auto gps = lngGps == 0 ? std::nullopt : fFechaGps(tiff, lngGps)) {
        lstFuentes.push_back(*gps);
    }
    return lstFuentes;
}
