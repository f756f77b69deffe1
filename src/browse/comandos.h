#pragma once

#include "browse/avance.h"
#include "browse/mover.h"
#include "browse/seleccion.h"
#include "shared/medios.h"

#include <span>

/// Everything a command can ask the main window to do. The window fills it; tests record it.
class clsAcciones {
public:
    virtual ~clsAcciones() = default;
    // Moving
    virtual void fMover(Movimiento movimiento) = 0;
    virtual void fPaso(Sentido sentido) = 0;
    virtual void fFijarAvance(bool bolSiguiente) = 0;
    virtual void fPedirFecha() = 0;
    // The panel
    virtual void fCambiarModo() = 0;
    virtual void fMiniaturas() = 0;
    virtual void fFijarZoom(int intZoom) = 0;
    virtual void fAumentar() = 0;
    virtual void fReducir() = 0;
    virtual void fFijarTamMini(int intTam) = 0;
    // The list
    virtual void fElegirMedios(Medios medios) = 0;
    virtual void fMarcar(Seleccion seleccion) = 0;
    virtual void fTotales() = 0;
    virtual void fFiltrar() = 0;
    virtual void fQuitarFiltro() = 0;
    virtual void fActualizarLista() = 0;
    // Files
    virtual void fAbrirArchivo() = 0;
    virtual void fAbrirCarpeta() = 0;
    virtual void fCopiar() = 0;
    virtual void fAgregarAlBaul() = 0;
    virtual void fVaciarBaul() = 0;
    virtual void fMostrarBaul() = 0;
    virtual void fMostrarExif() = 0;
    // Dates
    virtual void fBuscarFecha() = 0;
    virtual void fModificarFecha(bool bolSiempre) = 0;
    // Help
    virtual void fMostrarAyuda() = 0;
    virtual void fMostrarAcerca() = 0;
};

/// What decides whether a command may run.
struct clsEstado {
    bool bolHayLista = false;  ///< the list has rows
    bool bolOcupado = false;   ///< the window is busy
    bool bolDibujando = false; ///< a picture is being waited for: what is current is not yet shown
    bool bolFiltrada = false;  ///< the list shows what passed a filter
    bool bolHayBaul = false;   ///< there are files in the Baúl
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
    void (*fEjecutar)(clsAcciones &);      ///< one call; the work lives behind it
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
