#pragma once

#include <QMenu>

#include <functional>

class QMenuBar;

/// Builds the menus of the main window, each entry an action with its given name, and the pop-up
/// menu of the picture. Entries that nothing is connected to are disabled.
/// @param fElegida runs with an entry's name when the user chooses it.
/// @return the pop-up menu.
QMenu *fCrearMenus(QMenuBar &barra, const std::function<void(const QString &)> &fElegida);

/// Puts the only check mark of an array of entries ("mnuOpcionesFotosVideos") on one of them.
void fMarcarEntrada(QMenuBar &barra, const char *strArreglo, int intIndice);
