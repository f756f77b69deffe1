#pragma once

#include "catalogue/diario.h"

/// What is to be done with a file to take a correction back.
struct clsVuelta {
    enum class Caso {
        Hecha,  ///< nothing: it is as it was before
        Toda,   ///< it lies at its new path, and gets its old path and time
        Soltar, ///< the same, but its old path is one of its names already
        Hora,   ///< it lies at its old path, and gets its old time
        Nombre, ///< it lies at its new path and gets its old one; its time is right or will be
        Dejar   ///< nothing: see error
    };
    Caso caso = Caso::Dejar;
    clsError error;
};

/// Decides that.
/// @param vistoA  what lies at its new path.
/// @param vistoDe and at its old one; of the same path the same.
[[nodiscard]] clsVuelta fVuelta(const clsAnotacion &anotacion, const clsResultado<clsVisto> &vistoA,
                                const clsResultado<clsVisto> &vistoDe);
