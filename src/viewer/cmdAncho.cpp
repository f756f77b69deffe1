#include "viewer/cmdAncho.h"

#include <QApplication>
#include <QMouseEvent>
#include <QRubberBand>

#include <cstdlib>

cmdAncho::cmdAncho(QWidget *cliente)
    : QPushButton(cliente), m_linea(new QRubberBand(QRubberBand::Line, cliente))
{
    setObjectName(QStringLiteral("cmdAncho"));
    setAccessibleName(QStringLiteral("Separador entre la lista y el panel"));
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::SplitHCursor);
}

int cmdAncho::fXCliente(const QMouseEvent &evento) const
{
    return parentWidget()->mapFromGlobal(evento.globalPosition().toPoint()).x();
}

void cmdAncho::mousePressEvent(QMouseEvent *evento)
{
    if (evento->button() == Qt::LeftButton) {
        m_bolPulsado = true;
        m_bolMovido = false;
        m_intInicio = fXCliente(*evento);
        setDown(true);
    }
}

void cmdAncho::mouseMoveEvent(QMouseEvent *evento)
{
    if (!(evento->buttons() & Qt::LeftButton)) {
        fTerminar(); // the release went astray
    }
    if (!m_bolPulsado) {
        return;
    }
    const int intX = fXCliente(*evento);
    m_bolMovido =
        m_bolMovido || std::abs(intX - m_intInicio) >= QApplication::startDragDistance() / 2;
    if (m_bolMovido) {
        m_linea->setGeometry(intX, y(), intPixeles, height());
        m_linea->show();
        m_linea->raise();
    }
}

void cmdAncho::mouseReleaseEvent(QMouseEvent *evento)
{
    const bool bolSoltado = m_bolPulsado && m_bolMovido && evento->button() == Qt::LeftButton;
    fTerminar();
    if (bolSoltado) {
        emit fSoltado(fXCliente(*evento));
    }
}

void cmdAncho::hideEvent(QHideEvent *) { fTerminar(); }

void cmdAncho::fTerminar()
{
    m_bolPulsado = false;
    setDown(false);
    m_linea->hide();
}
