#include "catalogue/recorrido.h"

#include "catalogue/carpeta.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <iterator>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace {

constexpr auto lngPausa = std::chrono::milliseconds(50);
constexpr std::size_t lngEntradasTanda = 512;
// Bytes that are read ahead at most, and how many are worth waking the receiver for.
constexpr std::int64_t lngAdelanto = 32 << 20;
constexpr std::int64_t lngEntrega = 256 << 10;

/// A folder of the tree. Its files are examined in batches, since one folder can hold most of an
/// archive.
struct clsNodo {
    std::string strRelativa; ///< path below the root, with a trailing "/"; "" for the root
    clsDescriptor carpeta;
    std::vector<clsEntradaCarpeta> lstEntradas;
    std::vector<clsExamen> lstTandas;
    std::size_t lngPendientes = 0; ///< batches still to be examined
    clsError errorLista;
    bool bolHecho = false;
    std::int64_t lngPeso = 0; ///< bytes it holds until it is handed over, about
    std::vector<std::unique_ptr<clsNodo>> lstHijos;
};

using clsPila = std::vector<std::unique_ptr<clsNodo>>;

struct clsTarea {
    clsNodo *nodo;
    std::size_t lngTanda; ///< batch to examine; lngLista: list the folder first
};
constexpr std::size_t lngLista = static_cast<std::size_t>(-1);

/// Reads folders ahead on worker threads. Tasks are taken about in the order of the walk, so what
/// the receiver waits for is among the first to be taken.
class clsLectores {
public:
    clsLectores(std::string strRaiz, const clsOpcionesRecorrido &opciones,
                const clsDescriptor &raiz, clsNodo &nodoRaiz);
    ~clsLectores();
    clsLectores(const clsLectores &) = delete;
    clsLectores &operator=(const clsLectores &) = delete;

    /// Waits a short while for a folder; whether it has been read.
    bool fEsperar(const clsNodo &nodo);
    /// Says that a folder's lines were handed over.
    void fEntregado(std::int64_t lngBytes);

private:
    void fTrabajar();
    void fHacer(const clsTarea &tarea);
    void fListar(clsNodo &nodo);
    void fTerminarNodo(clsNodo &nodo);
    [[nodiscard]] std::deque<clsTarea>::iterator fSiguiente();
    [[nodiscard]] bool fConvieneEntregar() const;

    const std::string m_strRaiz;
    const clsOpcionesRecorrido &m_opciones;
    const clsDescriptor &m_raiz;
    std::mutex m_cerrojo;
    std::condition_variable m_hayTarea;
    std::condition_variable m_hayNodo;
    std::deque<clsTarea> m_lstTareas;    ///< first task at the front
    int m_intEnCurso = 0;                ///< tasks being done
    std::int64_t m_lngAdelantados = 0;   ///< bytes read and not handed over
    const clsNodo *m_esperado = nullptr; ///< what the receiver waits for
    bool m_bolFin = false;
    std::vector<std::thread> m_lstHilos;
};

clsLectores::clsLectores(std::string strRaiz, const clsOpcionesRecorrido &opciones,
                         const clsDescriptor &raiz, clsNodo &nodoRaiz)
    : m_strRaiz(std::move(strRaiz)), m_opciones(opciones), m_raiz(raiz)
{
    m_lstTareas.push_back({&nodoRaiz, lngLista});
    // Waiting for a slow disk or a server costs no processor time: more threads than cores.
    const int intHilos = opciones.intHilos > 0 ? opciones.intHilos : 8;
    for (int intHilo = 0; intHilo < intHilos; ++intHilo) {
        m_lstHilos.emplace_back([this] { fTrabajar(); });
    }
}

clsLectores::~clsLectores()
{
    {
        const std::lock_guard guarda(m_cerrojo);
        m_bolFin = true;
    }
    m_hayTarea.notify_all();
    for (std::thread &hilo : m_lstHilos) {
        hilo.join();
    }
}

bool clsLectores::fEsperar(const clsNodo &nodo)
{
    std::unique_lock guarda(m_cerrojo);
    if (!nodo.bolHecho) {
        m_esperado = &nodo;
        m_hayTarea.notify_one();
        m_hayNodo.wait_for(guarda, lngPausa, [this] { return fConvieneEntregar(); });
        m_esperado = nullptr;
    }
    return nodo.bolHecho;
}

