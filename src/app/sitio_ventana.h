#pragma once

class clsAjustes;
class QWidget;

/// Puts a window that is not shown yet where it stood the last time, and maximises it if it was.
/// @param escritorio what is remembered for the desktop, see escritorio.h.
void fPonerEnSitio(QWidget &ventana, clsAjustes &escritorio);

/// Remembers where it stands.
void fGuardarSitio(const QWidget &ventana, clsAjustes &escritorio);
