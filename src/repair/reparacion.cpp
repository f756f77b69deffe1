#include "repair/reparacion.h"

#include "shared/rutas.h"
#include "shared/texto.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>

namespace {

constexpr std::int64_t lngUnDiaEntero = 86400;

std::string fTextoFecha(clsFecha fecha)
{
    return fecha.fHay() ? fEscribirFecha(fecha, strFormaUsuario) : std::string();
}

/// A shift as people write it: "+1 d 02:00:00".
std::string fTextoDesfase(std::int64_t lngSegundos)
{
    const std::int64_t lngTodos = std::abs(lngSegundos);
    std::string strTexto(1, lngSegundos < 0 ? '-' : '+');
    if (lngTodos >= lngUnDiaEntero) {
        strTexto += std::to_string(lngTodos / lngUnDiaEntero);
        strTexto += " d ";
    }
    strTexto += fEscribirFecha({lngTodos % lngUnDiaEntero}, "HH:mm:ss");
    return strTexto;
}

std::string_view fTextoChoque(Choque choque)
{
    return choque == Choque::Existe     ? "Ya hay un archivo con el nombre nuevo"
           : choque == Choque::Repetido ? "Otro archivo tendría el mismo nombre"
                                        : "";
}

} // namespace

clsTablaReparacion::clsTablaReparacion(std::string strRaiz, clsFecha datAhora, clsRelojLocal reloj)
    : m_strRaiz(std::move(strRaiz)), m_datAhora(datAhora), m_reloj(std::move(reloj))
{
}

void clsTablaReparacion::fReservar(std::size_t lngFilas)
{
    m_lstFilas.reserve(lngFilas);
    m_lstVista.reserve(lngFilas);
}

void clsTablaReparacion::fAgregar(std::string strRuta, clsFechasFichero fechas)
{
    clsFilaReparacion fila{std::move(strRuta), std::move(fechas), {}, {}, 0, false};
    fila.base = fila.propuesta = fProponer(fila.fechas, m_datAhora, m_reloj);
    if (fila.fechas.bolExiste) {
        m_nombres.fSaber(fClaveRuta(fila.strRuta), true);
    }
    fila.bolMarcada = fila.propuesta.fMarcada();
    fPonerClave(fila);
    if (fPasa(fila)) {
        m_lstVista.push_back(fFilas());
    }
    m_lstFilas.push_back(std::move(fila));
    ++m_lngRevision;
}

bool clsTablaReparacion::fPasa(const clsFilaReparacion &fila) const
{
    switch (m_vista) {
    case VistaReparacion::ConPropuesta:
        return fila.propuesta.fHay();
    case VistaReparacion::Dudosas:
        return fila.propuesta.fDudosa();
    case VistaReparacion::SinPropuesta:
        return !fila.propuesta.fHay();
    case VistaReparacion::Todas:
        break;
    }
    return true;
}

int clsTablaReparacion::fPosicion(int lngFila) const
{
    const auto cual = std::find(m_lstVista.begin(), m_lstVista.end(), lngFila);
    return cual == m_lstVista.end() ? -1 : static_cast<int>(cual - m_lstVista.begin());
}

void clsTablaReparacion::fMostrar(VistaReparacion vista)
{
    m_vista = vista;
    m_lstVista.clear();
    for (int lngFila = 0; lngFila < fFilas(); ++lngFila) {
        if (fPasa(m_lstFilas[fIndice(lngFila)])) {
            m_lstVista.push_back(lngFila);
        }
    }
    ++m_lngRevision;
}

template <typename Clave>
void clsTablaReparacion::fOrdenarPor(bool bolDescendente, const Clave &fClave)
{
    std::vector<std::pair<decltype(fClave(0)), int>> lstClaves;
    lstClaves.reserve(m_lstVista.size());
    for (const int lngFila : m_lstVista) {
        lstClaves.emplace_back(fClave(lngFila), lngFila);
    }
    std::stable_sort(lstClaves.begin(), lstClaves.end(), [&](const auto &una, const auto &otra) {
        return bolDescendente ? otra.first < una.first : una.first < otra.first;
    });
    std::transform(lstClaves.begin(), lstClaves.end(), m_lstVista.begin(),
                   [](const auto &clave) { return clave.second; });
    ++m_lngRevision;
}

