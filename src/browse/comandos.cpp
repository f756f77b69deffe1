#include "browse/comandos.h"

#include "browse/teclas.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

bool fConLista(const clsEstado &estado) { return estado.bolHayLista && !estado.bolOcupado; }
bool fLibre(const clsEstado &estado) { return !estado.bolOcupado && !estado.bolDibujando; }
/// What acts on the current file must not do so before the user sees which one that is.
bool fALaVista(const clsEstado &estado) { return fConLista(estado) && fLibre(estado); }

using A = clsAcciones;
constexpr Mayus Con = Mayus::Con;
constexpr Mayus Sin = Mayus::Sin;
constexpr Mayus Da = Mayus::Indiferente;

constexpr clsComando lstComandos[] = {
    {"abrir",       intTeclaEnter, Da,  nullptr,                 0, fALaVista, &A::fAbrirArchivo   },
    {"ajustar",     intTeclaJ,     Da,  "mnuFotoAjustar",        0, fConLista, &A::fAjustar        },
    {"modo",        intTeclaM,     Da,  nullptr,                 1, fConLista, &A::fCambiarModo    },
    {"miniaturas",  0,             Da,  "mnuFotoMiniaturas",     0, fConLista, &A::fMiniaturas     },
    {"aumentar",    intTeclaMas,   Da,  nullptr,                 0, fConLista, &A::fAumentar       },
    {"reducir",     intTeclaMenos, Da,  nullptr,                 0, fConLista, &A::fReducir        },
    {"primero",     intTeclaF11,   Con, nullptr,                 3, fConLista, &A::fPrimero        },
    {"retroceder",  intTeclaF11,   Sin, nullptr,                 4, fConLista, &A::fRetroceder     },
    {"ultimo",      intTeclaF12,   Con, nullptr,                 6, fConLista, &A::fUltimo         },
    {"avanzar",     intTeclaF12,   Sin, nullptr,                 5, fConLista, &A::fAvanzar        },
    {"exif",        intTeclaI,     Da,  nullptr,                 8, fALaVista, &A::fMostrarExif    },
    {"buscarFecha", intTeclaE,     Da,  nullptr,                 0, fALaVista, &A::fBuscarFecha    },
    {"corregir",    intTeclaW,     Sin, nullptr,                 0, fALaVista, &A::fCorregirSiMal  },
    {"corregirMas", intTeclaW,     Con, nullptr,                 0, fALaVista, &A::fCorregirSiempre},
    {"actualizar",  0,             Da,  "mnuOpcionesActualizar", 0, fLibre,    &A::fActualizarLista},
};

// Kept to the letter, also the two that read "Shit" and the fifteenth, which names F11 for F12.
constexpr const char *lstTextos[] = {
    "[A]: Añadir al Baúl.",
    "[B]: Mostrar Baúl.",
    "[C]: Abrir carpeta contenedora.",
    "[F]: Poner Filtro.",
    "Shift + [F]: Quitar Filtro.",
    "[J]: Ajustar a pantalla.",
    "[M]: Modo (Thumbnail/Vista normal).",
    "[+]: Aumenta zoom ó tamaño thumbnail.",
    "[-]: Reduce zoom ó tamaño thumbnail.",
    "[F1]: Ayuda.",
    "[F5]: Actualizar lista de archivos.",
    "[F11]: Retroceder.",
    "Shit + [F11]: Ir al inicio.",
    "[F12]: Avanzar.",
    "Shit + [F11]: Ir al final.",
    "Enter: Abrir con programa predeterminado.",
    "[>]: Cambia el modo de avance.",
    "[ESC]: Anula el modo de avance.",
    "[D]: Ir a una fecha en concreto.",
    "[W]: Modificar fecha (si es incorrecta).",
    "Shift + [W]: Modificar fecha (siempre).",
    "[E]: Buscar la primera fecha incorrecta.",
};

bool fCoincide(Mayus mayus, int intEstadoMayus)
{
    return mayus == Mayus::Indiferente || (mayus == Mayus::Con) == (intEstadoMayus == intMayus);
}

template <typename Cumple> const clsComando *fBuscar(Cumple fCumple)
{
    const auto it = std::find_if(std::begin(lstComandos), std::end(lstComandos), fCumple);
    return it == std::end(lstComandos) ? nullptr : it;
}

} // namespace

std::span<const clsComando> fComandos() { return lstComandos; }

std::span<const char *const> fTextosTeclas() { return lstTextos; }

const clsComando *fComandoDeTecla(int intTecla, int intEstadoMayus)
{
    // The system's own key combinations are no commands.
    if (intTecla == 0 || (intEstadoMayus & intSuper) != 0) {
        return nullptr;
    }
    return fBuscar([=](const clsComando &comando) {
        return comando.intTecla == intTecla && fCoincide(comando.mayus, intEstadoMayus);
    });
}

const clsComando *fComandoDeBoton(int intBoton)
{
    return fBuscar(
        [=](const clsComando &comando) { return intBoton != 0 && comando.intBoton == intBoton; });
}

const clsComando *fComandoDeMenu(const char *strMenu)
{
    return fBuscar([=](const clsComando &comando) {
        return comando.strMenu != nullptr && std::string_view(comando.strMenu) == strMenu;
    });
}

void fEjecutar(const clsComando &comando, const clsEstado &estado, clsAcciones &acciones)
{
    if (comando.fPermitido(estado)) {
        (acciones.*comando.fEjecutar)();
    }
}

bool fTeclaPulsada(int intTecla, int intEstadoMayus, const clsEstado &estado, clsAcciones &acciones)
{
    if (!estado.bolHayLista) {
        return false;
    }
    if (const clsComando *const comando = fComandoDeTecla(intTecla, intEstadoMayus)) {
        fEjecutar(*comando, estado, acciones);
    }
    return fTragada(intTecla) || intTecla == intTeclaEsc || intTecla == intTeclaMenor;
}
