#include "app/comun.h"
#include "browse/seleccion.h"
#include "catalogue/modelo_fotos.h"
#include "dates/clsFile.h"
#include "duplicates/frmDuplicados.h"

namespace {

/// Ticks these files in the list, and no others.
void fMarcarCopias(const clsComun &comun, const std::vector<std::string> &lstRutas)
{
    const clsOcupado ocupado(comun.ocupacion);
    comun.modelo.fMarcar([&](clsFilas &filas) { fMarcarSolo(filas, lstRutas); });
    comun.fMostrar(comun.estado.lngActual);
}

void fBuscarDuplicados(const clsComun &comun)
{
    frmDuplicados ventana(comun.ventana, fCandidatos(comun.estado.filas), comun.archivo.strRaiz,
                          {fFechaCorrecta, fImagenes(comun)});
    ventana.setWindowIcon(comun.ventana->windowIcon());
    if (const auto lstRutas = ventana.fMostrar(); !lstRutas.empty() && !comun.estado.fCerrando()) {
        fMarcarCopias(comun, lstRutas);
    }
}

} // namespace

void fAtenderDuplicados(const clsComun &comun, clsMandos &mandos)
{
    mandos.fAtender("duplicados", [&comun] { fBuscarDuplicados(comun); });
}
