#pragma once

#include "shared/hilos.h"

#include <cstdint>
#include <memory>

/// Keeps the screen from going dark, as far as the desktop has a service for that
/// (org.freedesktop.ScreenSaver); without one nothing happens. It is asked beside the window, and
/// lets go by itself when the program ends.
class clsVigilia {
public:
    /// Begins, or ends; in the order of the calls.
    void fVelar(bool bolVelar);

private:
    std::shared_ptr<std::uint32_t> m_prenda = std::make_shared<std::uint32_t>(0); ///< 0: none
    clsHilos m_hilos{
        {.intHilos = 1, .intMaximo = 1}
    };
};
