#pragma once

#include "shared/mensajes.h"

/// Message boxes of the program, with Spanish buttons in every locale.
class clsMensajesQt : public clsMensajes {
public:
    void fAviso(Icono icono, const std::string &strTexto) override;
    bool fSiNo(const std::string &strTexto) override;
};
