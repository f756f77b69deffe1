#pragma once

#include "sistema/archivo.h"
#include "viewer/cache_escritorio.h"
#include "viewer/hijos.h"

#include <QImage>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Where frames of videos come from.
struct clsOrigenFotogramas {
    /// Paths where our child program may lie; the first one that is there is used.
    std::vector<std::string> lstHijos;
    /// The folders "thumbnailers/" with their final "/", the user's first.
    std::vector<std::string> lstThumbnailers;
    /// The desktop's shared folder "thumbnails/" with its final "/"; empty: none.
    std::string strCache;
    /// Time for one file.
    std::chrono::milliseconds plazo{5000};
    /// Children at most; 0: one for every processor.
    int intHijos = 0;
};

/// What this desktop has: the child beside the program or in ../libexec/miravel/, the folders and
/// the cache of the freedesktop Base Directory standard.
[[nodiscard]] clsOrigenFotogramas fOrigenUsual();

/// Thumbnails of videos. Safe to call on several threads at once; a call waits for a child as long
/// as all are at work. The children are killed when it goes.
class clsFotogramas {
public:
    explicit clsFotogramas(clsOrigenFotogramas origen = fOrigenUsual());

    /// A frame of a video: from the desktop's cache; else from our child program; where that is not
    /// installed, from the program the desktop has registered; where it is, but cannot lock itself
    /// in, from nowhere. What is made goes into the cache,
    /// and so does the news that nothing can be made.
    /// @param strRuta    absolute path.
    /// @param huella     time and size of the file as they are now.
    /// @param intLado    side of the box in device pixels, greater than 0.
    /// @param bolAnulado looked at every few milliseconds; the result is null when it becomes true.
    /// @return no larger than the box, one device pixel per pixel; null when none can be made.
    [[nodiscard]] QImage fFotograma(const std::string &strRuta, const clsHuella &huella,
                                    int intLado, const std::atomic<bool> &bolAnulado);

private:
    /// A picture, or how its making ended.
    struct clsHecha {
        QImage imagen;
        clsCuadroHijo::Fin fin = clsCuadroHijo::Fin::SinImagen;
    };
    [[nodiscard]] clsHecha fHacer(const std::string &strRuta, int intLado,
                                  const std::atomic<bool> &bolAnulado);
    [[nodiscard]] clsHecha fHacerFuera(const std::string &strRuta, int intLado,
                                       const std::atomic<bool> &bolAnulado) const;

    const clsOrigenFotogramas m_origen;
    const clsCacheEscritorio m_cache;
    const std::string m_strHijo; ///< empty: not installed
    clsHijos m_hijos;
};
