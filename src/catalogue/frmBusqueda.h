#pragma once

#include "catalogue/constructor.h"
#include "shared/mensajes.h"
#include "shared/ritmo.h"

#include <QDialog>

class QLabel;

/// The small window of the catalogue build: shows the folder being read. It cannot be cancelled.
/// It is not modal in Qt's sense, which would also refuse to close the main window; the busy gate
/// keeps everything else away from that.
class frmBusqueda : public QDialog, private clsObservador {
    Q_OBJECT
public:
    /// @param fSeguir false: the program is closing.
    frmBusqueda(QWidget *padre, clsMensajes &mensajes, clsSeguir fSeguir);

    /// Shows the window, builds the catalogue of the root folder and closes it again.
    clsConstruccion fBuscar(const std::string &strRaiz);

    void reject() override {} // Esc

protected:
    void closeEvent(QCloseEvent *evento) override;
    void paintEvent(QPaintEvent *evento) override;

private:
    void fCarpeta(const std::string &strCarpeta) override;
    void fError(clsError error) override;
    bool fSeguir() override;

    clsMensajes &m_mensajes;
    clsSeguir m_fSeguir;
    QLabel *m_lblMsg;
    std::string m_strCarpeta;
    bool m_bolPintado = false;
};
