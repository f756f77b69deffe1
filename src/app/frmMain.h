#pragma once

#include "app/arranque.h"
#include "browse/comandos.h"
#include "catalogue/filas.h"
#include "catalogue/orden.h"
#include "filter/formulario_filtro.h"
#include "shared/ajustes.h"
#include "shared/mensajes.h"
#include "shared/numeros.h"
#include "shared/ocupado.h"
#include "viewer/hilos.h"

#include <QMainWindow>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <vector>

struct clsCorregido;
class clsCajaInfo;
class clsFile;
class clsMiniaturas;
class clsModeloFotos;
class clsPuerta;
class clsVisor;
class cmdAncho;
class lstFotos;
class QToolBar;
class QToolButton;

/// What start-up found out about the archive.
struct clsArchivo {
    std::string strRaiz; ///< root folder with a trailing "/"
    bool bolEscritura;   ///< files can be made in it
    clsPreferencias preferencias;
};

/// The main window: the list of files on the left, the viewing panel on the right.
class frmMain : public QMainWindow, private clsAcciones {
    Q_OBJECT
public:
    frmMain(clsArchivo archivo, clsAjustes &ajustes, clsMensajes &mensajes);
    ~frmMain() override;

    /// Shows the window and, as soon as events run, fills the list.
    void fIniciar();

protected:
    void showEvent(QShowEvent *evento) override;
    void closeEvent(QCloseEvent *evento) override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    // Building the window
    void fCrearControles();
    void fCrearInformacion();
    void fConectar();

    // Layout
    void fRedimensionar();
    void fDisponerPanel();
    void fTemporizador();
    void fLimitarInfo2();
    void fFijarAncho(int lngTwips);
    void fFijarModo(bool bolMiniaturas);

    // The list
    void fLlenarLista(bool bolForzar, const std::string &strRuta, int lngSiFalta = 0);
    void fCargarCatalogo(bool bolForzar);
    void fConstruirCatalogo();
    void fLeerCatalogoEnLista();
    void fOrdenarLista(Columna columna, bool bolReelegir, const std::string &strRuta,
                       int lngSiFalta = 0);
    void fIncidencias();

    // Making a file current
    void fMostrarArchivo(int lngPos, bool bolOcupar);
    void fIrA(std::optional<int> lngDestino);
    bool fDibujar();
    void fTerminarMostrar();
    void fRedibujar();
    void fInformar();
    void fJuzgar();
    void fTomarVeredicto();
    void fCeldaPulsada(int lngPos, Qt::MouseButton boton, Qt::KeyboardModifiers mayus);
    void fAlternarRango(int lngHasta);

    // Commands
    [[nodiscard]] clsEstado fEstado() const;
    void fEntradaElegida(const QString &strNombre);
    void fBotonPulsado(int intBoton);
    void fActualizarMenus();
    void fMover(Movimiento movimiento) override;
    void fPaso(Sentido sentido) override;
    void fFijarAvance(bool bolSiguiente) override;
    void fPedirFecha() override;
    void fCambiarModo() override { fFijarModo(!m_bolMiniaturas); }
    void fMiniaturas() override { fFijarModo(true); }
    void fFijarZoom(int intZoom) override;
    void fAumentar() override;
    void fReducir() override;
    void fFijarTamMini(int intTam) override;
    void fElegirMedios(Medios medios) override;
    void fMarcar(Seleccion seleccion) override;
    void fTotales() override;
    void fFiltrar() override;
    void fQuitarFiltro() override;
    void fActualizarLista() override;
    void fAbrirArchivo() override;
    void fAbrirCarpeta() override;
    void fCopiar() override;
    void fAgregarAlBaul() override;
    void fVaciarBaul() override;
    void fMostrarBaul() override;
    void fMostrarExif() override;
    void fBuscarFecha() override;
    void fModificarFecha(bool bolSiempre) override;
    void fMostrarAyuda() override;
    void fMostrarAcerca() override;

    // Copies
    void fEnviar(const std::function<std::string(const std::string &)> &fDestino);
    void fContarElBaul();
    [[nodiscard]] std::string fExigirBaul();

    // Dates
    [[nodiscard]] std::vector<int> fMarcadasOActual() const;
    [[nodiscard]] bool fCargarFicheros(std::vector<clsFile> &lstFicheros);
    [[nodiscard]] bool fCorregirFicheros(std::vector<clsCorregido> &lstFicheros, clsFecha fecha);
    void fAvisarOcupada();

    [[nodiscard]] int fUltimoPos() const { return m_filas.fCantidad() - 1; }
    [[nodiscard]] int fCeldasPagina() const;
    void fInfo2(const QString &strTexto);

    const clsArchivo m_archivo;
    clsAjustes &m_ajustes;
    clsMensajes &m_mensajes;
    const clsSignos m_signos;
    clsOcupacion m_ocupacion;

    clsFilas m_filas;
    int m_lngActual = 0;
    Medios m_medios;
    Columna m_columna = Columna::Fecha;
    bool m_bolDescendente = false;
    std::int64_t m_dblTotalKB = 0;
    Avance m_avance = Avance::Normal;
    bool m_bolFiltrada = false; ///< the list shows what passed a filter
    int m_lngEnBaul = 0;        ///< files in the Baúl
    clsValoresFiltro m_filtro;  ///< what the filter dialog showed last
    bool m_bolIncidenciasAvisadas = false;
    bool m_bolCargando = true;      ///< until the first fill ends
    bool m_bolOcupado = false;      ///< a navigation command runs
    int m_intDibujos = 0;           ///< draws that are under way
    bool m_bolGuardarSelec = false; ///< the current file is still to be stored
    bool m_bolDobleClic = false;    ///< a row was double-clicked while it was being shown
    bool m_bolCerrando = false;
    bool m_bolEsc = false; ///< Esc was pressed during a search or while files are copied
    std::uint64_t m_lngGeneracion = 0; ///< raised by every layout, draw and list change

    int m_lngAncho;               ///< panel width in twips
    int m_intTamMini;             ///< index of the thumbnail size
    bool m_bolMiniaturas = false; ///< the panel shows a page of thumbnails
    QSize m_tamDispuesto;         ///< client size last laid out
    QTimer m_Timer1;
    QTimer m_relojVeredicto;       ///< looks whether the verdict has come
    std::future<bool> m_veredicto; ///< whether the current file's date is right
    clsHilos m_jueces{2};          ///< find that out: reading the file can take its time

    QWidget *m_cliente;
    clsModeloFotos *m_modelo;
    lstFotos *m_lista;
    clsVisor *m_visor;
    clsMiniaturas *m_miniaturas;
    clsPuerta *m_puerta = nullptr;
    cmdAncho *m_divisor;
    QToolBar *m_toolBar;
    QToolButton *m_botonModo;
    clsCajaInfo *m_txtInfo1;
    clsCajaInfo *m_txtInfo2;
    clsCajaInfo *m_txtInfo3;
    QMenu *m_mnuFoto;
};
