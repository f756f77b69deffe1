// miravel-fotograma: takes frames of videos for Miravel's thumbnails. Requests come on standard
// input, answers go to standard output, see viewer/mensaje_hijo.h. It is a program of its own
// because a decoder that hangs or dies over a broken file must not take Miravel with it.

#include "sistema/archivo.h"
#include "viewer/hijo/fotograma.h"

#include <cerrno>
#include <csignal>
#include <malloc.h>
#include <poll.h>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

extern "C" {
#include <libavutil/log.h>
}

namespace {

bool fLeerTodo(void *datos, std::size_t lngBytes)
{
    auto *chrDatos = static_cast<char *>(datos);
    while (lngBytes > 0) {
        const ssize_t lngLeidos = read(STDIN_FILENO, chrDatos, lngBytes);
        if (lngLeidos == 0 || (lngLeidos < 0 && errno != EINTR)) {
            return false;
        }
        const auto lngHechos = static_cast<std::size_t>(lngLeidos < 0 ? 0 : lngLeidos);
        chrDatos += lngHechos;
        lngBytes -= lngHechos;
    }
    return true;
}

/// Whether something has come in, events of poll.
bool fHay(short intEventos, int intEspera)
{
    pollfd espera{STDIN_FILENO, intEventos, 0};
    return poll(&espera, 1, intEspera) > 0 && espera.revents != 0;
}

/// Ends the program when the other side is gone, even in the middle of a file.
void fVigilar()
{
    while (!fHay(POLLRDHUP, -1)) {
    }
    _exit(0);
}

void fLimitar()
{
#ifndef __SANITIZE_ADDRESS__ // which reserves far more
    constexpr rlim_t lngMemoria = rlim_t{2} << 30;
    const rlimit memoria{lngMemoria, lngMemoria};
    setrlimit(RLIMIT_AS, &memoria);
#endif
    const rlimit volcado{0, 0};
    setrlimit(RLIMIT_CORE, &volcado);
    // The buffers of a large frame are kept for the next file: to fetch them from the system, page
    // by page, takes longer than to decode into them.
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 96 << 20);
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
    return fEscribirTodo(STDOUT_FILENO, strBytes) == 0;
}

bool fAtender()
{
    // Nothing to do for a second: what was kept goes back.
    if (!fHay(POLLIN, 1000)) {
        malloc_trim(0);
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
    const auto fAnulado = [] { return fHay(POLLIN, 0); };
    return fContestar(peticion.lngNumero,
                      hijo::fTomarFotograma(strRuta, static_cast<int>(peticion.lngLado), fAnulado));
}

} // namespace

int main()
{
    std::signal(SIGPIPE, SIG_IGN);
    fLimitar();
    av_log_set_level(AV_LOG_QUIET);
    std::thread(fVigilar).detach();
    while (fAtender()) {
    }
    // Without the destructors of libraries that the other thread may still be in.
    _exit(0);
}
