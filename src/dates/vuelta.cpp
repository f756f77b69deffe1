#include "dates/vuelta.h"

#include "dates/deshacer.h"

#include <cerrno>

namespace {

using clsVistoOError = clsResultado<clsVisto>;

/// Whether it is the file with its old time, exactly; or with the one that the correction gave it.
bool fComoAntes(const clsVistoOError &visto, const clsAnotacion &anotacion)
{
    return visto && visto->huella == anotacion.antes.huella;
}

bool fComoDespues(const clsVistoOError &visto, const clsAnotacion &anotacion)
{
    return visto && fParecida(visto->huella, anotacion.despues);
}

/// Whether it is the link that was corrected, and what it leads to is not there: as a rule because
/// that has got a new name, too. It gets its old time by itself.
bool fEnlaceRoto(const clsVistoOError &visto, const clsAnotacion &anotacion)
{
    return visto && visto->bolRoto && visto->huella.lngBytes == anotacion.antes.huella.lngBytes &&
           visto->identidad.lngNumero == anotacion.antes.identidad.lngNumero;
}

clsVuelta fDejar(clsError error) { return {clsVuelta::Caso::Dejar, error}; }

/// For a file that has its old path, as far as can be told.
clsVuelta fEnSuSitio(const clsAnotacion &anotacion, const clsVistoOError &visto)
{
    return !visto ? fDejar(visto.fError())
           : fComoAntes(visto, anotacion) || fEnlaceRoto(visto, anotacion)
               ? clsVuelta{clsVuelta::Caso::Hecha, {}}
           : fComoDespues(visto, anotacion) ? clsVuelta{clsVuelta::Caso::Hora, {}}
                                            : fDejar(errorCambiado);
}

} // namespace

clsVuelta fVuelta(const clsAnotacion &anotacion, const clsVistoOError &vistoA,
                  const clsVistoOError &vistoDe)
{
    if (anotacion.fIntacta()) {
        return {clsVuelta::Caso::Hecha, {}};
    }
    if (anotacion.strA == anotacion.strDe || (!vistoA && vistoA.fError() == ENOENT)) {
        return fEnSuSitio(anotacion, vistoDe);
    }
    const bool bolAntes = fComoAntes(vistoA, anotacion) || fEnlaceRoto(vistoA, anotacion);
    if (!bolAntes && !fComoDespues(vistoA, anotacion)) {
        const clsVuelta vuelta = fEnSuSitio(anotacion, vistoDe); // it never had the other path
        return vuelta.caso != clsVuelta::Caso::Dejar
                   ? vuelta
                   : fDejar(vistoA ? errorCambiado : vistoA.fError());
    }
    if (!vistoDe && vistoDe.fError() == ENOENT) {
        return {bolAntes ? clsVuelta::Caso::Nombre : clsVuelta::Caso::Toda, {}};
    }
    const bool bolSuyo = vistoDe && vistoDe->identidad == vistoA->identidad &&
                         vistoA->lngNombres > anotacion.antes.lngNombres;
    return bolSuyo ? clsVuelta{clsVuelta::Caso::Soltar, {}}
                   : fDejar(vistoDe ? EEXIST : vistoDe.fError());
}
