#include "shared/hilos.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <iterator>
#include <list>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace {

using Reloj = std::chrono::steady_clock;
constexpr std::chrono::milliseconds plazoLargo{400};     ///< without any end, what began may hang
constexpr std::chrono::milliseconds plazoDespedida{300}; ///< for pieces under way, at the end

/// Threads of the whole program whose owner is gone.
std::atomic<int> intDespedidos{0};

/// Who is told of a thread that could not be started.
struct clsSinHilo {
    std::mutex cerrojo;
    std::function<void(clsError)> fAviso;

    void fDecir(clsError error)
    {
        const std::lock_guard guarda(cerrojo);
        if (const auto fAntes = std::exchange(fAviso, nullptr)) {
            fAntes(error);
        }
    }
};

clsSinHilo &fSinHilo()
{
    static clsSinHilo &sinHilo = *new clsSinHilo; // threads that hang outlive everything
    return sinHilo;
}

} // namespace

struct clsHilos::clsTarea {
    clsPieza fPieza;
    int intTurno = 0;
    std::function<void()> fTomar; ///< the answer; none until it is there
    clsAnulado anulado = false;
    bool bolTomada = false;
};

/// What threads and asker share. They hold it, so that a thread that hangs can outlive its owner.
class clsHilos::clsPiscina : public std::enable_shared_from_this<clsPiscina> {
public:
    explicit clsPiscina(clsOpciones opciones) : m_opciones(std::move(opciones)) {}

    void fEncolar(const clsOrden &tarea);
    void fAnular(const std::function<bool(const clsOrden &)> &fCual, bool bolEmpezadas);
    void fCerrar();
    [[nodiscard]] std::size_t fPendientes() const;
    [[nodiscard]] clsOrden fSacar(std::chrono::milliseconds espera);

private:
    struct clsEnMarcha {
        clsOrden tarea;
        Reloj::time_point comienzo;
        bool bolColgada = false;
    };
    using clsGuarda = std::unique_lock<std::mutex>;

    [[nodiscard]] int fTope() const
    {
        // One more than work: it watches over them.
        return std::min(m_opciones.intMaximo, m_opciones.intHilos + m_intColgadas + 1);
    }
    [[nodiscard]] bool fLleno() const
    {
        return static_cast<int>(m_lstEnMarcha.size()) - m_intColgadas >= m_opciones.intHilos;
    }
    void fArrancar();
    void fTrabajar();
    void fVigilar(clsGuarda &guarda);
    void fHacerUna(clsGuarda &guarda);
    void fEntregar(const clsOrden &tarea, std::function<void()> fTomar);
    [[nodiscard]] bool fLista();
    void fRepartir();

    clsOpciones m_opciones;
    mutable std::mutex m_cerrojo; ///< of everything below, and of the orders
    std::condition_variable m_hayPieza;
    std::condition_variable m_hayRespuesta;
    std::deque<clsOrden> m_cola;    ///< not begun, by their turns
    std::deque<clsOrden> m_bandeja; ///< answers to be taken; in order of asking, those to come too
    std::list<clsEnMarcha> m_lstEnMarcha; ///< the oldest first
    std::size_t m_lngPendientes = 0;
    Reloj::time_point m_ultimoFin; ///< of a piece
    int m_intVivos = 0;            ///< threads
    int m_intLibres = 0;           ///< of these, without a piece
    int m_intColgadas = 0;
    bool m_bolVigia = false;   ///< one of the free ones waits for pieces to be hanging
    bool m_bolAvisado = false; ///< one notice stands for all that comes until it is read
    bool m_bolCerrada = false;
};

void clsHilos::clsPiscina::fEncolar(const clsOrden &tarea)
{
    clsGuarda guarda(m_cerrojo);
    const auto fAntes = [](int intTurno, const clsOrden &otra) {
        return intTurno < otra->intTurno;
    };
    m_cola.insert(std::upper_bound(m_cola.begin(), m_cola.end(), tarea->intTurno, fAntes), tarea);
    ++m_lngPendientes;
    if (m_opciones.bolEnOrden) {
        m_bandeja.push_back(tarea);
    }
    fArrancar();
    while (m_intVivos == 0 && !m_cola.empty()) {
        fHacerUna(guarda); // slowly, in the asker's thread
    }
    if (!fLleno() || !m_bolVigia) {
        m_hayPieza.notify_one();
    }
}

