#include "browse/baul.h"

#include "shared/fecha.h"
#include "shared/rutas.h"
#include "sistema/carpeta.h"

#include <algorithm>
#include <cerrno>
#include <utility>
#include <vector>

namespace {

/// The folder, opened if it is one of the user's own and no link. No "/" at its end.
clsDescriptor fAbrirPropia(const std::string &strCarpeta)
{
    auto carpeta = fAbrirCarpeta(fBarraFinal(strCarpeta, true), false);
    const auto datos = carpeta ? fConsultar(*carpeta) : carpeta.fError();
    return datos && datos->lngDueno == fUsuario() ? std::move(*carpeta) : clsDescriptor();
}

/// No error when the folder stands there and is the user's own; EPERM when something else bears
/// the name.
clsError fAsegurar(const std::string &strCarpeta)
{
    const clsError error = fCrearCarpeta(strCarpeta);
    if (!error) {
        return {};
    }
    const auto datos = fConsultar(strCarpeta, false);
    if (!datos) {
        return error;
    }
    return datos->tipo == TipoArchivo::Carpeta && datos->lngDueno == fUsuario() ? 0 : EPERM;
}

bool fEsFichero(const clsDescriptor &carpeta, const clsEntradaCarpeta &entrada)
{
    if (entrada.entrada != Entrada::Desconocida) {
        return entrada.entrada == Entrada::Archivo;
    }
    const auto datos = fConsultarEn(carpeta, entrada.strNombre, false);
    return datos && (datos->tipo == TipoArchivo::Archivo || datos->tipo == TipoArchivo::Enlace);
}

/// Names of the files and links directly in an open folder.
std::vector<std::string> fFicheros(const clsDescriptor &carpeta)
{
    std::vector<clsEntradaCarpeta> lstEntradas;
    static_cast<void>(fListarCarpeta(carpeta, lstEntradas)); // what was listed counts
    std::vector<std::string> lstNombres;
    lstNombres.reserve(lstEntradas.size());
    for (clsEntradaCarpeta &entrada : lstEntradas) {
        if (fEsFichero(carpeta, entrada)) {
            lstNombres.push_back(std::move(entrada.strNombre));
        }
    }
    return lstNombres;
}

} // namespace

clsLugarBaul fAsegurarBaul(const std::string &strTemporal)
{
    const std::string strPrimera = strTemporal + "Miravel";
    const clsError error = fAsegurar(strPrimera);
    if (error != EPERM) {
        return {strPrimera + '/', error};
    }
    const std::string strSegunda = strPrimera + '-' + std::to_string(fUsuario());
    return {strSegunda + '/', fAsegurar(strSegunda)};
}

int fContarBaul(const std::string &strCarpeta)
{
    const clsDescriptor carpeta = fAbrirPropia(strCarpeta);
    return carpeta.fAbierto() ? static_cast<int>(fFicheros(carpeta).size()) : 0;
}

void fVaciarBaul(const std::string &strCarpeta, const std::string &strRaiz)
{
    const clsDescriptor carpeta = fAbrirPropia(strCarpeta);
    if (!carpeta.fAbierto() || !fQuedaFuera(strRaiz, carpeta)) {
        return;
    }
    for (const std::string &strNombre : fFicheros(carpeta)) {
        fBorrarEn(carpeta, strNombre);
    }
}

std::string fNombreEnBaul(const std::string &strRuta)
{
    std::string strNombre(fNombreDe(strRuta));
    const auto huella = fHuella(strRuta);
    if (!huella) {
        return strNombre;
    }
    return fEscribirFecha(fFechaLocal(huella->lngSegundos), "yyyy.MM.dd.") + strNombre;
}

clsDestino fDestinoEnBaul(const std::string &strCarpeta)
{
    return [strCarpeta](const std::string &strOrigen) {
        return strCarpeta + fNombreEnBaul(strOrigen);
    };
}
