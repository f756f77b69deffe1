#include "catalogue/recorrido.h"

#include "catalogue/carpeta.h"
#include "shared/hilos.h"
#include "shared/ritmo.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <memory>
#include <vector>

namespace {

constexpr std::size_t lngEntradasTanda = 512;
constexpr std::int64_t lngAdelanto = 32 << 20; ///< bytes that are read ahead, about

/// A folder of the tree. Its files are examined in batches, since one folder can hold most of an
/// archive.
struct clsNodo {
    std::string strRelativa; ///< path below the root, with a trailing "/"; "" for the root
    std::vector<clsExamen> lstTandas;
    std::size_t lngPendientes = 1; ///< pieces of work still to come: its listing, then batches
    bool bolPedido = false;
    clsError errorLista;
    std::int64_t lngPeso = 0; ///< bytes it holds until it is handed over, about
    std::vector<std::unique_ptr<clsNodo>> lstHijos;

    [[nodiscard]] bool fHecho() const { return lngPendientes == 0; }
};

using clsPila = std::vector<std::unique_ptr<clsNodo>>;

/// What the pieces of work share.
struct clsRaiz {
    std::string strRaiz;
    clsDescriptor carpeta;
    std::function<bool(std::string_view)> fOmitir; ///< names in the root folder
};

/// A folder that is being read. The pieces hold it: its entries, and it, as long as it is open.
struct clsAbierta {
    std::shared_ptr<const clsRaiz> raiz;
    std::string strRelativa;
    clsDescriptor carpeta;
    std::vector<clsEntradaCarpeta> lstEntradas;
    clsError error; ///< of the listing

    [[nodiscard]] std::size_t fTandas() const
    {
        return (lstEntradas.size() + lngEntradasTanda - 1) / lngEntradasTanda;
    }
    [[nodiscard]] clsExamen fExaminarTanda(std::size_t lngTanda) const
    {
        static const std::function<bool(std::string_view)> fNada;
        const std::size_t lngDesde = lngTanda * lngEntradasTanda;
        const std::size_t lngHasta = std::min(lngDesde + lngEntradasTanda, lstEntradas.size());
        return fExaminar(carpeta, raiz->strRaiz + strRelativa, lstEntradas.data() + lngDesde,
                         lstEntradas.data() + lngHasta,
                         strRelativa.empty() ? raiz->fOmitir : fNada);
    }
};

/// What the first piece of work on a folder gives.
struct clsListado {
    clsError error;                            ///< of the listing
    clsExamen primera;                         ///< batch
    std::shared_ptr<const clsAbierta> abierta; ///< only when there are further ones
};

clsListado fListarUna(const std::shared_ptr<const clsRaiz> &raiz, const std::string &strRelativa)
{
    const auto abierta = std::make_shared<clsAbierta>();
    abierta->raiz = raiz;
    abierta->strRelativa = strRelativa;
    if (auto carpeta = fAbrirCarpetaEn(raiz->carpeta, strRelativa)) {
        abierta->carpeta = std::move(*carpeta);
        abierta->error = fListarCarpeta(abierta->carpeta, abierta->lstEntradas);
    } else {
        abierta->error = carpeta.fError();
    }
    return {abierta->error, abierta->fTandas() > 0 ? abierta->fExaminarTanda(0) : clsExamen(),
            abierta->fTandas() > 1 ? abierta : nullptr};
}

std::vector<clsListado> fListar(const std::shared_ptr<const clsRaiz> &raiz,
                                const std::vector<std::string> &lstRelativas)
{
    std::vector<clsListado> lstListados;
    lstListados.reserve(lstRelativas.size());
    for (const std::string &strRelativa : lstRelativas) {
        lstListados.push_back(fListarUna(raiz, strRelativa));
    }
    return lstListados;
}

/// One walk. Folders are read ahead on threads, about in the order in which they are handed over.
class clsPaseo {
public:
    clsPaseo(std::shared_ptr<const clsRaiz> raiz, int intHilos, clsReceptor &receptor)
        : m_raiz(std::move(raiz)), m_receptor(receptor),
          m_lngPiezas(2 * static_cast<std::size_t>(intHilos)), m_hilos({.intHilos = intHilos})
    {
        m_pila.push_back(std::make_unique<clsNodo>());
        m_lstPorLeer.push_back(m_pila.back().get());
    }
    ~clsPaseo();
    clsPaseo(const clsPaseo &) = delete;
    clsPaseo &operator=(const clsPaseo &) = delete;

