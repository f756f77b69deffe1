// miravel-fotograma: takes frames of videos for Miravel's thumbnails. Requests come on standard
// input, answers go to standard output, see viewer/mensaje_hijo.h. It is a program of its own
// because a decoder that hangs or dies over a broken file must not take Miravel with it.

#include "sistema/canal.h"
#include "viewer/hijo/fotograma.h"

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

bool fLeerTodo(void *datos, std::size_t lngBytes)
{
    auto *chrDatos = static_cast<char *>(datos);
    while (lngBytes > 0) {
        const std::size_t lngLeidos = fLeer(entrada, chrDatos, lngBytes).value_or(0);
        if (lngLeidos == 0) {
            return false;
        }
        chrDatos += lngLeidos;
        lngBytes -= lngLeidos;
    }
    return true;
}

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

bool fAtender()
{
    // Nothing to do for a second: what was kept goes back.
    if (!fHay(std::chrono::seconds(1))) {
        fDevolverMemoria();
    }
    clsPeticionHijo peticion;
    if (!fLeerTodo(&peticion, sizeof peticion) ||
        peticion.lngMarca != clsPeticionHijo::lngMarcaBuena || peticion.lngLado == 0 ||
        peticion.lngLado > lngLadoMaximo || peticion.lngLargo > lngLargoMaximo) {
        return false;
    }
    std::string strRuta(peticion.lngLargo, '\0');
    if (!fLeerTodo(strRuta.data(), strRuta.size())) {
        return false;
    }
    // The next request comes early only when nobody waits for the answer to this one any more.
    const auto fAnulado = [] { return fHay(std::chrono::milliseconds(0)); };
    return fContestar(peticion.lngNumero,
                      hijo::fTomarFotograma(strRuta, static_cast<int>(peticion.lngLado), fAnulado));
}

} // namespace

int main()
{
    fLimitarPrograma(std::uint64_t{2} << 30);
    fRetenerMemoria();
    av_log_set_level(AV_LOG_QUIET);
    std::thread(fVigilar).detach();
    while (fAtender()) {
    }
    // Without the destructors of libraries that the other thread may still be in.
    std::_Exit(0);
}
