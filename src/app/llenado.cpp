#include "app/al_lado.h"

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
#include <string_view>
#include <utility>

namespace {

/// What the catalogue gave.
struct clsLeida {
    clsMudanza mudanza;
    clsFilas filas;
    clsResultado<clsLectura> lectura;
};

/// Reads the catalogue, and takes it over before that where the archive has moved.
/// @param strExtensiones of the files that are listed, and of those that are only counted.
clsLeida fLeer(const std::string &strCatalogo, const std::string &strRaiz, bool bolEscritura,
               std::pair<std::string_view, std::string_view> strExtensiones)
{
    clsLeida leida{fBuscarMudanza(strCatalogo, strRaiz, fExisteArchivo), {}, clsError()};
    const bool bolEscrita =
        leida.mudanza.fHay() && bolEscritura && !fMudarCatalogo(strCatalogo, leida.mudanza);
    // By paths below today's root.
    if (bolEscritura && (bolEscrita || !leida.mudanza.fHay())) {
        fTerminarCorreccion(strRaiz);
    }
    leida.lectura =
        fLeerFicheroCatalogo(strCatalogo, strExtensiones.first, leida.filas,
                             bolEscrita ? clsMudanza() : leida.mudanza, strExtensiones.second);
    return leida;
}

/// The extensions of the files that are listed, and of those that are only counted: of other
/// formats, once a start.
std::pair<std::string_view, std::string_view> fExtensiones(const clsEstado &estado)
{
    const bool bolContar = !estado.bolFormatos && estado.lngOtros < 0;
    return {fExtensionesVisibles(estado.medios, estado.bolFormatos),
            bolContar ? fExtensionesVisibles(estado.medios, true) : std::string_view()};
}

/// Builds the catalogue; false when the window is to close, or Esc has left a disk that does not
/// answer.
[[nodiscard]] bool fConstruir(const clsComun &comun)
{
    comun.estado.bolIncidencias = false;
    frmBusqueda busqueda(comun.ventana, comun.mensajes, [&comun](bool bolCallado) {
        const bool bolSeguir = comun.fSeguirSinEsc();
        if (bolCallado || comun.estado.fCerrando()) {
            return bolSeguir;
        }
        comun.estado.parada = Parada::Ninguna; // a build that gets on cannot be cancelled
        return true;
    });
    const clsConstruccion construccion = busqueda.fBuscar(comun.archivo.strRaiz);
    if (construccion.construccion == Construccion::Ocupada) {
        fAvisarOcupada(comun.mensajes);
    } else if (construccion.construccion == Construccion::SinEscribir) {
        fAvisarSinCatalogo(comun.mensajes, fTextoError(construccion.error));
    }
    return construccion.construccion != Construccion::Interrumpida;
}

void fTomar(const clsComun &comun, clsLeida &leida, const std::string &strCatalogo)
{
    comun.modelo.fRellenar([&](clsFilas &filas) {
        leida.filas.fSuceder(filas);
        filas = std::move(leida.filas);
    });
    const std::string strMostrado = fTextoPantalla(strCatalogo) + "\r\n";
    const clsResultado<clsLectura> &lectura = leida.lectura;
    comun.estado.lngTotalKB = lectura ? lectura->lngTotalKB : 0;
    comun.estado.lngOtros = lectura ? lectura->lngContados : 0;
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

/// fAlLado for what the user calls one piece of work.
template <typename Hacer> auto fAnalizando(const clsComun &comun, Hacer fHacer)
{
    return fAlLado(comun, std::move(fHacer), QStringLiteral("Analizando..."));
}

} // namespace

std::optional<clsMudanza> fCargarCatalogo(const clsComun &comun, bool bolForzar)
{
    const std::string &strRaiz = comun.archivo.strRaiz;
    const bool bolEscritura = comun.archivo.bolEscritura;
    const std::string strCatalogo = strRaiz + std::string(strFicheroCatalogo);
    const auto bolExiste = fAnalizando(comun, [=] {
        const auto fExiste = [&strCatalogo] {
            return fHuella(strCatalogo, false).value_or(clsHuella{}).lngBytes > 0;
        };
        // A correction that was killed can have left it with the name of its backup only.
        if (bolEscritura && !fExiste()) {
            fTerminarCorreccion(strRaiz);
        }
        return fExiste();
    });
    if (!bolExiste) {
        return {};
    }
    const clsDecision decision = fDecidirCarga(bolForzar, *bolExiste, bolEscritura);
    if (decision.bolAnunciar) {
        comun.mensajes.fAviso(Icono::Aviso,
                              "Se va a crear el fichero de información de las imágenes.");
    }
    if (decision.bolConstruir && !fConstruir(comun)) {
        return {};
    }
    if (decision.bolSinPermiso) {
        fAvisarSinCatalogo(comun.mensajes, "No tienes permiso de escritura.");
    }
    auto leida = fAnalizando(comun, [=, strExtensiones = fExtensiones(comun.estado)] {
        return fLeer(strCatalogo, strRaiz, bolEscritura, strExtensiones);
    });
    if (!leida) {
        return {};
    }
    fTomar(comun, *leida, strCatalogo);
    return leida->mudanza;
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
