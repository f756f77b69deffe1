#pragma once

#include "filter/formulario_filtro.h"

#include <QLineEdit>

/// A date box of the filter: six digits while it has the focus, "dd/mm/yyyy" once it was accepted.
class txtFecha : public QLineEdit {
    Q_OBJECT
public:
    explicit txtFecha(QWidget *padre);

    /// Shows an accepted date "dd/mm/yyyy" (UTF-8), or nothing.
    void fPoner(const std::string &strFecha);
    /// Shows the six digits of the date it holds.
    void fEditar();
    /// Accepts what was typed and shows it as a date, or tells why not and leaves it as it is.
    [[nodiscard]] FalloFiltro fDejar();

protected:
    void focusInEvent(QFocusEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;

private:
    std::string m_strValida; ///< the date last accepted
};
