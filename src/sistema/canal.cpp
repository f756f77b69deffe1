#include "sistema/canal.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <malloc.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/uio.h>

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

/// A message of bytes and an open file, as the system's calls have it.
class clsSobre {
public:
    explicit clsSobre(iovec &bytes)
    {
        m_mensaje.msg_iov = &bytes;
        m_mensaje.msg_iovlen = 1;
        m_mensaje.msg_control = m_lstSitio.data();
        m_mensaje.msg_controllen = m_lstSitio.size();
    }
    clsSobre(const clsSobre &) = delete;
    clsSobre &operator=(const clsSobre &) = delete;

    [[nodiscard]] msghdr &fMensaje() { return m_mensaje; }

    void fMeter(int intFd)
    {
        cmsghdr *const cabeza = CMSG_FIRSTHDR(&m_mensaje);
        cabeza->cmsg_level = SOL_SOCKET;
        cabeza->cmsg_type = SCM_RIGHTS;
        cabeza->cmsg_len = CMSG_LEN(sizeof intFd);
        std::memcpy(CMSG_DATA(cabeza), &intFd, sizeof intFd);
    }

    /// The file of a message that came; -1: none came with it.
    [[nodiscard]] int fSacar()
    {
        int intFd = -1;
        const cmsghdr *const cabeza = CMSG_FIRSTHDR(&m_mensaje);
        if (cabeza != nullptr && cabeza->cmsg_type == SCM_RIGHTS) {
            std::memcpy(&intFd, CMSG_DATA(cabeza), sizeof intFd);
        }
        return intFd;
    }

private:
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> m_lstSitio{};
    msghdr m_mensaje{};
};

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

clsResultado<std::size_t> fEnviar(const clsDescriptor &extremo, std::string_view strBytes,
                                  const clsDescriptor &adjunto)
{
    iovec bytes{const_cast<char *>(strBytes.data()), strBytes.size()};
    clsSobre sobre(bytes);
    sobre.fMeter(adjunto.fFd());
    return fCuentaSinEspera(sendmsg(extremo.fFd(), &sobre.fMensaje(), MSG_NOSIGNAL | MSG_DONTWAIT));
}

clsResultado<std::size_t> fRecibir(const clsDescriptor &extremo, void *bytDatos,
                                   std::size_t lngBytes)
{
    const ssize_t lngRecibidos = recv(extremo.fFd(), bytDatos, lngBytes, MSG_DONTWAIT);
    return lngRecibidos == 0 ? clsResultado<std::size_t>(clsError(EPIPE))
                             : fCuentaSinEspera(lngRecibidos);
}

clsResultado<std::size_t> fRecibirAdjunto(const clsDescriptor &extremo, void *bytDatos,
                                          std::size_t lngBytes, clsDescriptor &adjunto)
{
    iovec bytes{bytDatos, lngBytes};
    clsSobre sobre(bytes);
    ssize_t lngRecibidos = -1;
    do {
        lngRecibidos = recvmsg(extremo.fFd(), &sobre.fMensaje(), MSG_CMSG_CLOEXEC);
    } while (lngRecibidos < 0 && errno == EINTR);
    const auto lngCuenta = fCuentaSinEspera(lngRecibidos);
    adjunto = clsDescriptor(lngCuenta ? sobre.fSacar() : -1);
    return lngCuenta;
}

void fRetenerMemoria()
{
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 96 << 20);
}

void fDevolverMemoria() { malloc_trim(0); }
