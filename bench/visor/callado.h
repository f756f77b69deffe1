#pragma once

#include "shared/mensajes.h"

/// Accepts everything without showing it.
class clsCallado : public clsMensajes {
public:
    void fAviso(Icono, const std::string &, const std::string &) override {}
    bool fSiNo(const std::string &) override { return true; }
    bool fAceptarCancelar(const std::string &) override { return true; }
    std::optional<std::string> fPedir(const std::string &) override { return {}; }
    std::string fElegirCarpeta(const std::string &, const std::string &) override { return {}; }
};
