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
    Pendiente, ///< a video whose frame is still to be made
    Falta,     ///< there is no such file
    Disco,     ///< the file system does not give the file
};

/// A thumbnail, or the reason why there is none.
struct clsMiniatura {
    Extraccion extraccion = Extraccion::SinImagen;
    QImage imagen; ///< upright, no larger than the box, with one pixel per device pixel
};

/// The thumbnail of a photo. Works on any thread. Only regular files are read.
///
/// The EXIF thumbnail is taken where it has enough pixels for the box and, without the bars it may
/// have, the proportions of the picture; else the picture is decoded in the size of the box. It is
/// never enlarged.
/// @param intLado    side of the box in device pixels.
/// @param bolAnulado may become true meanwhile: the result is then of no use.
[[nodiscard]] clsMiniatura fExtraerFoto(const std::string &strRuta, int intLado,
                                        const std::atomic<bool> &bolAnulado);

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
