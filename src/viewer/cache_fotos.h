#pragma once

#include "viewer/cache_escritorio.h"
#include "viewer/cache_mini.h"
#include "viewer/extraccion.h"

#include <chrono>
#include <string>

/// Thumbnails of photos that were made before: our own on the disk, and those that all programs of
/// the desktop share, where photos are looked up and never kept. Safe on several threads.
class clsCacheFotos {
public:
    /// Side of the pictures we keep: the largest cells of a screen with two device pixels to one.
    static constexpr int intLado = 266;

    struct clsOrigen {
        std::string strPropia;     ///< folder, see clsCacheMini
        std::string strEscritorio; ///< folder, see clsCacheEscritorio
        /// What is made faster is not worth keeping.
        std::chrono::milliseconds minimo{10};
    };
    /// Those of the user.
    [[nodiscard]] static clsOrigen fOrigenUsual();

    explicit clsCacheFotos(const clsOrigen &origen = fOrigenUsual());

    /// What there is of a photo, for a box of that side in device pixels.
    /// @param bolPropia set to whether it is ours.
    /// @return "Pendiente": nothing.
    [[nodiscard]] clsMiniatura fLeer(const std::string &strRuta, const clsHuella &huella,
                                     int intCaja, bool &bolPropia) const;
    /// Keeps a thumbnail of a photo, unless it took hardly any time.
    /// @param imagen as it was decoded for intLado or more.
    void fGuardar(const std::string &strRuta, const clsHuella &huella, const QImage &imagen,
                  std::chrono::nanoseconds tardanza);
    /// Deletes our own.
    clsError fVaciar() { return m_propia.fVaciar(); }

private:
    const std::chrono::milliseconds m_minimo;
    clsCacheMini m_propia;
    const clsCacheEscritorio m_escritorio;
};
