// miravel-fotograma: takes frames of videos for Miravel's thumbnails. Requests come on standard
// input, answers go to standard output, see viewer/mensaje_hijo.h. It is a program of its own
// because a decoder that hangs or dies over a broken file must not take Miravel with it, and one
// that a prepared file takes over must find itself locked in.

#include "sistema/canal.h"
#include "sistema/encierro.h"
#include "viewer/hijo/fechas.h"
#include "viewer/hijo/fotograma.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

extern "C" {
#include <libavutil/log.h>
}

namespace {

const clsDescriptor entrada(0);
const clsDescriptor salida(1);

/// Whether a request has come in.
bool fHay(std::chrono::milliseconds plazo)
{
    return fEsperarLectura(entrada, plazo).value_or(false);
}

/// Ends the program when the other side is gone, even in the middle of a file.
void fVigilar()
{
    fEsperarCierre(entrada);
    std::_Exit(0);
}

bool fContestar(std::uint32_t lngNumero, const hijo::clsFotograma &fotograma)
{
    clsRespuestaHijo respuesta;
    respuesta.lngNumero = lngNumero;
    respuesta.estado = fotograma.estado;
    respuesta.lngAncho = static_cast<std::uint32_t>(fotograma.intAncho);
    respuesta.lngAlto = static_cast<std::uint32_t>(fotograma.intAlto);
    std::string strBytes(reinterpret_cast<const char *>(&respuesta), sizeof respuesta);
    strBytes.append(reinterpret_cast<const char *>(fotograma.lstPuntos.data()),
                    fotograma.lstPuntos.size() * sizeof(std::uint32_t));
    return !fEscribirTodo(salida, strBytes);
}

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

bool fAtender()
{
    // Nothing to do for a second: what was kept goes back.
    if (!fHay(std::chrono::seconds(1))) {
        fDevolverMemoria();
    }
    clsPeticionHijo peticion;
    clsAbierto video;
    const auto lngLeidos = fRecibirAdjunto(entrada, &peticion, sizeof peticion, video.descriptor);
    if (lngLeidos.value_or(0) != sizeof peticion ||
        peticion.lngMarca != clsPeticionHijo::lngMarcaBuena || peticion.lngLado == 0 ||
        peticion.lngLado > lngLadoMaximo || !video.descriptor.fAbierto()) {
        return false;
    }
    video.huella.lngBytes = peticion.lngBytes;
    // The next request comes early only when nobody waits for the answer to this one any more.
    const auto fAnulado = [] { return fHay(std::chrono::milliseconds(0)); };
    const auto fotograma =
        peticion.cual == PeticionHijo::Fechas
            ? fComoImagen(hijo::fTomarFechas(video, fAnulado))
            : hijo::fTomarFotograma(video, static_cast<int>(peticion.lngLado), fAnulado);
    // Whoever has the answer can count on it that nothing is open here.
    video.descriptor.fCerrar();
    return fContestar(peticion.lngNumero, fotograma);
}

} // namespace

int main()
{
    // Some thousands of videos; then another child takes its place.
    fLimitarPrograma(std::uint64_t{2} << 30, std::chrono::minutes(2));
    fRetenerMemoria();
    av_log_set_level(AV_LOG_QUIET);
    if (fEncerrar()) {
        std::_Exit(intSinEncierro);
    }
    std::thread(fVigilar).detach();
    while (fAtender()) {
    }
    // Without the destructors of libraries that the other thread may still be in.
    std::_Exit(0);
}
