// The commands of the main window: who starts them, moving, and what opens other programs.

#include "app/frmMain.h"

#include "app/frmAcerca.h"
#include "app/menus.h"
#include "browse/ayuda.h"
#include "shared/errores.h"
#include "shared/qtexto.h"
#include "sistema/entorno.h"
#include "viewer/visor.h"

#include <QScopedValueRollback>

void frmMain::fElegido(const clsComando &comando)
{
    m_mandos.fEjecutar(comando);
    fMostrarEstado(); // entry or button has taken the mark by itself, wanted or not
}

void frmMain::fMostrarEstado() { ::fMostrarEstado(*this, m_estado); }

// --- Moving ---

void frmMain::fAtenderPasos()
{
    m_mandos.fAtender("mover", [this](int intCual) { fIr(static_cast<Movimiento>(intCual)); });
    m_mandos.fAtender("paso", [this](int intSentido) { fIr(static_cast<Sentido>(intSentido)); });
    m_mandos.fAtender("avance", [this](int bolSiguiente) {
        m_estado.avance = bolSiguiente != 0 ? fSiguienteAvance(m_estado.avance) : Avance::Normal;
        fMostrarEstado();
    });
    m_mandos.fAtender("irFecha", [this] { fPedirFecha(); });
}

/// Shows where a movement led to, if it led anywhere.
void frmMain::fIrA(std::optional<int> lngDestino)
{
    if (lngDestino) {
        fMostrarArchivo(*lngDestino);
    }
}

template <typename Paso> void frmMain::fIr(Paso paso)
{
    const QScopedValueRollback<bool> enPaso(m_estado.bolPaso, true);
    fIrA(fDestino(m_estado, paso));
}

void frmMain::fPedirFecha()
{
    const QScopedValueRollback<bool> enPaso(m_estado.bolPaso, true);
    std::optional<clsFecha> dia;
    while (!dia) {
        const auto strRespuesta = m_mensajes.fPedir("Ir a la fecha (ddmmyyyy):");
        if (!strRespuesta || strRespuesta->empty() || m_estado.fCerrando()) {
            return;
        }
        dia = fLeerRespuestaFecha(*strRespuesta);
    }
    fIrA(::fIrAFecha(m_estado.filas, m_estado.lngActual, *dia));
}

// --- The panel ---

void frmMain::fAtenderPanel()
{
    m_mandos.fAtender("modo", [this] { fFijarModo(!m_estado.bolMiniaturas); });
    m_mandos.fAtender("miniaturas", [this] { fFijarModo(true); });
    m_mandos.fAtender("zoom", [this](int intZoom) { m_visor->fFijarZoom(intZoom); });
    m_mandos.fAtender("tamMini", [this](int intTam) { fFijarTamMini(intTam); });
    m_mandos.fAtender("aumentar", [this](int intPasos) { fAumentar(intPasos); });
}

// --- Other programs ---

void frmMain::fAtenderProgramas()
{
    m_mandos.fAtender("abrir", [this] { fAbrirArchivo(); });
    m_mandos.fAtender("carpeta", [this] {
        fAbrirConSistema(std::string(m_estado.filas.fCarpeta(m_estado.lngActual)));
    });
    m_mandos.fAtender("ayuda", [this] { fMostrarAyuda(); });
    m_mandos.fAtender("acerca", [this] { fMostrarAcerca(); });
}

void frmMain::fAbrirArchivo()
{
    if (!m_estado.filas.fVacia()) { // the list can have changed since the double click
        fAbrirConSistema(m_estado.filas.fRuta(m_estado.lngActual));
    }
}

void frmMain::fMostrarAyuda()
{
    const clsError error = m_archivo.bolEscritura ? fEscribirAyuda(m_archivo.strRaiz) : 0;
    const std::string strRuta = fRutaAyuda(m_archivo.strRaiz);
    if (error) {
        m_mensajes.fAviso(Icono::Problema, fTextoPantalla(strRuta) + "\r\n" + fTextoError(error));
    }
    fAbrirConSistema(strRuta);
}

void frmMain::fMostrarAcerca()
{
    frmAcerca acerca(this);
    acerca.setWindowIcon(windowIcon());
    connect(&acerca, &frmAcerca::fAyudaPedida, this, &frmMain::fMostrarAyuda);
    acerca.exec();
}
