#pragma once

#include "sistema/archivo.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

/// An entry of the cache: which file it belongs to, with which content, a checksum, the picture.
/// @param strImagen bytes that whoever reads them understands.
[[nodiscard]] std::string fEmpaquetarMini(std::string_view strRuta, const clsHuella &huella,
                                          std::string_view strImagen);
/// The picture in an entry; nothing when it is damaged, or another file's or another content's.
[[nodiscard]] std::optional<std::string_view>
fDesempaquetarMini(std::string_view strEntrada, std::string_view strRuta, const clsHuella &huella);

/// Our own thumbnails on the disk, one file each, in a folder of our own. Safe on several threads
/// and in several programs. Nothing here fails loudly: a folder that cannot be read or written is
/// no cache, and what is damaged there is nothing.
class clsCacheMini {
public:
    static constexpr std::int64_t lngMaximoUsual = std::int64_t{512} << 20;

    /// @param strCarpeta with its final "/"; empty: no cache.
    /// @param lngMaximo  bytes it may take on the disk. What was not used for longest goes first.
    explicit clsCacheMini(std::string strCarpeta, std::int64_t lngMaximo = lngMaximoUsual);

    /// $XDG_CACHE_HOME/miravel/miniaturas/, else below ~/.cache/; empty when neither is known.
    [[nodiscard]] static std::string fCarpetaUsual();

    /// The picture that is kept of a file with that size and time; empty: none.
    [[nodiscard]] std::string fLeer(const std::string &strRuta, const clsHuella &huella) const;
    /// Keeps a picture, whole or not at all, readable by the user alone. Not of a file that was
    /// changed a moment ago: the next change might not change its time.
    void fGuardar(const std::string &strRuta, const clsHuella &huella, std::string_view strImagen);
    /// Deletes what is kept, and nothing else that lies there.
    /// @return the first error; none where there is no cache.
    clsError fVaciar();

private:
    [[nodiscard]] std::string fEntrada(std::string_view strRuta) const;
    void fContar(std::int64_t lngMas);

    const std::string m_strCarpeta;
    const std::int64_t m_lngMaximo;
    std::mutex m_cerrojo;       ///< of what follows
    std::int64_t m_lngHay = -1; ///< bytes it takes, as far as is known; below 0: not counted yet
};