void clsTablaReparacion::fOrdenarPorTexto(ColumnaReparacion columna, bool bolDescendente,
                                          const clsRangos &fRangos)
{
    std::vector<std::string> lstTextos;
    lstTextos.reserve(m_lstVista.size());
    std::transform(m_lstVista.begin(), m_lstVista.end(), std::back_inserter(lstTextos),
                   [&](int lngFila) { return fTexto(lngFila, columna); });
    const std::vector<std::uint32_t> lstRangos = fRangos({lstTextos.begin(), lstTextos.end()});
    auto rango = lstRangos.begin();
    fOrdenarPor(bolDescendente, [&](int) { return *rango++; });
}

void clsTablaReparacion::fOrdenar(ColumnaReparacion columna, bool bolDescendente,
                                  const clsRangos &fRangos)
{
    const auto fFila = [&](int lngFila) -> const auto & { return m_lstFilas[fIndice(lngFila)]; };
    switch (columna) {
    case ColumnaReparacion::Marca:
        return fOrdenarPor(bolDescendente, [&](int lngFila) { return !fFila(lngFila).bolMarcada; });
    case ColumnaReparacion::Actual:
        return fOrdenarPor(bolDescendente,
                           [&](int lngFila) { return fFila(lngFila).fechas.datArchivo; });
    case ColumnaReparacion::Nueva:
        return fOrdenarPor(bolDescendente,
                           [&](int lngFila) { return fFila(lngFila).propuesta.fecha; });
    case ColumnaReparacion::Nombre:
    case ColumnaReparacion::Carpeta:
    case ColumnaReparacion::Fuente:
    case ColumnaReparacion::NombreNuevo:
    case ColumnaReparacion::Reparo:
        break;
    }
    fOrdenarPorTexto(columna, bolDescendente, fRangos);
}

const std::string &clsTablaReparacion::fRuta(int lngFila) const
{
    return m_lstFilas[fIndice(lngFila)].strRuta;
}

const clsFechasFichero &clsTablaReparacion::fFechas(int lngFila) const
{
    return m_lstFilas[fIndice(lngFila)].fechas;
}

const clsPropuesta &clsTablaReparacion::fPropuesta(int lngFila) const
{
    return m_lstFilas[fIndice(lngFila)].propuesta;
}

std::string clsTablaReparacion::fDestino(const clsFilaReparacion &fila) const
{
    return fila.propuesta.fHay() ? fRutaReparada(fila.strRuta, fila.propuesta.fecha, m_nombre)
                                 : fila.strRuta;
}

std::string clsTablaReparacion::fRutaNueva(int lngFila) const
{
    return fDestino(m_lstFilas[fIndice(lngFila)]);
}

void clsTablaReparacion::fPonerClave(clsFilaReparacion &fila) const
{
    const std::string strDestino = fDestino(fila);
    fila.claveNueva = strDestino == fila.strRuta ? 0 : fClaveRuta(strDestino);
}

/// Something has changed that collisions depend on.
void clsTablaReparacion::fCambiar()
{
    m_bolMirado = false;
    ++m_lngRevision;
}

/// Sees to it that m_lstMiradas tells how things are, but for the last rows that were added.
void clsTablaReparacion::fMirar(std::size_t lngRetraso) const
{
    if (m_bolMirado && m_lstFilas.size() <= m_lstMiradas.size() + lngRetraso) {
        return;
    }
    std::vector<clsClaveRuta> lstNuevas(m_lstFilas.size());
    std::transform(
        m_lstFilas.begin(), m_lstFilas.end(), lstNuevas.begin(),
        [](const clsFilaReparacion &fila) { return fila.bolMarcada ? fila.claveNueva : 0; });
    m_lstMiradas = m_nombres.fMirar(lstNuevas);
    m_bolMirado = true;
}

Choque clsTablaReparacion::fChoque(int lngFila) const
{
    constexpr std::size_t lngParte = 8;
    fMirar(m_lstMiradas.size() / lngParte);
    const std::size_t lngCual = fIndice(lngFila);
    return lngCual < m_lstMiradas.size() ? m_lstMiradas[lngCual].choque : Choque::Ninguno;
}

