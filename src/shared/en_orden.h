#pragma once

#include "shared/hilos.h"
#include "shared/ritmo.h"

/// Does the pieces of work of the places 0, 1, 2 ... ahead on threads and takes their answers in
/// that order.
/// @param fPieza gives the piece of a place, which runs on a thread, perhaps still when all of this
///               is over: it must not refer to anything that ends with it.
/// @param fTomar gets a place and its answer; false ends the work.
/// @param fPaso  runs before the answer of a place is looked at, again every 50 ms while it is
///               waited for; false ends the work.
/// @return whether the answers of all places were taken, none of them with false.
template <typename Pieza, typename Tomar, typename Paso>
bool fEnOrden(int lngLugares, int intHilos, const Pieza &fPieza, const Tomar &fTomar,
              const Paso &fPaso)
{
    constexpr std::size_t lngAdelanto = 64;
    bool bolSeguir = true;
    clsHilos hilos({.intHilos = intHilos, .bolEnOrden = true});
    int lngSiguiente = 0;
    for (int lngLugar = 0; bolSeguir && lngLugar < lngLugares; ++lngLugar) {
        for (; lngSiguiente < lngLugares && hilos.fPendientes() < lngAdelanto; ++lngSiguiente) {
            hilos.fPedir(fPieza(lngSiguiente), [&bolSeguir, &fTomar, lngSiguiente](auto respuesta) {
                bolSeguir = fTomar(lngSiguiente, std::move(respuesta));
            });
        }
        do {
            if (!fPaso(lngLugar)) {
                return false;
            }
        } while (!hilos.fAtender(pausaRitmo));
    }
    return bolSeguir;
}
