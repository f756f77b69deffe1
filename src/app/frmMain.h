#pragma once

#include "app/arranque.h"
#include "browse/mandos.h"
#include "browse/mover.h"
#include "browse/seleccion.h"
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

/// What start-up found out about the archive.
struct clsArchivo {
    std::string strRaiz; ///< root folder with a trailing "/"
    bool bolEscritura;   ///< files can be made in it
    clsPreferencias preferencias;
};

/// The main window: the list of files on the left, the viewing panel on the right.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain(clsArchivo archivo, clsAjustes &ajustes, clsMensajes &mensajes);
    ~frmMain() override;

    /// Shows the window and, as soon as events run, fills the list.
    void fIniciar();
    /// Who does the work of the commands.
    [[nodiscard]] const clsMandos &fMandos() const { return m_mandos; }

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
    void fRecargar(bool bolForzar);
    void fOrdenarLista();
    void fCabeceraPulsada(Columna columna);
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
    void fAtenderPasos();
    void fAtenderPanel();
    void fAtenderProgramas();
    void fAtenderLista();
    void fAtenderCopias();
    void fAtenderFechas();
    void fElegido(const clsComando &comando);
    void fMostrarEstado();
    template <typename Paso> void fIr(Paso paso);
    void fFijarAvance(Avance avance);
    void fPedirFecha();
    void fAumentar();
    void fReducir();
    void fFijarTamMini(int intTam);
    void fElegirMedios(Medios medios);
    void fMarcar(Seleccion seleccion);
    void fTotales();
    void fFiltrar();
    void fQuitarFiltro();
    void fActualizarLista();
    void fAbrirArchivo();
    void fCopiar();
    void fAgregarAlBaul();
    void fVaciarBaul();
    void fMostrarBaul();
    void fMostrarExif();
    void fBuscarFecha();
    void fModificarFecha(bool bolSiempre);
    void fMostrarAyuda();
    void fMostrarAcerca();

    // Copies
    void fEnviar(const std::function<std::string(const std::string &)> &fDestino);
    void fContarElBaul();
    [[nodiscard]] std::string fExigirBaul();

    // Dates
    [[nodiscard]] bool fCargarFicheros(std::vector<clsFile> &lstFicheros);
    [[nodiscard]] bool fCorregirFicheros(std::vector<clsCorregido> &lstFicheros, clsFecha fecha);
    void fAvisarOcupada();

    void fInfo2(const QString &strTexto);

    const clsArchivo m_archivo;
    clsAjustes &m_ajustes;
    clsMensajes &m_mensajes;
    const clsSignos m_signos;
    clsOcupacion m_ocupacion;

    clsEstado m_estado;
    clsMandos m_mandos{m_estado};
    clsValoresFiltro m_filtro; ///< what the filter dialog showed last
    bool m_bolIncidenciasAvisadas = false;
    bool m_bolGuardarSelec = false; ///< the current file is still to be stored
    bool m_bolDobleClic = false;    ///< a row was double-clicked while it was being shown
    bool m_bolCerrando = false;
    bool m_bolEsc = false; ///< Esc was pressed during a search or while files are copied

    int m_lngAncho;       ///< panel width in twips
    QSize m_tamDispuesto; ///< client size last laid out
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
    clsCajaInfo *m_txtInfo1;
    clsCajaInfo *m_txtInfo2;
    clsCajaInfo *m_txtInfo3;
    QMenu *m_mnuFoto;
};
