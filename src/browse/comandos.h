#pragma once

#include <span>

/// Everything a command can ask the main window to do. The window fills it; tests record it.
class clsAcciones {
public:
    virtual ~clsAcciones() = default;
    virtual void fPrimero() = 0;
    virtual void fRetroceder() = 0;
    virtual void fAvanzar() = 0;
    virtual void fUltimo() = 0;
    virtual void fAbrirArchivo() = 0;
    virtual void fAjustar() = 0;
    virtual void fCambiarModo() = 0;
    virtual void fMiniaturas() = 0;
    virtual void fAumentar() = 0;
    virtual void fReducir() = 0;
    virtual void fActualizarLista() = 0;
    virtual void fMostrarExif() = 0;
    virtual void fBuscarFecha() = 0;
    virtual void fModificarFecha(bool bolSiempre) = 0;
    void fCorregirSiMal() { fModificarFecha(false); }
    void fCorregirSiempre() { fModificarFecha(true); }
};

/// What decides whether a command may run.
struct clsEstado {
    bool bolHayLista = false;  ///< the list has rows
    bool bolOcupado = false;   ///< the window is busy
    bool bolDibujando = false; ///< a picture is being waited for: what is current is not yet shown
};

/// Shift state a key asks for. "With" means Shift alone: Ctrl+Shift or Alt+Shift does not count.
enum class Mayus { Con, Sin, Indiferente };

/// One command of the main window. Keys, menus and the toolbar read this table.
struct clsComando {
    const char *strNombre;                 ///< unique
    int intTecla;                          ///< key number, 0: none (see teclas.h)
    Mayus mayus;                           ///< Shift state of the key
    const char *strMenu;                   ///< objectName of its menu entry, nullptr: none
    int intBoton;                          ///< index of its toolbar button, 0: none
    bool (*fPermitido)(const clsEstado &); ///< may it run now?
    void (clsAcciones::*fEjecutar)();      ///< one call; the work lives behind it
};

[[nodiscard]] std::span<const clsComando> fComandos();

/// The command of a key; nullptr when it has none.
/// @param intMayus Shift state bits, see teclas.h.
[[nodiscard]] const clsComando *fComandoDeTecla(int intTecla, int intEstadoMayus);

/// The command of a toolbar button or a menu entry; nullptr when it has none.
[[nodiscard]] const clsComando *fComandoDeBoton(int intBoton);
[[nodiscard]] const clsComando *fComandoDeMenu(const char *strMenu);

/// Runs a command if it may run now.
void fEjecutar(const clsComando &comando, const clsEstado &estado, clsAcciones &acciones);

/// Handles a key press of the main window.
/// @return whether the key must not reach the focused control.
[[nodiscard]] bool fTeclaPulsada(int intTecla, int intEstadoMayus, const clsEstado &estado,
                                 clsAcciones &acciones);

/// The texts of the "Teclas" button, in order.
[[nodiscard]] std::span<const char *const> fTextosTeclas();
