#pragma once

#include "filter/formulario_filtro.h"
#include "shared/mensajes.h"
#include "shared/ritmo.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class txtFecha;

/// The filter: asks for dates or words and finds the rows that match.
class frmFiltro : public QDialog {
    Q_OBJECT
public:
    /// @param filas   the list; only read, and not to be changed while the dialog is open.
    /// @param valores what the dialog shows first; what it filtered by afterwards.
    /// @param fSeguir false ends the filter (the program is closing).
    /// @param bolFormatos whether files of other formats are listed.
    frmFiltro(QWidget *padre, const clsFilas &filas, clsValoresFiltro &valores,
              clsMensajes &mensajes, clsSeguir fSeguir, bool bolFormatos = false);
    ~frmFiltro() override;

    /// Shows it and waits until it is closed.
    /// @return what was found, nothing when it was cancelled; while nothing is found it stays open.
    std::optional<clsFiltrado> fMostrar();

    /// Esc, Cancelar and closing: they end a filter that is running, too.
    void reject() override;

private:
    QWidget *fCrearFechas();
    QWidget *fCrearTexto();
    QWidget *fCrearOpciones();
    void fCrearCarpeta();
    QLayout *fCrearPie();
    void fCargarValores();

    void fValidarSalida();
    [[nodiscard]] bool fValidarCajas(const QWidget *salvo);
    [[nodiscard]] clsValoresFiltro fValores() const;
    void fAceptar();
    void fFiltrarPor(const clsFiltro &filtro, const clsValoresFiltro &valores);
    void fTrabajar(bool bolTrabaja);
    void fSeguirAbierto(std::string_view strMotivo);

    const clsFilas &m_filas;
    clsValoresFiltro &m_valores;
    clsMensajes &m_mensajes;
    clsSeguir m_fSeguir;
    const bool m_bolFormatos;

    std::array<txtFecha *, 2> m_lstFechas;
    QLineEdit *m_txtTexto;
    QCheckBox *m_chkCarpeta;
    std::array<QRadioButton *, 3> m_lstModos{};
    std::array<QWidget *, 2> m_lstMarcos{}; ///< the frames that show, for switching them off
    QLabel *m_lblFiltrando;
    QProgressBar *m_prgFiltrando;
    QPushButton *m_cmdAceptar;
    QPushButton *m_cmdCancelar;

    std::optional<clsFiltrado> m_filtrado;
    /// What is under way: a validation, a filter, one that is to end.
    enum class Fase { Ninguna, Validando, Filtrando, Parando } m_fase = Fase::Ninguna;
};
