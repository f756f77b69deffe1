#pragma once

#include "app/menus.h"

class QObject;
class QToolBar;
class QToolButton;
class QWidget;

/// Builds the toolbar: `toolBar`, its buttons `toolBar1` to `toolBar10` by their index. The last
/// one lists the shortcuts.
QToolBar *fCrearBarra(QWidget *cliente, const clsElegido &fElegido);

/// The button with an index, which must be that of a command.
[[nodiscard]] QToolButton *fBoton(const QObject &ventana, int intIndice);
