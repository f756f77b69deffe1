#pragma once

#include "browse/comandos.h"

#include <functional>

class QMainWindow;
class QMenu;
class QToolBar;
class QWidget;

/// What runs when the user chooses a command.
using clsElegido = std::function<void(const clsComando &)>;

/// Builds the menus of the main window, each entry an action with its given name, and the pop-up
/// menu of the picture.
/// @return the pop-up menu.
QMenu *fCrearMenus(QMainWindow &ventana, const clsElegido &fElegido);

/// Builds the toolbar: `toolBar`, its buttons `toolBar1` to `toolBar10` by their index. The last
/// one lists the shortcuts.
QToolBar *fCrearBarra(QWidget *cliente, const clsElegido &fElegido);

/// Shows a state in menus and toolbar: which commands could run, where the check marks belong, what
/// is in the Baúl, the advance mode.
void fMostrarEstado(const QMainWindow &ventana, const clsEstado &estado);
