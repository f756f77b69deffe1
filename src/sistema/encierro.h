#pragma once

#include "sistema/resultado.h"

#include <chrono>
#include <cstdint>

/// What a program does to itself that decodes what others made, before it looks at any of it: what
/// takes it over then finds nothing to do harm with. In a library of its own, for such programs
/// only; nothing of it can be undone.

/// At most so many bytes of memory and so much time of the processors, after which the system kills
/// it; one open file besides the first three; no byte written to a file, no dump of its memory, and
/// no end because the reader is gone.
void fLimitarPrograma(std::uint64_t lngMemoria, std::chrono::seconds procesador);

/// From now on no name reaches a file or folder, no port another machine, no signal another program
/// (Landlock, as far as this system has it). What is open stays so. Call it before the first thread
/// is started.
/// @return whether the system has it at all.
bool fCerrarArchivos();

/// The same, and from now on the system refuses with EPERM whatever is not needed for decoding
/// files that are handed in (seccomp): it takes descriptors that come with bytes on its standard
/// input, reads at positions of open files, writes to its standard output, has memory, threads and
/// the time. It opens, connects, starts, signals, changes nothing, and no memory becomes code.
/// @return why that cannot be had; the program must decode nothing then.
[[nodiscard]] clsError fEncerrar();
