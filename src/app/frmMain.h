#pragma once

#include "app/comun.h"
#include "shared/ajustes.h"

#include <QMainWindow>
#include <QTimer>

#include <string>

class clsMiniaturas;
class clsPuerta;
class clsTiempo;
class clsVisor;
class cmdAncho;
class lstFotos;
class QMenu;
class QToolBar;

/// The main window: the list of files on the left, the viewing panel on the right.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    /// @param escritorio what is remembered for the desktop, see escritorio.h.
    frmMain(clsArchivo archivo, clsAjustes &ajustes, clsAjustes &escritorio, clsMensajes &mensajes);
    ~frmMain() override;

    /// Shows the window and, as soon as events run, fills the list.
    void fIniciar();
    /// Who does the work of the commands.
    [[nodiscard]] const clsMandos &fMandos() const { return m_mandos; }

protected:
    void showEvent(QShowEvent *evento) override;
    void changeEvent(QEvent *evento) override;
    void closeEvent(QCloseEvent *evento) override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    // Building the window
    void fCrearControles();
    [[nodiscard]] clsComun fComun();
    void fConectarLista();
    void fConectarPanel();
    void fAtenderPanel();
    void fElegido(const clsComando &comando);
    void fMostrarEstado();

    // Busy
    void fAlOcupar();
    void fAlLiberar();
    void fNombrar();
    void fMirarPendiente();

    // Layout
    void fEsperarVentana();
    void fRedimensionar();
    void fDisponerPanel();
    void fVaciarPanel();
    void fTemporizador();
    void fFijarAncho(int lngTwips);
    void fFijarModo(bool bolMiniaturas);
    void fAlternarCompleta();
    void fCambiarCompleta();
    void fFijarTamMini(int intTam);
    void fFijarZoom(int intZoom);
    void fAumentar(int intPasos);
    void fGirar(int intCuartos);

    // The list
    void fLlenarLista(bool bolForzar, const std::string &strRuta);
    void fOrdenarLista();
    void fCabeceraPulsada(Columna columna);
    void fCeldaPulsada(int lngPos, Qt::MouseButton boton, Qt::KeyboardModifiers mayus);
    void fAlternarRango(int lngHasta);

    // Making a file current
    void fMostrarArchivo(int lngPos);
    void fMostrarOcupada(int lngPos);
    [[nodiscard]] bool fDibujar();
    [[nodiscard]] bool fQueja(const std::string &strTexto);
    void fDescribir();
    void fTerminarMostrar();
    void fRedibujar();

    const clsArchivo m_archivo;
    clsAjustes &m_ajustes;
    clsAjustes &m_escritorio;
    clsMensajes &m_mensajes;
    clsEstado m_estado;
    clsOcupacion m_ocupacion;
    clsMandos m_mandos{m_estado};
    bool m_bolGuardarSelec = false; ///< the current file is still to be stored
    bool m_bolDispuesta = false;    ///< the window has its size, so that pictures can be drawn
    bool m_bolDobleClic = false;    ///< a row was double-clicked while it was being shown

    const clsFuentesMini m_fuentes;      ///< of thumbnails
    int m_lngAncho;                      ///< panel width in twips
    QSize m_tamDispuesto;                ///< client size last laid out
    bool m_bolCompletaDispuesta = false; ///< it was with the whole screen for the panel
    QTimer m_Timer1;

    QWidget *m_cliente;
    clsModeloFotos *m_modelo;
    lstFotos *m_lista;
    clsVisor *m_visor;
    clsMiniaturas *m_miniaturas;
    cmdAncho *m_divisor;
    QToolBar *m_toolBar;
    clsInformacion *m_informacion;
    clsPuerta *m_puerta;

    const clsComun m_comun;
    clsTiempo *m_tiempo;
};
