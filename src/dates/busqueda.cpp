#include "dates/busqueda.h"

#include "shared/en_orden.h"

std::optional<int> fBuscarIncorrecta(int lngDesde, const clsPreguntas &preguntas, int intHilos)
{
    std::optional<int> lngHallada;
    static_cast<void>(fEnOrden(
        lngDesde + 1, intHilos > 0 ? intHilos : intHilosUsuales,
        [&](int lngLugar) {
            return [fCorrecta = preguntas.fCorrecta,
                    strRuta = preguntas.fRuta(lngDesde - lngLugar)] { return fCorrecta(strRuta); };
        },
        [&](int lngLugar, bool bolCorrecta) {
            if (!bolCorrecta) {
                lngHallada = lngDesde - lngLugar;
            }
            return bolCorrecta;
        },
        [&](int lngLugar) { return preguntas.fPaso(lngDesde - lngLugar); }));
    return lngHallada;
}
