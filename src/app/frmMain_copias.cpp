// Sending copies of files to a folder and to the Baúl.

#include "app/frmMain.h"

#include "app/ceder.h"
#include "browse/baul.h"
#include "catalogue/modelo_fotos.h"
#include "shared/errores.h"
#include "shared/qtexto.h"
#include "sistema/entorno.h"

#include <QMenuBar>

#include <algorithm>

namespace {

void fAvisarFallo(clsMensajes &mensajes, const clsFalloCopia &fallo)
{
    mensajes.fAviso(Icono::Problema, "No se ha podido copiar el archivo.\r\n" +
                                         fTextoPantalla(fallo.strOrigen) + "\r\n" +
                                         fTextoPantalla(fallo.strDestino) + "\r\n" +
                                         fTextoError(fallo.intError));
}

} // namespace

void frmMain::fAtenderCopias()
{
    m_mandos.fAtender("copiar", [this] { fCopiar(); });
    m_mandos.fAtender("agregar", [this] { fAgregarAlBaul(); });
    m_mandos.fAtender("vaciar", [this] { fVaciarBaul(); });
    m_mandos.fAtender("baul", [this] { fMostrarBaul(); });
}

/// Copies the ticked files, or the current one. What was copied loses its tick; what comes after a
/// failure keeps it.
void frmMain::fEnviar(const std::function<std::string(const std::string &)> &fDestino)
{
    const clsOcupado ocupado(m_ocupacion);
    if (m_estado.filas.fContarMarcados() == 0) {
        m_modelo->fMarcar([this](clsFilas &filas) { filas.fMarcar(m_estado.lngActual, true); });
    }
    const std::vector<int> lstPosiciones = fMarcadas(m_estado.filas);
    std::vector<std::string> lstRutas;
    lstRutas.reserve(lstPosiciones.size());
    for (const int lngPos : lstPosiciones) {
        lstRutas.push_back(m_estado.filas.fRuta(lngPos));
    }
    m_bolEsc = false;
    std::size_t lngSinMarca = 0;
    const auto fQuitarMarcas = [&](int lngHechas) {
        m_modelo->fMarcar([&](clsFilas &filas) {
            for (; lngSinMarca < static_cast<std::size_t>(lngHechas); ++lngSinMarca) {
                filas.fMarcar(lstPosiciones[lngSinMarca], false);
            }
        });
    };
    const clsFinCopia fin = fCopiarLista(lstRutas, fDestino, [&](int lngHechas) {
        fQuitarMarcas(lngHechas);
        const auto lngCuantos = static_cast<int>(lstRutas.size());
        fInfo2(QStringLiteral("%1 de %2 ...")
                   .arg(std::min(lngHechas + 1, lngCuantos)) // the last one may be done by now
                   .arg(lngCuantos));
        fCederEventos();
        return !m_bolCerrando && !m_bolEsc;
    });
    fQuitarMarcas(fin.lngHechas);
    if (m_bolCerrando) {
        return;
    }
    if (fin.fallo) {
        fAvisarFallo(m_mensajes, *fin.fallo);
    }
    fMostrarArchivo(m_estado.lngActual, false);
}

void frmMain::fCopiar()
{
    const std::string strCarpeta = m_mensajes.fElegirCarpeta("Selecciona carpeta de destino:");
    if (!strCarpeta.empty() && !m_bolCerrando) {
        fEnviar(fDestinoEn(strCarpeta));
    }
}

// --- The Baúl ---

/// Shows how many files are in the Baúl.
void frmMain::fContarElBaul()
{
    const clsLugarBaul lugar = fAsegurarBaul();
    m_estado.lngEnBaul = lugar.intError == 0 ? fContarBaul(lugar.strCarpeta) : 0;
    menuBar()
        ->findChild<QMenu *>(QStringLiteral("mnuBaul"))
        ->setTitle(QStringLiteral("Baúl (%1)").arg(m_estado.lngEnBaul));
    fMostrarEstado();
}

/// The folder of the Baúl; empty, and said, when there is none and none can be made.
std::string frmMain::fExigirBaul()
{
    const clsLugarBaul lugar = fAsegurarBaul();
    if (lugar.intError != 0) {
        m_mensajes.fAviso(Icono::Problema,
                          fTextoPantalla(lugar.strCarpeta) + "\r\n" + fTextoError(lugar.intError));
        return {};
    }
    return lugar.strCarpeta;
}

void frmMain::fAgregarAlBaul()
{
    if (const std::string strCarpeta = fExigirBaul(); !strCarpeta.empty()) {
        fEnviar(fDestinoEnBaul(strCarpeta));
    }
    fContarElBaul();
}

void frmMain::fVaciarBaul()
{
    if (m_mensajes.fAceptarCancelar("¿Quieres vaciar el Baul?")) {
        if (const std::string strCarpeta = fExigirBaul(); !strCarpeta.empty()) {
            ::fVaciarBaul(strCarpeta, m_archivo.strRaiz);
        }
    }
    fContarElBaul();
}

void frmMain::fMostrarBaul()
{
    if (const std::string strCarpeta = fExigirBaul(); !strCarpeta.empty()) {
        fAbrirConSistema(strCarpeta);
    }
    fContarElBaul();
}
