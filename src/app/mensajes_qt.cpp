#include "app/mensajes_qt.h"

#include "shared/qtexto.h"

#include <QApplication>
#include <QCursor>
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

} // namespace

void clsMensajesQt::fAviso(Icono icono, const std::string &strTexto)
{
    const clsPunteroNormal puntero;
    QMessageBox caja(fPadre());
    fPreparar(caja, fIcono(icono), strTexto);
    QPushButton *const aceptar =
        caja.addButton(QMessageBox::tr("Aceptar"), QMessageBox::AcceptRole);
    caja.setDefaultButton(aceptar);
    caja.setEscapeButton(aceptar);
    caja.exec();
}

bool clsMensajesQt::fSiNo(const std::string &strTexto)
{
    const clsPunteroNormal puntero;
    QMessageBox caja(fPadre());
    fPreparar(caja, QMessageBox::Question, strTexto);
    QPushButton *const si = caja.addButton(QMessageBox::tr("Sí"), QMessageBox::YesRole);
    QPushButton *const no = caja.addButton(QMessageBox::tr("No"), QMessageBox::NoRole);
    caja.setDefaultButton(no);
    caja.setEscapeButton(no);
    caja.exec();
    return caja.clickedButton() == si;
}
