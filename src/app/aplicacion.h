#pragma once

class QApplication;

/// Gives the application its icon, its embedded files and the Spanish language, Qt's own texts
/// included, whatever the locale.
void fPrepararAplicacion(QApplication &aplicacion);
