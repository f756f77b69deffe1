#pragma once

#include "shared/hilos.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

inline constexpr std::chrono::seconds lngDeSobra{10}; ///< nothing that works takes so long

/// A door at which pieces of work stand until it is opened.
class clsPuerta {
public:
    void fEsperar()
    {
        std::unique_lock guarda(m_cerrojo);
        ++m_intParados;
        m_novedad.notify_all();
        m_novedad.wait(guarda, [this] { return m_bolAbierta; });
    }
    void fAbrir()
    {
        const std::lock_guard guarda(m_cerrojo);
        m_bolAbierta = true;
        m_novedad.notify_all();
    }
    /// Waits until so many stand there.
    bool fParados(int intCuantos)
    {
        std::unique_lock guarda(m_cerrojo);
        return m_novedad.wait_for(guarda, lngDeSobra, [&] { return m_intParados >= intCuantos; });
    }

private:
    std::mutex m_cerrojo;
    std::condition_variable m_novedad;
    int m_intParados = 0;
    bool m_bolAbierta = false;
};
using Puerta = std::shared_ptr<clsPuerta>;

/// An event loop in the small: what is posted to this thread.
class clsEventos {
public:
    clsHilos::clsAviso fAviso()
    {
        return [this](std::function<void()> fLlegar) {
            const std::lock_guard guarda(m_cerrojo);
            m_lstAvisos.push_back(std::move(fLlegar));
            m_hayAviso.notify_one();
        };
    }
    /// Waits for a notice and runs it.
    bool fAtender()
    {
        std::unique_lock guarda(m_cerrojo);
        if (!m_hayAviso.wait_for(guarda, lngDeSobra, [this] { return !m_lstAvisos.empty(); })) {
            return false;
        }
        const auto fLlegar = std::move(m_lstAvisos.front());
        m_lstAvisos.pop_front();
        guarda.unlock();
        fLlegar();
        return true;
    }
    bool fVacia()
    {
        const std::lock_guard guarda(m_cerrojo);
        return m_lstAvisos.empty();
    }

private:
    std::mutex m_cerrojo;
    std::condition_variable m_hayAviso;
    std::deque<std::function<void()>> m_lstAvisos;
};
