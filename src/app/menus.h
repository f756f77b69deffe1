#pragma once

#include "browse/comandos.h"

#include <QMenu>

#include <functional>

class QMenuBar;

/// Builds the menus of the main window, each entry an action with its given name, and the pop-up
/// menu of the picture.
/// @param fElegida runs with an entry's name when the user chooses it.
/// @return the pop-up menu.
QMenu *fCrearMenus(QMenuBar &barra, const std::function<void(const QString &)> &fElegida);

/// Enables the entries whose commands may run in a state of the window, and disables the others.
void fHabilitarEntradas(QMenuBar &barra, const clsEstado &estado);

/// Puts the only check mark of an array of entries ("mnuOpcionesFotosVideos") on one of them.
void fMarcarEntrada(QMenuBar &barra, const char *strArreglo, int intIndice);
