#pragma once

#include <functional>

class QToolBar;
class QWidget;

/// Builds the toolbar: `toolBar`, its buttons `toolBar1` to `toolBar10` by their index. Buttons
/// that nothing is connected to are disabled.
/// @param fPulsado runs with a button's index.
QToolBar *fCrearBarra(QWidget *cliente, const std::function<void(int)> &fPulsado);