std::string clsTablaReparacion::fTexto(int lngFila, ColumnaReparacion columna) const
{
    const clsFilaReparacion &fila = m_lstFilas[fIndice(lngFila)];
    switch (columna) {
    case ColumnaReparacion::Nombre:
        return fTextoPantalla(fNombreDe(fila.strRuta));
    case ColumnaReparacion::Carpeta:
        return fTextoPantalla(fCarpetasBajo(fila.strRuta, m_strRaiz));
    case ColumnaReparacion::Actual:
        return fTextoFecha(fila.fechas.datArchivo);
    case ColumnaReparacion::Nueva:
        return fTextoFecha(fila.propuesta.fecha);
    case ColumnaReparacion::Fuente:
        return fTextoOrigen(fila);
    case ColumnaReparacion::NombreNuevo:
        return fila.propuesta.fHay() ? fTextoPantalla(fNombreDe(fDestino(fila))) : std::string();
    case ColumnaReparacion::Reparo: {
        const Choque choque = fChoque(lngFila);
        return choque == Choque::Ninguno
                   ? fTextoReparo(fila.propuesta, fila.fechas.lstFuentes, m_reloj)
                   : std::string(fTextoChoque(choque));
    }
    case ColumnaReparacion::Marca:
        break;
    }
    return {};
}

std::string clsTablaReparacion::fTextoOrigen(const clsFilaReparacion &fila)
{
    if (!fila.propuesta.fHay()) {
        return {};
    }
    const std::string strFuente(fTextoFuente(fila.propuesta.fuente));
    return fila.lngDesfase == 0 ? strFuente : strFuente + ' ' + fTextoDesfase(fila.lngDesfase);
}

bool clsTablaReparacion::fMarcada(int lngFila) const
{
    return m_lstFilas[fIndice(lngFila)].bolMarcada;
}

void clsTablaReparacion::fMarcar(int lngFila, bool bolMarca)
{
    m_lstFilas[fIndice(lngFila)].bolMarcada = bolMarca;
    fCambiar();
}

void clsTablaReparacion::fMarcarVista(bool bolMarca)
{
    for (const int lngFila : m_lstVista) {
        m_lstFilas[fIndice(lngFila)].bolMarcada = bolMarca;
    }
    fCambiar();
}

/// Does something with the ticked rows.
/// @param fHacer gets a row and gives whether it was for it.
/// @return for how many it was.
template <typename Hacer> int clsTablaReparacion::fCadaMarcada(const Hacer &fHacer)
{
    int intHechas = 0;
    for (clsFilaReparacion &fila : m_lstFilas) {
        if (fila.bolMarcada) {
            intHechas += fHacer(fila) ? 1 : 0;
            fPonerClave(fila);
        }
    }
    fCambiar();
    return intHechas;
}

std::vector<Fuente> clsTablaReparacion::fFuentesMarcadas() const
{
    std::array<bool, intFuentes> lstHay{};
    for (const clsFilaReparacion &fila : m_lstFilas) {
        for (const clsFechaFuente &fuente : fila.fechas.lstFuentes) {
            lstHay[static_cast<std::size_t>(fuente.fuente)] |= fila.bolMarcada;
        }
    }
    std::vector<Fuente> lstFuentes;
    for (int intCual = 0; intCual < intFuentes; ++intCual) {
        if (lstHay[fIndice(intCual)]) {
            lstFuentes.push_back(static_cast<Fuente>(intCual));
        }
    }
    return lstFuentes;
}

bool clsTablaReparacion::fPonerBase(clsFilaReparacion &fila, clsFecha fecha, Fuente fuente) const
{
    if (!fecha.fHay() || !fila.fechas.bolExiste) {
        return false;
    }
    fila.base = fila.propuesta = fProponerManual(fecha, fuente, m_datAhora);
    fila.lngDesfase = 0;
    return true;
}

int clsTablaReparacion::fElegirFuente(Fuente fuente)
{
    return fCadaMarcada([&](clsFilaReparacion &fila) {
        const clsFuentes &lstFuentes = fila.fechas.lstFuentes;
        const auto cual =
            std::find_if(lstFuentes.begin(), lstFuentes.end(),
                         [&](const clsFechaFuente &una) { return una.fuente == fuente; });
        return cual != lstFuentes.end() && fPonerBase(fila, fLocal(*cual, m_reloj), fuente);
    });
}

int clsTablaReparacion::fFechar(clsFecha fecha)
{
    return fCadaMarcada(
        [&](clsFilaReparacion &fila) { return fPonerBase(fila, fecha, Fuente::Tecleada); });
}

