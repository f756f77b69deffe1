#pragma once

#include "repair/desfase.h"

#include <QDialog>

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

class QLabel;
class QSpinBox;

/// Asks by how much a camera's clock was wrong, and shows what would come of it.
class frmDesfase : public QDialog {
    Q_OBJECT
public:
    /// @param fResultado the text for a shift of so many seconds.
    frmDesfase(QWidget *padre, std::function<std::string(std::int64_t lngSegundos)> fResultado);

    /// Shows it and waits until it is closed.
    /// @return seconds; nothing when it was cancelled.
    [[nodiscard]] std::optional<std::int64_t> fPedir();

private:
    [[nodiscard]] std::int64_t fSegundos() const;
    void fMostrarResultado();

    std::function<std::string(std::int64_t)> m_fResultado;
    std::array<QSpinBox *, 4> m_lstNumeros{};
    QLabel *m_lblResultado;
};
