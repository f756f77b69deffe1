#pragma once

#include "app/comun.h"

/// Reads the catalogue into the list, which is empty, and before that builds it where that is
/// wanted or needed. Says what went wrong; the list may still be empty then.
void fCargarCatalogo(const clsComun &comun, bool bolForzar);

/// Say why the catalogue is not written: another Miravel works on it; or the reason given.
void fAvisarOcupada(clsMensajes &mensajes);
void fAvisarSinCatalogo(clsMensajes &mensajes, const std::string &strMotivo);
