#pragma once

#include "sistema/archivo.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// A channel between this program and one that it starts: bytes both ways. And what such a program
/// has to do for itself.

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

/// Sends as many bytes as there is room for, without waiting; how many those were.
[[nodiscard]] clsResultado<std::size_t> fEnviar(const clsDescriptor &extremo,
                                                std::string_view strBytes);
/// Takes as many bytes as have come, without waiting; how many those were. EPIPE: no more will.
[[nodiscard]] clsResultado<std::size_t> fRecibir(const clsDescriptor &extremo, void *bytDatos,
                                                 std::size_t lngBytes);

/// For the program that was started, one that decodes what others made: at most so many bytes of
/// memory, no dump of it on the disk, and no end because the reader is gone.
void fLimitarPrograma(std::uint64_t lngMemoria);
/// Keeps large pieces of memory for their next use: to fetch them from the system, page by page,
/// takes longer than to decode a frame into them.
void fRetenerMemoria();
/// Gives back to the system what was kept.
void fDevolverMemoria();
