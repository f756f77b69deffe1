#include "dates/busqueda.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace {

constexpr int intAdelanto = 64;
constexpr int intHilosUsuales = 8; // waiting for a disk or a server costs no processor time

enum class Respuesta { Ninguna, Correcta, Incorrecta };

/// A file that is being asked ahead.
struct clsPregunta {
    std::string strRuta;
    Respuesta respuesta = Respuesta::Ninguna;
};

/// Asks files on worker threads, in the order in which they were given.
class clsPreguntadores {
public:
    clsPreguntadores(const std::function<bool(const std::string &)> &fCorrecta, int intHilos)
        : m_fCorrecta(fCorrecta)
    {
        for (int intHilo = 0; intHilo < intHilos; ++intHilo) {
            m_lstHilos.emplace_back([this] { fTrabajar(); });
        }
    }
    ~clsPreguntadores()
    {
        {
            const std::lock_guard guarda(m_cerrojo);
            m_bolFin = true;
        }
        m_hayPregunta.notify_all();
        for (std::thread &hilo : m_lstHilos) {
            hilo.join();
        }
    }
    clsPreguntadores(const clsPreguntadores &) = delete;
    clsPreguntadores &operator=(const clsPreguntadores &) = delete;

    [[nodiscard]] bool fCabe() const { return m_lngDada - m_lngTomada < intAdelanto; }
    void fDar(std::string strRuta)
    {
        {
            const std::lock_guard guarda(m_cerrojo);
            m_lstPreguntas[fSitio(m_lngDada)] = {std::move(strRuta), Respuesta::Ninguna};
            ++m_lngDada;
        }
        m_hayPregunta.notify_one();
    }
    /// Waits a short while for the answer to the oldest file; takes it if it is there.
    Respuesta fTomar()
    {
        constexpr auto lngPausa = std::chrono::milliseconds(50);
        std::unique_lock guarda(m_cerrojo);
        const Respuesta &respuesta = m_lstPreguntas[fSitio(m_lngTomada)].respuesta;
        if (!m_hayRespuesta.wait_for(guarda, lngPausa,
                                     [&] { return respuesta != Respuesta::Ninguna; })) {
            return Respuesta::Ninguna;
        }
        ++m_lngTomada;
        return respuesta;
    }

private:
    static std::size_t fSitio(int lngNumero)
    {
        return static_cast<std::size_t>(lngNumero % intAdelanto);
    }
    void fTrabajar()
    {
        std::unique_lock guarda(m_cerrojo);
        while (true) {
            m_hayPregunta.wait(guarda, [this] { return m_bolFin || m_lngHecha < m_lngDada; });
            if (m_bolFin) {
                return;
            }
            clsPregunta &pregunta = m_lstPreguntas[fSitio(m_lngHecha++)];
            guarda.unlock();
            const bool bolCorrecta = m_fCorrecta(pregunta.strRuta);
            guarda.lock();
            pregunta.respuesta = bolCorrecta ? Respuesta::Correcta : Respuesta::Incorrecta;
            m_hayRespuesta.notify_one();
        }
    }

    const std::function<bool(const std::string &)> &m_fCorrecta;
    std::mutex m_cerrojo;
    std::condition_variable m_hayPregunta;
    std::condition_variable m_hayRespuesta;
    std::array<clsPregunta, intAdelanto> m_lstPreguntas;
    int m_lngDada = 0;   ///< files given
    int m_lngHecha = 0;  ///< files some thread has begun with
    int m_lngTomada = 0; ///< answers taken
    bool m_bolFin = false;
    std::vector<std::thread> m_lstHilos;
};

} // namespace

std::optional<int> fBuscarIncorrecta(int lngDesde, const clsPreguntas &preguntas, int intHilos)
{
    clsPreguntadores preguntadores(preguntas.fCorrecta, intHilos > 0 ? intHilos : intHilosUsuales);
    int lngSiguiente = lngDesde;
    for (int lngPos = lngDesde; lngPos >= 0; --lngPos) {
        for (; lngSiguiente >= 0 && preguntadores.fCabe(); --lngSiguiente) {
            preguntadores.fDar(preguntas.fRuta(lngSiguiente));
        }
        Respuesta respuesta = Respuesta::Ninguna;
        while (respuesta == Respuesta::Ninguna) {
            if (!preguntas.fPaso(lngPos)) {
                return {};
            }
            respuesta = preguntadores.fTomar();
        }
        if (respuesta == Respuesta::Incorrecta) {
            return lngPos;
        }
    }
    return {};
}
