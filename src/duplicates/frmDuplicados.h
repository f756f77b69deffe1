#pragma once

#include "duplicates/busqueda_copias.h"
#include "duplicates/candidatos.h"
#include "duplicates/modelo_duplicados.h"
#include "shared/clsProgreso.h"
#include "shared/hilos.h"
#include "shared/ritmo.h"

#include <QDialog>
#include <QImage>

#include <functional>
#include <string>
#include <vector>

class QAbstractButton;
class QButtonGroup;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QTableView;

/// What the window that looks for duplicates takes from the program. Both run on threads, perhaps
/// still when the window is gone.
struct clsEntornoDuplicados {
    std::function<bool(const std::string &strRuta)> fFechaBien;
    std::function<QImage(const std::string &strRuta, int intLado)> fImagen;
};

/// Looks for files of the same content and shows them in groups, of each of which one is to stay.
/// It changes nothing on the disk: the copies are ticked in the list, if the user wants that.
class frmDuplicados : public QDialog {
    Q_OBJECT
public:
    /// @param strRaiz of the archive.
    frmDuplicados(QWidget *padre, clsCandidatos candidatos, const std::string &strRaiz,
                  clsEntornoDuplicados entorno);

    /// Shows it and waits until it is closed.
    /// @return the files that are to be ticked; none when it was only closed.
    [[nodiscard]] std::vector<std::string> fMostrar();

private:
    [[nodiscard]] QWidget *fCrearTabla();
    [[nodiscard]] QWidget *fCrearFotos();
    [[nodiscard]] QLayout *fCrearPie();
    void fMostrarHallados();
    void fAvance();
    void fMostrarGrupo();
    void fPonerFoto(int intFila);
    void fMirarElegida();
    bool eventFilter(QObject *objeto, QEvent *evento) override;

    const clsEntornoDuplicados m_entorno;
    clsModeloDuplicados m_modelo;
    std::vector<clsGrupo> m_lstNuevos; ///< found and not shown yet
    clsRitmo m_ritmo;
    int m_intPrimera = -1; ///< row of the group whose pictures are shown; -1: none
    QTableView *m_tblDuplicados;
    QScrollArea *m_fotos;
    QButtonGroup *m_botones = nullptr; ///< the pictures; their numbers are rows
    QLabel *m_lblDuplicados;
    clsProgreso m_progreso;
    QPushButton *m_cmdMarcar;
    clsHilos m_pintor;
    clsBusquedaCopias m_busqueda;
};
