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
    /// Accepts what was typed and shows it as a date, or leaves it as it is.
    /// @return why it is not accepted; empty: it is.
    [[nodiscard]] std::string_view fDejar();

protected:
    void focusInEvent(QFocusEvent *evento) override;
    void keyPressEvent(QKeyEvent *evento) override;
    void contextMenuEvent(QContextMenuEvent *evento) override;

private:
    void fPegar();

    std::string m_strValida; ///< the date last accepted
};
