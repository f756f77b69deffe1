#include "app/mensajes_qt.h"

#include "shared/hilos.h"
#include "shared/programa.h"
#include "shared/qtexto.h"
#include "sistema/archivo.h"

#include <QApplication>
#include <QCursor>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

#include <chrono>
#include <optional>

namespace {

/// Over the window the user looks at: the program's active one, else its main window.
QWidget *fPadre()
{
    if (QWidget *const ventana = QApplication::activeModalWidget()) {
        return ventana;
    }
    if (QWidget *const ventana = QApplication::activeWindow()) {
        return ventana;
    }
    for (QWidget *const ventana : QApplication::topLevelWidgets()) {
        if (ventana->isVisible() && ventana->windowType() == Qt::Window) {
            return ventana;
        }
    }
    return nullptr;
}

/// Shows a box until it is closed, meanwhile without the wait pointer.
/// @param bolModal false: in Qt's sense it is not modal, which would also refuse to close the main
///                 window; the gate keeps everything else away from that.
int fCorrer(QDialog &caja, bool bolModal = true)
{
    std::optional<QCursor> espera;
    if (const QCursor *const cursor = QApplication::overrideCursor()) {
        espera = *cursor;
        QApplication::restoreOverrideCursor();
    }
    if (bolModal) {
        caja.exec();
    } else {
        QEventLoop bucle;
        QObject::connect(&caja, &QDialog::finished, &bucle, &QEventLoop::quit);
        caja.setModal(false); // boxes are as a rule
        caja.show();
        bucle.exec();
    }
    if (espera) {
        QApplication::setOverrideCursor(*espera);
    }
    return caja.result();
}

/// Whether a folder is there and answers at once; who shows it reads it in the window's thread.
bool fResponde(const QString &strCarpeta)
{
    constexpr std::chrono::milliseconds paciencia(150);
    bool bolHay = false;
    clsHilos hilos({.intHilos = 1, .intMaximo = 1});
    const auto orden = hilos.fPedir(
        [strRuta = QFile::encodeName(strCarpeta).toStdString()] { return fExisteCarpeta(strRuta); },
        [&bolHay](bool bolSuya) { bolHay = bolSuya; });
    return hilos.fEsperar(orden, paciencia) && bolHay;
}

/// Shows a text and waits for a button; the last one is the default and the answer of Esc.
/// @return whether it was the first one.
bool fMostrarCaja(QMessageBox::Icon icono, const std::string &strTitulo,
                  const std::string &strTexto, const QStringList &lstBotones, bool bolModal = true)
{
    QMessageBox caja(fPadre());
    caja.setObjectName(QStringLiteral("msgMiravel"));
    caja.setWindowTitle(fQ(strTitulo));
    caja.setIcon(icono);
    caja.setTextFormat(Qt::PlainText);
    caja.setText(fQ(strTexto));
    QPushButton *const primero = caja.addButton(lstBotones.first(), QMessageBox::AcceptRole);
    QPushButton *ultimo = primero;
    for (const QString &strBoton : lstBotones.mid(1)) {
        ultimo = caja.addButton(strBoton, QMessageBox::RejectRole);
    }
    caja.setDefaultButton(ultimo);
    caja.setEscapeButton(ultimo);
    fCorrer(caja, bolModal);
    return caja.clickedButton() == primero;
}

} // namespace

void clsMensajesQt::fAviso(Icono icono, const std::string &strTexto, const std::string &strTitulo)
{
    const auto cual = icono == Icono::Problema ? QMessageBox::Warning
                      : icono == Icono::Aviso  ? QMessageBox::Information
                                               : QMessageBox::Critical;
    fMostrarCaja(cual, strTitulo, strTexto, {QStringLiteral("Aceptar")});
}

void clsMensajesQt::fAvisoEnSerie(const std::string &strTexto)
{
    // A dialog that is open would keep the user from a box that is not modal.
    fMostrarCaja(QMessageBox::Warning, strPrograma, strTexto, {QStringLiteral("Aceptar")},
                 QApplication::activeModalWidget() != nullptr);
}

bool clsMensajesQt::fSiNo(const std::string &strTexto)
{
    return fMostrarCaja(QMessageBox::Question, strPrograma, strTexto,
                        {QStringLiteral("Sí"), QStringLiteral("No")});
}

bool clsMensajesQt::fAceptarCancelar(const std::string &strTexto)
{
    return fMostrarCaja(QMessageBox::Question, strPrograma, strTexto,
                        {QStringLiteral("Aceptar"), QStringLiteral("Cancelar")});
}

std::optional<std::string> clsMensajesQt::fPedir(const std::string &strPregunta)
{
    QInputDialog caja(fPadre());
    caja.setObjectName(QStringLiteral("inpMiravel"));
    caja.setWindowTitle(QStringLiteral("Miravel"));
    caja.setLabelText(fQ(strPregunta));
    caja.setOkButtonText(QStringLiteral("Aceptar"));
    caja.setCancelButtonText(QStringLiteral("Cancelar"));
    for (QPushButton *const boton : caja.findChildren<QPushButton *>()) {
        boton->setIcon({}); // none of our boxes has any
    }
    if (fCorrer(caja) != QDialog::Accepted) {
        return {};
    }
    return fUtf8(caja.textValue());
}

std::string clsMensajesQt::fElegirCarpeta(const std::string &strTitulo, const std::string &strAntes)
{
    QFileDialog caja(fPadre(), fQ(strTitulo));
    caja.setObjectName(QStringLiteral("dlgCarpeta"));
    // The desktop's own dialog speaks the desktop's language; all texts here are Spanish.
    const QString strIdioma = QLocale::system().uiLanguages().value(0);
    caja.setOption(QFileDialog::DontUseNativeDialog, !strIdioma.startsWith(QLatin1String("es")));
    caja.setFileMode(QFileDialog::Directory);
    caja.setOption(QFileDialog::ShowDirsOnly);
    caja.setOption(QFileDialog::ReadOnly); // nothing is renamed or deleted by the way
    const QString strDesde =
        strAntes.empty() ? m_strCarpeta : QFile::decodeName(QByteArray::fromStdString(strAntes));
    caja.setDirectory(fResponde(strDesde) ? strDesde : QDir::homePath());
    if (fCorrer(caja) != QDialog::Accepted || caja.selectedFiles().isEmpty()) {
        return {};
    }
    m_strCarpeta = caja.selectedFiles().constFirst();
    return QFile::encodeName(m_strCarpeta).toStdString();
}
