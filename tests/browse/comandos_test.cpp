#include "browse/comandos.h"

#include "browse/teclas.h"

#include <array>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

/// Writes down what it was asked to do, in the words of the table.
class clsGrabadora : public clsAcciones {
public:
    void fMover(Movimiento movimiento) override
    {
        strHecho = movimiento == Movimiento::Primero ? "primero" : "ultimo";
    }
    void fPaso(Sentido sentido) override
    {
        strHecho = sentido == Sentido::Atras ? "atras" : "adelante";
    }
    void fFijarAvance(bool bolSiguiente) override { strHecho = bolSiguiente ? "avance" : "anular"; }
    void fPedirFecha() override { strHecho = "irFecha"; }
    void fCambiarModo() override { strHecho = "modo"; }
    void fMiniaturas() override { strHecho = "miniaturas"; }
    void fFijarZoom(int intZoom) override
    {
        strHecho = intZoom == 0 ? "ajustar" : "zoom" + std::to_string(intZoom);
    }
    void fAumentar() override { strHecho = "aumentar"; }
    void fReducir() override { strHecho = "reducir"; }
    void fFijarTamMini(int intTam) override
    {
        strHecho = std::array{"pequeno", "medio", "grande"}.at(static_cast<std::size_t>(intTam));
    }
    void fElegirMedios(Medios medios) override
    {
        strHecho =
            std::array{"fotos", "videos", "fotosVideos"}.at(static_cast<std::size_t>(medios));
    }
    void fMarcar(Seleccion seleccion) override
    {
        strHecho = std::array{"todo", "pantalla", "nada", "invertir"}.at(
            static_cast<std::size_t>(seleccion));
    }
    void fTotales() override { strHecho = "totales"; }
    void fFiltrar() override { strHecho = "filtrar"; }
    void fQuitarFiltro() override { strHecho = "quitarFiltro"; }
    void fActualizarLista() override { strHecho = "actualizar"; }
    void fAbrirArchivo() override { strHecho = "abrir"; }
    void fAbrirCarpeta() override { strHecho = "carpeta"; }
    void fCopiar() override { strHecho = "copiar"; }
    void fAgregarAlBaul() override { strHecho = "agregar"; }
    void fVaciarBaul() override { strHecho = "vaciar"; }
    void fMostrarBaul() override { strHecho = "baul"; }
    void fMostrarExif() override { strHecho = "exif"; }
    void fBuscarFecha() override { strHecho = "buscarFecha"; }
    void fModificarFecha(bool bolSiempre) override
    {
        strHecho = bolSiempre ? "corregirMas" : "corregir";
    }
    void fMostrarAyuda() override { strHecho = "ayuda"; }
    void fMostrarAcerca() override { strHecho = "acerca"; }

    std::string strHecho;
};

/// The window with everything in it, at rest.
constexpr clsEstado estadoLleno{true, false, false, true, true};

TEST(Comandos, HaveNamesMenusAndButtonsOfTheirOwn)
{
    std::set<std::string> lstNombres;
    std::set<std::string> lstMenus;
    std::set<int> lstBotones;
    for (const clsComando &comando : fComandos()) {
        SCOPED_TRACE(comando.strNombre);
        EXPECT_TRUE(lstNombres.insert(comando.strNombre).second);
        EXPECT_TRUE(comando.strMenu == nullptr || lstMenus.insert(comando.strMenu).second);
        EXPECT_TRUE(comando.intBoton == 0 || lstBotones.insert(comando.intBoton).second);
        EXPECT_NE(comando.fPermitido, nullptr);
        EXPECT_NE(comando.fEjecutar, nullptr);
    }
}

TEST(Comandos, NeverClaimTheSameKeyAndShift)
{
    for (const clsComando &uno : fComandos()) {
        for (const clsComando &otro : fComandos()) {
            if (&uno != &otro && uno.intTecla != 0 && uno.intTecla == otro.intTecla) {
                SCOPED_TRACE(std::string(uno.strNombre) + " and " + otro.strNombre);
                EXPECT_NE(uno.mayus, otro.mayus);
                EXPECT_NE(uno.mayus, Mayus::Indiferente);
            }
        }
    }
}

TEST(Comandos, DoWhatTheirNameSays)
{
    for (const clsComando &comando : fComandos()) {
        clsGrabadora grabadora;
        fEjecutar(comando, estadoLleno, grabadora);
        EXPECT_EQ(grabadora.strHecho, comando.strNombre);
        grabadora.strHecho.clear();
        fEjecutar(comando, {true, true, false, true, true}, grabadora);
        EXPECT_EQ(grabadora.strHecho, "") << comando.strNombre << " while busy";
    }
}

