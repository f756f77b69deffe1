#pragma once

#include "app/comun.h"

#include <QObject>
#include <QRect>

#include <cstdint>
#include <functional>
#include <utility>

struct clsBarra;
struct clsPeriodo;
class frmTiempo;

/// The strip of time in the main window: when it is there, what it shows, and what becomes of what
/// the user asks of it. There is none until it is wanted.
class clsTiempo : public QObject {
public:
    /// @param lista      gets the focus when the strip gives it back.
    /// @param fRedisponer lays the panels out anew, with the strip or without it.
    clsTiempo(QWidget *cliente, QWidget *lista, const clsComun &comun, clsMandos &mandos,
              std::function<void()> fRedisponer);

    /// The height it is to have, in pixels; 0 when it is not wanted.
    [[nodiscard]] int fAlto() const;
    /// Places it; without room for it, it is hidden.
    void fDisponer(const QRect &sitio);
    /// Keeps it at the lower edge of the client area, ahead of the next layout.
    /// @return its height; 0 when it is hidden.
    int fBajar(int intAbajo);
    /// Shows what the list and the current file have become.
    void fMostrar();

private:
    void fAlternar();
    void fTecla();
    void fDejar();
    [[nodiscard]] bool fIr(const clsBarra &barra);
    void fFiltrar(const clsPeriodo &periodo);
    void fMostrarLista();

    QWidget *m_cliente;
    QWidget *m_lista;
    const clsComun &m_comun;
    const std::function<void()> m_fRedisponer;
    frmTiempo *m_franja = nullptr;
    std::pair<std::uint64_t, int> m_mostrado{}; ///< revision of the rows, known wrong dates
};
