#pragma once

#include "browse/comandos.h"

#include <functional>

class QMainWindow;
class QMenu;

/// What runs when the user chooses a command.
using clsElegido = std::function<void(const clsComando &)>;

/// Builds the menus of the main window, each entry an action with its given name, and the pop-up
/// menu of the picture.
/// @return the pop-up menu.
QMenu *fCrearMenus(QMainWindow &ventana, const clsElegido &fElegido);

/// Enables the entries whose commands could run in a state, disables the others, and puts the check
/// marks of entries and buttons where they belong.
void fMostrarEstado(const QMainWindow &ventana, const clsEstado &estado);
