#include "filter/txtFecha.h"

#include "shared/qtexto.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include <memory>

txtFecha::txtFecha(QWidget *padre) : QLineEdit(padre)
{
    setMaxLength(intLargoTecleada);
    setToolTip(QStringLiteral("Formato DDMMYY."));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // What an input method composes, or what is dropped here, would come past the keys.
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAcceptDrops(false);
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
    const bool bolYa = strTexto == text() && maxLength() == intLargoTecleada;
    // Each of the two takes the selection away, which a window that comes back must not.
    if (!bolYa && strTexto.size() <= intLargoTecleada) {
        setText(strTexto);
        setMaxLength(intLargoTecleada);
    }
}

std::string_view txtFecha::fDejar()
{
    const clsCajaFecha caja = fDejarCaja(fUtf8(text()), m_strValida);
    if (caja.strFallo.empty() && caja.strTexto != fUtf8(text())) {
        fPoner(caja.strTexto);
    }
    return caja.strFallo;
}

void txtFecha::focusInEvent(QFocusEvent *evento)
{
    fEditar(); // first, so that what Tab selects is all of it
    QLineEdit::focusInEvent(evento);
}

void txtFecha::fPegar() { insert(fQ(fSoloCifras(fUtf8(QApplication::clipboard()->text())))); }

void txtFecha::contextMenuEvent(QContextMenuEvent *evento)
{
    const std::unique_ptr<QMenu> mnuCaja(createStandardContextMenu());
    if (auto *const pegar = mnuCaja->findChild<QAction *>(QStringLiteral("edit-paste"))) {
        pegar->disconnect();
        connect(pegar, &QAction::triggered, this, &txtFecha::fPegar);
    }
    mnuCaja->exec(evento->globalPos());
}

void txtFecha::keyPressEvent(QKeyEvent *evento)
{
    const auto fEs = [evento](QKeySequence::StandardKey tecla) { return evento->matches(tecla); };
    if (fEs(QKeySequence::Paste)) {
        fPegar();
    } else if (evento->key() == Qt::Key_Delete || fEs(QKeySequence::SelectAll) ||
               fEs(QKeySequence::Copy) || fEs(QKeySequence::Cut) ||
               fAdmiteTecla(fUtf8(evento->text()))) { // keys that edit have characters, too
        QLineEdit::keyPressEvent(evento);
    } else {
        evento->accept();
    }
}
