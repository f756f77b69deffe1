#pragma once

#include "repair/lectura_fechas.h"
#include "repair/modelo_reparacion.h"
#include "repair/reparacion.h"
#include "shared/clsProgreso.h"
#include "shared/hilos.h"
#include "shared/mensajes.h"

#include <QDialog>
#include <QImage>

#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

/// What the window that repairs dates takes from the program. The first three run on threads,
/// perhaps still when the window is gone.
struct clsEntornoReparar {
    clsLectorFechas fLeer;
    std::function<bool(const std::string &strRuta)> fExiste; ///< something has that name
    std::function<QImage(const std::string &strRuta, int intLado)> fImagen;
    /// Corrects the files.
    /// @param fPaso is told how many are done, and lets events run; false: no further ones.
    /// @return whether the window is to close.
    std::function<bool(const std::vector<clsReparado> &lstReparados,
                       const std::function<bool(int lngHechos)> &fPaso)>
        fCorregir;
    clsMensajes &mensajes;
};

/// Repairs the dates of many files: a table of what is wrong and what is proposed, of which the
/// user changes what they like. The dates are read on threads while the window is open.
class frmReparar : public QDialog {
    Q_OBJECT
public:
    /// @param lstRutas the files.
    frmReparar(QWidget *padre, std::vector<std::string> lstRutas, clsTablaReparacion tabla,
               clsEntornoReparar entorno);

    void reject() override; ///< Esc and closing; while files are corrected: no further ones

private:
    // Building the window
    [[nodiscard]] QLayout *fCrearCabecera();
    [[nodiscard]] QWidget *fCrearTabla();
    [[nodiscard]] QLayout *fCrearDetalle();
    [[nodiscard]] QLayout *fCrearCambios();
    [[nodiscard]] QLayout *fCrearPie();
    template <typename Hacer>
    [[nodiscard]] QPushButton *fCrearBoton(const char *strNombre, const char *strTexto,
                                           const Hacer &fHacer);

    // What the user does
    void fMostrarVista(int intVista);
    void fOrdenar(int intColumna);
    void fRehacer(const std::function<void()> &fCambio);
    void fAlternarElegidas();
    void fMarcarVista(bool bolMarca);
    void fElegirFuente(int intLugar);
    void fFechar();
    void fDesplazar();
    void fCambiarMarcadas(const std::function<int()> &fCambio);
    void fCorregir();

    // What is shown
    void fComprobar();
    void fMostrarLeidas();
    void fMostrarPie();
    void fMostrarFuentes();
    void fMostrarActual();
    void showEvent(QShowEvent *evento) override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

    clsTablaReparacion m_tabla;
    clsEntornoReparar m_entorno;
    clsModeloReparacion m_modelo{m_tabla};
    bool m_bolComprobando = false;
    bool m_bolCorrigiendo = false;
    bool m_bolParar = false;

    QTableView *m_tblReparar;
    QComboBox *m_cboVista;
    QComboBox *m_cboFuente;
    QLineEdit *m_txtFecha;
    QCheckBox *m_chkNombre;
    QLabel *m_imgActual;
    QLabel *m_lblFuentes;
    QLabel *m_lblCuentas;
    clsProgreso m_progreso;
    QPushButton *m_cmdCorregir;
    QWidget *m_mandos; ///< all that is not for use while files are corrected

    clsLecturaFechas m_lectura;
    clsHilos m_pintor;
    clsHilos m_comprobador;
};
