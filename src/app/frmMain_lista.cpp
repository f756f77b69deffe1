// Filling and ordering the list of the main window.

#include "app/frmMain.h"

#include "app/caja_info.h"
#include "app/ceder.h"
#include "catalogue/carga.h"
#include "catalogue/constructor.h"
#include "catalogue/cotejo.h"
#include "catalogue/frmBusqueda.h"
#include "catalogue/lector.h"
#include "catalogue/lstFotos.h"
#include "catalogue/modelo_fotos.h"
#include "catalogue/registro.h"
#include "filter/frmFiltro.h"
#include "shared/errores.h"
#include "shared/qtexto.h"
#include "sistema/archivo.h"
#include "viewer/miniaturas.h"
#include "viewer/visor.h"

#include <QHeaderView>

#include <cerrno>

void frmMain::fAtenderLista()
{
    m_mandos.fAtender("medios",
                      [this](int intMedios) { fElegirMedios(static_cast<Medios>(intMedios)); });
    m_mandos.fAtender("marcar", [this](int intCual) { fMarcar(static_cast<Seleccion>(intCual)); });
    m_mandos.fAtender("totales", [this] { fTotales(); });
    m_mandos.fAtender("filtrar", [this] { fFiltrar(); });
    m_mandos.fAtender("quitarFiltro", [this] { fQuitarFiltro(); });
    m_mandos.fAtender("actualizar", [this] { fActualizarLista(); });
}

/// Fills the list anew; the file that is current stays so, if it is still listed.
void frmMain::fRecargar(bool bolForzar)
{
    fLlenarLista(bolForzar,
                 m_estado.filas.fVacia() ? "" : m_estado.filas.fRuta(m_estado.lngActual));
}

void frmMain::fLlenarLista(bool bolForzar, const std::string &strRuta, int lngSiFalta)
{
    const clsOcupado ocupado(m_ocupacion);
    fInfo2(QStringLiteral("Analizando..."));
    m_visor->fVaciar();
    m_miniaturas->fVaciar();
    m_modelo->fRellenar([this](clsFilas & /*filas*/) { fEmpezarLista(m_estado); });
    m_lista->fAnchosIniciales();
    fCargarCatalogo(bolForzar);
    fMostrarEstado();
    if (m_bolCerrando) {
        return;
    }
    if (m_estado.filas.fVacia()) {
        m_txtInfo1->clear();
        m_txtInfo3->hide();
        m_relojVeredicto.stop();
        fInfo2({});
        m_mensajes.fAviso(Icono::Problema, "No se ha encontrado ningún archivo.");
        return;
    }
    fOrdenarLista();
    fMostrarArchivo(fActualTrasLlenar(m_estado, strRuta, lngSiFalta), false);
}

void frmMain::fCargarCatalogo(bool bolForzar)
{
    const auto huella = fHuella(m_archivo.strRaiz + std::string(strFicheroCatalogo));
    const bool bolExiste = huella && huella->lngBytes > 0;
    const clsDecision decision = fDecidirCarga(bolForzar, bolExiste, m_archivo.bolEscritura);
    if (decision.bolAnunciar) {
        m_mensajes.fAviso(Icono::Aviso, "Se va a crear el fichero de información de las imágenes.");
    }
    if (decision.bolConstruir) {
        fConstruirCatalogo();
    }
    if (decision.bolSinPermiso) {
        m_mensajes.fAviso(
            Icono::Problema,
            "No se puede generar la lista de ficheros.\r\nNo tienes permiso de escritura.");
    }
    fLeerCatalogoEnLista();
}

void frmMain::fConstruirCatalogo()
{
    m_bolIncidenciasAvisadas = false;
    frmBusqueda busqueda(this, m_mensajes, [this] {
        fCederEventos();
        return !m_bolCerrando;
    });
    const clsConstruccion construccion = busqueda.fBuscar(m_archivo.strRaiz);
    if (construccion.construccion == Construccion::Ocupada) {
        fAvisarOcupada();
    } else if (construccion.construccion == Construccion::SinEscribir) {
        m_mensajes.fAviso(Icono::Problema, "No se puede generar la lista de ficheros.\r\n" +
                                               fTextoError(construccion.intError));
    }
}

