#pragma once

#include "sistema/archivo.h"
#include "viewer/colores.h"

#include <QImage>
#include <QSize>

#include <atomic>
#include <memory>
#include <string>

/// A picture ready to be painted: pixels, perhaps fewer than the file holds, and the size it has by
/// right.
struct clsFuente {
    mutable QImage imagen; ///< upright; null when the file could not be shown
    QSize natural;         ///< size of the upright picture in picture pixels
    /// Gives it the screen's colours as parts of it are painted, in one thread; it has them where
    /// there is none.
    std::unique_ptr<clsTinte> tinte{};
};

/// Shares a picture. A large one is given up on a thread: the system takes 40 ms to take back what
/// one of 100 megapixels has.
[[nodiscard]] std::shared_ptr<const clsFuente> fCompartida(clsFuente fuente);

/// A picture as it is kept.
struct clsFoto {
    std::shared_ptr<const clsFuente> fuente;
    [[nodiscard]] qint64 fBytes() const { return fuente->imagen.sizeInBytes(); }
};

/// What a picture is decoded for.
struct clsPedido {
    std::string strRuta;
    QSize recuadro;         ///< size of the frame in device pixels
    int intZoom = 0;        ///< percentage of the natural size; 0: fit to the frame
    qint64 lngMaximo = 0;   ///< bytes of pixels it may take
    bool bolVecina = false; ///< decoded ahead: nothing rather than fewer pixels beyond lngMaximo
};

/// Bytes of pixels a shown picture may take. A picture that would need more at its natural size is
/// decoded smaller and painted enlarged.
inline constexpr qint64 lngMaximoFoto = qint64{512} << 20;

/// And one that is decoded ahead.
inline constexpr qint64 lngMaximoVecina = qint64{96} << 20;

/// What a decoded picture depends on, as a text: requests of the same text serve each other, except
/// that one of a smaller limit may give nothing where a larger one gives pixels.
/// @param huella size and time of the file.
[[nodiscard]] std::string fClave(const clsPedido &pedido, const clsHuella &huella);

/// Decodes a picture in the smallest size that is enough for the request, upright by its EXIF
/// orientation. Works on any thread. Only regular files are read.
/// @param bolAnulado may become true meanwhile: the result is then of no use.
[[nodiscard]] clsFuente fDecodificar(const clsPedido &pedido, const std::atomic<bool> &bolAnulado);

/// How many eighths of its size a picture of that size has to be decoded in.
/// @param tam     size of the picture as it is stored.
/// @param pedido  frame and zoom; the frame turned as the stored picture is.
/// @return 1 to 8, fewer than asked for when that takes more than pedido.lngMaximo; 0 when that is
///         not allowed or even one eighth takes more.
[[nodiscard]] int fOctavos(QSize tam, const clsPedido &pedido);

/// The picture shown in place of one that cannot be shown.
[[nodiscard]] clsFuente fNoImagen();
