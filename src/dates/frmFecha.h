#pragma once

#include "dates/formulario_fecha.h"
#include "shared/mensajes.h"

#include <QDialog>

#include <functional>

class QLineEdit;

/// The date correction: shows what is known about the files' dates and takes the new one.
class frmFecha : public QDialog {
    Q_OBJECT
public:
    /// How the dialog was closed.
    enum class Cierre { Cancelada, Moverse, Quedarse };

    /// @param fAplicar corrects the files to a date, before the dialog closes; false: nothing was
    ///                 done, and the dialog stays open.
    frmFecha(QWidget *padre, const clsFormularioFecha &formulario, clsMensajes &mensajes,
             std::function<bool(clsFecha)> fAplicar);

    /// Shows it and waits until it is closed.
    Cierre fMostrar();

private:
    void fAceptar(Cierre cierre);
    QWidget *fCrearActual(const clsFormularioFecha &formulario);
    QWidget *fCrearBotonFecha(int intIndice, const std::string &strFecha);
    QLayout *fCrearBotones();

    clsMensajes &m_mensajes;
    std::function<bool(clsFecha)> m_fAplicar;
    QLineEdit *m_txtDateTime;
    Cierre m_cierre = Cierre::Cancelada;
};
