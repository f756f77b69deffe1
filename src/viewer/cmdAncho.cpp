#include "viewer/cmdAncho.h"

#include <QApplication>
#include <QMouseEvent>

#include <cstdlib>

cmdAncho::cmdAncho(QWidget *cliente)
    : QPushButton(cliente), m_linea(new QRubberBand(QRubberBand::Line, cliente))
{
    setObjectName(QStringLiteral("cmdAncho"));
    setAccessibleName(QStringLiteral("Separador entre la lista y el panel"));
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::SplitHCursor);
}

void cmdAncho::mousePressEvent(QMouseEvent *evento)
{
    if (evento->button() == Qt::LeftButton) {
        m_intInicio = mapToParent(evento->position().toPoint()).x();
        setDown(true);
    }
}

void cmdAncho::mouseMoveEvent(QMouseEvent *evento)
{
    if (!(evento->buttons() & Qt::LeftButton)) {
        fTerminar(); // the release went astray
    }
    if (!isDown()) {
        return;
    }
    const int intX = mapToParent(evento->position().toPoint()).x();
    if (fMovido() || std::abs(intX - m_intInicio) >= QApplication::startDragDistance() / 2) {
        m_linea->setGeometry(intX, y(), intPixeles, height());
        m_linea->show();
        m_linea->raise();
    }
}

void cmdAncho::mouseReleaseEvent(QMouseEvent *evento)
{
    const bool bolSoltado = isDown() && fMovido() && evento->button() == Qt::LeftButton;
    fTerminar();
    if (bolSoltado) {
        emit fSoltado(mapToParent(evento->position().toPoint()).x());
    }
}

void cmdAncho::hideEvent(QHideEvent *) { fTerminar(); }

void cmdAncho::fTerminar()
{
    setDown(false);
    m_linea->hide();
}
