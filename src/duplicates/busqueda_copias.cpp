#include "duplicates/busqueda_copias.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <tuple>
#include <utility>

namespace {

constexpr std::int64_t lngMega = std::int64_t{1} << 20;

/// Orders that are given ahead: waiting for a disk costs nothing; reading whole files side by side
/// costs the time of its moving head.
constexpr std::size_t lngAdelanto = 64;
constexpr std::size_t lngAdelantoContenidos = 2;

/// Whether that is the file before under another name, in the order of fAgruparPorTamano.
bool fOtroNombre(const std::vector<clsGemelo> &lstGemelos, std::size_t lng)
{
    return lng > 0 && lstGemelos[lng].identidad == lstGemelos[lng - 1].identidad;
}

} // namespace

/// The comparison of one group, with what has to be known of its files afterwards.
struct clsBusquedaCopias::clsTarea {
    clsComparacion comparacion;
    std::vector<std::vector<clsGemelo>> lstNombres; ///< of each file
    std::function<bool(const std::string &)> fFechaBien;
    std::int64_t lngBytes;             ///< that its files have
    std::int64_t lngContados = 0;      ///< of them, as its progress was told
    std::vector<clsGrupo> lstGrupos{}; ///< that have come of it
    bool bolHecha = false;

    /// On a thread.
    void fTurno(const clsAnulado &anulado)
    {
        bolHecha = comparacion.fTurno(anulado);
        if (bolHecha) {
            for (const auto &clase : comparacion.fClases()) {
                lstGrupos.push_back(fGrupo(clase));
            }
        }
    }

private:
    [[nodiscard]] clsGrupo fGrupo(const clsComparacion::clsClase &clase) const
    {
        clsGrupo grupo;
        for (const std::size_t lngCual : clase) {
            for (clsGemelo uno : lstNombres[lngCual]) {
                uno.bolFechaBien = fFechaBien(uno.strRuta);
                grupo.lstGemelos.push_back(std::move(uno));
            }
        }
        std::sort(grupo.lstGemelos.begin(), grupo.lstGemelos.end(),
                  [](const auto &uno, const auto &otro) { return uno.strRuta < otro.strRuta; });
        grupo.lngQueda = fProponer(grupo.lstGemelos);
        return grupo;
    }
};

clsBusquedaCopias::clsBusquedaCopias(clsCandidatos candidatos, clsOpciones opciones)
    : m_lstRutas(std::move(candidatos.lstRutas)), m_opciones(std::move(opciones)),
      m_hilos({.bolEnOrden = true, .fAvisar = m_opciones.fAvisar})
{
    m_omitidos.intFuera = candidatos.intFuera;
}

void clsBusquedaCopias::fEmpezar()
{
    fPedir();
    if (m_lngPedidos == 0) {
        fSiguienteFase();
    }
}

std::string_view clsBusquedaCopias::fObra() const
{
    switch (m_fase) {
    case Fase::Tamanos:
        return "Mirando archivos";
    case Fase::Comienzos:
        return "Comparando comienzos";
    default:
        return "Comparando contenidos (MB)";
    }
}

int clsBusquedaCopias::fHechos() const
{
    return m_fase == Fase::Contenidos ? static_cast<int>(m_lngBytes / lngMega)
                                      : static_cast<int>(m_lngHechos);
}

int clsBusquedaCopias::fTodos() const
{
    return m_fase == Fase::Contenidos ? static_cast<int>(m_lngTodosBytes / lngMega)
                                      : static_cast<int>(fPiezas());
}

/// How many pieces this phase has.
std::size_t clsBusquedaCopias::fPiezas() const
{
    switch (m_fase) {
    case Fase::Tamanos:
        return m_lstRutas.size();
    case Fase::Comienzos:
        return m_lstFicheros.size();
    case Fase::Contenidos:
        return m_lstGrupos.size();
    default:
        return 0;
    }
}

