#include "catalogue/filas.h"

#include "shared/numeros.h"
#include "shared/rutas.h"
#include "shared/texto.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::string_view strFormaFecha = "nnnn/nn/nn nn:nn:nn";
constexpr std::uint64_t lngFechaTexto = std::uint64_t{1} << 63;

/// The fourteen digits of a date text as one number; nothing when the text has another form.
std::optional<std::uint64_t> fEmpaquetar(std::string_view strFecha)
{
    if (strFecha.size() != strFormaFecha.size()) {
        return {};
    }
    std::uint64_t lngCifras = 0;
    for (std::size_t lng = 0; lng < strFormaFecha.size(); ++lng) {
        const unsigned intCifra = static_cast<unsigned char>(strFecha[lng]) - unsigned{'0'};
        if (strFormaFecha[lng] == 'n') {
            if (intCifra > 9) {
                return {};
            }
            lngCifras = lngCifras * 10 + intCifra;
        } else if (strFecha[lng] != strFormaFecha[lng]) {
            return {};
        }
    }
    return lngCifras;
}

std::string fDesempaquetar(std::uint64_t lngCifras)
{
    std::string strFecha(strFormaFecha);
    for (std::size_t lng = strFecha.size(); lng-- > 0;) {
        if (strFecha[lng] == 'n') {
            strFecha[lng] = static_cast<char>('0' + lngCifras % 10);
            lngCifras /= 10;
        }
    }
    return strFecha;
}

} // namespace

std::string_view clsFilas::fTextoNombre(std::uint32_t lngFila) const
{
    const clsFila &fila = m_lstFilas[lngFila];
    return std::string_view(m_strTextos).substr(fila.lngTexto, fila.lngNombre);
}

std::string clsFilas::fTextoFecha(std::uint32_t lngFila) const
{
    const clsFila &fila = m_lstFilas[lngFila];
    if ((fila.lngFecha & lngFechaTexto) == 0) {
        return fDesempaquetar(fila.lngFecha);
    }
    // A date of another form lies behind the name, ended by a zero byte.
    return m_strTextos.c_str() + (fila.lngFecha & ~lngFechaTexto);
}

std::string_view clsFilas::fNombre(int lngPos) const
{
    return fTextoNombre(m_lstOrden[static_cast<std::size_t>(lngPos)]);
}

std::string_view clsFilas::fCarpeta(int lngPos) const
{
    return m_lstCarpetas[fFila(lngPos).lngCarpeta];
}

std::string clsFilas::fRuta(int lngPos) const
{
    return std::string(fCarpeta(lngPos)).append(fNombre(lngPos));
}

std::string clsFilas::fFecha(int lngPos) const
{
    return fTextoFecha(m_lstOrden[static_cast<std::size_t>(lngPos)]);
}

std::int64_t clsFilas::fTamano(int lngPos) const { return fFila(lngPos).lngBytes; }

bool clsFilas::fMarcada(int lngPos) const
{
    return m_lstMarcas[m_lstOrden[static_cast<std::size_t>(lngPos)]];
}

void clsFilas::fMarcar(int lngPos, bool bolMarca)
{
    m_lstMarcas[m_lstOrden[static_cast<std::size_t>(lngPos)]] = bolMarca;
}

int clsFilas::fContarMarcados() const
{
    return static_cast<int>(std::count(m_lstMarcas.begin(), m_lstMarcas.end(), true));
}

int clsFilas::fBuscarRuta(std::string_view strRuta) const
{
    const auto itCarpeta = m_mapCarpetas.find(std::string(fCarpetaDe(strRuta)));
    if (itCarpeta == m_mapCarpetas.end()) {
        return -1;
    }
    const std::string_view strNombre = fNombreDe(strRuta);
    for (int lngPos = fCantidad() - 1; lngPos >= 0; --lngPos) {
        if (fFila(lngPos).lngCarpeta == itCarpeta->second && fNombre(lngPos) == strNombre) {
            return lngPos;
        }
    }
    return -1;
}

void clsFilas::fVaciar()
{
    const std::uint64_t lngRevision = m_lngRevision;
    *this = clsFilas();
    m_lngRevision = lngRevision + 1;
}

void clsFilas::fReservar(std::size_t lngBytesTexto) { m_strTextos.reserve(lngBytesTexto); }

std::uint32_t clsFilas::fNumeroCarpeta(std::string_view strCarpeta)
{
    // Files of one folder follow each other in the catalogue.
    if (!m_lstFilas.empty() && m_lstCarpetas[m_lstFilas.back().lngCarpeta] == strCarpeta) {
        return m_lstFilas.back().lngCarpeta;
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
    const std::uint32_t lngCarpeta = fNumeroCarpeta(fCarpetaDe(strRuta));
    const std::uint64_t lngTexto = m_strTextos.size();
    m_strTextos.append(strNombre);
    const auto lngCifras = fEmpaquetar(strFecha);
    const std::uint64_t lngFecha = lngCifras ? *lngCifras : lngFechaTexto | m_strTextos.size();
    if (!lngCifras) {
        m_strTextos.append(strFecha).push_back('\0');
    }
    m_lstOrden.push_back(static_cast<std::uint32_t>(m_lstFilas.size()));
    m_lstFilas.push_back(
        {lngTexto, lngFecha, lngBytes, static_cast<std::uint32_t>(strNombre.size()), lngCarpeta});
    m_lstMarcas.push_back(false);
    ++m_lngRevision;
}

clsFilas::clsClave clsFilas::fClave(std::uint32_t lngFila) const
{
    const clsFila &fila = m_lstFilas[lngFila];
    return {fila.lngFecha, (fila.lngFecha & lngFechaTexto) == 0, fila.lngBytes, fila.lngCarpeta};
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
