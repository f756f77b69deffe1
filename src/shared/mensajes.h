#pragma once

#include <string>

/// The icon of a message box: a problem, a notice, or the reason why the program ends.
enum class Icono { Problema, Aviso, Critico };

/// What the program says and asks. The window shows boxes; tests answer from a script.
class clsMensajes {
public:
    virtual ~clsMensajes() = default;
    /// Shows a text (UTF-8) and waits until it is accepted.
    virtual void fAviso(Icono icono, const std::string &strTexto) = 0;
    /// Asks a yes/no question; No is the default and the answer of Esc.
    [[nodiscard]] virtual bool fSiNo(const std::string &strTexto) = 0;
};
