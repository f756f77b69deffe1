#pragma once

#include "sistema/archivo.h"
#include "viewer/mensaje_hijo.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

// What the child programs have in common: requests come on standard input, answers go to standard
// output. They are programs of their own because a decoder that hangs or dies over a broken file
// must not take Miravel with it, and one that a prepared file takes over must find itself locked
// in.

namespace hijo {

/// An image that is answered, upright.
struct clsFotograma {
    EstadoHijo estado = EstadoHijo::SinImagen;
    int intAncho = 0; ///< pixels; 0 without an image
    int intAlto = 0;
    std::vector<std::uint32_t> lstPuntos; ///< 0xffRRGGBB, row by row
    clsMedidaHijo natural{};              ///< of a picture
};

/// Does what is asked for with the open file.
/// @param fAnulado whether nobody waits for the answer any more.
using clsHacer = clsFotograma (*)(const clsPeticionHijo &peticion, const clsAbierto &archivo,
                                  const std::function<bool()> &fAnulado);

/// Locks the program in, then answers requests until the other side is gone.
/// @param fPreparar what has to be done before, without limits: no file can be opened afterwards.
/// @param plazo      time of the processors for one file, and 40 ms more for each of its megabytes;
///                   0: any.
[[noreturn]] void fServir(void (*fPreparar)(), clsHacer fHacer,
                          std::chrono::milliseconds plazo = {});

} // namespace hijo