int clsTablaReparacion::fRestaurar()
{
    return fCadaMarcada([&](clsFilaReparacion &fila) {
        fila.base = fila.propuesta = fProponer(fila.fechas, m_datAhora, m_reloj);
        fila.lngDesfase = 0;
        return true;
    });
}

std::optional<clsFecha> clsTablaReparacion::fDesplazada(const clsFilaReparacion &fila,
                                                        std::int64_t lngSegundos)
{
    return ::fDesplazar(fila.base.fHay() ? fila.base.fecha : fila.fechas.datArchivo, lngSegundos);
}

int clsTablaReparacion::fDesplazar(std::int64_t lngSegundos)
{
    return fCadaMarcada([&](clsFilaReparacion &fila) {
        const auto fecha = fDesplazada(fila, lngSegundos);
        if (!fecha) {
            return false;
        }
        fila.lngDesfase = lngSegundos;
        fila.propuesta =
            lngSegundos == 0 ? fila.base : fProponerManual(*fecha, fila.base.fuente, m_datAhora);
        return true;
    });
}

clsTramoFechas clsTablaReparacion::fTramo(std::optional<std::int64_t> lngSegundos) const
{
    clsTramoFechas tramo;
    for (const clsFilaReparacion &fila : m_lstFilas) {
        const clsFecha fecha = !lngSegundos ? fila.propuesta.fecha
                                            : fDesplazada(fila, *lngSegundos).value_or(clsFecha{});
        if (!fila.bolMarcada || !fecha.fHay()) {
            continue;
        }
        if (!tramo.datPrimera.fHay() || fecha < tramo.datPrimera) {
            tramo.datPrimera = fecha;
        }
        tramo.datUltima = tramo.datUltima.fHay() ? std::max(tramo.datUltima, fecha) : fecha;
    }
    return tramo;
}

void clsTablaReparacion::fNombres(NombreReparado nombre)
{
    m_nombre = nombre;
    for (clsFilaReparacion &fila : m_lstFilas) {
        fPonerClave(fila);
    }
    fCambiar();
}

clsCuentasReparacion clsTablaReparacion::fCuentas() const
{
    clsCuentasReparacion cuentas;
    cuentas.intFicheros = fFilas();
    for (const clsFilaReparacion &fila : m_lstFilas) {
        if (fila.propuesta.fHay()) {
            cuentas.fContar(fila.propuesta.fuente);
        }
        cuentas.intSinPropuesta += fila.propuesta.fHay() ? 0 : 1;
        cuentas.intMarcados += fila.bolMarcada ? 1 : 0;
    }
    return cuentas;
}

std::vector<std::string> clsTablaReparacion::fPorComprobar() const
{
    fMirar();
    std::vector<std::string> lstRutas;
    for (std::size_t lng = 0; lng < m_lstFilas.size(); ++lng) {
        if (!m_lstMiradas[lng].bolSabido) {
            lstRutas.push_back(fDestino(m_lstFilas[lng]));
        }
    }
    return lstRutas;
}

void clsTablaReparacion::fComprobado(const std::vector<std::pair<std::string, bool>> &lstExisten)
{
    for (const auto &[strRuta, bolExiste] : lstExisten) {
        m_nombres.fSaber(fClaveRuta(strRuta), bolExiste);
    }
    fCambiar();
}

bool clsTablaReparacion::fReparable(int lngFila) const
{
    const clsFilaReparacion &fila = m_lstFilas[fIndice(lngFila)];
    return fila.bolMarcada && fila.propuesta.fHay() &&
           m_lstMiradas[fIndice(lngFila)].choque == Choque::Ninguno;
}

int clsTablaReparacion::fReparables() const
{
    fMirar();
    int intReparables = 0;
    for (int lngFila = 0; lngFila < fFilas(); ++lngFila) {
        intReparables += fReparable(lngFila) ? 1 : 0;
    }
    return intReparables;
}

std::vector<clsReparado> clsTablaReparacion::fReparados() const
{
    fMirar();
    std::vector<clsReparado> lstReparados;
    for (int lngFila = 0; lngFila < fFilas(); ++lngFila) {
        if (fReparable(lngFila)) {
            const clsFilaReparacion &fila = m_lstFilas[fIndice(lngFila)];
            lstReparados.push_back({fila.strRuta, fDestino(fila), fila.propuesta.fecha});
        }
    }
    return lstReparados;
}
