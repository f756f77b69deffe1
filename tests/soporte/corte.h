#pragma once

#include "sistema/llamadas.h"

/// A disk that keeps nothing for sure before it is flushed, as a journaling file system has one:
/// names and times reach it in order, all that were given before a flush of whatever; the bytes of
/// a file when that file is flushed. For a child process that ends with fCortarLuz.
[[nodiscard]] const clsLlamadas &fDiscoOlvidadizo();

/// What is lost when the power goes.
enum class Olvido {
    Contenidos, ///< bytes that were not flushed; names and times were written back just before
    Todo,       ///< names and times as well
};

/// Has the disk lose what was not flushed.
void fCortarLuz(Olvido olvido);
