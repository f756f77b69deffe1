#include "catalogue/filas.h"

#include "shared/fecha.h"
#include "shared/numeros.h"
#include "shared/rutas.h"
#include "shared/texto.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <optional>

std::string_view clsFilas::fTextoNombre(std::uint32_t lngFila) const
{
    const clsFila &fila = m_lstFilas[lngFila];
    return std::string_view(m_strTextos).substr(fila.lngTexto, fila.lngNombre);
}

std::string clsFilas::fTextoFecha(std::uint32_t lngFila) const
{
    const clsFila &fila = m_lstFilas[lngFila];
    const clsFecha fecha = m_lstFechas[lngFila];
    return fila.lngTextoFecha == 0 && fecha != datNinguna
               ? fEscribirFecha(fecha)
               : m_strTextos.substr(fila.lngTexto + fila.lngNombre, fila.lngTextoFecha);
}

bool clsFilas::fFechasExactas() const
{
    return std::none_of(m_lstFilas.begin(), m_lstFilas.end(),
                        [](const clsFila &fila) { return fila.lngTextoFecha != 0; }) &&
           std::find(m_lstFechas.begin(), m_lstFechas.end(), datNinguna) == m_lstFechas.end();
}

std::string_view clsFilas::fCarpeta(int lngPos) const
{
    return m_lstCarpetas[m_lstCarpetaDe[fNumero(lngPos)]];
}

std::string clsFilas::fRuta(int lngPos) const
{
    return std::string(fCarpeta(lngPos)).append(fNombre(lngPos));
}

std::string clsFilas::fRutaDisco(int lngPos) const
{
    std::string strRuta = fRuta(lngPos);
    return fBajoRaiz(strRuta, m_strRaiz) ? strRuta : std::string();
}

void clsFilas::fMarcar(int lngPos, bool bolMarca)
{
    m_lngMarcados += static_cast<int>(bolMarca) - static_cast<int>(fMarcada(lngPos));
    m_lstMarcas[fNumero(lngPos)] = bolMarca;
}

int clsFilas::fBuscarRuta(std::string_view strRuta) const
{
    const auto itCarpeta = m_mapCarpetas.find(std::string(fCarpetaDe(strRuta)));
    if (itCarpeta == m_mapCarpetas.end()) {
        return -1;
    }
    const std::string_view strNombre = fNombreDe(strRuta);
    for (int lngPos = fCantidad() - 1; lngPos >= 0; --lngPos) {
        if (m_lstCarpetaDe[fNumero(lngPos)] == itCarpeta->second && fNombre(lngPos) == strNombre) {
            return lngPos;
        }
    }
    return -1;
}

void clsFilas::fVaciar()
{
    clsFilas vacia;
    vacia.fSuceder(*this);
    *this = std::move(vacia);
}

void clsFilas::fSuceder(const clsFilas &antes)
{
    m_strRaiz = antes.m_strRaiz;
    m_lngRevision = std::max(m_lngRevision, antes.m_lngRevision) + 1;
}

void clsFilas::fReservar(std::size_t lngFilas, std::size_t lngBytesTexto)
{
    m_strTextos.reserve(m_strTextos.size() + lngBytesTexto);
    m_lstFilas.reserve(m_lstFilas.size() + lngFilas);
    m_lstCarpetaDe.reserve(m_lstCarpetaDe.size() + lngFilas);
    m_lstFechas.reserve(m_lstFechas.size() + lngFilas);
    m_lstOrden.reserve(m_lstOrden.size() + lngFilas);
    m_lstMarcas.reserve(m_lstMarcas.size() + lngFilas);
}

std::uint32_t clsFilas::fAnotarCarpeta(std::string_view strCarpeta)
{
    // Files of one folder follow each other in the catalogue.
    if (!m_lstCarpetaDe.empty() && m_lstCarpetas[m_lstCarpetaDe.back()] == strCarpeta) {
        return m_lstCarpetaDe.back();
    }
    const auto [it, bolNueva] = m_mapCarpetas.try_emplace(
        std::string(strCarpeta), static_cast<std::uint32_t>(m_lstCarpetas.size()));
    if (bolNueva) {
        m_lstCarpetas.emplace_back(strCarpeta);
    }
    return it->second;
}

