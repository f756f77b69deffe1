#include "catalogue/recorrido.h"

#include "catalogue/carpeta.h"
#include "shared/hilos.h"
#include "shared/ritmo.h"

#include <algorithm>
#include <iterator>
#include <list>
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

    [[nodiscard]] bool fHecho() const { return lngPendientes == 0; }
};

using clsNodos = std::list<clsNodo>;

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

/// One walk. Folders are read ahead on threads, in the order in which they are handed over.
class clsPaseo {
public:
    clsPaseo(std::shared_ptr<const clsRaiz> raiz, int intHilos, clsObservador &observador,
             const clsReceptor &fRegistros)
        : m_raiz(std::move(raiz)), m_observador(observador), m_fRegistros(fRegistros),
          m_lngPiezas(2 * static_cast<std::size_t>(intHilos)), m_nodos(1),
          m_hilos({.intHilos = intHilos})
    {
    }

    clsRecorrido fHacer();

private:
    using clsLugar = clsNodos::iterator;

    void fPedir();
    clsLugar fPedirLista(clsLugar nodo, std::size_t lngCarpetas);
    void fTomarLista(clsLugar nodo, clsListado listado);
    void fTomarTanda(clsLugar nodo, std::size_t lngTanda, clsExamen examen);
    void fTerminar(clsLugar nodo);
    [[nodiscard]] bool fEntregar(const clsNodo &nodo, clsError &error);

    const std::shared_ptr<const clsRaiz> m_raiz;
    clsObservador &m_observador;
    const clsReceptor &m_fRegistros;
    const std::size_t m_lngPiezas; ///< that are ordered ahead
    clsRitmo m_ritmo;
    clsNodos m_nodos; ///< still to be handed over, the next one first, each before its subfolders
    std::size_t m_lngPorLeer = 1;      ///< of these, not ordered
    std::int64_t m_lngAdelantados = 0; ///< bytes read and not handed over
    clsHilos m_hilos;
};

/// Has folders read ahead, but no more than fits; the one that is handed over next always. Several
/// in one piece of work where many wait: threads that take turns cost as much as a small folder.
void clsPaseo::fPedir()
{
    constexpr std::size_t lngMaximo = 32;
    clsLugar nodo = m_nodos.begin();
    if (!nodo->bolPedido) {
        nodo = fPedirLista(nodo, 1);
    }
    while (m_lngPorLeer > 0 && m_lngAdelantados <= lngAdelanto &&
           m_hilos.fPendientes() < m_lngPiezas) {
        nodo = fPedirLista(nodo,
                           std::clamp<std::size_t>(2 * m_lngPorLeer / m_lngPiezas, 1, lngMaximo));
    }
}

/// Orders the next folders from this one on, in one piece of work.
/// @return the one behind them.
clsPaseo::clsLugar clsPaseo::fPedirLista(clsLugar nodo, std::size_t lngCarpetas)
{
    std::vector<clsLugar> lstNodos;
    std::vector<std::string> lstRelativas;
    for (; lstNodos.size() < lngCarpetas; ++nodo) {
        if (!nodo->bolPedido) {
            nodo->bolPedido = true;
            lstNodos.push_back(nodo);
            lstRelativas.push_back(nodo->strRelativa);
        }
    }
    m_lngPorLeer -= lngCarpetas;
    m_hilos.fPedir([raiz = m_raiz, lstRelativas] { return fListar(raiz, lstRelativas); },
                   [this, lstNodos](std::vector<clsListado> lstListados) {
                       for (std::size_t lng = 0; lng < lstNodos.size(); ++lng) {
                           fTomarLista(lstNodos[lng], std::move(lstListados[lng]));
                       }
                   });
    return nodo;
}

