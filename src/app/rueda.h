#pragma once

#include "browse/mandos.h"
#include "browse/teclas.h"

#include <QObject>
#include <QRect>

#include <functional>

class QWidget;

/// The mouse wheel over the viewing panel: it steps through the files as keys do, with Ctrl it
/// enlarges. What lies there leaves the wheel to its parent, the client area.
class clsRueda : public QObject {
public:
    /// @param fPanel where the panel lies in the client area.
    clsRueda(QWidget *cliente, std::function<QRect()> fPanel, const clsMandos &mandos);

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    const std::function<QRect()> m_fPanel;
    const clsMandos &m_mandos;
    clsMuescas m_muescas;
};