    clsRecorrido fHacer();

private:
    void fPedir();
    void fPedirLista(std::size_t lngCarpetas);
    void fTomarLista(clsNodo &nodo, clsListado listado);
    void fTomarTanda(clsNodo &nodo, std::size_t lngTanda, clsExamen examen);
    void fTerminar(clsNodo &nodo);
    [[nodiscard]] bool fEntregar(const clsNodo &nodo, clsError &error);

    const std::shared_ptr<const clsRaiz> m_raiz;
    clsReceptor &m_receptor;
    const std::size_t m_lngPiezas; ///< that are ordered ahead
    clsRitmo m_ritmo;
    clsPila m_pila;                     ///< still to be handed over, the next one last
    std::deque<clsNodo *> m_lstPorLeer; ///< the next one first
    std::int64_t m_lngAdelantados = 0;  ///< bytes read and not handed over
    clsHilos m_hilos;
};

/// Frees folders without recursion, however deep the tree is.
clsPaseo::~clsPaseo()
{
    while (!m_pila.empty()) {
        const std::unique_ptr<clsNodo> nodo = std::move(m_pila.back());
        m_pila.pop_back();
        std::move(nodo->lstHijos.begin(), nodo->lstHijos.end(), std::back_inserter(m_pila));
    }
}

/// Has folders read ahead, but no more than fits; the one that is handed over next always. Several
/// in one piece of work where many wait: threads that take turns cost as much as a small folder.
void clsPaseo::fPedir()
{
    constexpr std::size_t lngMaximo = 32;
    clsNodo *const siguiente = m_pila.back().get();
    if (!siguiente->bolPedido) {
        m_lstPorLeer.erase(std::find(m_lstPorLeer.begin(), m_lstPorLeer.end(), siguiente));
        m_lstPorLeer.push_front(siguiente);
        fPedirLista(1);
    }
    while (!m_lstPorLeer.empty() && m_lngAdelantados <= lngAdelanto &&
           m_hilos.fPendientes() < m_lngPiezas) {
        fPedirLista(std::clamp<std::size_t>(2 * m_lstPorLeer.size() / m_lngPiezas, 1, lngMaximo));
    }
}

/// Orders the next folders, in one piece of work.
void clsPaseo::fPedirLista(std::size_t lngCarpetas)
{
    const auto fin = m_lstPorLeer.begin() + static_cast<std::ptrdiff_t>(lngCarpetas);
    std::vector<clsNodo *> lstNodos(m_lstPorLeer.begin(), fin);
    m_lstPorLeer.erase(m_lstPorLeer.begin(), fin);
    std::vector<std::string> lstRelativas;
    for (clsNodo *const nodo : lstNodos) {
        nodo->bolPedido = true;
        lstRelativas.push_back(nodo->strRelativa);
    }
    m_hilos.fPedir([raiz = m_raiz, lstRelativas] { return fListar(raiz, lstRelativas); },
                   [this, lstNodos](std::vector<clsListado> lstListados) {
                       for (std::size_t lng = 0; lng < lstNodos.size(); ++lng) {
                           fTomarLista(*lstNodos[lng], std::move(lstListados[lng]));
                       }
                   });
}

void clsPaseo::fTomarLista(clsNodo &nodo, clsListado listado)
{
    nodo.errorLista = listado.error;
    const std::size_t lngTandas = listado.abierta ? listado.abierta->fTandas() : 1;
    nodo.lstTandas.resize(lngTandas);
    nodo.lngPendientes = lngTandas;
    for (std::size_t lngTanda = 1; lngTanda < lngTandas; ++lngTanda) {
        m_hilos.fPedir(
            [abierta = listado.abierta, lngTanda] { return abierta->fExaminarTanda(lngTanda); },
            [this, &nodo, lngTanda](clsExamen examen) {
                fTomarTanda(nodo, lngTanda, std::move(examen));
            });
    }
    fTomarTanda(nodo, 0, std::move(listado.primera));
}

void clsPaseo::fTomarTanda(clsNodo &nodo, std::size_t lngTanda, clsExamen examen)
{
    nodo.lstTandas[lngTanda] = std::move(examen);
    if (--nodo.lngPendientes == 0) {
        fTerminar(nodo);
    }
}

/// Weighs a folder that has been read and gathers its subfolders.
void clsPaseo::fTerminar(clsNodo &nodo)
{
    bool bolError{nodo.errorLista};
    // Its own path counts too: a tree of thousands of levels has long ones.
    nodo.lngPeso = static_cast<std::int64_t>(sizeof nodo + nodo.strRelativa.size());
    for (const clsExamen &examen : nodo.lstTandas) {
        nodo.lngPeso += static_cast<std::int64_t>(examen.strLineas.size());
        bolError = bolError || examen.error;
    }
    m_lngAdelantados += nodo.lngPeso;
    if (bolError) {
        return;
    }
    for (const clsExamen &examen : nodo.lstTandas) {
        for (const std::string &strNombre : examen.lstCarpetas) {
            nodo.lstHijos.push_back(std::make_unique<clsNodo>());
            nodo.lstHijos.back()->strRelativa = nodo.strRelativa + strNombre + '/';
        }
    }
    std::transform(nodo.lstHijos.rbegin(), nodo.lstHijos.rend(), std::front_inserter(m_lstPorLeer),
                   [](const std::unique_ptr<clsNodo> &hijo) { return hijo.get(); });
}

/// Hands over the files of a folder that has been read.
/// @param error set when the folder could not be read to its end.
/// @return false when the receiver ends the walk.
bool clsPaseo::fEntregar(const clsNodo &nodo, clsError &error)
{
    m_receptor.fCarpeta(m_raiz->strRaiz + nodo.strRelativa);
    for (const clsExamen &examen : nodo.lstTandas) {
        if (!examen.strLineas.empty() && !m_receptor.fRegistros(examen.strLineas)) {
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
        m_receptor.fError(error);
    }
    return true;
}

clsRecorrido clsPaseo::fHacer()
{
    clsRecorrido recorrido;
    while (!m_pila.empty() && !recorrido.bolInterrumpido) {
        fPedir();
        if (!m_pila.back()->fHecho()) {
            m_hilos.fAtender(pausaRitmo);
        }
        recorrido.bolInterrumpido = !m_ritmo.fSeguir([this] { return m_receptor.fSeguir(); });
        if (recorrido.bolInterrumpido || !m_pila.back()->fHecho()) {
            continue;
        }
        const std::unique_ptr<clsNodo> nodo = std::move(m_pila.back());
        m_pila.pop_back();
        clsError error;
        recorrido.bolInterrumpido = !fEntregar(*nodo, error);
        recorrido.errorRaiz = nodo->strRelativa.empty() ? error : recorrido.errorRaiz;
        m_lngAdelantados -= nodo->lngPeso;
        std::move(nodo->lstHijos.rbegin(), nodo->lstHijos.rend(), std::back_inserter(m_pila));
    }
    return recorrido;
}

} // namespace

clsRecorrido fRecorrer(const std::string &strRaiz, const clsOpcionesRecorrido &opciones,
                       clsReceptor &receptor)
{
    const auto raiz = std::make_shared<clsRaiz>();
    raiz->strRaiz = strRaiz;
    raiz->fOmitir = opciones.fOmitirEnRaiz;
    auto carpeta = fAbrirCarpeta(strRaiz);
    if (!carpeta) {
        receptor.fCarpeta(strRaiz);
        receptor.fError(carpeta.fError());
        return {false, carpeta.fError()};
    }
    raiz->carpeta = std::move(*carpeta);
    return clsPaseo(raiz, opciones.intHilos > 0 ? opciones.intHilos : intHilosUsuales, receptor)
        .fHacer();
}
