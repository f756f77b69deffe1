#include "dates/textos_exif.h"

#include "dates/valor.h"

#include <algorithm>

std::size_t clsTextosExif::fLugar(std::uint32_t lngCodigo) const
{
    const auto cual = std::find(m_lstCodigos.begin(), m_lstCodigos.end(), lngCodigo);
    return cual == m_lstCodigos.end() ? lngMaximo
                                      : static_cast<std::size_t>(cual - m_lstCodigos.begin());
}

void clsTextosExif::fTomar(const clsDatosTiff &tiff, const clsEntradaIfd &entrada)
{
    const std::size_t lngLugar = fLugar(entrada.lngCodigo);
    if (lngLugar < lngMaximo && !m_lstVistos[lngLugar]) {
        m_lstVistos[lngLugar] = true;
        m_lstTextos[lngLugar] = fTextoValor(tiff, entrada);
    }
}

std::string_view clsTextosExif::fTexto(std::uint32_t lngCodigo) const
{
    const std::size_t lngLugar = fLugar(lngCodigo);
    return lngLugar < lngMaximo ? std::string_view(m_lstTextos[lngLugar]) : std::string_view();
}

bool clsTextosExif::fVisto(std::uint32_t lngCodigo) const { return m_lstVistos[fLugar(lngCodigo)]; }