/// With the lock held: as many threads as there is work for.
void clsHilos::clsPiscina::fArrancar()
{
    for (; m_intVivos < fTope() && m_intLibres < static_cast<int>(m_cola.size()); ++m_intVivos) {
        try {
            std::thread([yo = shared_from_this()] { yo->fTrabajar(); }).detach();
        } catch (const std::system_error &fallo) {
            fSinHilo().fDecir(clsError(fallo.code().value()));
            return;
        }
        ++m_intLibres;
    }
}

void clsHilos::clsPiscina::fTrabajar()
{
    clsGuarda guarda(m_cerrojo);
    // A substitute goes when the one it stands for has come back.
    while (!m_bolCerrada && m_intVivos <= fTope()) {
        if (m_cola.empty() || (fLleno() && m_bolVigia)) {
            m_hayPieza.wait(guarda);
        } else if (fLleno()) {
            fVigilar(guarda);
        } else {
            fHacerUna(guarda);
        }
    }
    --m_intVivos;
    --m_intLibres;
    m_hayPieza.notify_one(); // it may have been woken for a piece
    if (m_bolCerrada) {
        --intDespedidos;
    }
}

/// Waits until pieces that began long ago hang, if nothing else ends meanwhile.
void clsHilos::clsPiscina::fVigilar(clsGuarda &guarda)
{
    const auto primera = std::find_if(m_lstEnMarcha.begin(), m_lstEnMarcha.end(),
                                      [](const clsEnMarcha &una) { return !una.bolColgada; });
    const auto limite = std::max(m_ultimoFin, primera->comienzo) + plazoLargo;
    const auto ahora = Reloj::now();
    if (ahora < limite) {
        m_bolVigia = true;
        m_hayPieza.wait_until(guarda, limite);
        m_bolVigia = false;
        return;
    }
    for (auto it = primera; it != m_lstEnMarcha.end(); ++it) {
        const bool bolColgada = !it->bolColgada && it->comienzo + plazoLargo <= ahora;
        it->bolColgada = it->bolColgada || bolColgada;
        m_intColgadas += bolColgada ? 1 : 0;
    }
    fArrancar();
    m_hayPieza.notify_all();
}

void clsHilos::clsPiscina::fHacerUna(clsGuarda &guarda)
{
    const clsOrden tarea = std::move(m_cola.front());
    m_cola.pop_front();
    --m_intLibres;
    const auto it = m_lstEnMarcha.insert(m_lstEnMarcha.end(), {tarea, Reloj::now(), false});
    if (!m_cola.empty()) {
        fArrancar();
        if (m_intLibres > 0 && !m_bolVigia) {
            m_hayPieza.notify_one();
        }
    }
    guarda.unlock();
    std::function<void()> fTomar = tarea->fPieza(tarea->anulado);
    tarea->fPieza = nullptr;
    guarda.lock();
    m_intColgadas -= it->bolColgada ? 1 : 0;
    m_lstEnMarcha.erase(it);
    ++m_intLibres;
    m_ultimoFin = Reloj::now();
    fEntregar(tarea, std::move(fTomar));
}

/// With the lock held: lays an answer down for the asker and wakes it.
void clsHilos::clsPiscina::fEntregar(const clsOrden &tarea, std::function<void()> fTomar)
{
    if (tarea->anulado) {
        return;
    }
    tarea->fTomar = std::move(fTomar);
    if (!m_opciones.bolEnOrden) {
        m_bandeja.push_back(tarea);
    }
    if (!fLista()) {
        return;
    }
    m_hayRespuesta.notify_one();
    if (m_opciones.fAvisar && !std::exchange(m_bolAvisado, true)) {
        m_opciones.fAvisar([yo = shared_from_this()] { yo->fRepartir(); });
    }
}

/// With the lock held: whether an answer can be taken.
bool clsHilos::clsPiscina::fLista()
{
    while (!m_bandeja.empty() && m_bandeja.front()->anulado) {
        m_bandeja.pop_front();
    }
    return !m_bandeja.empty() && m_bandeja.front()->fTomar;
}

/// The next answer; nothing when none comes in time.
clsHilos::clsOrden clsHilos::clsPiscina::fSacar(std::chrono::milliseconds espera)
{
    clsGuarda guarda(m_cerrojo);
    if (!fLista() && espera.count() > 0) {
        m_hayRespuesta.wait_for(guarda, espera,
                                [this] { return fLista() || m_lngPendientes == 0; });
    }
    if (!fLista()) {
        return nullptr;
    }
    clsOrden tarea = std::move(m_bandeja.front());
    m_bandeja.pop_front();
    tarea->bolTomada = true;
    --m_lngPendientes;
    return tarea;
}

