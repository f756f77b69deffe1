#pragma once

#include "viewer/extraccion.h"
#include "viewer/pcMemDC.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

/// Gives the thumbnail of one file after the other.
class cThumbnailGenerator {
public:
    /// Flags of Options. The others that exist are kept and have no effect.
    static constexpr std::uint32_t IEIFLAG_ASPECT = 0x4;     ///< keep the proportions: always done
    static constexpr std::uint32_t IEIFLAG_SCREEN = 0x20;    ///< for the screen
    static constexpr std::uint32_t IEIFLAG_NOBORDER = 0x100; ///< without a border: always done

    /// Where a thumbnail comes from: path and side of the box in pixels.
    using clsFuenteMini = std::function<clsMiniatura(const std::string &strRuta, int intLado)>;

    using clsQueja = std::function<void(const std::string &strTexto)>;

    /// @param fQueja shows what the file system refuses.
    cThumbnailGenerator(clsQueja fQueja, clsFuenteMini fFuente);

    /// Gives a surface with the thumbnail of Filename, no larger than the desired size, upright and
    /// with its proportions.
    /// @param ok      whether there is one. A file that the file system does not give is told in a
    ///                message; one that is no picture fails silently.
    /// @param picture the surface; empty on failure.
    void fGetThumbnail(bool &ok, std::unique_ptr<pcMemDC> &picture);

    std::uint32_t Options = IEIFLAG_SCREEN | IEIFLAG_NOBORDER;
    int DesiredWidth = 100; ///< pixels
    int DesiredHeight = 100;
    std::string Filename; ///< full path

private:
    clsQueja m_fQueja;
    clsFuenteMini m_fFuente;
};
