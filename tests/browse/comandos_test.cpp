#include "browse/comandos.h"

#include "browse/mandos.h"
#include "browse/teclas.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

namespace {

/// A window at rest.
/// @param bolLlena with a list that is filtered, and files in the Baúl.
clsEstado fEstado(bool bolLlena)
{
    clsEstado estado;
    if (bolLlena) {
        estado.filas.fAgregarFila("/r/a.jpg", "2010/01/01 00:00:00", 1);
    }
    estado.bolFiltrada = bolLlena;
    estado.lngEnBaul = bolLlena ? 1 : 0;
    return estado;
}

const clsComando &fComando(std::string_view strNombre)
{
    return *std::find_if(
        fComandos().begin(), fComandos().end(),
        [strNombre](const clsComando &comando) { return comando.strNombre == strNombre; });
}

TEST(Comandos, HaveNamesEntriesButtonsAndWorkOfTheirOwn)
{
    std::set<std::string_view> lstNombres;
    std::set<std::string> lstEntradas;
    std::set<std::pair<std::string_view, int>> lstObras;
    int intBoton = 0;
    for (const clsComando &comando : fComandos()) {
        SCOPED_TRACE(comando.strNombre);
        EXPECT_TRUE(lstNombres.insert(comando.strNombre).second);
        EXPECT_TRUE(lstObras.emplace(comando.fObra(), comando.obra.intValor).second);
        const bool bolEntrada = comando.entrada.menu != Menu::Ninguno;
        EXPECT_TRUE(!bolEntrada || lstEntradas.insert(comando.entrada.strNombre).second);
        EXPECT_TRUE(bolEntrada || comando.tecla.intNumero != 0) << "nothing starts it";
        if (comando.boton.intIndice != 0) {
            EXPECT_GT(comando.boton.intIndice, intBoton);
            intBoton = comando.boton.intIndice;
        }
    }
}

TEST(Comandos, NeverClaimTheSameKeyAndShift)
{
    for (const clsComando &uno : fComandos()) {
        for (const clsComando &otro : fComandos()) {
            const bool bolMisma = uno.tecla.intNumero == otro.tecla.intNumero;
            if (&uno != &otro && uno.tecla.intNumero != 0 && bolMisma) {
                SCOPED_TRACE(std::string(uno.strNombre) + " and " + std::string(otro.strNombre));
                EXPECT_NE(uno.tecla.mayus, otro.tecla.mayus);
                EXPECT_NE(uno.tecla.mayus, Mayus::Indiferente);
            }
            const std::string strAtajo = uno.entrada.strAtajo;
            EXPECT_TRUE(&uno == &otro || strAtajo.empty() || strAtajo != otro.entrada.strAtajo);
        }
    }
}

TEST(Comandos, ListTheirShortcutsToTheLetter)
{
    const char *const lstTextos[] = {
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
    std::map<int, std::string> mapLineas;
    for (const clsComando &comando : fComandos()) {
        if (comando.linea.intLugar != 0) {
            EXPECT_TRUE(mapLineas.emplace(comando.linea.intLugar, comando.linea.strTexto).second);
            EXPECT_TRUE(comando.tecla.intNumero != 0 || *comando.entrada.strAtajo != '\0')
                << comando.strNombre << " is listed but has no key";
        }
    }
    ASSERT_EQ(mapLineas.size(), std::size(lstTextos));
    for (int intLugar = 1; const char *const strTexto : lstTextos) {
        EXPECT_EQ(mapLineas[intLugar++], strTexto);
    }
}

TEST(Comandos, WaitForWhatTheyActOn)
{
    const std::set<std::string_view> lstALaVista = {
        "abrir",      "exif",         "buscarFecha",    "corregir",    "corregirMas",
        "actualizar", "irFecha",      "copiar",         "agregar",     "carpeta",
        "filtrar",    "quitarFiltro", "reparar",        "revisar",     "deshacer",
        "duplicados", "presentacion", "girarIzquierda", "girarDerecha"};
    const std::set<std::string_view> lstPasos = {"primero", "atras", "adelante", "ultimo"};
    for (const clsComando &comando : fComandos()) {
        SCOPED_TRACE(comando.strNombre);
        clsEstado estado = fEstado(true);
        EXPECT_TRUE(fPuede(comando, estado)) << "at rest";
        const bool bolALaVista = lstALaVista.contains(comando.strNombre);
        estado.intDibujos = 1;
        EXPECT_EQ(fPuede(comando, estado), !bolALaVista) << "while a picture is being drawn";
        estado.intDibujos = 0;
        estado.bolPaso = true;
        EXPECT_EQ(fPuede(comando, estado), !bolALaVista && !lstPasos.contains(comando.strNombre))
            << "while another one moves";
        estado.bolPaso = false;
        estado.bolOcupado = true;
        EXPECT_FALSE(fPuede(comando, estado)) << "while the window is busy";
    }
}

/// The letter behind "&", a capital; 0 when there is none.
char fMnemonico(std::string_view strTexto)
{
    const std::size_t lngLugar = strTexto.find('&');
    return lngLugar == std::string_view::npos || lngLugar + 1 == strTexto.size()
               ? '\0'
               : static_cast<char>(std::toupper(strTexto[lngLugar + 1]));
}

TEST(Comandos, LetMenusBeChosenByLettersThatNoKeyLosesBy)
{
    for (const clsMenu &menu : fMenus()) {
        SCOPED_TRACE(menu.strNombre);
        if (const char chrMenu = fMnemonico(menu.strTexto); menu.menu != Menu::Foto) {
            EXPECT_NE(chrMenu, '\0');
            EXPECT_EQ(fComandoDeTecla(chrMenu, intAlt), nullptr) << chrMenu;
        }
        std::set<char> lstLetras;
        for (const clsComando &comando : fComandos()) {
            const char chrEntrada = fMnemonico(comando.entrada.strTexto);
            if (comando.entrada.menu == menu.menu && chrEntrada != '\0') {
                EXPECT_TRUE(lstLetras.insert(chrEntrada).second) << comando.strNombre;
            }
        }
    }
    std::set<char> lstMenus;
    for (const clsMenu &menu : fMenus()) {
        EXPECT_TRUE(lstMenus.insert(fMnemonico(menu.strTexto)).second) << menu.strNombre;
    }
}

TEST(Comandos, OnAnEmptyListAreFew)
{
    const std::set<std::string_view> lstVivos = {
        "actualizar", "fotos", "videos",   "fotosVideos", "totales",  "ayuda",
        "acerca",     "baul",  "deshacer", "completa",    "formatos", "vaciarCache"};
    for (const clsComando &comando : fComandos()) {
        EXPECT_EQ(comando.fPermitido(fEstado(false)), lstVivos.contains(comando.strNombre))
            << comando.strNombre;
    }
    clsEstado estado = fEstado(false);
    estado.lngEnBaul = 1;
    EXPECT_TRUE(fComando("vaciar").fPermitido(estado));
    estado = fEstado(true);
    estado.bolFiltrada = false;
    EXPECT_FALSE(fComando("quitarFiltro").fPermitido(estado));
}

TEST(Comandos, CarryTheMarkOfTheState)
{
    clsEstado estado;
    estado.medios = Medios::Videos;
    estado.intTamMini = 0;
    const auto fMarcados = [&estado] {
        std::set<std::string_view> lstNombres;
        for (const clsComando &comando : fComandos()) {
            if (comando.fMarca != nullptr && comando.fMarca(estado, comando.obra.intValor)) {
                lstNombres.insert(comando.strNombre);
            }
        }
        return lstNombres;
    };
    EXPECT_EQ(fMarcados(), (std::set<std::string_view>{"videos", "pequeno", "zoom100"}));
    estado.bolMiniaturas = true;
    estado.intZoom = 0;
    estado.medios = Medios::Todos;
    EXPECT_EQ(fMarcados(),
              (std::set<std::string_view>{"fotosVideos", "pequeno", "modo", "ajustar"}));
}

/// Whoever attends to all commands; writes down what was asked of it.
class clsGrabadora {
public:
    explicit clsGrabadora(const clsEstado &estado) : mandos(estado)
    {
        for (const clsComando &comando : fComandos()) {
            mandos.fAtender(comando.fObra(), [this, strObra = comando.fObra()](int intValor) {
                strHecho = std::string(strObra) + " " + std::to_string(intValor);
            });
        }
    }
    clsMandos mandos;
    std::string strHecho;
};

TEST(Mandos, AnswerToKeys)
{
    struct clsCaso {
        const char *strFrase;
        int intTecla;
        int intMayus;
        const char *strHecho;
        bool bolTragada;
    };
    const clsCaso lstCasos[] = {
        {"F11", intTeclaF11, 0, "paso -1", false},
        {"Shift+F11", intTeclaF11, intMayus, "mover 1", false},
        {"Ctrl+Shift is not Shift", intTeclaF11, intMayus | intCtrl, "paso -1", false},
        {"Alt is not Shift", intTeclaF12, intAlt, "paso 1", true},
        {"Shift+F12", intTeclaF12, intMayus, "mover 4", true},
        {"Enter with any Shift", intTeclaEnter, intMayus, "abrir 0", false},
        {"J", 'J', 0, "zoom 0", true},
        {"M", 'M', intMayus, "modo 0", true},
        {"+ of the pad", intTeclaMas, 0, "aumentar 1", false},
        {"- of the pad", intTeclaMenos, intCtrl, "aumentar -1", false},
        {"W", 'W', 0, "corregir 0", true},
        {"Shift+W", 'W', intMayus, "corregir 1", true},
        {"Ctrl+Shift+W is not Shift+W", 'W', intMayus | intCtrl, "corregir 0", true},
        {"E with Shift", 'E', intMayus, "buscarFecha 0", true},
        {"I", 'I', 0, "exif 0", true},
        {"the system's own combinations", 'J', intSuper, "", true},
        {"a letter without a command", 90, 0, "", true},
        {"Page Up, by its number", 33, 0, "", true},
        {"Page Down reaches the list", 34, 0, "", false},
        {"Space reaches the list", 32, 0, "", false},
        {"Esc never reaches it", intTeclaEsc, 0, "anular 0", true},
        {"the key left of Z neither", intTeclaMenor, intMayus, "avance 0", true},
        {"A", 'A', 0, "agregar 0", true},
        {"B", 'B', intMayus, "baul 0", true},
        {"C", 'C', 0, "carpeta 0", true},
        {"D", 'D', 0, "irFecha 0", true},
        {"F", 'F', 0, "filtrar 0", true},
        {"Shift+F", 'F', intMayus, "quitarFiltro 0", true},
        {"a key without a number", 0, 0, "", false},
    };
    const clsEstado lleno = fEstado(true);
    const clsEstado vacio = fEstado(false);
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        clsGrabadora grabadora(lleno);
        EXPECT_EQ(grabadora.mandos.fTecla(caso.intTecla, caso.intMayus), caso.bolTragada);
        EXPECT_EQ(grabadora.strHecho, caso.strHecho);
        clsGrabadora sin(vacio);
        EXPECT_FALSE(sin.mandos.fTecla(caso.intTecla, caso.intMayus));
        EXPECT_EQ(sin.strHecho, "") << "with an empty list no key does anything";
    }
}

TEST(Mandos, RunOnlyWhatMayRunAndIsAttendedTo)
{
    clsEstado estado = fEstado(true);
    clsGrabadora grabadora(estado);
    EXPECT_TRUE(grabadora.mandos.fSinAtender().empty());
    grabadora.mandos.fEjecutar(fComando("zoom25"));
    EXPECT_EQ(grabadora.strHecho, "zoom 25");
    estado.bolOcupado = true;
    grabadora.mandos.fEjecutar(fComando("zoom50"));
    EXPECT_EQ(grabadora.strHecho, "zoom 25");
    estado.bolOcupado = false;
    clsMandos nadie(estado);
    nadie.fEjecutar(fComando("zoom50")); // does nothing
    EXPECT_EQ(nadie.fSinAtender().size(), fComandos().size());
}

} // namespace
