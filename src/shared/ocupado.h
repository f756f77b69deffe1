#pragma once

#include <functional>
#include <utility>

/// The busy counter of a window. Periods nest; only the outermost entry and exit act.
class clsOcupacion {
public:
    /// @param fAlEntrar runs when the counter leaves 0.
    /// @param fAlSalir  runs when it is 0 again; it may start a new period or close the window.
    clsOcupacion(std::function<void()> fAlEntrar, std::function<void()> fAlSalir)
        : m_fAlEntrar(std::move(fAlEntrar)), m_fAlSalir(std::move(fAlSalir))
    {
    }
    [[nodiscard]] bool fEsta() const { return m_intContador > 0; }
    /// Enters (true) or leaves (false) the busy state. Leaving without having entered does nothing.
    void fOcupado(bool bolEntrar)
    {
        if (bolEntrar && ++m_intContador == 1) {
            m_fAlEntrar();
        } else if (!bolEntrar && m_intContador > 0 && --m_intContador == 0) {
            m_fAlSalir();
        }
    }

private:
    int m_intContador = 0;
    std::function<void()> m_fAlEntrar;
    std::function<void()> m_fAlSalir;
};

/// A busy period that ends on every way out of its scope.
class clsOcupado {
public:
    explicit clsOcupado(clsOcupacion &ocupacion) : m_ocupacion(ocupacion)
    {
        m_ocupacion.fOcupado(true);
    }
    ~clsOcupado() { m_ocupacion.fOcupado(false); }
    clsOcupado(const clsOcupado &) = delete;
    clsOcupado &operator=(const clsOcupado &) = delete;

private:
    clsOcupacion &m_ocupacion;
};
