#pragma once

#include <chrono>
#include <functional>

/// "Go on?": lets events run; false ends the work that asks.
using clsSeguir = std::function<bool()>;

/// So often long work shows how far it has come, and lets events run.
inline constexpr std::chrono::milliseconds pausaRitmo{50};

/// The rhythm of one such work.
class clsRitmo {
public:
    /// Asks whether to go on when it is time to; true in between.
    template <typename Seguir> [[nodiscard]] bool fSeguir(const Seguir &fPreguntar)
    {
        if (Reloj::now() - m_ultima < pausaRitmo) {
            return true;
        }
        const bool bolSeguir = fPreguntar();
        m_ultima = Reloj::now(); // the events may have taken long
        return bolSeguir;
    }

private:
    using Reloj = std::chrono::steady_clock;
    Reloj::time_point m_ultima = Reloj::now();
};
