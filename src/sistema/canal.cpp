#include "sistema/canal.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <malloc.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>

namespace {

clsResultado<bool> fEsperar(const clsDescriptor &extremo, short intEventos, int intMilisegundos)
{
    pollfd espera{extremo.fFd(), intEventos, 0};
    const int intListos = poll(&espera, 1, intMilisegundos);
    if (intListos < 0 && errno != EINTR) {
        return clsError(errno);
    }
    return intListos > 0;
}

/// As a value or an error what a call gave that does not wait.
clsResultado<std::size_t> fCuentaSinEspera(ssize_t lngBytes)
{
    const bool bolEspera = errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
    if (lngBytes < 0 && !bolEspera) {
        return clsError(errno);
    }
    return lngBytes < 0 ? std::size_t{0} : static_cast<std::size_t>(lngBytes);
}

} // namespace

clsResultado<clsExtremos> fAbrirCanal()
{
    std::array<int, 2> lstExtremos{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, lstExtremos.data()) != 0) {
        return clsError(errno);
    }
    return clsExtremos{clsDescriptor(lstExtremos[0]), clsDescriptor(lstExtremos[1])};
}

clsResultado<bool> fEsperarLectura(const clsDescriptor &extremo, std::chrono::milliseconds plazo)
{
    return fEsperar(extremo, POLLIN, static_cast<int>(plazo.count()));
}

clsResultado<bool> fEsperarEscritura(const clsDescriptor &extremo, std::chrono::milliseconds plazo)
{
    return fEsperar(extremo, POLLOUT, static_cast<int>(plazo.count()));
}

void fEsperarCierre(const clsDescriptor &extremo)
{
    while (!fEsperar(extremo, POLLRDHUP, -1).value_or(false)) {
    }
}

clsResultado<std::size_t> fEnviar(const clsDescriptor &extremo, std::string_view strBytes)
{
    return fCuentaSinEspera(
        send(extremo.fFd(), strBytes.data(), strBytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT));
}

clsResultado<std::size_t> fRecibir(const clsDescriptor &extremo, void *bytDatos,
                                   std::size_t lngBytes)
{
    const ssize_t lngRecibidos = recv(extremo.fFd(), bytDatos, lngBytes, MSG_DONTWAIT);
    return lngRecibidos == 0 ? clsResultado<std::size_t>(clsError(EPIPE))
                             : fCuentaSinEspera(lngRecibidos);
}

void fLimitarPrograma([[maybe_unused]] std::uint64_t lngMemoria)
{
#ifndef __SANITIZE_ADDRESS__ // which reserves far more
    const rlimit memoria{lngMemoria, lngMemoria};
    setrlimit(RLIMIT_AS, &memoria);
#endif
    const rlimit volcado{0, 0};
    setrlimit(RLIMIT_CORE, &volcado);
    std::signal(SIGPIPE, SIG_IGN);
}

void fRetenerMemoria()
{
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 96 << 20);
}

void fDevolverMemoria() { malloc_trim(0); }
