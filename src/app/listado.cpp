#include "app/al_lado.h"
#include "browse/seleccion.h"
#include "catalogue/modelo_fotos.h"
#include "filter/frmFiltro.h"
#include "filter/mayusculas.h"
#include "shared/numeros.h"
#include "sistema/entorno.h"

#include <QString>

#include <algorithm>
#include <optional>
#include <string>

namespace {

/// Fills the list anew; the file that is current stays so, if it is still listed.
void fRecargar(const clsComun &comun, bool bolForzar)
{
    comun.fLlenar(bolForzar, comun.estado.filas.fVacia()
                                 ? ""
                                 : comun.estado.filas.fRuta(comun.estado.lngActual));
}

void fElegirMedios(const clsComun &comun, Medios medios)
{
    comun.estado.medios = medios;
    comun.fEstadoCambiado();
    comun.ajustes.fGuardarIni(strSeccionGeneral, "FOTOVIDEO",
                              std::to_string(static_cast<int>(medios)));
    fRecargar(comun, false);
}

void fAlternarFormatos(const clsComun &comun)
{
    comun.estado.bolFormatos = !comun.estado.bolFormatos;
    comun.fEstadoCambiado();
    comun.ajustes.fGuardarIni(strSeccionGeneral, "FORMATOS", comun.estado.bolFormatos ? "1" : "0");
    fRecargar(comun, false);
}

void fActualizar(const clsComun &comun)
{
    if (comun.mensajes.fSiNo("¿Actualizar lista de archivos?")) {
        fRecargar(comun, true);
    }
}

void fTomarFiltrado(const clsComun &comun, const clsFiltrado &filtrado)
{
    const clsOcupado ocupado(comun.ocupacion);
    comun.informacion.fAnunciar(QStringLiteral("Filtrando..."));
    comun.modelo.fRellenar([&](clsFilas & /*filas*/) {
        fTomarFiltradas(comun.estado, filtrado.lstFilas, filtrado.lngTotalKB);
    });
    comun.fEstadoCambiado();
    comun.fMostrar(comun.estado.lngActual);
}

void fFiltrar(const clsComun &comun, clsValoresFiltro &valores)
{
    frmFiltro dialogo(comun.ventana, comun.estado.filas, valores, comun.mensajes, comun.fSeguir,
                      comun.estado.bolFormatos);
    const auto filtrado = dialogo.fMostrar();
    if (filtrado && !comun.estado.fCerrando()) {
        fTomarFiltrado(comun, *filtrado);
    }
}

void fQuitarFiltro(const clsComun &comun)
{
    if (comun.mensajes.fAceptarCancelar("¿Quitar Filtro?")) {
        fRecargar(comun, false);
    }
}

void fMarcar(const clsComun &comun, Seleccion seleccion)
{
    const clsOcupado ocupado(comun.ocupacion);
    comun.modelo.fMarcar(
        [&](clsFilas &filas) { fSeleccionar(filas, seleccion, fALaVista(comun.estado)); });
    comun.fMostrar(comun.estado.lngActual);
}

void fTotales(const clsComun &comun)
{
    comun.mensajes.fAviso(
        Icono::Aviso,
        fTextoTotales(comun.estado.filas.fCantidad(), comun.estado.lngTotalKB, fSignosLocales()),
        "Totales");
}

} // namespace

void fFiltrarPor(const clsComun &comun, const clsFiltro &filtro)
{
    const clsFilas &filas = comun.estado.filas;
    const clsOcupado ocupado(comun.ocupacion);
    std::optional<clsFiltrado> filtrado;
    {
        clsTrabajo trabajo(comun, QStringLiteral("Filtrando..."));
        filtrado = fFiltrar(filas, filtro, fMayusculasCompuestas, [&](int lngMiradas) {
            comun.informacion.fLugar(std::min(lngMiradas, filas.fCantidad() - 1),
                                     filas.fCantidad());
            return trabajo.fSeguir();
        });
    }
    if (comun.estado.fCerrando()) {
        return;
    }
    comun.informacion.fLugar(comun.estado.lngActual, filas.fCantidad());
    if (filtrado && filtrado->lstFilas.empty()) {
        comun.mensajes.fAviso(Icono::Problema, std::string(strNingunaImagen));
    } else if (filtrado) {
        fTomarFiltrado(comun, *filtrado);
    }
}

void fAtenderListado(const clsComun &comun, clsMandos &mandos)
{
    mandos.fAtender("medios", [&comun](int intCuales) {
        fElegirMedios(comun, static_cast<Medios>(intCuales));
    });
    mandos.fAtender("formatos", [&comun] { fAlternarFormatos(comun); });
    mandos.fAtender("actualizar", [&comun] { fActualizar(comun); });
    // The dialog shows again what it last filtered by.
    mandos.fAtender("filtrar",
                    [&comun, valores = clsValoresFiltro()]() mutable { fFiltrar(comun, valores); });
    mandos.fAtender("quitarFiltro", [&comun] { fQuitarFiltro(comun); });
    mandos.fAtender("marcar",
                    [&comun](int intCual) { fMarcar(comun, static_cast<Seleccion>(intCual)); });
    mandos.fAtender("totales", [&comun] { fTotales(comun); });
}
