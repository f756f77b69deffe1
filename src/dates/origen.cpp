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

clsOrigenTramo::clsOrigenTramo(clsOrigen &origen, std::int64_t lngInicio, std::int64_t lngBytes,
                               std::string_view strCabeza)
    : m_origen(origen), m_lngInicio(lngInicio),
      m_lngTamano(std::clamp<std::int64_t>(lngBytes, 0, origen.fTamano() - lngInicio)),
      m_strCabeza(strCabeza)
{
}

std::size_t clsOrigenTramo::fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes)
{
    const auto lngHay = static_cast<std::size_t>(std::max<std::int64_t>(m_lngTamano - lngPos, 0));
    const std::size_t lngLeidos =
        m_origen.fLeer(m_lngInicio + lngPos, chrDestino, std::min(lngBytes, lngHay));
    const auto lngDesde = static_cast<std::size_t>(lngPos);
    if (lngDesde < m_strCabeza.size()) {
        m_strCabeza.copy(chrDestino, lngLeidos, lngDesde);
    }
    return lngLeidos;
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