void frmMain::fAvisarOcupada()
{
    m_mensajes.fAviso(Icono::Problema,
                      "Otro Miravel está trabajando con estos archivos. Inténtalo cuando termine.");
}

void frmMain::fLeerCatalogoEnLista()
{
    const std::string strCatalogo = m_archivo.strRaiz + std::string(strFicheroCatalogo);
    const std::string strMostrado = fTextoPantalla(strCatalogo) + "\r\n";
    int intError = 0;
    std::optional<clsLectura> lectura;
    m_modelo->fRellenar([&](clsFilas &filas) {
        lectura = fLeerFicheroCatalogo(strCatalogo, fExtensionesVisibles(m_estado.medios), filas,
                                       intError);
    });
    m_estado.lngTotalKB = lectura ? lectura->lngTotalKB : 0;
    if (!lectura && intError != ENOENT) {
        m_mensajes.fAviso(Icono::Problema, strMostrado + fTextoError(intError));
    } else if (lectura && lectura->fallo) {
        m_mensajes.fAviso(Icono::Problema,
                          strMostrado + "Línea " + std::to_string(lectura->fallo->lngLinea) +
                              ": '" + lectura->fallo->strTexto +
                              "' no es un tamaño.\r\nActualiza la lista de archivos.");
    }
}

void frmMain::fOrdenarLista()
{
    m_modelo->fReordenar([this](clsFilas & /*filas*/) { fOrdenarFilas(m_estado, fRangosEspanol); });
    m_lista->fSenalarOrden(static_cast<int>(m_estado.columna) - 1, m_estado.bolDescendente);
}

void frmMain::fCabeceraPulsada(Columna columna)
{
    if (!m_estado.filas.fVacia()) {
        const clsOcupado ocupado(m_ocupacion);
        fElegirColumna(m_estado, columna);
        fOrdenarLista();
        fMostrarArchivo(m_estado.lngActual, false);
    }
}

void frmMain::fElegirMedios(Medios medios)
{
    m_estado.medios = medios;
    const int intIndice = static_cast<int>(medios);
    fMostrarEstado();
    m_ajustes.fGuardarIni(strSeccionGeneral, "FOTOVIDEO", std::to_string(intIndice));
    fRecargar(false);
}

void frmMain::fActualizarLista()
{
    if (m_mensajes.fSiNo("¿Actualizar lista de archivos?")) {
        fRecargar(true);
    }
}

void frmMain::fFiltrar()
{
    frmFiltro dialogo(this, m_estado.filas, m_filtro, m_mensajes, [this] {
        fCederEventos();
        return !m_bolCerrando;
    });
    const clsFiltrado filtrado = dialogo.fMostrar();
    if (filtrado.resultado == ResultadoFiltro::Cancelado || m_bolCerrando) {
        return;
    }
    const clsOcupado ocupado(m_ocupacion);
    fInfo2(QStringLiteral("Filtrando..."));
    m_modelo->fRellenar([&](clsFilas & /*filas*/) {
        fTomarFiltradas(m_estado, filtrado.lstFilas, filtrado.lngTotalKB);
    });
    fMostrarEstado();
    fMostrarArchivo(m_estado.lngActual, false);
}

void frmMain::fQuitarFiltro()
{
    if (m_mensajes.fAceptarCancelar("¿Quitar Filtro?")) {
        fRecargar(false);
    }
}

void frmMain::fMarcar(Seleccion seleccion)
{
    m_modelo->fMarcar(
        [&](clsFilas &filas) { fSeleccionar(filas, seleccion, fALaVista(m_estado)); });
    fMostrarArchivo(m_estado.lngActual, true);
}

void frmMain::fTotales()
{
    m_mensajes.fAviso(Icono::Aviso,
                      fTextoTotales(m_estado.filas.fCantidad(), m_estado.lngTotalKB, m_signos),
                      "Totales");
}

void frmMain::fIncidencias()
{
    if (m_bolIncidenciasAvisadas) {
        return;
    }
    // Set before the box: while it is open, a resize can draw the same file again.
    m_bolIncidenciasAvisadas = true;
    m_mensajes.fAviso(Icono::Problema,
                      "Actualiza la lista de archivos. Se han detectado incidencias.");
}
