#include "dates/busqueda.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace {

constexpr int intAdelanto = 64;
constexpr int intHilosUsuales = 8; // waiting for a disk or a server costs no processor time

enum class Respuesta { Ninguna, Correcta, Incorrecta };

/// A file that is being asked ahead.
struct clsPregunta {
    std::string strRuta;
    Respuesta respuesta = Respuesta::Ninguna;
};

/// What the searching thread and those that ask share.
struct clsMesa {
    std::function<bool(const std::string &)> fCorrecta;
    std::mutex cerrojo;
    std::condition_variable hayPregunta;
    std::condition_variable hayRespuesta;
    std::array<clsPregunta, intAdelanto> lstPreguntas;
    int lngDada = 0;   ///< files given
    int lngHecha = 0;  ///< files some thread has begun with
    int lngTomada = 0; ///< answers taken
    bool bolFin = false;

    clsPregunta &fPregunta(int lngNumero)
    {
        return lstPreguntas[static_cast<std::size_t>(lngNumero % intAdelanto)];
    }
};

void fPreguntar(const std::shared_ptr<clsMesa> &mesa)
{
    std::unique_lock guarda(mesa->cerrojo);
    while (true) {
        mesa->hayPregunta.wait(guarda,
                               [&] { return mesa->bolFin || mesa->lngHecha < mesa->lngDada; });
        if (mesa->bolFin) {
            return;
        }
        clsPregunta &pregunta = mesa->fPregunta(mesa->lngHecha++);
        guarda.unlock();
        const bool bolCorrecta = mesa->fCorrecta(pregunta.strRuta);
        guarda.lock();
        pregunta.respuesta = bolCorrecta ? Respuesta::Correcta : Respuesta::Incorrecta;
        mesa->hayRespuesta.notify_one();
    }
}

/// Asks files on worker threads, in the order in which they were given.
///
/// The threads are not waited for at the end: one can hang in a read of a disk that wakes up or of
/// a server that is gone, and whoever has pressed Esc must not hang with it. They share nothing but
/// the table, and end by themselves.
class clsPreguntadores {
public:
    clsPreguntadores(const std::function<bool(const std::string &)> &fCorrecta, int intHilos)
        : m_mesa(std::make_shared<clsMesa>())
    {
        m_mesa->fCorrecta = fCorrecta;
        for (int intHilo = 0; intHilo < intHilos; ++intHilo) {
            std::thread([mesa = m_mesa] { fPreguntar(mesa); }).detach();
        }
    }
    ~clsPreguntadores()
    {
        {
            const std::lock_guard guarda(m_mesa->cerrojo);
            m_mesa->bolFin = true;
        }
        m_mesa->hayPregunta.notify_all();
    }
    clsPreguntadores(const clsPreguntadores &) = delete;
    clsPreguntadores &operator=(const clsPreguntadores &) = delete;

    [[nodiscard]] bool fCabe() const { return m_mesa->lngDada - m_mesa->lngTomada < intAdelanto; }
    void fDar(std::string strRuta)
    {
        {
            const std::lock_guard guarda(m_mesa->cerrojo);
            m_mesa->fPregunta(m_mesa->lngDada) = {std::move(strRuta), Respuesta::Ninguna};
            ++m_mesa->lngDada;
        }
        m_mesa->hayPregunta.notify_one();
    }
    /// Waits a short while for the answer to the oldest file; takes it if it is there.
    Respuesta fTomar()
    {
        constexpr auto lngPausa = std::chrono::milliseconds(50);
        std::unique_lock guarda(m_mesa->cerrojo);
        const Respuesta &respuesta = m_mesa->fPregunta(m_mesa->lngTomada).respuesta;
        if (!m_mesa->hayRespuesta.wait_for(guarda, lngPausa,
                                           [&] { return respuesta != Respuesta::Ninguna; })) {
            return Respuesta::Ninguna;
        }
        ++m_mesa->lngTomada;
        return respuesta;
    }

private:
    std::shared_ptr<clsMesa> m_mesa;
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
