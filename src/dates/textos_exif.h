#pragma once

#include "dates/ifd.h"

#include <array>
#include <bitset>
#include <span>

// Exif 2.32, sections 4.6.4 and 4.6.5: tags that tell when.
inline constexpr std::uint32_t lngExifCambiada = 0x0132;
inline constexpr std::uint32_t lngExifTomada = 0x9003;
inline constexpr std::uint32_t lngExifDigitalizada = 0x9004;

/// Takes the texts of some tags from a walk: of each code the first row decides, even when it holds
/// no text.
class clsTextosExif {
public:
    static constexpr std::size_t lngMaximo = 16;

    /// @param lstCodigos the tags, at most lngMaximo; must outlive it.
    explicit clsTextosExif(std::span<const std::uint32_t> lstCodigos) : m_lstCodigos(lstCodigos) {}

    /// Looks at an entry; takes its value if it is one of these tags, and the first.
    void fTomar(const clsDatosTiff &tiff, const clsEntradaIfd &entrada);

    /// A tag's text; empty as long as none was seen.
    [[nodiscard]] std::string_view fTexto(std::uint32_t lngCodigo) const;
    [[nodiscard]] bool fVisto(std::uint32_t lngCodigo) const;
    /// Whether all of them were seen.
    [[nodiscard]] bool fVistos() const { return m_lstVistos.count() == m_lstCodigos.size(); }

private:
    [[nodiscard]] std::size_t fLugar(std::uint32_t lngCodigo) const;

    std::span<const std::uint32_t> m_lstCodigos;
    std::array<std::string, lngMaximo> m_lstTextos;
    std::bitset<lngMaximo + 1> m_lstVistos; ///< the last one stays clear: for codes that are no tag
};