/// Orders the next pieces of this phase, no more than some at a time.
void clsBusquedaCopias::fPedir()
{
    const std::size_t lngALaVez = m_fase == Fase::Contenidos ? lngAdelantoContenidos : lngAdelanto;
    while (m_lngPedidos < fPiezas() && m_lngPedidos - m_lngHechos < lngALaVez) {
        fPedirUno(m_lngPedidos++);
    }
}

void clsBusquedaCopias::fPedirUno(std::size_t lngCual)
{
    if (m_fase == Fase::Contenidos) {
        fPedirTurno(fTarea(m_lstGrupos[lngCual]));
    } else if (m_fase == Fase::Tamanos) {
        const std::string &strRuta = m_lstRutas[lngCual];
        m_hilos.fPedir([strRuta] { return fConsultar(strRuta); },
                       [this, &strRuta](const clsResultado<clsDatosArchivo> &datos) {
                           fTomarTamano(strRuta, datos);
                           fUnoHecho();
                       });
    } else {
        m_hilos.fPedir(
            [strRuta = m_lstGemelos[m_lstFicheros[lngCual]].strRuta] {
                return fNumeroComienzo(strRuta);
            },
            [this, lngCual](const clsResultado<std::size_t> &lngNumero) {
                m_lstLegibles[lngCual] = lngNumero.has_value();
                m_lstNumeros[lngCual] = lngNumero.value_or(0);
                if (!lngNumero) {
                    fOmitir(lngNumero.fError());
                }
                fUnoHecho();
            });
    }
}

void clsBusquedaCopias::fPedirTurno(const std::shared_ptr<clsTarea> &tarea)
{
    m_hilos.fPedir(
        [tarea](const clsAnulado &anulado) {
            tarea->fTurno(anulado);
            return true;
        },
        [this, tarea](bool) { fTomarTurno(tarea); });
}

/// The answer to an order of this phase has been taken.
void clsBusquedaCopias::fUnoHecho()
{
    ++m_lngHechos;
    fPedir();
    if (m_lngHechos == m_lngPedidos) {
        fSiguienteFase();
    }
    m_opciones.fAvance();
}

void clsBusquedaCopias::fSiguienteFase()
{
    // One that has nothing to do is over at once.
    do {
        if (m_fase == Fase::Tamanos) {
            fAgruparPorTamano();
        } else if (m_fase == Fase::Comienzos) {
            fAgruparPorComienzo();
        }
        m_fase = static_cast<Fase>(static_cast<int>(m_fase) + 1);
        m_lngPedidos = m_lngHechos = 0;
        fPedir();
    } while (m_lngPedidos == 0 && m_fase != Fase::Fin);
}

void clsBusquedaCopias::fTomarTamano(const std::string &strRuta,
                                     const clsResultado<clsDatosArchivo> &datos)
{
    if (!datos || datos->tipo != TipoArchivo::Archivo) {
        fOmitir(datos ? clsError(EINVAL) : datos.fError());
    } else if (datos->huella.lngBytes == 0) {
        ++m_omitidos.intVacios;
    } else {
        m_lstGemelos.push_back({strRuta, datos->identidad, datos->huella});
    }
}

void clsBusquedaCopias::fOmitir(clsError error)
{
    const bool bolFalta = error == clsError(ENOENT) || error == clsError(ENOTDIR);
    ++(bolFalta ? m_omitidos.intFaltan : m_omitidos.intIlegibles);
}

