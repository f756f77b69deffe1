// The commands of the main window: who starts them, moving, and what opens other programs.

#include "app/frmMain.h"

#include "app/frmAcerca.h"
#include "app/menus.h"
#include "browse/ayuda.h"
#include "browse/ir_a_fecha.h"
#include "shared/errores.h"
#include "shared/qtexto.h"
#include "sistema/entorno.h"
#include "viewer/encaje.h"
#include "viewer/miniaturas.h"
#include "viewer/visor.h"

#include <QMenuBar>
#include <QToolButton>

namespace {

/// A flag that is set as long as this lives.
class clsBandera {
public:
    explicit clsBandera(bool &bol) : m_bol(bol) { m_bol = true; }
    ~clsBandera() { m_bol = false; }
    clsBandera(const clsBandera &) = delete;
    clsBandera &operator=(const clsBandera &) = delete;

private:
    bool &m_bol;
};

} // namespace

clsEstado frmMain::fEstado() const
{
    return {!m_filas.fVacia(), m_ocupacion.fEsta(), m_intDibujos > 0, m_bolFiltrada,
            m_lngEnBaul > 0};
}

void frmMain::fEntradaElegida(const QString &strNombre)
{
    if (const clsComando *const comando = fComandoDeMenu(fUtf8(strNombre).c_str())) {
        fEjecutar(*comando, fEstado(), *this);
    }
    // The entry has taken the mark by itself, wanted or not.
    fMarcarEntrada(*menuBar(), "mnuOpcionesThump", m_intTamMini);
    fMarcarEntrada(*menuBar(), "mnuOpcionesFotosVideos", static_cast<int>(m_medios));
}

void frmMain::fBotonPulsado(int intBoton)
{
    if (const clsComando *const comando = fComandoDeBoton(intBoton)) {
        fEjecutar(*comando, fEstado(), *this);
    }
    m_botonModo->setChecked(m_bolMiniaturas); // the click has toggled it, wanted or not
}

/// What the entries of the menus can do, as far as it does not change from moment to moment.
void frmMain::fActualizarMenus()
{
    clsEstado estado = fEstado();
    estado.bolOcupado = estado.bolDibujando = false;
    fHabilitarEntradas(*menuBar(), estado);
}

// --- Moving ---

/// Shows where a movement led to, if it led anywhere.
void frmMain::fIrA(std::optional<int> lngDestino)
{
    if (lngDestino) {
        fMostrarArchivo(*lngDestino, false);
    }
}

/// Files that the panel shows at a time.
int frmMain::fCeldasPagina() const { return m_bolMiniaturas ? m_miniaturas->fCeldas() : 1; }

void frmMain::fMover(Movimiento movimiento)
{
    if (!m_bolOcupado) {
        const clsBandera bandera(m_bolOcupado);
        fIrA(fDestino(movimiento, m_lngActual, fUltimoPos(), fCeldasPagina()));
    }
}

void frmMain::fPaso(Sentido sentido)
{
    if (m_avance == Avance::Normal) {
        fMover(sentido == Sentido::Atras ? Movimiento::Anterior : Movimiento::Siguiente);
    } else if (!m_bolOcupado) {
        const clsBandera bandera(m_bolOcupado);
        fIrA(fAvanzar(m_filas, m_lngActual, m_avance, sentido));
    }
}

void frmMain::fFijarAvance(bool bolSiguiente)
{
    m_avance = bolSiguiente ? fSiguienteAvance(m_avance) : Avance::Normal;
    auto *const mnuAVance = menuBar()->findChild<QAction *>(QStringLiteral("mnuAVance"));
    const std::string strTexto = fTextoAvance(m_avance);
    if (!strTexto.empty()) {
        mnuAVance->setText(fQ(strTexto));
    }
    mnuAVance->setVisible(!strTexto.empty());
}

void frmMain::fPedirFecha()
{
    if (m_bolOcupado) {
        return;
    }
    const clsBandera bandera(m_bolOcupado);
    std::optional<std::chrono::year_month_day> dia;
    while (!dia) {
        const auto strRespuesta = m_mensajes.fPedir(strPreguntaFecha);
        if (!strRespuesta || strRespuesta->empty() || m_bolCerrando) {
            return;
        }
        dia = fLeerRespuestaFecha(*strRespuesta);
    }
    fIrA(::fIrAFecha(m_filas, m_lngActual, *dia));
}

// --- The panel ---

void frmMain::fFijarZoom(int intZoom) { m_visor->fFijarZoom(intZoom); }

void frmMain::fAumentar()
{
    if (!m_bolMiniaturas) {
        m_visor->fFijarZoom(fZoomMayor(m_visor->fZoom()));
    } else if (m_intTamMini < 2) {
        fFijarTamMini(m_intTamMini + 1);
    }
}

void frmMain::fReducir()
{
    if (!m_bolMiniaturas) {
        m_visor->fFijarZoom(fZoomMenor(m_visor->fZoom()));
    } else if (m_intTamMini > 0) {
        fFijarTamMini(m_intTamMini - 1);
    }
}

// --- Other programs ---

void frmMain::fAbrirArchivo()
{
    if (!m_filas.fVacia()) { // the list can have changed since the double click
        fAbrirConSistema(m_filas.fRuta(m_lngActual));
    }
}

void frmMain::fAbrirCarpeta() { fAbrirConSistema(std::string(m_filas.fCarpeta(m_lngActual))); }

void frmMain::fMostrarAyuda()
{
    const int intError = m_archivo.bolEscritura ? fEscribirAyuda(m_archivo.strRaiz) : 0;
    const std::string strRuta = fRutaAyuda(m_archivo.strRaiz);
    if (intError != 0) {
        m_mensajes.fAviso(Icono::Problema,
                          fTextoPantalla(strRuta) + "\r\n" + fTextoError(intError));
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
