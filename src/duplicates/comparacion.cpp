#include "duplicates/comparacion.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <numeric>
#include <string_view>
#include <utility>

namespace {

/// Read of one file before it is the other's turn: on a disk with a moving head each change costs
/// time.
constexpr std::int64_t lngLectura = std::int64_t{4} << 20;
constexpr std::int64_t lngPorTurno = std::int64_t{64} << 20;
/// Files that are open at a time.
constexpr std::size_t lngPorRonda = 32;

/// Reads from a position until there are so many bytes, or no more.
clsResultado<std::size_t> fLeerTodos(const clsDescriptor &abierto, std::int64_t lngPos,
                                     char *bytDatos, std::size_t lngBytes)
{
    std::size_t lngLeidos = 0;
    while (lngLeidos < lngBytes) {
        const auto lngTrozo = fLeerEn(abierto, lngPos + static_cast<std::int64_t>(lngLeidos),
                                      bytDatos + lngLeidos, lngBytes - lngLeidos);
        if (!lngTrozo) {
            return lngTrozo.fError();
        }
        if (*lngTrozo == 0) {
            break;
        }
        lngLeidos += *lngTrozo;
    }
    return lngLeidos;
}

} // namespace

clsResultado<std::size_t> fNumeroComienzo(const std::string &strRuta)
{
    const auto abierto = fAbrirRegular(strRuta);
    if (!abierto) {
        return abierto.fError();
    }
    std::string strBytes(lngComienzo, '\0');
    const auto lngLeidos = fLeerTodos(abierto->descriptor, 0, strBytes.data(), strBytes.size());
    if (!lngLeidos) {
        return lngLeidos.fError();
    }
    return std::hash<std::string_view>{}(std::string_view(strBytes).substr(0, *lngLeidos));
}

clsComparacion::clsComparacion(std::vector<std::string> lstRutas, std::int64_t lngBytes)
    : m_lstRutas(std::move(lstRutas)), m_lngBytes(lngBytes), m_lstPendientes(m_lstRutas.size())
{
    std::iota(m_lstPendientes.begin(), m_lstPendientes.end(), std::size_t{0});
}

bool clsComparacion::fTurno(const clsAnulado &anulado)
{
    const std::int64_t lngHasta = m_lngLeidos + lngPorTurno;
    while (!anulado && m_lngLeidos < lngHasta) {
        if (!m_lstRonda.empty()) {
            fLeerTrozo();
        } else if (!fEmpezarRonda()) {
            return true;
        }
    }
    return false;
}

/// Opens the model and the next files beside it; where all were compared with it, takes another.
/// @return false: there is nothing left to compare.
bool clsComparacion::fEmpezarRonda()
{
    if (m_lstPendientes.empty() && !m_lstClase.empty()) {
        fCerrarClase();
    }
    if (m_lstClase.empty()) {
        if (m_lstPendientes.size() < 2) {
            return false;
        }
        m_lstClase.push_back(m_lstPendientes.front());
        m_lstPendientes.erase(m_lstPendientes.begin());
    }
    m_lngPos = 0;
    if (!fAbrir(m_lstClase.front())) {
        fAbandonarModelo();
        return true;
    }
    while (m_lstRonda.size() < lngPorRonda && !m_lstPendientes.empty()) {
        static_cast<void>(fAbrir(m_lstPendientes.back()));
        m_lstPendientes.pop_back();
    }
    if (m_lstRonda.size() < 2) {
        m_lstRonda.clear();
    }
    return true;
}

bool clsComparacion::fAbrir(std::size_t lngCual)
{
    auto abierto = fAbrirRegular(m_lstRutas[lngCual]);
    if (!abierto || abierto->huella.lngBytes != m_lngBytes) {
        ++m_intIlegibles;
        return false;
    }
    fAnunciarLectura(abierto->descriptor);
    m_lstRonda.push_back({lngCual, std::move(abierto->descriptor)});
    return true;
}

/// The model cannot be read any more. What was like it is still alike.
void clsComparacion::fAbandonarModelo()
{
    for (std::size_t lng = 1; lng < m_lstRonda.size(); ++lng) {
        m_lstPendientes.push_back(m_lstRonda[lng].lngCual);
    }
    m_lstRonda.clear();
    m_lstClase.erase(m_lstClase.begin());
    fCerrarClase();
}

/// All were compared with the model, or it is gone: what differs from it is compared next.
void clsComparacion::fCerrarClase()
{
    if (m_lstClase.size() > 1) {
        std::sort(m_lstClase.begin(), m_lstClase.end());
        m_lstClases.push_back(std::move(m_lstClase));
    }
    m_lstClase.clear();
    m_lstPendientes.insert(m_lstPendientes.end(), m_lstDistintas.begin(), m_lstDistintas.end());
    m_lstDistintas.clear();
}

/// Reads the next bytes of the model, and of those that were like it so far.
void clsComparacion::fLeerTrozo()
{
    const auto lngTrozo = static_cast<std::size_t>(std::min(lngLectura, m_lngBytes - m_lngPos));
    if (!fLlenar(m_lstRonda.front().descriptor, m_lstModelo, lngTrozo)) {
        ++m_intIlegibles;
        fAbandonarModelo();
        return;
    }
    fCompararTrozo(lngTrozo);
    m_lngPos += static_cast<std::int64_t>(lngTrozo);
    if (m_lngPos == m_lngBytes) {
        for (std::size_t lng = 1; lng < m_lstRonda.size(); ++lng) {
            m_lstClase.push_back(m_lstRonda[lng].lngCual);
        }
    }
    if (m_lngPos == m_lngBytes || m_lstRonda.size() < 2) {
        m_lstRonda.clear();
    }
}

/// Takes those out of the round that differ from the model, or cannot be read.
void clsComparacion::fCompararTrozo(std::size_t lngTrozo)
{
    const auto fSale = [&](const clsAbierta &otra) {
        if (!fLlenar(otra.descriptor, m_lstOtra, lngTrozo)) {
            ++m_intIlegibles;
            return true;
        }
        if (std::memcmp(m_lstModelo.data(), m_lstOtra.data(), lngTrozo) != 0) {
            m_lstDistintas.push_back(otra.lngCual);
            return true;
        }
        return false;
    };
    std::vector<clsAbierta> lstSiguen;
    lstSiguen.push_back(std::move(m_lstRonda.front()));
    for (std::size_t lng = 1; lng < m_lstRonda.size(); ++lng) {
        if (!fSale(m_lstRonda[lng])) {
            lstSiguen.push_back(std::move(m_lstRonda[lng]));
        }
    }
    m_lstRonda = std::move(lstSiguen);
}

bool clsComparacion::fLlenar(const clsDescriptor &abierto, std::vector<char> &lstBytes,
                             std::size_t lngTrozo)
{
    lstBytes.resize(lngTrozo);
    const auto lngLeidos = fLeerTodos(abierto, m_lngPos, lstBytes.data(), lngTrozo);
    m_lngLeidos += static_cast<std::int64_t>(lngLeidos.value_or(0));
    return lngLeidos && *lngLeidos == lngTrozo;
}
