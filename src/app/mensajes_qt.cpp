#include "app/mensajes_qt.h"

#include "shared/qtexto.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

#include <optional>

namespace {

/// Takes the wait pointer away while a box is open.
class clsPunteroNormal {
public:
    clsPunteroNormal()
    {
        if (const QCursor *const cursor = QApplication::overrideCursor()) {
            m_cursor = *cursor;
            QApplication::restoreOverrideCursor();
        }
    }
    ~clsPunteroNormal()
    {
        if (m_cursor) {
            QApplication::setOverrideCursor(*m_cursor);
        }
    }
    clsPunteroNormal(const clsPunteroNormal &) = delete;
    clsPunteroNormal &operator=(const clsPunteroNormal &) = delete;

private:
    std::optional<QCursor> m_cursor;
};

QMessageBox::Icon fIcono(Icono icono)
{
    switch (icono) {
    case Icono::Problema:
        return QMessageBox::Warning;
    case Icono::Aviso:
        return QMessageBox::Information;
    case Icono::Critico:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

void fPreparar(QMessageBox &caja, QMessageBox::Icon icono, const std::string &strTexto)
{
    caja.setObjectName(QStringLiteral("msgMiravel"));
    caja.setWindowTitle(QStringLiteral("Miravel"));
    caja.setIcon(icono);
    caja.setTextFormat(Qt::PlainText);
    caja.setText(fQ(strTexto));
}

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

/// Asks with two buttons; the second is the default and the answer of Esc.
bool fPreguntar(const std::string &strTexto, const QString &strSi, const QString &strNo)
{
    const clsPunteroNormal puntero;
    QMessageBox caja(fPadre());
    fPreparar(caja, QMessageBox::Question, strTexto);
    QPushButton *const si = caja.addButton(strSi, QMessageBox::AcceptRole);
    QPushButton *const no = caja.addButton(strNo, QMessageBox::RejectRole);
    caja.setDefaultButton(no);
    caja.setEscapeButton(no);
    caja.exec();
    return caja.clickedButton() == si;
}

} // namespace

void clsMensajesQt::fAviso(Icono icono, const std::string &strTexto, const std::string &strTitulo)
{
    const clsPunteroNormal puntero;
    QMessageBox caja(fPadre());
    fPreparar(caja, fIcono(icono), strTexto);
    caja.setWindowTitle(fQ(strTitulo));
    QPushButton *const aceptar = caja.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole);
    caja.setDefaultButton(aceptar);
    caja.setEscapeButton(aceptar);
    caja.exec();
}

bool clsMensajesQt::fSiNo(const std::string &strTexto)
{
    return fPreguntar(strTexto, QStringLiteral("Sí"), QStringLiteral("No"));
}

bool clsMensajesQt::fAceptarCancelar(const std::string &strTexto)
{
    return fPreguntar(strTexto, QStringLiteral("Aceptar"), QStringLiteral("Cancelar"));
}

std::optional<std::string> clsMensajesQt::fPedir(const std::string &strPregunta)
{
    const clsPunteroNormal puntero;
    QInputDialog caja(fPadre());
    caja.setObjectName(QStringLiteral("inpMiravel"));
    caja.setWindowTitle(QStringLiteral("Miravel"));
    caja.setLabelText(fQ(strPregunta));
    caja.setOkButtonText(QStringLiteral("Aceptar"));
    caja.setCancelButtonText(QStringLiteral("Cancelar"));
    for (QPushButton *const boton : caja.findChildren<QPushButton *>()) {
        boton->setIcon({}); // none of our boxes has any
    }
    if (caja.exec() != QDialog::Accepted) {
        return {};
    }
    return fUtf8(caja.textValue());
}

std::string clsMensajesQt::fElegirCarpeta(const std::string &strTitulo)
{
    const clsPunteroNormal puntero;
    QFileDialog caja(fPadre(), fQ(strTitulo));
    caja.setObjectName(QStringLiteral("dlgCarpeta"));
    // The desktop's own dialog speaks the desktop's language; all texts here are Spanish.
    const QString strIdioma = QLocale::system().uiLanguages().value(0);
    caja.setOption(QFileDialog::DontUseNativeDialog, !strIdioma.startsWith(QLatin1String("es")));
    caja.setFileMode(QFileDialog::Directory);
    caja.setOption(QFileDialog::ShowDirsOnly);
    caja.setOption(QFileDialog::ReadOnly); // nothing is renamed or deleted by the way
    if (!m_strCarpeta.isEmpty()) {
        caja.setDirectory(m_strCarpeta);
    } else {
        caja.setDirectory(QDir::home());
    }
    if (caja.exec() != QDialog::Accepted || caja.selectedFiles().isEmpty()) {
        return {};
    }
    m_strCarpeta = caja.selectedFiles().constFirst();
    return QFile::encodeName(m_strCarpeta).toStdString();
}
