#pragma once

#include <optional>
#include <string>

/// The icon of a message box: a problem, a notice, or the reason why the program ends.
enum class Icono { Problema, Aviso, Critico };

/// What the program says and asks. The window shows boxes; tests answer from a script.
class clsMensajes {
public:
    virtual ~clsMensajes() = default;
    /// Shows a text (UTF-8) and waits until it is accepted.
    virtual void fAviso(Icono icono, const std::string &strTexto,
                        const std::string &strTitulo = "Miravel") = 0;
    /// Shows a text that perhaps many others follow. For work behind the gate of the main window,
    /// which can be closed beside the box: that ends the box, too.
    virtual void fAvisoEnSerie(const std::string &strTexto) { fAviso(Icono::Problema, strTexto); }
    /// Asks a yes/no question; No is the default and the answer of Esc.
    [[nodiscard]] virtual bool fSiNo(const std::string &strTexto) = 0;
    /// Asks for leave to do something; Cancel is the default and the answer of Esc.
    [[nodiscard]] virtual bool fAceptarCancelar(const std::string &strTexto) = 0;
    /// Asks for a line of text; nothing when the user cancels.
    [[nodiscard]] virtual std::optional<std::string> fPedir(const std::string &strPregunta) = 0;
    /// Asks for a folder that exists; empty when the user cancels. Its path has no "/" at its end
    /// unless it is the root of the file system.
    /// @param strAntes the folder to begin with; empty: the program's choice.
    [[nodiscard]] virtual std::string fElegirCarpeta(const std::string &strTitulo,
                                                     const std::string &strAntes = {}) = 0;
};
