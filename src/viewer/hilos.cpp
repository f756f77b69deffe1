#include "viewer/hilos.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <list>
#include <mutex>
#include <thread>
#include <utility>

namespace {

using Reloj = std::chrono::steady_clock;
constexpr std::chrono::milliseconds lngLargo{400};     ///< what takes longer may hang
constexpr std::chrono::milliseconds lngPaciencia{300}; ///< with pieces under way, at the end

} // namespace

/// What the threads share. They hold it, so that one that hangs can outlive its owner.
class clsPiscina : public std::enable_shared_from_this<clsPiscina> {
public:
    explicit clsPiscina(int intHilos) : m_intHilos(intHilos) {}

    void fEncolar(std::function<void()> fPieza)
    {
        const std::lock_guard guarda(m_cerrojo);
        m_cola.push_back(std::move(fPieza));
        fArrancar(0);
        m_hayPieza.notify_one();
    }
    void fVaciar()
    {
        const std::lock_guard guarda(m_cerrojo);
        m_cola.clear();
    }
    void fReforzar()
    {
        const std::lock_guard guarda(m_cerrojo);
        fArrancar(fColgados());
    }
    void fCerrar()
    {
        std::unique_lock guarda(m_cerrojo);
        m_bolCerrada = true;
        m_cola.clear();
        m_hayPieza.notify_all();
        m_sinHilos.wait_for(guarda, lngPaciencia, [this] { return m_intVivos == 0; });
    }

private:
    [[nodiscard]] int fColgados() const
    {
        const auto limite = Reloj::now() - lngLargo;
        return static_cast<int>(std::count_if(
            m_lstComienzos.begin(), m_lstComienzos.end(),
            [limite](const Reloj::time_point &comienzo) { return comienzo < limite; }));
    }
    void fArrancar(int intColgados)
    {
        for (; m_intVivos - intColgados < m_intHilos && m_intVivos < clsHilos::intMaximo;
             ++m_intVivos) {
            std::thread([yo = shared_from_this()] { yo->fTrabajar(); }).detach();
        }
    }
    void fTrabajar()
    {
        std::unique_lock guarda(m_cerrojo);
        // A substitute goes when the one it stands for has come back.
        while (!m_bolCerrada && m_intVivos - fColgados() <= m_intHilos) {
            if (m_cola.empty()) {
                m_hayPieza.wait(guarda);
                continue;
            }
            const std::function<void()> fPieza = std::move(m_cola.front());
            m_cola.pop_front();
            const auto comienzo = m_lstComienzos.insert(m_lstComienzos.end(), Reloj::now());
            guarda.unlock();
            fPieza();
            guarda.lock();
            m_lstComienzos.erase(comienzo);
        }
        --m_intVivos;
        m_sinHilos.notify_all();
        m_hayPieza.notify_one(); // it may have been woken for a piece
    }

    const int m_intHilos;
    std::mutex m_cerrojo; ///< of everything below
    std::condition_variable m_hayPieza;
    std::condition_variable m_sinHilos;
    bool m_bolCerrada = false;
    int m_intVivos = 0; ///< threads
    std::deque<std::function<void()>> m_cola;
    std::list<Reloj::time_point> m_lstComienzos; ///< of the pieces under way
};

clsHilos::clsHilos(int intHilos) : m_piscina(std::make_shared<clsPiscina>(intHilos)) {}

clsHilos::~clsHilos() { m_piscina->fCerrar(); }

void clsHilos::fEncolar(std::function<void()> fPieza) { m_piscina->fEncolar(std::move(fPieza)); }

void clsHilos::fVaciar() { m_piscina->fVaciar(); }

void clsHilos::fReforzar() { m_piscina->fReforzar(); }
