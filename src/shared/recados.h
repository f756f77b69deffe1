#pragma once

#include "shared/hilos.h"
#include "shared/ritmo.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>

/// What a piece of work on a thread tells its asker, who makes this, and what it has done in the
/// asker's thread and waits for. Both hold it, so that a thread that hangs can outlive its asker.
class clsRecados {
public:
    /// On the thread: has a function run in the asker's. Not at all once nobody attends any more.
    void fPedir(std::function<void()> fHacer)
    {
        if (std::this_thread::get_id() == m_quien) { // without a thread the asker works
            fHacer();
            return;
        }
        std::unique_lock guarda(m_cerrojo);
        m_fHacer = std::move(fHacer);
        m_novedad.wait(guarda, [this] { return !m_fHacer || m_bolCerrados; });
        m_fHacer = nullptr;
    }
    /// On the thread: it gets on.
    /// @param strDicho how far it has come.
    void fDecir(std::string strDicho = {})
    {
        const std::lock_guard guarda(m_cerrojo);
        m_strDicho = std::move(strDicho);
        m_noticia = Reloj::now();
    }
    /// Whether nobody attends any more.
    [[nodiscard]] bool fCerrados() const
    {
        const std::lock_guard guarda(m_cerrojo);
        return m_bolCerrados;
    }

    [[nodiscard]] std::string fDicho() const
    {
        const std::lock_guard guarda(m_cerrojo);
        return m_strDicho;
    }
    /// Whether nothing has been heard of the thread for so long.
    [[nodiscard]] bool fCallado(std::chrono::milliseconds plazo) const
    {
        const std::lock_guard guarda(m_cerrojo);
        return Reloj::now() - m_noticia > plazo;
    }
    /// In the asker's thread: does what is asked for by now, if anything.
    void fAtender()
    {
        std::unique_lock guarda(m_cerrojo);
        const auto fHacer = m_fHacer;
        if (!fHacer) {
            return;
        }
        guarda.unlock();
        fHacer();
        guarda.lock();
        m_fHacer = nullptr;
        m_noticia = Reloj::now();
        m_novedad.notify_all();
    }
    /// In the asker's thread: nobody attends any more.
    void fCerrar()
    {
        const std::lock_guard guarda(m_cerrojo);
        m_bolCerrados = true;
        m_novedad.notify_all();
    }

private:
    using Reloj = std::chrono::steady_clock;
    const std::thread::id m_quien = std::this_thread::get_id();
    mutable std::mutex m_cerrojo;
    std::condition_variable m_novedad;
    std::function<void()> m_fHacer; ///< empty: nothing is asked for
    std::string m_strDicho;
    Reloj::time_point m_noticia = Reloj::now(); ///< when something was last heard of the thread
    bool m_bolCerrados = false;
};

/// Does a piece of work on a thread of its own, and waits for it.
/// @param fHacer  gets the clsRecados. It may run on when nobody waits for it any more: it must not
///                refer to anything that may be gone by then.
/// @param fSeguir gets the clsRecados, too, every 50 ms; false: nobody waits any more.
/// @return what fHacer gave, if that was waited for.
template <typename Hacer, typename Seguir>
[[nodiscard]] auto fHacerAparte(Hacer fHacer, const Seguir &fSeguir)
{
    const auto recados = std::make_shared<clsRecados>();
    std::optional<std::invoke_result_t<const Hacer &, clsRecados &>> respuesta;
    clsHilos hilos({.intHilos = 1, .intMaximo = 1});
    const auto orden =
        hilos.fPedir([recados, fHacer = std::move(fHacer)] { return fHacer(*recados); },
                     [&respuesta](auto suya) { respuesta.emplace(std::move(suya)); });
    for (bool bolSeguir = true; bolSeguir && !hilos.fEsperar(orden, pausaRitmo);) {
        recados->fAtender();
        bolSeguir = fSeguir(*recados);
    }
    recados->fCerrar();
    return respuesta;
}