void clsPaseo::fTomarLista(clsLugar nodo, clsListado listado)
{
    nodo->errorLista = listado.error;
    const std::size_t lngTandas = listado.abierta ? listado.abierta->fTandas() : 1;
    nodo->lstTandas.resize(lngTandas);
    nodo->lngPendientes = lngTandas;
    for (std::size_t lngTanda = 1; lngTanda < lngTandas; ++lngTanda) {
        m_hilos.fPedir(
            [abierta = listado.abierta, lngTanda] { return abierta->fExaminarTanda(lngTanda); },
            [this, nodo, lngTanda](clsExamen examen) {
                fTomarTanda(nodo, lngTanda, std::move(examen));
            });
    }
    fTomarTanda(nodo, 0, std::move(listado.primera));
}

void clsPaseo::fTomarTanda(clsLugar nodo, std::size_t lngTanda, clsExamen examen)
{
    nodo->lstTandas[lngTanda] = std::move(examen);
    if (--nodo->lngPendientes == 0) {
        fTerminar(nodo);
    }
}

/// Weighs a folder that has been read and puts its subfolders behind it.
void clsPaseo::fTerminar(clsLugar nodo)
{
    bool bolError{nodo->errorLista};
    // Its own path counts too: a tree of thousands of levels has long ones.
    nodo->lngPeso = static_cast<std::int64_t>(sizeof *nodo + nodo->strRelativa.size());
    for (const clsExamen &examen : nodo->lstTandas) {
        nodo->lngPeso += static_cast<std::int64_t>(examen.strLineas.size());
        bolError = bolError || examen.error;
    }
    m_lngAdelantados += nodo->lngPeso;
    if (bolError) {
        return;
    }
    const clsLugar siguiente = std::next(nodo);
    for (const clsExamen &examen : nodo->lstTandas) {
        for (const std::string &strNombre : examen.lstCarpetas) {
            m_nodos.emplace(siguiente)->strRelativa = nodo->strRelativa + strNombre + '/';
            ++m_lngPorLeer;
        }
    }
}

/// Hands over the files of a folder that has been read.
/// @param error set when the folder could not be read to its end.
/// @return false when the receiver ends the walk.
bool clsPaseo::fEntregar(const clsNodo &nodo, clsError &error)
{
    m_observador.fCarpeta(m_raiz->strRaiz + nodo.strRelativa);
    for (const clsExamen &examen : nodo.lstTandas) {
        if (!examen.strLineas.empty() && !m_fRegistros(examen.strLineas)) {
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
        m_observador.fError(error);
    }
    return true;
}

clsRecorrido clsPaseo::fHacer()
{
    clsRecorrido recorrido;
    while (!m_nodos.empty() && !recorrido.bolInterrumpido) {
        fPedir();
        const clsLugar nodo = m_nodos.begin();
        if (!nodo->fHecho()) {
            m_hilos.fAtender(pausaRitmo);
        }
        recorrido.bolInterrumpido = !m_ritmo.fSeguir([this] { return m_observador.fSeguir(); });
        if (recorrido.bolInterrumpido || !nodo->fHecho()) {
            continue;
        }
        clsError error;
        recorrido.bolInterrumpido = !fEntregar(*nodo, error);
        recorrido.errorRaiz = nodo->strRelativa.empty() ? error : recorrido.errorRaiz;
        m_lngAdelantados -= nodo->lngPeso;
        m_nodos.erase(nodo);
    }
    return recorrido;
}

} // namespace

clsRecorrido fRecorrer(const std::string &strRaiz, const clsOpcionesRecorrido &opciones,
                       clsObservador &observador, const clsReceptor &fRegistros)
{
    const auto raiz = std::make_shared<clsRaiz>();
    raiz->strRaiz = strRaiz;
    raiz->fOmitir = opciones.fOmitirEnRaiz;
    auto carpeta = fAbrirCarpeta(strRaiz);
    if (!carpeta) {
        observador.fCarpeta(strRaiz);
        observador.fError(carpeta.fError());
        return {false, carpeta.fError()};
    }
    raiz->carpeta = std::move(*carpeta);
    return clsPaseo(raiz, opciones.intHilos > 0 ? opciones.intHilos : intHilosUsuales, observador,
                    fRegistros)
        .fHacer();
}
