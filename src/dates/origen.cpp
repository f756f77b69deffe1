#include "dates/origen.h"

#include <algorithm>

std::size_t clsOrigenArchivo::fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes)
{
    std::size_t lngLeidos = 0;
    while (lngLeidos < lngBytes) {
        // A disk that does not give the bytes counts as a file that does not have them.
        const std::size_t lngHecho =
            fLeerEn(m_archivo, lngPos + static_cast<std::int64_t>(lngLeidos),
                    chrDestino + lngLeidos, lngBytes - lngLeidos)
                .value_or(0);
        if (lngHecho == 0) {
            break;
        }
        lngLeidos += lngHecho;
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
    std::string strBytes;
    if (lngBytes <= lngVentana) {
        strBytes = fMirar(lngPos, lngBytes);
    } else if (const std::size_t lngHay = fQuedan(lngPos, lngBytes); lngHay != 0) {
        strBytes.resize(lngHay);
        strBytes.resize(m_origen.fLeer(lngPos, strBytes.data(), lngHay));
    }
    m_lngCopiados += strBytes.size();
    return strBytes;
}
