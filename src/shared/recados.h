#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

/// What a piece of work on a thread has done in the thread of its asker, which makes this, and
/// waits for. Both hold it, so that a thread that hangs can outlive its asker.
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
    [[nodiscard]] bool fCerrados()
    {
        const std::lock_guard guarda(m_cerrojo);
        return m_bolCerrados;
    }

    /// In the asker's thread: does what is asked for by now.
    /// @return whether that was anything.
    bool fAtender()
    {
        std::unique_lock guarda(m_cerrojo);
        const auto fHacer = m_fHacer;
        if (!fHacer) {
            return false;
        }
        guarda.unlock();
        fHacer();
        guarda.lock();
        m_fHacer = nullptr;
        m_novedad.notify_all();
        return true;
    }
    /// In the asker's thread: nobody attends any more.
    void fCerrar()
    {
        const std::lock_guard guarda(m_cerrojo);
        m_bolCerrados = true;
        m_novedad.notify_all();
    }

private:
    const std::thread::id m_quien = std::this_thread::get_id();
    std::mutex m_cerrojo;
    std::condition_variable m_novedad;
    std::function<void()> m_fHacer; ///< empty: nothing is asked for
    bool m_bolCerrados = false;
};
