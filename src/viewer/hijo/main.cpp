// miravel-fotograma: takes frames of videos for Miravel's thumbnails, and tells what they say of
// their dates.

#include "viewer/hijo/fechas.h"
#include "viewer/hijo/fotograma.h"
#include "viewer/hijo/servicio.h"

#include <algorithm>
#include <string>

extern "C" {
#include <libavutil/log.h>
}

namespace {

/// A text in the place of one row of pixels; none when there is no text.
hijo::clsFotograma fComoImagen(std::string strTexto)
{
    hijo::clsFotograma fotograma;
    strTexto.resize(std::min<std::size_t>(strTexto.size(), lngTextoMaximo));
    fotograma.lstPuntos.resize((strTexto.size() + 3) / 4);
    strTexto.copy(reinterpret_cast<char *>(fotograma.lstPuntos.data()), strTexto.size());
    if (!strTexto.empty()) {
        fotograma.estado = EstadoHijo::Imagen;
        fotograma.intAncho = static_cast<int>(fotograma.lstPuntos.size());
        fotograma.intAlto = 1;
    }
    return fotograma;
}

hijo::clsFotograma fHacer(const clsPeticionHijo &peticion, const clsAbierto &video,
                          const std::function<bool()> &fAnulado)
{
    const auto lngLado = std::min(peticion.marco.lngAncho, peticion.marco.lngAlto);
    return peticion.cual == PeticionHijo::Fechas
               ? fComoImagen(hijo::fTomarFechas(video, fAnulado))
               : hijo::fTomarFotograma(video, static_cast<int>(lngLado), fAnulado);
}

} // namespace

int main()
{
    hijo::fServir([] { av_log_set_level(AV_LOG_QUIET); }, fHacer);
}
