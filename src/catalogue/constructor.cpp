#include "catalogue/constructor.h"

#include "catalogue/diario.h"
#include "catalogue/registro.h"
#include "shared/ajustes.h"
#include "sistema/carpeta.h"
#include "sistema/reemplazo.h"

#include <vector>

namespace {

bool fEsTemporal(std::string_view strNombre)
{
    return clsReemplazo::fEsTemporal(strNombre, strFicheroCatalogo) ||
           clsReemplazo::fEsTemporal(strNombre, strFicheroDiario);
}

/// Names in the root that exist for a moment only: those above, the journal of a correction, and
/// those of the settings.
bool fEsPasajero(std::string_view strNombre)
{
    return fEsTemporal(strNombre) || strNombre == strFicheroDiario ||
           clsReemplazo::fEsTemporal(strNombre, strFicheroAjustes);
}

/// Deletes what programs that were killed have left. While the lock is held nobody else writes the
/// catalogue, but perhaps the settings.
void fQuitarRestos(const std::string &strRaiz)
{
    std::vector<clsEntradaCarpeta> lstEntradas;
    const auto carpeta = fAbrirCarpeta(strRaiz);
    if (!carpeta || fListarCarpeta(*carpeta, lstEntradas)) {
        return;
    }
    for (const clsEntradaCarpeta &entrada : lstEntradas) {
        if (entrada.entrada == Entrada::Archivo &&
            (fEsTemporal(entrada.strNombre) ||
             clsReemplazo::fEsResto(entrada.strNombre, strFicheroAjustes))) {
            fBorrarEn(*carpeta, entrada.strNombre);
        }
    }
}

/// Sees to it that some catalogue stands.
/// @return whether there was one before; a link, or an empty file, is none.
bool fAsentar(const std::string &strCatalogo)
{
    const auto antes = fConsultar(strCatalogo, false);
    if (antes && antes->tipo == TipoArchivo::Enlace) {
        fBorrar(strCatalogo);
    }
    // Exclusive: a catalogue that is there is not touched before its successor is whole.
    fCrearVacio(strCatalogo);
    return antes && antes->tipo == TipoArchivo::Archivo && antes->huella.lngBytes > 0;
}

} // namespace

clsConstruccion fConstruir(const std::string &strRaiz, clsObservador &observador, int intHilos)
{
    const clsCerrojoArchivo cerrojo(strRaiz);
    if (!cerrojo.fTenido()) {
        return {Construccion::Ocupada, {}};
    }
    fQuitarRestos(strRaiz);
    const std::string strCatalogo = strRaiz + std::string(strFicheroCatalogo);
    const bool bolHabia = fAsentar(strCatalogo);
    clsReemplazo archivo(strCatalogo);
    if (archivo.fError()) {
        return {Construccion::SinEscribir, archivo.fError()};
    }
    bool bolAlgo = false; // was recorded
    const clsRecorrido recorrido =
        fRecorrer(strRaiz, {intHilos, fEsPasajero}, observador, [&](std::string_view strLineas) {
            bolAlgo = true;
            archivo.fEscribir(strLineas);
            return !archivo.fError();
        });
    // With a failing root folder what was there before is worth more than what could be read now.
    if (recorrido.errorRaiz && (bolHabia || !bolAlgo)) {
        return {Construccion::RaizIlegible, recorrido.errorRaiz};
    }
    if (recorrido.bolInterrumpido && !archivo.fError()) {
        return {Construccion::Interrumpida, {}};
    }
    if (const clsError error = archivo.fConfirmar(true)) {
        return {Construccion::SinEscribir, error};
    }
    return {recorrido.errorRaiz ? Construccion::RaizIlegible : Construccion::Hecha,
            recorrido.errorRaiz};
}
