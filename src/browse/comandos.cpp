#include "browse/comandos.h"

#include "browse/teclas.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

bool fDesocupada(const clsEstado &estado) { return !estado.bolOcupado; }
bool fConLista(const clsEstado &estado) { return estado.bolHayLista && !estado.bolOcupado; }
bool fLibre(const clsEstado &estado) { return !estado.bolOcupado && !estado.bolDibujando; }
/// What acts on the current file must not do so before the user sees which one that is.
bool fALaVista(const clsEstado &estado) { return fConLista(estado) && fLibre(estado); }
bool fFiltrada(const clsEstado &estado) { return estado.bolFiltrada && fLibre(estado); }
bool fConBaul(const clsEstado &estado) { return estado.bolHayBaul && fDesocupada(estado); }

using A = clsAcciones;
using M = Movimiento;
using S = Seleccion;
constexpr Mayus Con = Mayus::Con;
constexpr Mayus Sin = Mayus::Sin;
constexpr Mayus Da = Mayus::Indiferente;

constexpr clsComando lstComandos[] = {
    {"abrir",        intTeclaEnter, Da,  nullptr,                      0, fALaVista,   [](A &a) { a.fAbrirArchivo(); }         },
    {"anular",       intTeclaEsc,   Da,  nullptr,                      0, fConLista,   [](A &a) { a.fFijarAvance(false); }     },
    {"avance",       intTeclaMenor, Da,  nullptr,                      0, fConLista,   [](A &a) { a.fFijarAvance(true); }      },
    {"buscarFecha",  intTeclaE,     Da,  nullptr,                      0, fALaVista,   [](A &a) { a.fBuscarFecha(); }          },
    {"corregir",     intTeclaW,     Sin, nullptr,                      0, fALaVista,   [](A &a) { a.fModificarFecha(false); }  },
    {"corregirMas",  intTeclaW,     Con, nullptr,                      0, fALaVista,   [](A &a) { a.fModificarFecha(true); }   },
    {"irFecha",      intTeclaD,     Da,  nullptr,                      0, fALaVista,   [](A &a) { a.fPedirFecha(); }           },
    {"aumentar",     intTeclaMas,   Da,  nullptr,                      0, fConLista,   [](A &a) { a.fAumentar(); }             },
    {"reducir",      intTeclaMenos, Da,  nullptr,                      0, fConLista,   [](A &a) { a.fReducir(); }              },
    {"modo",         intTeclaM,     Da,  nullptr,                      1, fConLista,   [](A &a) { a.fCambiarModo(); }          },
    {"primero",      intTeclaF11,   Con, nullptr,                      3, fConLista,   [](A &a) { a.fMover(M::Primero); }      },
    {"atras",        intTeclaF11,   Sin, nullptr,                      4, fConLista,   [](A &a) { a.fPaso(Sentido::Atras); }   },
    {"adelante",     intTeclaF12,   Sin, nullptr,                      5, fConLista,   [](A &a) { a.fPaso(Sentido::Adelante); }},
    {"ultimo",       intTeclaF12,   Con, nullptr,                      6, fConLista,   [](A &a) { a.fMover(M::Ultimo); }       },
    {"exif",         intTeclaI,     Da,  nullptr,                      8, fALaVista,   [](A &a) { a.fMostrarExif(); }          },
    {"agregar",      intTeclaA,     Da,  "mnuBaulAñadir",             0, fALaVista,   [](A &a) { a.fAgregarAlBaul(); }        },
    {"vaciar",       0,             Da,  "mnuBaulVaciar",              0, fConBaul,    [](A &a) { a.fVaciarBaul(); }           },
    {"baul",         intTeclaB,     Da,  "mnuBaulAbrir",               0, fDesocupada, [](A &a) { a.fMostrarBaul(); }          },
    {"carpeta",      intTeclaC,     Da,  "mnuAbrirCarpetaContenedora", 0, fALaVista,
     [](A &a) { a.fAbrirCarpeta(); }                                                                                           },
    {"copiar",       0,             Da,  "mnuOpcionesCopiar",          0, fALaVista,   [](A &a) { a.fCopiar(); }               },
    {"totales",      0,             Da,  "mnuOpcionesTotal",           0, fDesocupada, [](A &a) { a.fTotales(); }              },
    {"actualizar",   0,             Da,  "mnuOpcionesActualizar",      0, fLibre,      [](A &a) { a.fActualizarLista(); }      },
    {"filtrar",      intTeclaF,     Sin, "mnuOpcionesFiltrar",         0, fALaVista,   [](A &a) { a.fFiltrar(); }              },
    {"quitarFiltro", intTeclaF,     Con, "mnuOpcionesQuitarFiltro",    0, fFiltrada,
     [](A &a) { a.fQuitarFiltro(); }                                                                                           },
    {"fotos",        0,             Da,  "mnuOpcionesFotosVideos0",    0, fDesocupada,
     [](A &a) { a.fElegirMedios(Medios::Fotos); }                                                                              },
    {"videos",       0,             Da,  "mnuOpcionesFotosVideos1",    0, fDesocupada,
     [](A &a) { a.fElegirMedios(Medios::Videos); }                                                                             },
    {"fotosVideos",  0,             Da,  "mnuOpcionesFotosVideos2",    0, fDesocupada,
     [](A &a) { a.fElegirMedios(Medios::Todos); }                                                                              },
    {"pequeno",      0,             Da,  "mnuOpcionesThump0",          0, fConLista,   [](A &a) { a.fFijarTamMini(0); }        },
    {"medio",        0,             Da,  "mnuOpcionesThump1",          0, fConLista,   [](A &a) { a.fFijarTamMini(1); }        },
    {"grande",       0,             Da,  "mnuOpcionesThump2",          0, fConLista,   [](A &a) { a.fFijarTamMini(2); }        },
    {"todo",         0,             Da,  "mnuSeleccion0",              0, fConLista,   [](A &a) { a.fMarcar(S::Todo); }        },
    {"pantalla",     0,             Da,  "mnuSeleccion1",              0, fConLista,   [](A &a) { a.fMarcar(S::Pantalla); }    },
    {"nada",         0,             Da,  "mnuSeleccion2",              0, fConLista,   [](A &a) { a.fMarcar(S::Nada); }        },
    {"invertir",     0,             Da,  "mnuSeleccion3",              0, fConLista,   [](A &a) { a.fMarcar(S::Invertir); }    },
    {"ayuda",        0,             Da,  "mnuAyudaAyuda",              0, fDesocupada, [](A &a) { a.fMostrarAyuda(); }         },
    {"acerca",       0,             Da,  "mnuAyudaAcerca",             0, fDesocupada, [](A &a) { a.fMostrarAcerca(); }        },
    {"miniaturas",   0,             Da,  "mnuFotoMiniaturas",          0, fConLista,   [](A &a) { a.fMiniaturas(); }           },
    {"ajustar",      intTeclaJ,     Da,  "mnuFotoAjustar",             0, fConLista,   [](A &a) { a.fFijarZoom(0); }           },
    {"zoom400",      0,             Da,  "mnuFotoValor0",              0, fConLista,   [](A &a) { a.fFijarZoom(400); }         },
    {"zoom200",      0,             Da,  "mnuFotoValor1",              0, fConLista,   [](A &a) { a.fFijarZoom(200); }         },
    {"zoom100",      0,             Da,  "mnuFotoValor2",              0, fConLista,   [](A &a) { a.fFijarZoom(100); }         },
    {"zoom50",       0,             Da,  "mnuFotoValor3",              0, fConLista,   [](A &a) { a.fFijarZoom(50); }          },
    {"zoom25",       0,             Da,  "mnuFotoValor4",              0, fConLista,   [](A &a) { a.fFijarZoom(25); }          },
    {"zoom12",       0,             Da,  "mnuFotoValor5",              0, fConLista,   [](A &a) { a.fFijarZoom(12); }          },
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
        comando.fEjecutar(acciones);
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
