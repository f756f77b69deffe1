#pragma once

#include "viewer/fuente.h"

#include <atomic>

/// Whether a photo is not for this program to decode: everything that does not begin as JPEG does.
/// Our child program does that, locked in. One that cannot be read is no such photo.
/// @param strRuta tells whether it is a raw photo.
[[nodiscard]] bool fAjena(const clsAbierto &foto, const std::string &strRuta);

/// Has such a photo decoded by a child, as fDecodificar does, in three seconds of the processors,
/// and 40 ms for each megabyte of the file. Safe on several threads; a call waits as long as all
/// children are at work. Null also where there is no child program, or it cannot lock itself in.
/// @param pedido what for; at zoom 0 the picture fits into the frame and is never enlarged.
/// @param bolPasajero set to whether there may be one another time.
[[nodiscard]] clsFuente fDecodificarAjena(const clsAbierto &foto, const clsPedido &pedido,
                                          const std::atomic<bool> &bolAnulado,
                                          bool *bolPasajero = nullptr);
