#pragma once

#include "catalogue/recorrido.h"

#include <string>

/// How building the catalogue ended. It was replaced in the first case; where there was none, also
/// by what could be read of a failing root.
enum class Construccion {
    Hecha,        ///< the new catalogue stands
    Ocupada,      ///< another Miravel builds or corrects in this archive
    RaizIlegible, ///< the root folder could not be read whole (the observer was told)
    SinEscribir,  ///< writing failed, see error
    Interrumpida  ///< the observer ended the walk
};

struct clsConstruccion {
    Construccion construccion = Construccion::Hecha;
    clsError error;
};

/// Walks the archive and replaces its catalogue, whole or not at all. Where there is none yet, an
/// empty one stands during the walk, which records it as a file like any other.
/// @param strRaiz  root folder with a trailing "/".
/// @param intHilos threads that read ahead; 0: the usual number.
[[nodiscard]] clsConstruccion fConstruir(const std::string &strRaiz, clsObservador &observador,
                                         int intHilos = 0);

/// What loading the list has to do about the catalogue file before reading it.
struct clsDecision {
    bool bolAnunciar = false;   ///< say that the catalogue is going to be made
    bool bolConstruir = false;  ///< build it
    bool bolSinPermiso = false; ///< it would have to be built, but the root cannot be written
};

/// @param bolForzar    the user asked for a new catalogue.
/// @param bolExiste    there is one (a file of 0 bytes counts as none).
/// @param bolEscritura the root folder can be written.
[[nodiscard]] constexpr clsDecision fDecidirCarga(bool bolForzar, bool bolExiste, bool bolEscritura)
{
    const bool bolHaceFalta = bolForzar || !bolExiste;
    return {!bolForzar && !bolExiste, bolHaceFalta && bolEscritura, bolHaceFalta && !bolEscritura};
}
