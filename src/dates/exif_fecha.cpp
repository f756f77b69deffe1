#include "dates/exif_fecha.h"

#include "dates/ifd.h"
#include "dates/valor.h"

#include <algorithm>
#include <array>

namespace {

/// The number of some places of the text: digits, or blanks instead of leading zeros; else -1.
int fCampo(std::string_view strTexto, std::size_t lngPos, std::size_t lngCifras)
{
    std::string_view strCampo = strTexto.substr(lngPos, lngCifras);
    while (strCampo.size() > 1 && strCampo.front() == ' ') {
        strCampo.remove_prefix(1);
    }
    int intValor = 0;
    for (const char chr : strCampo) {
        if (chr < '0' || chr > '9') {
            return -1;
        }
        intValor = intValor * 10 + (chr - '0');
    }
    return intValor;
}

std::string_view fRecortar(std::string_view strTexto)
{
    constexpr std::string_view strFuera(" \0", 2);
    const std::size_t lngDesde = strTexto.find_first_not_of(strFuera);
    if (lngDesde == std::string_view::npos) {
        return {};
    }
    return strTexto.substr(lngDesde, strTexto.find_last_not_of(strFuera) - lngDesde + 1);
}

} // namespace

std::optional<clsFecha> fLeerFechaExif(std::string_view strTexto)
{
    // Exif 2.32, section 4.6.5, DateTimeOriginal: "YYYY:MM:DD HH:MM:SS". The first two colons count
    // as slashes, so that a text with slashes of its own has none left for its time.
    constexpr std::string_view strForma = "nnnn/nn/nn nn:nn:nn";
    std::string strFecha(fRecortar(strTexto).substr(0, strForma.size() + 1));
    for (int intVez = 0; intVez < 2; ++intVez) {
        if (const std::size_t lngPos = strFecha.find(':'); lngPos != std::string::npos) {
            strFecha[lngPos] = '/';
        }
    }
    const std::size_t lngLargo = strFecha.size();
    // Down to the day, to the minute, to the first or the second digit of the second.
    if (lngLargo != 10 && lngLargo != 16 && lngLargo != 18 && lngLargo != 19) {
        return {};
    }
    for (std::size_t lng = 0; lng < lngLargo; ++lng) {
        if (strForma[lng] != 'n' && strFecha[lng] != strForma[lng]) {
            return {};
        }
    }
    const auto fNumero = [&](std::size_t lngPos, std::size_t lngCifras) {
        return lngPos < lngLargo ? fCampo(strFecha, lngPos, lngCifras) : 0;
    };
    return fFechaDe({fNumero(0, 4), fNumero(5, 2), fNumero(8, 2), fNumero(11, 2), fNumero(14, 2),
                     fNumero(17, 2)});
}

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
    // The first row of each code decides, even when it holds no date.
    bool bolFecha = false;
    bool bolTomada = false;
    const auto fTomar = [&](const clsEntradaIfd &entrada, bool &bolVista, clsFecha &datDestino) {
        if (!std::exchange(bolVista, true)) {
            datDestino = fLeerFechaExif(fTextoValor(tiff, entrada)).value_or(clsFecha{});
        }
    };
    fRecorrerIfds(tiff, static_cast<std::uint32_t>(marcas.lngIfd0),
                  [&](const clsEntradaIfd &entrada) {
                      if (entrada.lngCodigo == 0x0132) {
                          fTomar(entrada, bolFecha, fechas.datFecha);
                      } else if (entrada.lngCodigo == 0x9003) {
                          fTomar(entrada, bolTomada, fechas.datTomada);
                      }
                      return !(bolFecha && bolTomada);
                  });
    return fechas;
}
