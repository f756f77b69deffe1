#include "filter/txtFecha.h"

#include "shared/qtexto.h"

#include <QKeyEvent>

txtFecha::txtFecha(QWidget *padre) : QLineEdit(padre)
{
    setMaxLength(intLargoTecleada);
    setToolTip(QStringLiteral("Formato DDMMYY."));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // What an input method composes would come past the keys.
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void txtFecha::fPoner(const std::string &strFecha)
{
    m_strValida = strFecha;
    setMaxLength(strFecha.empty() ? intLargoTecleada : intLargoMostrada);
    setText(fQ(strFecha));
}

void txtFecha::fEditar()
{
    const QString strTexto = fQ(fEditarCaja(fUtf8(text())));
    if (strTexto.size() <= intLargoTecleada) {
        if (strTexto != text()) {
            setText(strTexto);
        }
        setMaxLength(intLargoTecleada);
    }
}

std::string_view txtFecha::fDejar()
{
    const clsCajaFecha caja = fDejarCaja(fUtf8(text()), m_strValida);
    if (caja.strFallo.empty() && caja.strTexto != m_strValida) {
        fPoner(caja.strTexto);
    }
    return caja.strFallo;
}

void txtFecha::focusInEvent(QFocusEvent *evento)
{
    fEditar(); // first, so that what Tab selects is all of it
    QLineEdit::focusInEvent(evento);
}

void txtFecha::keyPressEvent(QKeyEvent *evento)
{
    // Delete edits, although it has a character of its own.
    if (evento->key() == Qt::Key_Delete || fAdmiteTecla(fUtf8(evento->text()))) {
        QLineEdit::keyPressEvent(evento);
    } else {
        evento->accept();
    }
}
