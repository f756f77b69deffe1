#include "dates/busqueda.h"

#include "shared/adelanto.h"

namespace {

constexpr std::size_t lngAdelanto = 64;

} // namespace

std::optional<int> fBuscarIncorrecta(int lngDesde, const clsPreguntas &preguntas, int intHilos)
{
    clsAdelanto<std::string, bool> adelanto(preguntas.fCorrecta,
                                            intHilos > 0 ? intHilos : intHilosUsuales, lngAdelanto);
    int lngSiguiente = lngDesde;
    for (int lngPos = lngDesde; lngPos >= 0; --lngPos) {
        for (; lngSiguiente >= 0 && adelanto.fCabe(); --lngSiguiente) {
            adelanto.fDar(preguntas.fRuta(lngSiguiente));
        }
        std::optional<bool> bolCorrecta;
        while (!bolCorrecta) {
            if (!preguntas.fPaso(lngPos)) {
                return {};
            }
            bolCorrecta = adelanto.fTomar();
        }
        if (!*bolCorrecta) {
            return lngPos;
        }
    }
    return {};
}
