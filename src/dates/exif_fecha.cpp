#include "dates/exif_fecha.h"

#include "dates/textos_exif.h"

#include <array>

namespace {

std::string_view fRecortar(std::string_view strTexto)
{
    constexpr std::string_view strFuera(" \0", 2);
    const std::size_t lngDesde = strTexto.find_first_not_of(strFuera);
    if (lngDesde == std::string_view::npos) {
        return {};
    }
    return strTexto.substr(lngDesde, strTexto.find_last_not_of(strFuera) - lngDesde + 1);
}

/// Puts the zeros that a number of the form begins with where blanks stand instead.
void fRellenarCeros(std::string &strFecha, std::string_view strForma)
{
    bool bolPrimeras = true; // nothing but blanks so far in this number
    for (std::size_t lng = 0; lng + 1 < strForma.size(); ++lng) {
        bolPrimeras = (bolPrimeras || strForma[lng] != strForma[lng - 1]) && strFecha[lng] == ' ';
        if (bolPrimeras && strForma[lng] == strForma[lng + 1]) {
            strFecha[lng] = '0';
        }
    }
}

} // namespace

std::optional<clsFecha> fLeerFechaExif(std::string_view strTexto)
{
    // Exif 2.32, section 4.6.5, DateTimeOriginal: "YYYY:MM:DD HH:MM:SS". The first two colons count
    // as slashes, so that a text with slashes of its own has none left for its time.
    std::string strFecha(fRecortar(strTexto).substr(0, strFormaCatalogo.size() + 1));
    for (int intVez = 0; intVez < 2; ++intVez) {
        if (const std::size_t lngPos = strFecha.find(':'); lngPos != std::string::npos) {
            strFecha[lngPos] = '/';
        }
    }
    // Down to the day, to the minute, to the first or the second digit of the second.
    const std::size_t lngLargo = strFecha.size();
    if (lngLargo != 10 && lngLargo != 16 && lngLargo != 18 && lngLargo != 19) {
        return {};
    }
    const std::string_view strForma = strFormaCatalogo.substr(0, lngLargo);
    fRellenarCeros(strFecha, strForma);
    return fLeerFecha(strFecha, strForma);
}

std::size_t fLargoFechaExif(std::string_view strTexto) { return fRecortar(strTexto).size(); }

clsFechasExif fLeerFechasExif(clsOrigen &origen)
{
    clsFechasExif fechas;
    clsLector lector(origen);
    clsMarcas marcas;
    Orden orden = Orden::II;
    if (!fLeerCabecera(lector, Busqueda::SoloApp1, marcas, orden).empty()) {
        return fechas;
    }
    const clsDatosTiff tiff{lector, marcas.lngInicioTiff, orden};
    constexpr std::array<std::uint32_t, 2> lstCodigos{lngExifCambiada, lngExifTomada};
    clsTextosExif textos(lstCodigos);
    fRecorrerIfds(tiff, static_cast<std::uint32_t>(marcas.lngIfd0),
                  [&](const clsEntradaIfd &entrada) {
                      textos.fTomar(tiff, entrada);
                      return !textos.fVistos();
                  });
    return fFechasExif(textos);
}

clsFechasExif fFechasExif(const clsTextosExif &textos)
{
    const auto fFecha = [&](std::uint32_t lngCodigo) {
        return fLeerFechaExif(textos.fTexto(lngCodigo)).value_or(clsFecha{});
    };
    return {fFecha(lngExifCambiada), fFecha(lngExifTomada)};
}
