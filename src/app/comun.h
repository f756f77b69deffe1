#pragma once

#include "app/arranque.h"
#include "browse/mandos.h"
#include "catalogue/mudanza.h"
#include "shared/mensajes.h"
#include "shared/ocupado.h"
#include "shared/ritmo.h"
#include "viewer/pieza_mini.h"

#include <functional>
#include <optional>
#include <string>

class clsInformacion;
struct clsFiltro;
class clsModeloFotos;
class QWidget;

/// What start-up found out about the archive.
struct clsArchivo {
    std::string strRaiz; ///< root folder with a trailing "/"
    bool bolEscritura;   ///< files can be made in it
    clsPreferencias preferencias;
};

/// What the parts of the main window (list, copies, dates) have in common. All of it outlives them.
struct clsComun {
    QWidget *ventana; ///< parent of their dialogs
    const clsArchivo &archivo;
    clsEstado &estado;
    clsModeloFotos &modelo; ///< the rows are changed through it
    clsMensajes &mensajes;
    clsAjustes &ajustes;
    clsAjustes &escritorio; ///< what is remembered for the desktop
    clsOcupacion &ocupacion;
    clsInformacion &informacion;
    clsFuentesMini fuentes; ///< of thumbnails
    /// Makes a position current and shows it.
    std::function<void(int)> fMostrar;
    /// Empties the viewing panel.
    std::function<void()> fVaciarPanel;
    /// Fills the list anew.
    /// @param bolForzar the catalogue is built before; for the rest see fActualTrasLlenar.
    std::function<void(bool bolForzar, const std::string &strRuta)> fLlenar;
    /// Shows in menus and toolbar what the state has become.
    std::function<void()> fEstadoCambiado;
    /// Lets events run; false when the window is to close.
    clsSeguir fSeguir;

    /// Lets events run; false when Esc was pressed, too.
    [[nodiscard]] bool fSeguirSinEsc() const
    {
        return fSeguir() && estado.parada == Parada::Ninguna;
    }
};

// The parts say which commands they attend to.

/// The list as a whole: what it holds, what is ticked, its totals.
void fAtenderListado(const clsComun &comun, clsMandos &mandos);
/// Copies of files, to a folder and to the Baúl.
void fAtenderCopias(const clsComun &comun, clsMandos &mandos);
/// The dates of files: EXIF, search for wrong ones, correction.
void fAtenderFechas(const clsComun &comun, clsMandos &mandos);
/// Many files at once: repairing their dates, taking a correction back.
void fAtenderReparaciones(const clsComun &comun, clsMandos &mandos);
/// Files of the same content.
void fAtenderDuplicados(const clsComun &comun, clsMandos &mandos);
/// A show of all files, or of the ticked ones.
void fAtenderPresentacion(const clsComun &comun, clsMandos &mandos);
/// Moving along the list.
void fAtenderPasos(const clsComun &comun, clsMandos &mandos);
/// Help, About, and what opens other programs.
void fAtenderProgramas(const clsComun &comun, clsMandos &mandos);

/// Gives small pictures of files to windows beside the main one: path, side of the box in device
/// pixels. On any thread.
using clsImagenes = std::function<QImage(const std::string &strRuta, int intLado)>;
[[nodiscard]] clsImagenes fImagenes(const clsComun &comun);

/// Reads the catalogue into the list, which is empty, and before that builds it where that is
/// wanted or needed. Says what went wrong; the list may still be empty then. The catalogue of an
/// archive that has moved is taken over, on the disk, too, where that can be written.
/// @return by what its paths were taken over; nothing when Esc has left a disk that does not
///         answer, or the window is to close.
[[nodiscard]] std::optional<clsMudanza> fCargarCatalogo(const clsComun &comun, bool bolForzar);
/// Say why the catalogue is not written: another Miravel works on it; or the reason given.
void fAvisarOcupada(clsMensajes &mensajes);
void fAvisarSinCatalogo(clsMensajes &mensajes, const std::string &strMotivo);
/// Filters the list, as the dialog does, without it.
void fFiltrarPor(const clsComun &comun, const clsFiltro &filtro);
/// Counts the files in the Baúl, and shows what the state has become.
void fContarElBaul(const clsComun &comun);
/// Opens the current file with its default program.
void fAbrirArchivo(const clsComun &comun);
