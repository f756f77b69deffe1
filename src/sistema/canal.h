#pragma once

#include "sistema/archivo.h"

#include <chrono>
#include <cstddef>
#include <string_view>

/// A channel between this program and one that it starts: bytes both ways, and open files.

/// Its two ends.
struct clsExtremos {
    clsDescriptor nuestro;
    clsDescriptor suyo;
};
[[nodiscard]] clsResultado<clsExtremos> fAbrirCanal();

/// Waits until an end can be read: something came, or the other end was closed.
/// @return whether it can; it cannot yet when the time has passed, or a little earlier.
[[nodiscard]] clsResultado<bool> fEsperarLectura(const clsDescriptor &extremo,
                                                 std::chrono::milliseconds plazo);
/// The same until there is room for more bytes.
[[nodiscard]] clsResultado<bool> fEsperarEscritura(const clsDescriptor &extremo,
                                                   std::chrono::milliseconds plazo);
/// Waits until the other end is closed, even when there is still something to read.
void fEsperarCierre(const clsDescriptor &extremo);

/// Sends as many bytes as there is room for, without waiting; how many those were. Fewer than a
/// page go whole or not at all.
/// @param adjunto an open file that goes with them.
[[nodiscard]] clsResultado<std::size_t>
fEnviar(const clsDescriptor &extremo, std::string_view strBytes, const clsDescriptor &adjunto);
/// Takes as many bytes as have come, without waiting; how many those were. EPIPE: no more will.
[[nodiscard]] clsResultado<std::size_t> fRecibir(const clsDescriptor &extremo, void *bytDatos,
                                                 std::size_t lngBytes);

/// Waits for what was sent with one call: at most so many bytes, and the file that went with them.
/// How many bytes those were; 0: no more will come.
[[nodiscard]] clsResultado<std::size_t> fRecibirAdjunto(const clsDescriptor &extremo,
                                                        void *bytDatos, std::size_t lngBytes,
                                                        clsDescriptor &adjunto);

/// For the program that was started: keeps large pieces of memory for their next use: to fetch them
/// from the system, page by page, takes longer than to decode a frame into them.
void fRetenerMemoria();
/// Gives back to the system what was kept.
void fDevolverMemoria();
