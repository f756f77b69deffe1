#pragma once

#include "sistema/archivo.h"

#include <QImage>

#include <atomic>
#include <functional>
#include <memory>
#include <string>

/// How the attempt to make a thumbnail ended.
enum class Extraccion {
    Hecha,     ///< there is an image
    SinImagen, ///< the file can be read, but no image made of it
    Pendiente, ///< nothing is there at once: it is still to be made
    Falta,     ///< there is no such file
    Disco,     ///< the file system does not give the file
};

/// A thumbnail, or the reason why there is none.
struct clsMiniatura {
    Extraccion extraccion = Extraccion::SinImagen;
    QImage imagen; ///< upright, no larger than the box, with one pixel per device pixel
    /// false: enlarged from fewer pixels than the box can show, until there are sharper ones;
    /// without an image: there may be one another time
    bool bolFina = true;
};

// Thumbnails of photos. These work on any thread and read regular files only. A box has a side of
// intLado device pixels.

/// What there is of a photo without decoding it: the EXIF thumbnail where it has, without the bars
/// it may have, the proportions of the picture; else what was made for another box.
/// @param otra what that is, if there is an image of it.
[[nodiscard]] clsMiniatura fMirarFoto(const std::string &strRuta, int intLado,
                                      const clsMiniatura &otra = {});

/// The picture decoded in the size of the box, never enlarged.
/// @param bolAnulado may become true meanwhile: the result is then of no use.
[[nodiscard]] clsMiniatura fDecodificarMini(const std::string &strRuta, int intLado,
                                            const std::atomic<bool> &bolAnulado);

/// The EXIF thumbnail where it has enough pixels for the box, else the picture decoded.
[[nodiscard]] clsMiniatura fExtraerFoto(const std::string &strRuta, int intLado,
                                        const std::atomic<bool> &bolAnulado);

/// Makes of a thumbnail one for another box.
/// @param natural size of the upright picture, empty where it is not known.
[[nodiscard]] clsMiniatura fDeOtra(const clsMiniatura &otra, QSize natural, int intLado);

/// A picture in a format of the screen, made smaller when it does not fit into the box.
/// @param intLado side of the box in device pixels.
[[nodiscard]] QImage fEncajada(const QImage &imagen, int intLado);

/// What it means that a file could not be opened: it is not there (any more) as a file, or the file
/// system does not give it.
/// @param error of opening it or asking for its data.
[[nodiscard]] Extraccion fSinAbrir(clsError error);

/// Makes a frame of a video; null when none can be made. Called on worker threads.
using clsFotograma = std::function<QImage(const std::string &strRuta, const clsHuella &huella,
                                          int intLado, const std::atomic<bool> &bolAnulado)>;
