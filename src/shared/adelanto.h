#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

/// Threads that suit slow disks: waiting for a disk or a server costs no processor time.
inline constexpr int intHilosUsuales = 8;

/// Has questions answered ahead on worker threads; the answers are taken in the order in which the
/// questions were given.
///
/// The threads are not waited for at the end: one can hang in a read of a disk that wakes up or of
/// a server that is gone, and whoever has pressed Esc must not hang with it. They share nothing but
/// the table, and end by themselves.
template <typename Pregunta, typename Respuesta> class clsAdelanto {
public:
    /// @param fResponder called on several threads at once, and perhaps still after the end, so it
    ///                   must not refer to anything that ends with the asking.
    /// @param intHilos   threads that answer.
    /// @param lngAdelanto questions that may be given ahead of the answers taken.
    clsAdelanto(std::function<Respuesta(const Pregunta &)> fResponder, int intHilos,
                std::size_t lngAdelanto)
        : m_mesa(std::make_shared<clsMesa>()), m_lngAdelanto(lngAdelanto)
    {
        m_mesa->fResponder = std::move(fResponder);
        for (int intHilo = 0; intHilo < intHilos; ++intHilo) {
            std::thread([mesa = m_mesa] { fAtender(*mesa); }).detach();
        }
    }
    ~clsAdelanto()
    {
        {
            const std::lock_guard guarda(m_mesa->cerrojo);
            m_mesa->bolFin = true;
        }
        m_mesa->hayPregunta.notify_all();
    }
    clsAdelanto(const clsAdelanto &) = delete;
    clsAdelanto &operator=(const clsAdelanto &) = delete;

    /// Whether another question may be given, and whether an answer is still to come.
    [[nodiscard]] bool fCabe() const { return m_lngPendientes < m_lngAdelanto; }
    [[nodiscard]] bool fQueda() const { return m_lngPendientes > 0; }

    void fDar(Pregunta pregunta)
    {
        {
            const std::lock_guard guarda(m_mesa->cerrojo);
            m_mesa->lstCasillas.emplace_back().pregunta = std::move(pregunta);
        }
        ++m_lngPendientes;
        m_mesa->hayPregunta.notify_one();
    }
    /// Waits a short while (50 ms) for the answer to the oldest question; takes it if it is there.
    /// Only while fQueda.
    [[nodiscard]] std::optional<Respuesta> fTomar()
    {
        constexpr auto lngPausa = std::chrono::milliseconds(50);
        std::unique_lock guarda(m_mesa->cerrojo);
        clsCasilla &casilla = m_mesa->lstCasillas.front();
        if (!m_mesa->hayRespuesta.wait_for(guarda, lngPausa, [&] { return casilla.bolHecha; })) {
            return {};
        }
        std::optional<Respuesta> respuesta(std::move(casilla.respuesta));
        m_mesa->lstCasillas.pop_front();
        --m_mesa->lngEmpezadas;
        --m_lngPendientes;
        return respuesta;
    }

private:
    struct clsCasilla {
        Pregunta pregunta;
        Respuesta respuesta{};
        bool bolHecha = false;
    };
    /// What the asking thread and those that answer share. A deque keeps its elements in place.
    struct clsMesa {
        std::function<Respuesta(const Pregunta &)> fResponder;
        std::mutex cerrojo;
        std::condition_variable hayPregunta;
        std::condition_variable hayRespuesta;
        std::deque<clsCasilla> lstCasillas; ///< questions whose answer was not taken
        std::size_t lngEmpezadas = 0;       ///< of these, some thread has begun with so many
        bool bolFin = false;
    };

    static void fAtender(clsMesa &mesa)
    {
        std::unique_lock guarda(mesa.cerrojo);
        while (true) {
            mesa.hayPregunta.wait(
                guarda, [&] { return mesa.bolFin || mesa.lngEmpezadas < mesa.lstCasillas.size(); });
            if (mesa.bolFin) {
                return;
            }
            clsCasilla &casilla = mesa.lstCasillas[mesa.lngEmpezadas++];
            guarda.unlock();
            Respuesta respuesta = mesa.fResponder(casilla.pregunta);
            guarda.lock();
            casilla.respuesta = std::move(respuesta);
            casilla.bolHecha = true;
            mesa.hayRespuesta.notify_one();
        }
    }

    std::shared_ptr<clsMesa> m_mesa;
    const std::size_t m_lngAdelanto;
    std::size_t m_lngPendientes = 0;
};
