#pragma once

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
