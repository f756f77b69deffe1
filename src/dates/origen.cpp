#include "dates/origen.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

std::size_t clsOrigenArchivo::fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes)
{
    std::size_t lngLeidos = 0;
    while (lngLeidos < lngBytes) {
        const ssize_t lngHecho = pread(m_intFd, chrDestino + lngLeidos, lngBytes - lngLeidos,
                                       lngPos + static_cast<std::int64_t>(lngLeidos));
        if (lngHecho == 0 || (lngHecho < 0 && errno != EINTR)) {
            break; // A disk that does not give the bytes counts as a file that does not have them.
        }
        lngLeidos += static_cast<std::size_t>(std::max<ssize_t>(lngHecho, 0));
    }
    return lngLeidos;
}

std::size_t clsOrigenMemoria::fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes)
{
    const auto lngDesde = std::min(static_cast<std::size_t>(lngPos), m_strBytes.size());
    return m_strBytes.copy(chrDestino, lngBytes, lngDesde);
}

std::size_t clsLector::fQuedan(std::int64_t lngPos, std::uint64_t lngBytes) const
{
    if (lngPos < 0 || lngPos >= m_lngTamano) {
        return 0;
    }
    return std::min(static_cast<std::uint64_t>(m_lngTamano - lngPos), lngBytes);
}

std::string_view clsLector::fMirar(std::int64_t lngPos, std::size_t lngBytes)
{
    const std::size_t lngPedidos = fQuedan(lngPos, std::min(lngBytes, lngVentana));
    if (lngPedidos == 0) {
        return {};
    }
    const auto lngFin = m_lngDesde + static_cast<std::int64_t>(m_lngHay);
    if (lngPos < m_lngDesde || lngPos + static_cast<std::int64_t>(lngPedidos) > lngFin) {
        m_lngDesde = lngPos;
        m_lngHay = m_origen.fLeer(lngPos, m_lstBytes.data(), fQuedan(lngPos, lngVentana));
    }
    const auto lngDentro = static_cast<std::size_t>(lngPos - m_lngDesde);
    return std::string_view(m_lstBytes.data(), m_lngHay).substr(lngDentro, lngPedidos);
}

std::string clsLector::fCopiar(std::int64_t lngPos, std::uint64_t lngBytes)
{
    if (lngBytes <= lngVentana) {
        return std::string(fMirar(lngPos, lngBytes));
    }
    std::string strBytes(fQuedan(lngPos, lngBytes), '\0');
    if (!strBytes.empty()) {
        strBytes.resize(m_origen.fLeer(lngPos, strBytes.data(), strBytes.size()));
    }
    return strBytes;
}
