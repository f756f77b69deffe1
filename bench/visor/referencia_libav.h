#pragma once

/// The least that a frame of a video takes with libav, in this process: opens the file, looks at
/// its streams, goes to a tenth of the length, decodes one frame and scales it to a box of that
/// side.
/// @return whether there was one.
[[nodiscard]] bool fReferenciaLibav(const char *strRuta, int intLado);