void clsLectores::fEntregado(std::int64_t lngBytes)
{
    const std::lock_guard guarda(m_cerrojo);
    const bool bolLleno = m_lngAdelantados > lngAdelanto;
    m_lngAdelantados -= lngBytes;
    if (bolLleno) {
        m_hayTarea.notify_all();
    }
}

/// With the lock held: the task to do next, the end when there is none to do now.
std::deque<clsTarea>::iterator clsLectores::fSiguiente()
{
    if (m_lngAdelantados <= lngAdelanto) {
        return m_lstTareas.begin();
    }
    // Enough was read ahead: only what the receiver waits for goes on.
    return std::find_if(m_lstTareas.begin(), m_lstTareas.end(),
                        [this](const clsTarea &tarea) { return tarea.nodo == m_esperado; });
}

/// With the lock held: whether the receiver has something to do. It is not woken for every folder,
/// since threads that take turns cost as much as the work.
bool clsLectores::fConvieneEntregar() const
{
    return m_esperado != nullptr && m_esperado->bolHecho &&
           (m_lngAdelantados >= lngEntrega || (m_intEnCurso == 0 && m_lstTareas.empty()));
}

void clsLectores::fTrabajar()
{
    std::unique_lock guarda(m_cerrojo);
    while (true) {
        auto siguiente = m_lstTareas.end();
        m_hayTarea.wait(guarda, [&] {
            siguiente = fSiguiente();
            return m_bolFin || siguiente != m_lstTareas.end();
        });
        if (m_bolFin) {
            return;
        }
        const clsTarea tarea = *siguiente;
        m_lstTareas.erase(siguiente);
        ++m_intEnCurso;
        guarda.unlock();
        fHacer(tarea);
        guarda.lock();
        --m_intEnCurso;
        if (fConvieneEntregar()) {
            m_hayNodo.notify_all();
        }
    }
}

void clsLectores::fHacer(const clsTarea &tarea)
{
    clsNodo &nodo = *tarea.nodo;
    if (tarea.lngTanda == lngLista) {
        fListar(nodo);
    }
    const std::size_t lngTanda = tarea.lngTanda == lngLista ? 0 : tarea.lngTanda;
    if (lngTanda < nodo.lstTandas.size()) {
        const std::size_t lngDesde = lngTanda * lngEntradasTanda;
        const std::size_t lngHasta = std::min(lngDesde + lngEntradasTanda, nodo.lstEntradas.size());
        const bool bolRaiz = nodo.strRelativa.empty();
        static const std::function<bool(std::string_view)> fNada;
        nodo.lstTandas[lngTanda] = fExaminar(
            nodo.carpeta, m_strRaiz + nodo.strRelativa, nodo.lstEntradas.data() + lngDesde,
            nodo.lstEntradas.data() + lngHasta, bolRaiz ? m_opciones.fOmitirEnRaiz : fNada);
    }
    const std::lock_guard guarda(m_cerrojo);
    if (nodo.lngPendientes <= 1) {
        fTerminarNodo(nodo);
    } else {
        --nodo.lngPendientes;
    }
}

void clsLectores::fListar(clsNodo &nodo)
{
    auto carpeta = fAbrirCarpetaEn(m_raiz, nodo.strRelativa);
    if (!carpeta) {
        nodo.errorLista = carpeta.fError();
        return;
    }
    nodo.carpeta = std::move(*carpeta);
    nodo.errorLista = fListarCarpeta(nodo.carpeta, nodo.lstEntradas);
    const std::size_t lngTandas =
        (nodo.lstEntradas.size() + lngEntradasTanda - 1) / lngEntradasTanda;
    nodo.lstTandas.resize(lngTandas);
    nodo.lngPendientes = lngTandas;
    if (lngTandas > 1) {
        // This thread takes the first batch itself; the others go in front, in their order.
        const std::lock_guard guarda(m_cerrojo);
        for (std::size_t lngTanda = lngTandas; lngTanda-- > 1;) {
            m_lstTareas.push_front({&nodo, lngTanda});
        }
        m_hayTarea.notify_all();
    }
}

