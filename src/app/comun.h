#pragma once

#include "app/arranque.h"
#include "browse/estado.h"
#include "shared/mensajes.h"
#include "shared/ocupado.h"
#include "shared/ritmo.h"

#include <functional>
#include <string>

class clsInformacion;
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
    clsOcupacion &ocupacion;
    clsInformacion &informacion;
    /// Makes a position current and shows it.
    std::function<void(int)> fMostrar;
    /// Empties the viewing panel.
    std::function<void()> fVaciarPanel;
    /// Fills the list anew.
    /// @param bolForzar the catalogue is built before; for the rest see fActualTrasLlenar.
    std::function<void(bool bolForzar, const std::string &strRuta, int lngSiFalta)> fLlenar;
    /// Shows in menus and toolbar what the state has become.
    std::function<void()> fEstadoCambiado;
    /// Lets events run; false when the window is to close.
    clsSeguir fSeguir;
};
