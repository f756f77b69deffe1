#include "dates/busqueda.h"

#include "shared/hilos.h"
#include "shared/ritmo.h"

std::optional<int> fBuscarIncorrecta(int lngDesde, const clsPreguntas &preguntas, int intHilos)
{
    constexpr std::size_t lngAdelanto = 64;
    bool bolCorrecta = true;
    clsHilos hilos({.intHilos = intHilos > 0 ? intHilos : intHilosUsuales, .bolEnOrden = true});
    int lngSiguiente = lngDesde;
    for (int lngPos = lngDesde; lngPos >= 0; --lngPos) {
        for (; lngSiguiente >= 0 && hilos.fPendientes() < lngAdelanto; --lngSiguiente) {
            hilos.fPedir([fCorrecta = preguntas.fCorrecta,
                          strRuta = preguntas.fRuta(lngSiguiente)] { return fCorrecta(strRuta); },
                         [&bolCorrecta](bool bolSuya) { bolCorrecta = bolSuya; });
        }
        do {
            if (!preguntas.fPaso(lngPos)) {
                return {};
            }
        } while (!hilos.fAtender(pausaRitmo));
        if (!bolCorrecta) {
            return lngPos;
        }
    }
    return {};
}
