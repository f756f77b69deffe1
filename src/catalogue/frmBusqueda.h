#pragma once

#include "catalogue/constructor.h"
#include "shared/mensajes.h"

#include <QDialog>

#include <functional>
#include <string>

class QLabel;

/// The small window of the catalogue build: shows the folder being read. It cannot be cancelled,
/// but left when the disk does not answer. It is not modal in Qt's sense, which would also refuse
/// to close the main window; the busy gate keeps everything else away from that.
class frmBusqueda : public QDialog {
    Q_OBJECT
public:
    /// Lets events run; false ends the build.
    /// @param bolCallado nothing has been heard of the disk for a while.
    using clsSeguirBusqueda = std::function<bool(bool bolCallado)>;

    frmBusqueda(QWidget *padre, clsMensajes &mensajes, clsSeguirBusqueda fSeguir);

    /// Shows the window, has the catalogue of the root folder built on a thread and closes it
    /// again.
    clsConstruccion fBuscar(const std::string &strRaiz);

    void reject() override {} // Esc

protected:
    void closeEvent(QCloseEvent *evento) override;
    void paintEvent(QPaintEvent *evento) override;

private:
    [[nodiscard]] bool fEsperarPintado();
    [[nodiscard]] clsConstruccion fConstruirAparte(const std::string &strRaiz);

    clsMensajes &m_mensajes;
    clsSeguirBusqueda m_fSeguir;
    QLabel *m_lblMsg;
    bool m_bolPintado = false;
};
