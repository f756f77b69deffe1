#include "app/rueda.h"

#include <QWheelEvent>
#include <QWidget>

#include <cstdlib>
#include <utility>

clsRueda::clsRueda(QWidget *cliente, std::function<QRect()> fPanel, const clsMandos &mandos)
    : QObject(cliente), m_fPanel(std::move(fPanel)), m_mandos(mandos)
{
    cliente->installEventFilter(this);
}

bool clsRueda::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() != QEvent::Wheel) {
        return QObject::eventFilter(objeto, evento);
    }
    const auto &rueda = static_cast<const QWheelEvent &>(*evento);
    if (!m_fPanel().contains(rueda.position().toPoint())) {
        return false; // the list has come to its end
    }
    const int intMuescas = m_muescas.fContar(rueda.angleDelta().y());
    const int intTecla = fTeclaDeRueda(intMuescas > 0, rueda.modifiers() & Qt::ControlModifier);
    for (int intVez = 0; intVez < std::abs(intMuescas); ++intVez) {
        static_cast<void>(m_mandos.fTecla(intTecla, 0));
    }
    evento->accept();
    return true;
}