/// What a notice stands for. What comes while the answers run has a notice of its own.
void clsHilos::clsPiscina::fRepartir()
{
    std::size_t lngCuantas = 0;
    {
        const std::lock_guard guarda(m_cerrojo);
        m_bolAvisado = false;
        lngCuantas = m_bandeja.size();
    }
    for (clsOrden tarea; lngCuantas > 0 && (tarea = fSacar({})); --lngCuantas) {
        tarea->fTomar();
    }
}

/// Gives up orders that were not answered.
void clsHilos::clsPiscina::fAnular(const std::function<bool(const clsOrden &)> &fCual,
                                   bool bolEmpezadas)
{
    std::deque<clsOrden> lstFuera; // what they hold is freed without the lock
    const std::lock_guard guarda(m_cerrojo);
    const auto fUna = [&](const clsOrden &tarea) {
        const bool bolAnular = fCual(tarea) && !tarea->bolTomada && !tarea->anulado.exchange(true);
        m_lngPendientes -= bolAnular ? 1 : 0;
        return bolAnular;
    };
    const auto lngFin = std::stable_partition(m_cola.begin(), m_cola.end(),
                                              [&](const clsOrden &tarea) { return !fUna(tarea); });
    std::move(lngFin, m_cola.end(), std::back_inserter(lstFuera));
    m_cola.erase(lngFin, m_cola.end());
    if (bolEmpezadas) {
        std::for_each(m_bandeja.begin(), m_bandeja.end(), fUna);
        for (const clsEnMarcha &una : m_lstEnMarcha) {
            fUna(una.tarea);
        }
    }
    if (fLista()) { // another one is the first now
        m_hayRespuesta.notify_one();
    }
}

std::size_t clsHilos::clsPiscina::fPendientes() const
{
    const std::lock_guard guarda(m_cerrojo);
    return m_lngPendientes;
}

void clsHilos::clsPiscina::fCerrar()
{
    fAnular([](const clsOrden &) { return true; }, true);
    std::deque<clsOrden> lstFuera;
    const std::lock_guard guarda(m_cerrojo);
    m_bandeja.swap(lstFuera);
    m_bolCerrada = true;
    m_opciones.fAvisar = nullptr;
    m_hayPieza.notify_all();
    intDespedidos += m_intVivos;
}

clsHilos::clsHilos(clsOpciones opciones)
    : m_piscina(std::make_shared<clsPiscina>(std::move(opciones)))
{
}

clsHilos::~clsHilos() { m_piscina->fCerrar(); }

clsHilos::clsOrden clsHilos::fEncolar(clsPieza fPieza, int intTurno)
{
    auto orden = std::make_shared<clsTarea>();
    orden->fPieza = std::move(fPieza);
    orden->intTurno = intTurno;
    m_piscina->fEncolar(orden);
    return orden;
}

void clsHilos::fAnular(const clsOrden &orden)
{
    m_piscina->fAnular([&orden](const clsOrden &otra) { return otra == orden; }, true);
}

void clsHilos::fAnular()
{
    m_piscina->fAnular([](const clsOrden &) { return true; }, true);
}

void clsHilos::fVaciar()
{
    m_piscina->fAnular([](const clsOrden &) { return true; }, false);
}

bool clsHilos::fAnulada(const clsOrden &orden) { return orden->anulado; }

std::size_t clsHilos::fPendientes() const { return m_piscina->fPendientes(); }

bool clsHilos::fAtender(std::chrono::milliseconds espera)
{
    const clsOrden orden = m_piscina->fSacar(espera);
    if (orden) {
        orden->fTomar();
    }
    return orden != nullptr;
}

bool clsHilos::fEsperar(const clsOrden &orden, std::chrono::milliseconds plazo)
{
    const auto limite = Reloj::now() + plazo;
    const auto piscina = m_piscina; // an answer may end this object
    while (!orden->bolTomada) {
        const auto queda = std::chrono::ceil<std::chrono::milliseconds>(limite - Reloj::now());
        const clsOrden otra = piscina->fSacar(queda);
        if (!otra) {
            return false;
        }
        otra->fTomar();
    }
    return true;
}

void clsHilos::fDespedir()
{
    const auto limite = Reloj::now() + plazoDespedida;
    while (intDespedidos > 0 && Reloj::now() < limite) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void clsHilos::fAvisarSinHilo(std::function<void(clsError)> fAviso)
{
    const std::lock_guard guarda(fSinHilo().cerrojo);
    fSinHilo().fAviso = std::move(fAviso);
}
