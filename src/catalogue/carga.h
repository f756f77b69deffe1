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

/// The row that becomes current after the list was sorted.
/// @param bolReelegir   whether a row was current before.
/// @param lngEncontrada position of the path that was asked for, -1 when it is not in the list.
/// @param bolRuta       whether a path was asked for.
/// @param lngActual     position of the current row in the new order.
/// @param lngSiFalta    position to take when that path is not in the list.
[[nodiscard]] constexpr int fElegida(bool bolReelegir, bool bolRuta, int lngEncontrada,
                                     int lngActual, int lngSiFalta = 0)
{
    if (!bolReelegir) {
        return 0;
    }
    const int lngElegida = bolRuta ? lngEncontrada : lngActual;
    return lngElegida < 0 ? lngSiFalta : lngElegida;
}
