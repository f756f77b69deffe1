#include "catalogue/registro.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <iterator>

namespace {

/// A line with its end.
clsLinea fLinea(std::string_view strLinea)
{
    const bool bolDoble = strLinea.ends_with("\r\n");
    const bool bolFin = strLinea.ends_with('\n') || strLinea.ends_with('\r');
    const std::size_t lngTexto = strLinea.size() - (bolDoble ? 2 : bolFin ? 1 : 0);
    return {strLinea.substr(0, lngTexto), strLinea.substr(lngTexto)};
}

/// Whether it cannot be what a catalogue holds, records being short.
bool fDanado(std::string_view strBytes)
{
    constexpr std::size_t lngMaximo = std::size_t{16} << 20;
    constexpr std::size_t lngHueco = std::size_t{1} << 20;
    return strBytes.size() > lngMaximo ||
           (strBytes.size() >= lngHueco &&
            std::search_n(strBytes.begin(), strBytes.end(), lngHueco, '\0') != strBytes.end());
}

} // namespace

void fAnadirRegistro(std::string &strCatalogo, std::string_view strCarpeta,
                     std::string_view strNombre, clsFecha fecha, std::int64_t lngBytes)
{
    const std::size_t lngInicio = strCatalogo.size();
    strCatalogo.append(strCarpeta).append(strNombre);
    // A line end inside a name would shift every later record. The file shows as missing instead.
    char *const chrRuta = strCatalogo.data() + lngInicio;
    std::transform(chrRuta, strCatalogo.data() + strCatalogo.size(), chrRuta,
                   [](char chr) { return chr == '\r' || chr == '\n' ? '?' : chr; });
    // Date and size in place: a hundred thousand files are written here while their disk waits.
    char chrResto[] = "\r\nyyyy/MM/dd HH:mm:ss\r\n -9223372036854775808 \r\n";
    fEscribirFecha(fecha, strFormaCatalogo, chrResto + 2);
    char *const chrTamano = chrResto + 2 + strFormaCatalogo.size() + 3;
    char *const chrFin = std::to_chars(chrTamano, std::end(chrResto), lngBytes).ptr;
    strCatalogo.append(chrResto, chrFin).append(" \r\n");
}

clsSurtidor fBytesDe(const clsDescriptor &archivo)
{
    return [&archivo](char *chrDestino, std::size_t lngBytes) {
        return fLeer(archivo, chrDestino, lngBytes);
    };
}

const clsRegistro *clsRegistros::fSiguiente()
{
    m_lngDesde += m_registro.strBytes.size();
    while (!fCortar()) {
        fRellenar();
    }
    return m_registro.lngLineas > 0 && !m_error ? &m_registro : nullptr;
}

/// Cuts the next record; false when more bytes are needed for that.
bool clsRegistros::fCortar()
{
    const char *const chrInicio = m_lstBloque.data() + m_lngDesde;
    const char *const chrFin = m_lstBloque.data() + m_lngHasta;
    const char *chrDesde = chrInicio;
    m_registro.lngLineas = 0;
    for (clsLinea &linea : m_registro.lstLineas) {
        const auto lngQuedan = static_cast<std::size_t>(chrFin - chrDesde);
        const void *const pos = std::memchr(chrDesde, '\n', lngQuedan);
        if (pos == nullptr && !m_bolFin) {
            return false;
        }
        if (lngQuedan == 0) {
            break;
        }
        const char *const chrHasta = pos == nullptr ? chrFin : static_cast<const char *>(pos) + 1;
        linea = fLinea({chrDesde, chrHasta});
        ++m_registro.lngLineas;
        chrDesde = chrHasta;
    }
    m_registro.strBytes = {chrInicio, chrDesde};
    return true;
}

/// Reads more bytes behind those that were not cut yet.
void clsRegistros::fRellenar()
{
    m_lngHasta -= m_lngDesde;
    std::memmove(m_lstBloque.data(), m_lstBloque.data() + m_lngDesde, m_lngHasta);
    m_lngDesde = 0;
    if (m_lngHasta == m_lstBloque.size()) {
        m_lstBloque.resize(m_lstBloque.size() * 2); // a record longer than the block
    }
    const auto lngLeidos =
        m_fSurtir(m_lstBloque.data() + m_lngHasta, m_lstBloque.size() - m_lngHasta);
    m_bolFin = lngLeidos.value_or(0) == 0;
    m_error = lngLeidos.fError();
    m_lngHasta += lngLeidos.value_or(0);
    if (fDanado({m_lstBloque.data(), m_lngHasta})) {
        m_error = clsError(EBADMSG);
        m_bolFin = true;
    }
}