/// With the lock held: closes a folder that has been read and queues its subfolders.
void clsLectores::fTerminarNodo(clsNodo &nodo)
{
    nodo.carpeta.fCerrar();
    std::vector<clsEntradaCarpeta>().swap(nodo.lstEntradas);
    bool bolError{nodo.errorLista};
    // Its own path counts too: a tree of thousands of levels has long ones.
    nodo.lngPeso = static_cast<std::int64_t>(sizeof nodo + nodo.strRelativa.size());
    for (const clsExamen &examen : nodo.lstTandas) {
        nodo.lngPeso += static_cast<std::int64_t>(examen.strLineas.size());
        bolError = bolError || examen.error;
    }
    m_lngAdelantados += nodo.lngPeso;
    if (!bolError) {
        for (const clsExamen &examen : nodo.lstTandas) {
            for (const std::string &strNombre : examen.lstCarpetas) {
                auto hijo = std::make_unique<clsNodo>();
                hijo->strRelativa = nodo.strRelativa + strNombre + '/';
                nodo.lstHijos.push_back(std::move(hijo));
            }
        }
        for (std::size_t lngHijo = nodo.lstHijos.size(); lngHijo-- > 0;) {
            m_lstTareas.push_front({nodo.lstHijos[lngHijo].get(), lngLista});
        }
        if (!nodo.lstHijos.empty()) {
            m_hayTarea.notify_all();
        }
    }
    nodo.bolHecho = true;
}

/// Hands over the files of a folder that has been read.
/// @param error set when the folder could not be read to its end.
/// @return false when the receiver ends the walk.
bool fEntregar(const clsNodo &nodo, const std::string &strRaiz, clsReceptor &receptor,
               clsError &error)
{
    receptor.fCarpeta(strRaiz + nodo.strRelativa);
    for (const clsExamen &examen : nodo.lstTandas) {
        if (!examen.strLineas.empty() && !receptor.fRegistros(examen.strLineas)) {
            return false;
        }
        error = examen.error;
        if (error) {
            break;
        }
    }
    // A listing that broke off has its files up to there handed over first.
    error = error ? error : nodo.errorLista;
    if (error) {
        receptor.fError(error);
    }
    return true;
}

/// Hands over folder by folder; lstPila holds those still to come, the next one last.
clsRecorrido fEntregarTodo(clsPila &lstPila, const std::string &strRaiz, clsLectores &lectores,
                           clsReceptor &receptor)
{
    clsRecorrido recorrido;
    auto lngUltima = std::chrono::steady_clock::now();
    while (!lstPila.empty()) {
        const bool bolLista = lectores.fEsperar(*lstPila.back());
        const auto lngAhora = std::chrono::steady_clock::now();
        if (lngAhora - lngUltima >= lngPausa) {
            lngUltima = lngAhora;
            recorrido.bolInterrumpido = !receptor.fCeder();
        }
        if (recorrido.bolInterrumpido) {
            break;
        }
        if (!bolLista) {
            continue;
        }
        const std::unique_ptr<clsNodo> nodo = std::move(lstPila.back());
        lstPila.pop_back();
        clsError error;
        recorrido.bolInterrumpido = !fEntregar(*nodo, strRaiz, receptor, error);
        recorrido.errorRaiz = nodo->strRelativa.empty() ? error : recorrido.errorRaiz;
        lectores.fEntregado(nodo->lngPeso);
        // Also when the walk ends here: the threads may be working on them.
        std::move(nodo->lstHijos.rbegin(), nodo->lstHijos.rend(), std::back_inserter(lstPila));
        if (recorrido.bolInterrumpido) {
            break;
        }
    }
    return recorrido;
}

/// Frees folders without recursion, however deep the tree is.
void fLiberar(clsPila &lstPila)
{
    while (!lstPila.empty()) {
        const std::unique_ptr<clsNodo> nodo = std::move(lstPila.back());
        lstPila.pop_back();
        std::move(nodo->lstHijos.begin(), nodo->lstHijos.end(), std::back_inserter(lstPila));
    }
}

} // namespace

clsRecorrido fRecorrer(const std::string &strRaiz, const clsOpcionesRecorrido &opciones,
                       clsReceptor &receptor)
{
    const auto raiz = fAbrirCarpeta(strRaiz);
    if (!raiz) {
        receptor.fCarpeta(strRaiz);
        receptor.fError(raiz.fError());
        return {false, raiz.fError()};
    }
    clsPila lstPila;
    lstPila.push_back(std::make_unique<clsNodo>());
    clsRecorrido recorrido;
    {
        clsLectores lectores(strRaiz, opciones, *raiz, *lstPila.back());
        recorrido = fEntregarTodo(lstPila, strRaiz, lectores, receptor);
    }
    fLiberar(lstPila);
    return recorrido;
}
