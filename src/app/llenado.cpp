#include "app/comun.h"

#include "catalogue/constructor.h"
#include "catalogue/frmBusqueda.h"
#include "catalogue/lector.h"
#include "catalogue/modelo_fotos.h"
#include "catalogue/registro.h"
#include "dates/correccion.h"
#include "shared/errores.h"
#include "shared/texto.h"
#include "sistema/archivo.h"

#include <cerrno>
#include <optional>

namespace {

void fConstruir(const clsComun &comun)
{
    comun.estado.bolIncidencias = false;
    frmBusqueda busqueda(comun.ventana, comun.mensajes, comun.fSeguir);
    const clsConstruccion construccion = busqueda.fBuscar(comun.archivo.strRaiz);
    if (construccion.construccion == Construccion::Ocupada) {
        fAvisarOcupada(comun.mensajes);
    } else if (construccion.construccion == Construccion::SinEscribir) {
        fAvisarSinCatalogo(comun.mensajes, fTextoError(construccion.error));
    }
}

void fLeer(const clsComun &comun, const std::string &strCatalogo, const clsMudanza &mudanza)
{
    const std::string strMostrado = fTextoPantalla(strCatalogo) + "\r\n";
    clsResultado<clsLectura> lectura = clsError();
    comun.modelo.fRellenar([&](clsFilas &filas) {
        lectura = fLeerFicheroCatalogo(strCatalogo, fExtensionesVisibles(comun.estado.medios),
                                       filas, mudanza);
    });
    comun.estado.lngTotalKB = lectura ? lectura->lngTotalKB : 0;
    if (!lectura && lectura.fError() != ENOENT) {
        comun.mensajes.fAviso(
            Icono::Problema,
            strMostrado + fTextoError(lectura.fError()) +
                (lectura.fError() == EBADMSG ? "\r\nActualiza la lista de archivos." : ""));
    } else if (lectura && lectura->fallo) {
        comun.mensajes.fAviso(Icono::Problema,
                              strMostrado + "Línea " + std::to_string(lectura->fallo->lngLinea) +
                                  ": '" + lectura->fallo->strTexto +
                                  "' no es un tamaño.\r\nActualiza la lista de archivos.");
    }
}

} // namespace

clsMudanza fCargarCatalogo(const clsComun &comun, bool bolForzar)
{
    const std::string strCatalogo = comun.archivo.strRaiz + std::string(strFicheroCatalogo);
    const auto fExiste = [&strCatalogo] {
        return fHuella(strCatalogo, false).value_or(clsHuella{}).lngBytes > 0;
    };
    // A correction that was killed can have left it with the name of its backup only.
    if (comun.archivo.bolEscritura && !fExiste()) {
        fTerminarCorreccion(comun.archivo.strRaiz);
    }
    const clsDecision decision = fDecidirCarga(bolForzar, fExiste(), comun.archivo.bolEscritura);
    if (decision.bolAnunciar) {
        comun.mensajes.fAviso(Icono::Aviso,
                              "Se va a crear el fichero de información de las imágenes.");
    }
    if (decision.bolConstruir) {
        fConstruir(comun);
    }
    if (decision.bolSinPermiso) {
        fAvisarSinCatalogo(comun.mensajes, "No tienes permiso de escritura.");
    }
    clsMudanza mudanza = fBuscarMudanza(strCatalogo, comun.archivo.strRaiz, fExisteArchivo);
    const bool bolEscrita =
        mudanza.fHay() && comun.archivo.bolEscritura && !fMudarCatalogo(strCatalogo, mudanza);
    // By paths below today's root.
    if (comun.archivo.bolEscritura && (bolEscrita || !mudanza.fHay())) {
        fTerminarCorreccion(comun.archivo.strRaiz);
    }
    fLeer(comun, strCatalogo, bolEscrita ? clsMudanza() : mudanza);
    return mudanza;
}

void fAvisarOcupada(clsMensajes &mensajes)
{
    mensajes.fAviso(Icono::Problema,
                    "Otro Miravel está trabajando con estos archivos. Inténtalo cuando termine.");
}

void fAvisarSinCatalogo(clsMensajes &mensajes, const std::string &strMotivo)
{
    mensajes.fAviso(Icono::Problema, "No se puede generar la lista de ficheros.\r\n" + strMotivo);
}
