#include "app/al_lado.h"
#include "app/frmAcerca.h"
#include "browse/ayuda.h"
#include "shared/errores.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/entorno.h"

#include <QScopedValueRollback>

namespace {

/// Empties the cache of thumbnails of photos.
void fVaciarCache(const clsComun &comun)
{
    const auto error = fAlLado(comun, [fotos = comun.fuentes.fotos] { return fotos->fVaciar(); });
    if (error && *error) {
        comun.mensajes.fAviso(Icono::Problema,
                              "No se ha podido vaciar la caché de miniaturas.\r\n" +
                                  fTextoError(*error));
    } else if (error) {
        comun.mensajes.fAviso(Icono::Aviso, "Se ha vaciado la caché de miniaturas.");
    }
}

/// Shows where a movement leads to, if it leads anywhere.
template <typename Paso> void fIr(const clsComun &comun, Paso paso)
{
    const QScopedValueRollback<bool> enPaso(comun.estado.bolPaso, true);
    if (const auto lngDestino = fDestino(comun.estado, paso)) {
        comun.fMostrar(*lngDestino);
    }
}

void fPedirFecha(const clsComun &comun)
{
    const QScopedValueRollback<bool> enPaso(comun.estado.bolPaso, true);
    std::optional<clsFecha> dia;
    while (!dia) {
        const auto strRespuesta = comun.mensajes.fPedir("Ir a la fecha (ddmmyyyy):");
        if (!strRespuesta || strRespuesta->empty() || comun.estado.fCerrando()) {
            return;
        }
        dia = fLeerRespuestaFecha(*strRespuesta);
    }
    if (const auto lngPos = fIrAFecha(comun.estado.filas, comun.estado.lngActual, *dia)) {
        comun.fMostrar(*lngPos);
    }
}

void fMostrarAyuda(const clsComun &comun)
{
    const std::string &strRaiz = comun.archivo.strRaiz;
    const auto error = fAlLado(comun, [strRaiz, bolEscritura = comun.archivo.bolEscritura] {
        return bolEscritura ? fEscribirAyuda(strRaiz) : clsError();
    });
    if (!error) {
        return;
    }
    const std::string strRuta = fRutaAyuda(strRaiz);
    if (*error) {
        comun.mensajes.fAviso(Icono::Problema,
                              fTextoPantalla(strRuta) + "\r\n" + fTextoError(*error));
    }
    fAbrirConSistema(strRuta);
}

void fMostrarAcerca(const clsComun &comun)
{
    frmAcerca acerca(comun.ventana);
    acerca.setWindowIcon(comun.ventana->windowIcon());
    QObject::connect(&acerca, &frmAcerca::fAyudaPedida, &acerca,
                     [&comun] { fMostrarAyuda(comun); });
    acerca.exec();
}

} // namespace

void fAtenderPasos(const clsComun &comun, clsMandos &mandos)
{
    mandos.fAtender("mover",
                    [&comun](int intCual) { fIr(comun, static_cast<Movimiento>(intCual)); });
    mandos.fAtender("paso",
                    [&comun](int intSentido) { fIr(comun, static_cast<Sentido>(intSentido)); });
    mandos.fAtender("avance", [&comun] {
        comun.estado.avance = fSiguienteAvance(comun.estado.avance);
        comun.fEstadoCambiado();
    });
    mandos.fAtender("irFecha", [&comun] { fPedirFecha(comun); });
}

void fAtenderProgramas(const clsComun &comun, clsMandos &mandos)
{
    mandos.fAtender("vaciarCache", [&comun] { fVaciarCache(comun); });
    mandos.fAtender("abrir", [&comun] { fAbrirArchivo(comun); });
    mandos.fAtender("carpeta", [&comun] {
        fAbrirConSistema(
            std::string(fCarpetaDe(comun.estado.filas.fRutaDisco(comun.estado.lngActual))));
    });
    mandos.fAtender("ayuda", [&comun] { fMostrarAyuda(comun); });
    mandos.fAtender("acerca", [&comun] { fMostrarAcerca(comun); });
}

void fAbrirArchivo(const clsComun &comun)
{
    if (!comun.estado.filas.fVacia()) { // the list can have changed since the double click
        fAbrirConSistema(comun.estado.filas.fRutaDisco(comun.estado.lngActual));
    }
}
