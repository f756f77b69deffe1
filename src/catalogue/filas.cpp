#include "catalogue/filas.h"

#include "shared/fecha.h"
#include "shared/numeros.h"
#include "shared/rutas.h"
#include "shared/texto.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <optional>

namespace {

/// The six numbers of a date text: where each starts, its digits, and its bits in the packed date.
/// The year comes first, in the highest bits, so that packed dates order as their texts do.
struct clsParte {
    std::size_t lngPos;
    int intCifras;
    unsigned intBits;
    char chrDespues; ///< what stands behind it
};
constexpr clsParte lstPartes[] = {
    {0,  4, 14, '/' },
    {5,  2, 4,  '/' },
    {8,  2, 5,  ' ' },
    {11, 2, 5,  ':' },
    {14, 2, 6,  ':' },
    {17, 2, 6,  '\0'}
};
constexpr std::size_t lngLargoFecha = 19;

/// A date text "nnnn/nn/nn nn:nn:nn" in 40 bits; nothing when the text has another form, or a
/// number that its bits do not hold (which no date has).
std::optional<std::uint64_t> fEmpaquetar(std::string_view strFecha)
{
    if (strFecha.size() != lngLargoFecha) {
        return {};
    }
    std::uint64_t lngFecha = 0;
    for (const clsParte &parte : lstPartes) {
        const char *chr = strFecha.data() + parte.lngPos;
        unsigned intNumero = 0;
        for (int intCifra = 0; intCifra < parte.intCifras; ++intCifra) {
            const unsigned intValor = static_cast<unsigned char>(*chr++) - unsigned{'0'};
            if (intValor > 9) {
                return {};
            }
            intNumero = intNumero * 10 + intValor;
        }
        if (intNumero >> parte.intBits != 0 ||
            (parte.chrDespues != 0 && *chr != parte.chrDespues)) {
            return {};
        }
        lngFecha = lngFecha << parte.intBits | intNumero;
    }
    return lngFecha;
}

/// A date in the same bits, without its text.
std::uint64_t fEmpaquetar(clsFecha fecha)
{
    const clsPartesFecha partes = fPartes(fecha);
    const int lstNumeros[] = {partes.intAno,  partes.intMes,    partes.intDia,
                              partes.intHora, partes.intMinuto, partes.intSegundo};
    std::uint64_t lngFecha = 0;
    for (std::size_t lng = 0; lng < std::size(lstPartes); ++lng) {
        lngFecha = lngFecha << lstPartes[lng].intBits | static_cast<std::uint64_t>(lstNumeros[lng]);
    }
    return lngFecha;
}

std::string fDesempaquetar(std::uint64_t lngFecha)
{
    std::string strFecha = "nnnn/nn/nn nn:nn:nn";
    for (auto parte = std::rbegin(lstPartes); parte != std::rend(lstPartes); ++parte) {
        std::uint64_t lngNumero = lngFecha & ((std::uint64_t{1} << parte->intBits) - 1);
        lngFecha >>= parte->intBits;
        for (int intCifra = parte->intCifras; intCifra-- > 0; lngNumero /= 10) {
            strFecha[parte->lngPos + static_cast<std::size_t>(intCifra)] =
                static_cast<char>('0' + lngNumero % 10);
        }
    }
    return strFecha;
}

/// The day of a packed date, as clsFilas::fDia gives it.
/// @param lngConocido a day that is known to be real, or 0: files of a folder often share theirs.
std::uint32_t fDiaReal(std::uint64_t lngFecha, std::uint32_t lngConocido)
{
    const auto fBits = [lngFecha](unsigned intDesde, unsigned intBits) {
        return static_cast<int>(lngFecha >> intDesde & ((1U << intBits) - 1));
    };
    const auto lngDia = static_cast<std::uint32_t>(lngFecha >> 17);
    clsPartesFecha partes{0, 0, 0, fBits(12, 5), fBits(6, 6), fBits(0, 6)};
    if (lngDia == lngConocido && partes.intHora < 24 && partes.intMinuto < 60 &&
        partes.intSegundo < 60) {
        return lngDia;
    }
    partes.intAno = fBits(26, 14);
    partes.intMes = fBits(22, 4);
    partes.intDia = fBits(17, 5);
    return fFechaDe(partes) ? lngDia : 0;
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
    // A date of another form lies behind the name; its length stands in place of the packed date.
    return m_strTextos.substr(fila.lngTexto + fila.lngNombre, fila.lngFecha & ~lngFechaTexto);
}

std::string_view clsFilas::fNombre(int lngPos) const { return fTextoNombre(fNumero(lngPos)); }

std::string_view clsFilas::fCarpeta(int lngPos) const
{
    return m_lstCarpetas[m_lstCarpetaDe[fNumero(lngPos)]];
}

std::string clsFilas::fRuta(int lngPos) const
{
    return std::string(fCarpeta(lngPos)).append(fNombre(lngPos));
}

std::string clsFilas::fFecha(int lngPos) const { return fTextoFecha(fNumero(lngPos)); }

std::int64_t clsFilas::fTamano(int lngPos) const { return m_lstFilas[fNumero(lngPos)].lngBytes; }

bool clsFilas::fMarcada(int lngPos) const { return m_lstMarcas[fNumero(lngPos)]; }

void clsFilas::fMarcar(int lngPos, bool bolMarca) { m_lstMarcas[fNumero(lngPos)] = bolMarca; }

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
        if (m_lstCarpetaDe[fNumero(lngPos)] == itCarpeta->second && fNombre(lngPos) == strNombre) {
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

void clsFilas::fReservar(std::size_t lngFilas, std::size_t lngBytesTexto)
{
    m_strTextos.reserve(m_strTextos.size() + lngBytesTexto);
    m_lstFilas.reserve(m_lstFilas.size() + lngFilas);
    m_lstCarpetaDe.reserve(m_lstCarpetaDe.size() + lngFilas);
    m_lstDias.reserve(m_lstDias.size() + lngFilas);
    m_lstOrden.reserve(m_lstOrden.size() + lngFilas);
    m_lstMarcas.reserve(m_lstMarcas.size() + lngFilas);
}

std::uint32_t clsFilas::fNumeroCarpeta(std::string_view strCarpeta)
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
        fNumeroCarpeta(strRuta.substr(0, strRuta.size() - strNombre.size()));
    const std::uint64_t lngTexto = m_strTextos.size();
    m_strTextos.append(strNombre);
    const auto lngPartes = fEmpaquetar(strFecha);
    const std::uint64_t lngFecha = lngPartes ? *lngPartes : lngFechaTexto | strFecha.size();
    if (!lngPartes) {
        m_strTextos.append(strFecha);
    }
    m_lstOrden.push_back(static_cast<std::uint32_t>(m_lstFilas.size()));
    m_lstFilas.push_back(
        {lngTexto, lngFecha, lngBytes, static_cast<std::uint32_t>(strNombre.size())});
    m_lstCarpetaDe.push_back(lngCarpeta);
    const auto lngReal = lngPartes ? lngPartes : fEmpaquetar(fSinBlancos(strFecha));
    const std::uint32_t lngAnterior = m_lstDias.empty() ? 0 : m_lstDias.back();
    m_lstDias.push_back(lngReal ? fDiaReal(*lngReal, lngAnterior) : 0);
    m_lstMarcas.push_back(false);
    ++m_lngRevision;
}

void clsFilas::fConservar(const std::vector<clsConservada> &lstConservadas)
{
    std::vector<clsFila> lstFilas;
    std::vector<std::uint32_t> lstCarpetaDe;
    std::vector<std::uint32_t> lstDias;
    lstFilas.reserve(lstConservadas.size());
    lstCarpetaDe.reserve(lstConservadas.size());
    lstDias.reserve(lstConservadas.size());
    for (const clsConservada &conservada : lstConservadas) {
        const std::uint32_t lngFila = fNumero(conservada.lngPos);
        clsFila &fila = lstFilas.emplace_back(m_lstFilas[lngFila]);
        lstCarpetaDe.push_back(m_lstCarpetaDe[lngFila]);
        lstDias.push_back(m_lstDias[lngFila]);
        if (conservada.lngBytes >= 0) {
            fila.lngFecha = fEmpaquetar(conservada.fecha);
            fila.lngBytes = conservada.lngBytes;
            lstDias.back() = fDiaReal(fila.lngFecha, lstDias.back());
        }
    }
    m_lstFilas = std::move(lstFilas);
    m_lstCarpetaDe = std::move(lstCarpetaDe);
    m_lstDias = std::move(lstDias);
    m_lstOrden.resize(m_lstFilas.size());
    m_lstOrden.shrink_to_fit();
    std::iota(m_lstOrden.begin(), m_lstOrden.end(), 0U);
    m_lstMarcas.assign(m_lstFilas.size(), false);
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
