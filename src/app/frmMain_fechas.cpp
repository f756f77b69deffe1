// What the main window does about the dates of files.

#include "app/frmMain.h"

#include "app/caja_info.h"
#include "app/ceder.h"
#include "dates/busqueda.h"
#include "dates/correccion.h"
#include "dates/exif.h"
#include "dates/fecha_tecleada.h"
#include "dates/formulario_fecha.h"
#include "dates/frmExif.h"
#include "dates/frmFecha.h"
#include "dates/panel.h"
#include "shared/errores.h"
#include "shared/qtexto.h"
#include "viewer/visor.h"

#include <QElapsedTimer>

namespace {

constexpr qint64 lngPausaProgreso = 50; // milliseconds

} // namespace

void frmMain::fAtenderFechas()
{
    m_mandos.fAtender("exif", [this] { fMostrarExif(); });
    m_mandos.fAtender("buscarFecha", [this] { fBuscarFecha(); });
    m_mandos.fAtender("corregir", [this](int bolSiempre) { fModificarFecha(bolSiempre != 0); });
}

void frmMain::fMostrarExif()
{
    frmExif ventana(this);
    ventana.setWindowIcon(windowIcon());
    ventana.fbolShow(fQ(GetExifText(m_estado.filas.fRuta(m_estado.lngActual))));
}

void frmMain::fBuscarFecha()
{
    const clsOcupado ocupado(m_ocupacion);
    m_bolEsc = false;
    ++m_estado.lngGeneracion;
    m_visor->fVaciar();
    fCederEventos();
    QElapsedTimer reloj;
    reloj.start();
    qint64 lngUltima = -lngPausaProgreso;
    clsPreguntas preguntas;
    preguntas.fRuta = [this](int lngPos) { return m_estado.filas.fRuta(lngPos); };
    preguntas.fCorrecta = [](const std::string &strRuta) {
        clsFile fichero;
        fichero.fCargar(strRuta);
        return fichero.bolFechaCorrecta();
    };
    preguntas.fPaso = [&](int lngPos) {
        if (reloj.elapsed() - lngUltima >= lngPausaProgreso) {
            lngUltima = reloj.elapsed();
            m_txtInfo1->setText(fQ(fTextoInfo1(lngPos, m_estado.filas.fCantidad())));
            fCederEventos();
        }
        return !m_bolEsc && !m_bolCerrando;
    };
    const auto lngHallada = fBuscarIncorrecta(m_estado.lngActual, preguntas);
    if (!m_bolCerrando) {
        fMostrarArchivo(lngHallada.value_or(m_estado.lngActual), false);
    }
}

bool frmMain::fCargarFicheros(std::vector<clsFile> &lstFicheros)
{
    const clsOcupado ocupado(m_ocupacion);
    QElapsedTimer reloj;
    reloj.start();
    for (const int lngPos : fMarcadasOActual(m_estado)) {
        const std::string strRuta = m_estado.filas.fRuta(lngPos);
        lstFicheros.emplace_back().fCargar(strRuta);
        if (!lstFicheros.back().bolDatos()) {
            m_mensajes.fAviso(Icono::Problema, fAvisoFichero(fTextoPantalla(strRuta)));
            return false;
        }
        if (reloj.elapsed() >= lngPausaProgreso) {
            fCederEventos();
            reloj.restart();
        }
        if (m_bolCerrando) {
            return false;
        }
    }
    return true;
}

void frmMain::fModificarFecha(bool bolSiempre)
{
    std::vector<clsFile> lstFicheros;
    if (!fCargarFicheros(lstFicheros) || !fSeCorrige(lstFicheros, bolSiempre)) {
        return;
    }
    if (!m_archivo.bolEscritura) {
        m_mensajes.fAviso(Icono::Problema, "No tienes permiso de escritura.");
        return;
    }
    std::vector<clsCorregido> lstCorregidos;
    lstCorregidos.reserve(lstFicheros.size());
    for (const clsFile &fichero : lstFicheros) {
        lstCorregidos.push_back({fichero.strFilePath(), {}, 0, 0});
    }
    frmFecha dialogo(this, fFormularioFecha(lstFicheros), m_mensajes,
                     [&](clsFecha fecha) { return fCorregirFicheros(lstCorregidos, fecha); });
    const frmFecha::Cierre cierre = dialogo.fMostrar();
    if (cierre == frmFecha::Cierre::Cancelada) {
        return;
    }
    // Moving on: when the current file has a new name, the row that takes its place is current.
    const int lngAntes = m_estado.lngActual;
    const std::string strActual = m_estado.filas.fRuta(m_estado.lngActual);
    const bool bolQuedarse = cierre == frmFecha::Cierre::Quedarse;
    fLlenarLista(false, bolQuedarse ? lstCorregidos.back().strFilePathNew : strActual, lngAntes);
}

bool frmMain::fCorregirFicheros(std::vector<clsCorregido> &lstFicheros, clsFecha fecha)
{
    const clsOcupado ocupado(m_ocupacion);
    QElapsedTimer reloj;
    reloj.start();
    const auto fFallo = [this](const std::string &strRuta, int intError) {
        m_mensajes.fAviso(Icono::Problema,
                          fTextoPantalla(strRuta) + "\r\n" + fTextoError(intError));
    };
    const auto fPaso = [&reloj] {
        if (reloj.elapsed() >= lngPausaProgreso) {
            fCederEventos();
            reloj.restart();
        }
    };
    const clsFinCorreccion fin =
        fCorregir(m_archivo.strRaiz, m_archivo.bolEscritura, lstFicheros, fecha, fFallo, fPaso);
    if (fin.correccion == Correccion::Ocupada) {
        fAvisarOcupada();
    } else if (fin.correccion == Correccion::SinCatalogo) {
        m_mensajes.fAviso(Icono::Problema, "No se puede generar la lista de ficheros.\r\n" +
                                               fTextoError(fin.intError));
    }
    return fin.correccion == Correccion::Hecha || fin.correccion == Correccion::SinCatalogo;
}