TEST(Comandos, WaitForThePictureWhenTheyActOnTheCurrentFile)
{
    const std::set<std::string> lstALaVista = {
        "abrir",   "exif",   "buscarFecha", "corregir", "corregirMas", "actualizar",
        "irFecha", "copiar", "agregar",     "carpeta",  "filtrar",     "quitarFiltro"};
    for (const clsComando &comando : fComandos()) {
        clsGrabadora grabadora;
        fEjecutar(comando, {true, false, true, true, true}, grabadora);
        EXPECT_EQ(grabadora.strHecho.empty(), lstALaVista.count(comando.strNombre) > 0)
            << comando.strNombre;
    }
}

TEST(Comandos, AnswerToTheirKeys)
{
    struct clsCaso {
        const char *strFrase;
        int intTecla;
        int intMayus;
        const char *strHecho;
        bool bolTragada;
    };
    const clsCaso lstCasos[] = {
        {"F11", intTeclaF11, 0, "atras", false},
        {"Shift+F11", intTeclaF11, intMayus, "primero", false},
        {"Ctrl+Shift is not Shift", intTeclaF11, intMayus | intCtrl, "atras", false},
        {"Alt is not Shift", intTeclaF12, intAlt, "adelante", true},
        {"Shift+F12", intTeclaF12, intMayus, "ultimo", true},
        {"Enter with any Shift", intTeclaEnter, intMayus, "abrir", false},
        {"J", intTeclaJ, 0, "ajustar", true},
        {"M", intTeclaM, intMayus, "modo", true},
        {"+ of the pad", intTeclaMas, 0, "aumentar", false},
        {"- of the pad", intTeclaMenos, intCtrl, "reducir", false},
        {"W", intTeclaW, 0, "corregir", true},
        {"Shift+W", intTeclaW, intMayus, "corregirMas", true},
        {"Ctrl+Shift+W is not Shift+W", intTeclaW, intMayus | intCtrl, "corregir", true},
        {"E with Shift", intTeclaE, intMayus, "buscarFecha", true},
        {"I", intTeclaI, 0, "exif", true},
        {"the system's own combinations", intTeclaJ, intSuper, "", true},
        {"a letter without a command", 90, 0, "", true},
        {"Page Up, by its number", 33, 0, "", true},
        {"Page Down reaches the list", 34, 0, "", false},
        {"Space reaches the list", 32, 0, "", false},
        {"Esc never reaches it", intTeclaEsc, 0, "anular", true},
        {"the key left of Z neither", intTeclaMenor, intMayus, "avance", true},
        {"A", intTeclaA, 0, "agregar", true},
        {"B", intTeclaB, intMayus, "baul", true},
        {"C", intTeclaC, 0, "carpeta", true},
        {"D", intTeclaD, 0, "irFecha", true},
        {"F", intTeclaF, 0, "filtrar", true},
        {"Shift+F", intTeclaF, intMayus, "quitarFiltro", true},
        {"a key without a number", 0, 0, "", false},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        clsGrabadora grabadora;
        EXPECT_EQ(fTeclaPulsada(caso.intTecla, caso.intMayus, estadoLleno, grabadora),
                  caso.bolTragada);
        EXPECT_EQ(grabadora.strHecho, caso.strHecho);
        grabadora.strHecho.clear();
        EXPECT_FALSE(fTeclaPulsada(caso.intTecla, caso.intMayus, {false, false}, grabadora));
        EXPECT_EQ(grabadora.strHecho, "") << "with an empty list no key does anything";
    }
}

TEST(Comandos, AnswerToTheirButtonsAndMenus)
{
    EXPECT_STREQ(fComandoDeBoton(3)->strNombre, "primero");
    EXPECT_STREQ(fComandoDeBoton(4)->strNombre, "atras");
    EXPECT_STREQ(fComandoDeBoton(5)->strNombre, "adelante");
    EXPECT_STREQ(fComandoDeBoton(6)->strNombre, "ultimo");
    EXPECT_EQ(fComandoDeBoton(0), nullptr);
    EXPECT_EQ(fComandoDeBoton(99), nullptr);
    EXPECT_STREQ(fComandoDeMenu("mnuOpcionesActualizar")->strNombre, "actualizar");
    EXPECT_EQ(fComandoDeMenu("mnuNada"), nullptr);
    ASSERT_EQ(fTextosTeclas().size(), 22U);
    EXPECT_STREQ(fTextosTeclas()[14], "Shit + [F11]: Ir al final."); // to the letter
}

TEST(Comandos, OnAnEmptyListAreFew)
{
    const std::set<std::string> lstVivos = {"actualizar",  "fotos",   "videos",
                                            "fotosVideos", "totales", "ayuda",
                                            "acerca",      "baul",    "vaciar"};
    for (const clsComando &comando : fComandos()) {
        EXPECT_EQ(comando.fPermitido({false, false, false, false, true}),
                  lstVivos.count(comando.strNombre) > 0)
            << comando.strNombre;
    }
    EXPECT_FALSE(fComandoDeMenu("mnuBaulVaciar")->fPermitido({true}));
    EXPECT_FALSE(fComandoDeMenu("mnuOpcionesQuitarFiltro")->fPermitido({true}));
}

} // namespace
