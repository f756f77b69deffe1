#pragma once

#include "browse/estado.h"

#include <span>
#include <string_view>

/// Shift state a key asks for. "With" means Shift alone: Ctrl+Shift or Alt+Shift does not count.
enum class Mayus { Con, Sin, Indiferente };

/// The menus; their names and titles stand in fMenus. Ninguno: the command has no entry.
enum class Menu { Ninguno, Baul, Opciones, Mas, Ayuda, Foto };

/// What a command waits for. While the window is busy none runs.
enum class Espera {
    Nada,
    Paso,    ///< no other command that moves is under way
    ALaVista ///< and what is current can be seen, so that the user knows which file it acts on
};

/// One command of the main window. Keys, menus, toolbar, pop-up and the list of shortcuts are made
/// from this table; whoever does the work says so to clsMandos. Texts are UTF-8.
struct clsComando {
    struct clsTecla {
        int intNumero = 0; ///< see teclas.h; 0: no key
        Mayus mayus = Mayus::Indiferente;
    };
    /// Its line in the list of shortcuts.
    struct clsLinea {
        int intLugar = 0; ///< from 1; 0: it is not listed
        const char *strTexto = "";
    };
    /// Its menu entry. Entries stand in the order of the table.
    struct clsEntrada {
        Menu menu = Menu::Ninguno;
        const char *strNombre = ""; ///< objectName of the QAction
        const char *strTexto = "";  ///< "&" stands before the letter that chooses it in the menu
        const char *strAtajo = "";  ///< the shortcut it shows and answers to
        bool bolRaya = false;       ///< a separator stands above it
        bool bolOtraTecla = false; ///< the shortcut is only shown: it is the key of another command
    };
    /// Its toolbar button. A number that no command has is a separator.
    struct clsBoton {
        int intIndice = 0;         ///< from 1, rising in the table; 0: none
        const char *strTexto = ""; ///< tooltip and accessible name
        const char *strIcono = "";
    };
    /// What is done. Commands that differ by a number have one handler, which gets that number.
    struct clsObra {
        std::string_view strNombre = {}; ///< empty: the command's own name
        int intValor = 0;
    };

    std::string_view strNombre; ///< unique
    clsTecla tecla = {};
    clsLinea linea = {};
    clsEntrada entrada = {};
    clsBoton boton = {};
    clsObra obra = {};
    Espera espera = Espera::Nada;
    /// Whether there is anything it could act on; its entry is enabled then.
    bool (*fPermitido)(const clsEstado &) = [](const clsEstado &estado) {
        return !estado.filas.fVacia();
    };
    /// Whether it carries the check mark; nullptr: never. Entries with the same function exclude
    /// each other.
    bool (*fMarca)(const clsEstado &, int intValor) = nullptr;

    [[nodiscard]] std::string_view fObra() const
    {
        return obra.strNombre.empty() ? strNombre : obra.strNombre;
    }
};

[[nodiscard]] std::span<const clsComando> fComandos();

/// A menu; those with a title stand in the menu bar, in this order.
struct clsMenu {
    Menu menu;
    const char *strNombre;
    const char *strTexto;
};
[[nodiscard]] std::span<const clsMenu> fMenus();

/// The command of a key; nullptr when it has none.
/// @param intEstadoMayus Shift state bits, see teclas.h.
[[nodiscard]] const clsComando *fComandoDeTecla(int intTecla, int intEstadoMayus);

/// Whether a command may run now.
[[nodiscard]] bool fPuede(const clsComando &comando, const clsEstado &estado);
