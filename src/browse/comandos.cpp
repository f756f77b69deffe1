#include "browse/comandos.h"

#include "browse/mover.h"
#include "browse/seleccion.h"
#include "browse/teclas.h"

#include <algorithm>
#include <iterator>

namespace {

bool fSiempre(const clsEstado & /*estado*/) { return true; }
bool fFiltrada(const clsEstado &estado) { return estado.bolFiltrada; }
bool fConBaul(const clsEstado &estado) { return estado.lngEnBaul > 0; }

bool fEnMiniaturas(const clsEstado &estado, int /*intValor*/) { return estado.bolMiniaturas; }
bool fEnCompleta(const clsEstado &estado, int /*intValor*/) { return estado.bolCompleta; }
bool fConFormatos(const clsEstado &estado, int /*intValor*/) { return estado.bolFormatos; }
bool fConTiempo(const clsEstado &estado, int /*intValor*/) { return estado.bolTiempo; }
bool fCabeTiempo(const clsEstado &estado) { return !estado.filas.fVacia() && !estado.bolCompleta; }
bool fEsZoom(const clsEstado &estado, int intZoom) { return estado.intZoom == intZoom; }
bool fEsTamMini(const clsEstado &estado, int intTam) { return estado.intTamMini == intTam; }
bool fSonMedios(const clsEstado &estado, int intMedios)
{
    return static_cast<int>(estado.medios) == intMedios;
}

template <typename Numerado>
constexpr clsComando::clsObra fObra(const char *strObra, Numerado valor)
{
    return {strObra, static_cast<int>(valor)};
}

using enum Espera;
constexpr Mayus Con = Mayus::Con;
constexpr Mayus Sin = Mayus::Sin;

// The texts of the list of shortcuts are kept to the letter, also the two that read "Shit" and the
// fifteenth, which names F11 for F12.
// Formatted by hand: the formatter tears the rows apart.
// clang-format off
constexpr clsComando lstComandos[] = {
    // Keys and toolbar
    {.strNombre = "abrir", .tecla = {intTeclaEnter},
     .linea = {16, "Enter: Abrir con programa predeterminado."}, .espera = ALaVista},
    {.strNombre = "anular", .tecla = {intTeclaEsc},
     .linea = {18, "[ESC]: Anula el modo de avance."}, },
    {.strNombre = "avance", .tecla = {intTeclaMenor},
     .linea = {17, "[>]: Cambia el modo de avance."}},
    {.strNombre = "buscarFecha", .tecla = {'E'},
     .linea = {22, "[E]: Buscar la primera fecha incorrecta."}, .espera = ALaVista},
    {.strNombre = "corregir", .tecla = {'W', Sin},
     .linea = {20, "[W]: Modificar fecha (si es incorrecta)."}, .obra = fObra("corregir", false),
     .espera = ALaVista},
    {.strNombre = "corregirMas", .tecla = {'W', Con},
     .linea = {21, "Shift + [W]: Modificar fecha (siempre)."}, .obra = fObra("corregir", true),
     .espera = ALaVista},
    {.strNombre = "irFecha", .tecla = {'D'},
     .linea = {19, "[D]: Ir a una fecha en concreto."}, .espera = ALaVista},
    {.strNombre = "aumentar", .tecla = {intTeclaMas},
     .linea = {8, "[+]: Aumenta zoom ó tamaño thumbnail."}, .obra = fObra("aumentar", 1)},
    {.strNombre = "reducir", .tecla = {intTeclaMenos},
     .linea = {9, "[-]: Reduce zoom ó tamaño thumbnail."}, .obra = fObra("aumentar", -1)},
    {.strNombre = "modo", .tecla = {'M'}, .linea = {7, "[M]: Modo (Thumbnail/Vista normal)."},
     .boton = {1, "ThumbNail", "miniaturas"}, .fMarca = fEnMiniaturas},
    {.strNombre = "primero", .tecla = {intTeclaF11, Con},
     .linea = {13, "Shit + [F11]: Ir al inicio."}, .boton = {3, "Primera", "primera"},
     .obra = fObra("mover", Movimiento::Primero), .espera = Paso},
    {.strNombre = "atras", .tecla = {intTeclaF11, Sin}, .linea = {12, "[F11]: Retroceder."},
     .boton = {4, "Anterior", "anterior"}, .obra = fObra("paso", Sentido::Atras), .espera = Paso},
    {.strNombre = "adelante", .tecla = {intTeclaF12, Sin}, .linea = {14, "[F12]: Avanzar."},
     .boton = {5, "Siguiente", "siguiente"}, .obra = fObra("paso", Sentido::Adelante),
     .espera = Paso},
    {.strNombre = "ultimo", .tecla = {intTeclaF12, Con},
     .linea = {15, "Shit + [F11]: Ir al final."}, .boton = {6, "Ultima", "ultima"},
     .obra = fObra("mover", Movimiento::Ultimo), .espera = Paso},
    {.strNombre = "exif", .tecla = {'I'}, .boton = {8, "Información EXIF", "exif"},
     .espera = ALaVista},

    // Baúl
    {.strNombre = "agregar", .tecla = {'A'}, .linea = {1, "[A]: Añadir al Baúl."},
     .entrada = {Menu::Baul, "mnuBaulAñadir", "&Añadir"}, .espera = ALaVista},
    {.strNombre = "vaciar", .entrada = {Menu::Baul, "mnuBaulVaciar", "&Vacíar"},
     .fPermitido = fConBaul},
    {.strNombre = "baul", .tecla = {'B'}, .linea = {2, "[B]: Mostrar Baúl."},
     .entrada = {Menu::Baul, "mnuBaulAbrir", "&Mostrar"}, .fPermitido = fSiempre},

    // Opciones
    {.strNombre = "carpeta", .tecla = {'C'}, .linea = {3, "[C]: Abrir carpeta contenedora."},
     .entrada = {Menu::Opciones, "mnuAbrirCarpetaContenedora", "A&brir carpeta contenedora"},
     .espera = ALaVista},
    {.strNombre = "copiar", .entrada = {Menu::Opciones, "mnuOpcionesCopiar", "&Copiar a ..."},
     .espera = ALaVista},
    {.strNombre = "totales", .entrada = {Menu::Opciones, "mnuOpcionesTotal", "Mostrar &Total"},
     .fPermitido = fSiempre},
    {.strNombre = "actualizar", .linea = {11, "[F5]: Actualizar lista de archivos."},
     .entrada = {Menu::Opciones, "mnuOpcionesActualizar", "&Actualizar lista de archivos", "F5"},
     .espera = ALaVista, .fPermitido = fSiempre},
    {.strNombre = "filtrar", .tecla = {'F', Sin}, .linea = {4, "[F]: Poner Filtro."},
     .entrada = {Menu::Opciones, "mnuOpcionesFiltrar", "&Filtrar", "", true}, .espera = ALaVista},
    {.strNombre = "quitarFiltro", .tecla = {'F', Con},
     .linea = {5, "Shift + [F]: Quitar Filtro."},
     .entrada = {Menu::Opciones, "mnuOpcionesQuitarFiltro", "&Quitar Filtro"}, .espera = ALaVista,
     .fPermitido = fFiltrada},
    {.strNombre = "fotos",
     .entrada = {Menu::Opciones, "mnuOpcionesFotosVideos0", "Mostrar solo Fot&os", "", true},
     .obra = fObra("medios", Medios::Fotos), .fPermitido = fSiempre, .fMarca = fSonMedios},
    {.strNombre = "videos",
     .entrada = {Menu::Opciones, "mnuOpcionesFotosVideos1", "Mostrar solo &Vídeos"},
     .obra = fObra("medios", Medios::Videos), .fPermitido = fSiempre, .fMarca = fSonMedios},
    {.strNombre = "fotosVideos",
     .entrada = {Menu::Opciones, "mnuOpcionesFotosVideos2", "Mostrar Fotos &y Vídeos"},
     .obra = fObra("medios", Medios::Todos), .fPermitido = fSiempre, .fMarca = fSonMedios},
    {.strNombre = "pequeno",
     .entrada = {Menu::Opciones, "mnuOpcionesThump0", "Thumbnail &Pequeño", "", true},
     .obra = fObra("tamMini", 0), .fMarca = fEsTamMini},
    {.strNombre = "medio", .entrada = {Menu::Opciones, "mnuOpcionesThump1", "Thumbnail &Medio"},
     .obra = fObra("tamMini", 1), .fMarca = fEsTamMini},
    {.strNombre = "grande", .entrada = {Menu::Opciones, "mnuOpcionesThump2", "Thumbnail &Grande"},
     .obra = fObra("tamMini", 2), .fMarca = fEsTamMini},
    {.strNombre = "todo",
     .entrada = {Menu::Opciones, "mnuSeleccion0", "Se&leccionar Todo", "", true},
     .obra = fObra("marcar", Seleccion::Todo)},
    {.strNombre = "pantalla", .entrada = {Menu::Opciones, "mnuSeleccion1", "Seleccionar Pa&ntalla"},
     .obra = fObra("marcar", Seleccion::Pantalla)},
    {.strNombre = "nada", .entrada = {Menu::Opciones, "mnuSeleccion2", "&Deseleccionar Todo"},
     .obra = fObra("marcar", Seleccion::Nada)},
    {.strNombre = "invertir", .entrada = {Menu::Opciones, "mnuSeleccion3", "&Invertir Seleccion"},
     .obra = fObra("marcar", Seleccion::Invertir)},

    // Más
    {.strNombre = "reparar", .entrada = {Menu::Mas, "mnuMasReparar", "&Reparar fechas...", "F2"},
     .espera = ALaVista},
    {.strNombre = "revisar", .entrada = {Menu::Mas, "mnuMasRevisar", "Re&visar fechas...", "F3"},
     .espera = ALaVista},
    {.strNombre = "deshacer",
     .entrada = {Menu::Mas, "mnuMasDeshacer", "&Deshacer corrección...", "Ctrl+Z"},
     .espera = ALaVista, .fPermitido = fSiempre},
    {.strNombre = "tiempo",
     .entrada = {Menu::Mas, "mnuMasTiempo", "&Línea de tiempo", "F4", false, true},
     .fPermitido = fCabeTiempo, .fMarca = fConTiempo},
    {.strNombre = "irTiempo", .tecla = {intTeclaF4, Sin}, .fPermitido = fCabeTiempo},
    {.strNombre = "duplicados",
     .entrada = {Menu::Mas, "mnuMasDuplicados", "&Buscar duplicados..."}, .espera = ALaVista},
    {.strNombre = "presentacion",
     .entrada = {Menu::Mas, "mnuMasPresentacion", "Pre&sentación", "F6"}, .espera = ALaVista},
    {.strNombre = "completa", .entrada = {Menu::Mas, "mnuMasCompleta", "&Pantalla completa", "F9"},
     .fPermitido = fSiempre, .fMarca = fEnCompleta},
    {.strNombre = "girarIzquierda",
     .entrada = {Menu::Mas, "mnuMasGirarIzquierda", "Girar a la &izquierda", "F7", true},
     .obra = fObra("girar", -1), .espera = ALaVista},
    {.strNombre = "girarDerecha",
     .entrada = {Menu::Mas, "mnuMasGirarDerecha", "Girar a la derec&ha", "F8"},
     .obra = fObra("girar", 1), .espera = ALaVista},
    {.strNombre = "formatos", .entrada = {Menu::Mas, "mnuMasFormatos", "Otros &formatos", "", true},
     .fPermitido = fSiempre, .fMarca = fConFormatos},
    {.strNombre = "vaciarCache",
     .entrada = {Menu::Mas, "mnuMasVaciarCache", "Vaciar &caché de miniaturas", "", true},
     .fPermitido = fSiempre},

    // Ayuda
    {.strNombre = "ayuda", .linea = {10, "[F1]: Ayuda."},
     .entrada = {Menu::Ayuda, "mnuAyudaAyuda", "&Ayuda", "F1"}, .fPermitido = fSiempre},
    {.strNombre = "acerca", .entrada = {Menu::Ayuda, "mnuAyudaAcerca", "A&cerca de ..."},
     .fPermitido = fSiempre},

    // The pop-up of the picture
    {.strNombre = "miniaturas", .entrada = {Menu::Foto, "mnuFotoMiniaturas", "&Miniaturas"}},
    {.strNombre = "ajustar", .tecla = {'J'}, .linea = {6, "[J]: Ajustar a pantalla."},
     .entrada = {Menu::Foto, "mnuFotoAjustar", "&Ajustar"}, .obra = fObra("zoom", 0),
     .fMarca = fEsZoom},
    {.strNombre = "zoom400", .entrada = {Menu::Foto, "mnuFotoValor0", "&400%", "", true},
     .obra = fObra("zoom", 400), .fMarca = fEsZoom},
    {.strNombre = "zoom200", .entrada = {Menu::Foto, "mnuFotoValor1", "&200%"},
     .obra = fObra("zoom", 200), .fMarca = fEsZoom},
    {.strNombre = "zoom100", .entrada = {Menu::Foto, "mnuFotoValor2", "&100%"},
     .obra = fObra("zoom", 100), .fMarca = fEsZoom},
    {.strNombre = "zoom50", .entrada = {Menu::Foto, "mnuFotoValor3", "&50%"},
     .obra = fObra("zoom", 50), .fMarca = fEsZoom},
    {.strNombre = "zoom25", .entrada = {Menu::Foto, "mnuFotoValor4", "25%"},
     .obra = fObra("zoom", 25), .fMarca = fEsZoom},
    {.strNombre = "zoom12", .entrada = {Menu::Foto, "mnuFotoValor5", "12%"},
     .obra = fObra("zoom", 12), .fMarca = fEsZoom},
};
// clang-format on

constexpr clsMenu lstMenus[] = {
    {Menu::Baul,     "mnuBaul",     "Baú&l (0)"},
    {Menu::Opciones, "mnuOpciones", "&Opciones" },
    {Menu::Mas,      "mnuMas",      "Má&s"     },
    {Menu::Ayuda,    "mnuAyuda",    "A&yuda"    },
    {Menu::Foto,     "mnuFoto",     ""          },
};

bool fCoincide(Mayus mayus, int intEstadoMayus)
{
    return mayus == Mayus::Indiferente || (mayus == Mayus::Con) == (intEstadoMayus == intMayus);
}

} // namespace

std::span<const clsComando> fComandos() { return lstComandos; }

std::span<const clsMenu> fMenus() { return lstMenus; }

const clsComando *fComandoDeTecla(int intTecla, int intEstadoMayus)
{
    // The system's own key combinations are no commands.
    if (intTecla == 0 || (intEstadoMayus & intSuper) != 0) {
        return nullptr;
    }
    const auto it = std::find_if(std::begin(lstComandos), std::end(lstComandos),
                                 [=](const clsComando &comando) {
                                     return comando.tecla.intNumero == intTecla &&
                                            fCoincide(comando.tecla.mayus, intEstadoMayus);
                                 });
    return it == std::end(lstComandos) ? nullptr : it;
}

bool fPuede(const clsComando &comando, const clsEstado &estado)
{
    const bool bolPaso = estado.bolPaso && comando.espera != Nada;
    const bool bolDibujo = estado.intDibujos > 0 && comando.espera == ALaVista;
    return !estado.bolOcupado && !bolPaso && !bolDibujo && comando.fPermitido(estado);
}