/// Finds out which files have the size of another one; of several names of a file only the first
/// counts.
void clsBusquedaCopias::fAgruparPorTamano()
{
    const auto fOrden = [](const clsGemelo &uno) {
        return std::tie(uno.huella.lngBytes, uno.identidad, uno.strRuta);
    };
    std::sort(m_lstGemelos.begin(), m_lstGemelos.end(),
              [&](const auto &uno, const auto &otro) { return fOrden(uno) < fOrden(otro); });
    std::map<std::int64_t, int> mapCuantos; // files of a size
    for (std::size_t lng = 0; lng < m_lstGemelos.size(); ++lng) {
        const bool bolOtro = fOtroNombre(m_lstGemelos, lng);
        m_omitidos.intOtroNombre += bolOtro ? 1 : 0;
        mapCuantos[m_lstGemelos[lng].huella.lngBytes] += bolOtro ? 0 : 1;
    }
    for (std::size_t lng = 0; lng < m_lstGemelos.size(); ++lng) {
        if (!fOtroNombre(m_lstGemelos, lng) && mapCuantos[m_lstGemelos[lng].huella.lngBytes] > 1) {
            m_lstFicheros.push_back(lng);
        }
    }
    m_lstNumeros.resize(m_lstFicheros.size());
    m_lstLegibles.resize(m_lstFicheros.size());
}

/// Finds out which of them also begin alike.
void clsBusquedaCopias::fAgruparPorComienzo()
{
    // The largest first: without their copies most is gained.
    std::map<std::pair<std::int64_t, std::size_t>, clsIndices, std::greater<>> mapGrupos;
    for (std::size_t lng = 0; lng < m_lstFicheros.size(); ++lng) {
        if (m_lstLegibles[lng]) {
            const std::int64_t lngBytes = m_lstGemelos[m_lstFicheros[lng]].huella.lngBytes;
            mapGrupos[{lngBytes, m_lstNumeros[lng]}].push_back(m_lstFicheros[lng]);
        }
    }
    for (auto &[clave, lstGrupo] : mapGrupos) {
        if (lstGrupo.size() > 1) {
            m_lngTodosBytes += clave.first * static_cast<std::int64_t>(lstGrupo.size());
            m_lstGrupos.push_back(std::move(lstGrupo));
        }
    }
}

std::shared_ptr<clsBusquedaCopias::clsTarea>
clsBusquedaCopias::fTarea(const clsIndices &lstGrupo) const
{
    std::vector<std::string> lstRutas;
    std::vector<std::vector<clsGemelo>> lstNombres;
    for (const std::size_t lngPrimero : lstGrupo) {
        std::size_t lngFin = lngPrimero + 1;
        while (lngFin < m_lstGemelos.size() && fOtroNombre(m_lstGemelos, lngFin)) {
            ++lngFin;
        }
        const auto primero = m_lstGemelos.begin() + static_cast<std::ptrdiff_t>(lngPrimero);
        lstNombres.emplace_back(primero,
                                m_lstGemelos.begin() + static_cast<std::ptrdiff_t>(lngFin));
        lstRutas.push_back(primero->strRuta);
    }
    const std::int64_t lngBytes = lstNombres.front().front().huella.lngBytes;
    const auto lngCuantos = static_cast<std::int64_t>(lstRutas.size());
    return std::make_shared<clsTarea>(clsTarea{clsComparacion(std::move(lstRutas), lngBytes),
                                               std::move(lstNombres), m_opciones.fFechaBien,
                                               lngBytes * lngCuantos});
}

void clsBusquedaCopias::fTomarTurno(const std::shared_ptr<clsTarea> &tarea)
{
    // What differed early need not be read to its end; a model may be read more than once.
    const std::int64_t lngLeidos =
        tarea->bolHecha ? tarea->lngBytes : std::min(tarea->comparacion.fLeidos(), tarea->lngBytes);
    m_lngBytes += lngLeidos - std::exchange(tarea->lngContados, lngLeidos);
    if (!tarea->bolHecha) {
        fPedirTurno(tarea);
        m_opciones.fAvance();
        return;
    }
    m_omitidos.intIlegibles += tarea->comparacion.fIlegibles();
    for (clsGrupo &grupo : tarea->lstGrupos) {
        m_opciones.fGrupo(std::move(grupo));
    }
    fUnoHecho();
}