void clsFilas::fAgregarFila(std::string_view strRuta, std::string_view strFecha,
                            std::int64_t lngBytes)
{
    const std::string_view strNombre = fNombreDe(strRuta);
    const std::uint32_t lngCarpeta =
        fAnotarCarpeta(strRuta.substr(0, strRuta.size() - strNombre.size()));
    const std::uint64_t lngTexto = m_strTextos.size();
    m_strTextos.append(strNombre);
    auto fecha = fLeerFecha(strFecha);
    const std::string_view strTextoFecha = fecha ? std::string_view() : strFecha;
    if (!fecha) {
        m_strTextos.append(strFecha);
        fecha = fLeerFecha(fSinBlancos(strFecha));
    }
    m_lstOrden.push_back(static_cast<std::uint32_t>(m_lstFilas.size()));
    m_lstFilas.push_back({lngTexto, lngBytes, static_cast<std::uint32_t>(strNombre.size()),
                          static_cast<std::uint32_t>(strTextoFecha.size())});
    m_lstCarpetaDe.push_back(lngCarpeta);
    m_lstFechas.push_back(fecha.value_or(datNinguna));
    m_lstMarcas.push_back(false);
    ++m_lngRevision;
}

void clsFilas::fConservar(const std::vector<clsConservada> &lstConservadas)
{
    std::vector<clsFila> lstFilas;
    std::vector<std::uint32_t> lstCarpetaDe;
    std::vector<clsFecha> lstFechas;
    lstFilas.reserve(lstConservadas.size());
    lstCarpetaDe.reserve(lstConservadas.size());
    lstFechas.reserve(lstConservadas.size());
    for (const clsConservada &conservada : lstConservadas) {
        const std::uint32_t lngFila = fNumero(conservada.lngPos);
        clsFila &fila = lstFilas.emplace_back(m_lstFilas[lngFila]);
        lstCarpetaDe.push_back(m_lstCarpetaDe[lngFila]);
        lstFechas.push_back(m_lstFechas[lngFila]);
        if (conservada.lngBytes >= 0) {
            fila.lngTextoFecha = 0;
            fila.lngBytes = conservada.lngBytes;
            lstFechas.back() = conservada.fecha;
        }
    }
    m_lstFilas = std::move(lstFilas);
    m_lstCarpetaDe = std::move(lstCarpetaDe);
    m_lstFechas = std::move(lstFechas);
    m_lstOrden.resize(m_lstFilas.size());
    m_lstOrden.shrink_to_fit();
    std::iota(m_lstOrden.begin(), m_lstOrden.end(), 0U);
    m_lstMarcas.assign(m_lstFilas.size(), false);
    m_lngMarcados = 0;
    ++m_lngRevision;
}

int clsFilas::fPosicion(std::uint32_t lngFila) const
{
    const auto it = std::find(m_lstOrden.begin(), m_lstOrden.end(), lngFila);
    return it == m_lstOrden.end() ? -1 : static_cast<int>(it - m_lstOrden.begin());
}

void clsFilas::fReordenar(std::vector<std::uint32_t> lstOrden)
{
    m_lstOrden = std::move(lstOrden);
    ++m_lngRevision;
}

std::string fCampo(const clsFilas &filas, int lngFila, Campo campo, const clsSignos &signos)
{
    if (lngFila < 1 || lngFila > filas.fCantidad()) {
        return {};
    }
    const int lngPos = lngFila - 1;
    switch (campo) {
    case Campo::Ruta:
        return filas.fRuta(lngPos);
    case Campo::Nombre:
        return std::string(filas.fNombre(lngPos));
    case Campo::Fecha:
        return std::string(fSinBlancos(filas.fFecha(lngPos)));
    case Campo::Tamano:
        return std::string(fSinBlancos(fTextoKB(filas.fTamano(lngPos), signos)));
    case Campo::Carpeta:
        return std::string(filas.fCarpeta(lngPos));
    }
    return {};
}
