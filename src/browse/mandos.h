#pragma once

#include "browse/comandos.h"

#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Who does the work of the commands.
class clsMandos {
public:
    /// @param estado decides what may run; must outlive this.
    explicit clsMandos(const clsEstado &estado) : m_estado(estado) {}

    /// The owner of a work says so, once.
    /// @param strObra see clsComando::fObra; must outlive this.
    /// @param fHacer  gets the command's value.
    void fAtender(std::string_view strObra, std::function<void(int)> fHacer);
    void fAtender(std::string_view strObra, std::function<void()> fHacer);

    /// Runs a command if it may run now.
    void fEjecutar(const clsComando &comando) const;

    /// Handles a key press of the main window.
    /// @return whether the key must not reach the focused control.
    [[nodiscard]] bool fTecla(int intTecla, int intEstadoMayus) const;

    /// Names of commands whose work nobody does.
    [[nodiscard]] std::vector<std::string_view> fSinAtender() const;

private:
    const clsEstado &m_estado;
    std::unordered_map<std::string_view, std::function<void(int)>> m_mapObras;
};
