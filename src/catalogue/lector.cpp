#include "catalogue/lector.h"

#include "shared/medios.h"
#include "shared/numeros.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/archivo.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <unistd.h>
#include <vector>

namespace {

/// Turns the lines of a catalogue into rows. The bytes come in one or more blocks.
class clsLector {
public:
    clsLector(std::string_view strExtensiones, clsFilas &filas)
        : m_strExtensiones(strExtensiones), m_filas(filas)
    {
    }
    /// Makes room for the rows of a catalogue of that many bytes.
    void fReservar(std::size_t lngBytes);
    /// Reads the whole lines at the start of a block; the last block ends with a whole line anyway.
    /// @return bytes read. What follows them must come again at the start of the next block.
    std::size_t fBloque(std::string_view strBytes, bool bolUltimo);
    [[nodiscard]] bool fSigue() const { return !m_lectura.fallo; }
    [[nodiscard]] clsLectura fLectura() const;

private:
    void fLinea(std::string_view strLinea);
    void fRegistro();
    void fConservarHuecos();

    const std::string_view m_strExtensiones;
    clsFilas &m_filas;
    clsLectura m_lectura;
    std::int64_t m_lngTotal = 0;
    std::int64_t m_lngLinea = 0;
    bool m_bolGuardar = false;
    // Kept texts fill path, date and size in turn. An empty text leaves its slot empty, so that the
    // next text takes its place.
    std::array<std::string_view, 3> m_lstHuecos;
    std::size_t m_lngHueco = 0;
    std::array<std::string, 3> m_lstConservados; ///< texts that outlive their block
};

void clsLector::fReservar(std::size_t lngBytes)
{
    // Paths are seldom shorter than this; where they are, the lists grow as usual.
    constexpr std::size_t lngRegistroCorto = 56;
    constexpr std::size_t lngNombreCorto = 12;
    const std::size_t lngFilas = lngBytes / lngRegistroCorto;
    m_filas.fReservar(lngFilas, lngFilas * lngNombreCorto);
}

std::size_t clsLector::fBloque(std::string_view strBytes, bool bolUltimo)
{
    const char *chrDesde = strBytes.data();
    const char *const chrFin = chrDesde + strBytes.size();
    while (chrDesde != chrFin && fSigue()) {
        const auto lngQuedan = static_cast<std::size_t>(chrFin - chrDesde);
        const void *const pos = std::memchr(chrDesde, '\n', lngQuedan);
        if (pos == nullptr && !bolUltimo) {
            break;
        }
        const char *const chrSalto = pos == nullptr ? chrFin : static_cast<const char *>(pos);
        const bool bolRetorno = chrSalto != chrDesde && chrSalto[-1] == '\r';
        fLinea({chrDesde, static_cast<std::size_t>(chrSalto - chrDesde) - (bolRetorno ? 1 : 0)});
        chrDesde = pos == nullptr ? chrFin : chrSalto + 1;
    }
    fConservarHuecos();
    return static_cast<std::size_t>(chrDesde - strBytes.data());
}

void clsLector::fLinea(std::string_view strLinea)
{
    if (m_lngLinea++ % 3 == 0) {
        m_bolGuardar = fExtensionEn(strLinea, m_strExtensiones);
    }
    if (!m_bolGuardar || strLinea.empty()) {
        return;
    }
    m_lstHuecos[m_lngHueco++] = strLinea;
    if (m_lngHueco == m_lstHuecos.size()) {
        m_lngHueco = 0;
        fRegistro();
    }
}

void clsLector::fRegistro()
{
    if (fRutaOculta(m_lstHuecos[0])) {
        return;
    }
    const auto lngBytes = fLeerTamano(m_lstHuecos[2]);
    if (!lngBytes) {
        m_lectura.fallo = clsFallo{m_lngLinea, fTextoPantalla(m_lstHuecos[2])};
        return;
    }
    m_filas.fAgregarFila(m_lstHuecos[0], m_lstHuecos[1], *lngBytes);
    // Sums of sizes that nobody's disk holds stop at the limit instead of wrapping.
    if (__builtin_add_overflow(m_lngTotal, *lngBytes, &m_lngTotal)) {
        m_lngTotal = *lngBytes < 0 ? INT64_MIN : INT64_MAX;
    }
}

/// Copies the texts of a record that goes on in the next block.
void clsLector::fConservarHuecos()
{
    for (std::size_t lng = 0; lng < m_lngHueco; ++lng) {
        m_lstConservados[lng] = std::string(m_lstHuecos[lng]);
        m_lstHuecos[lng] = m_lstConservados[lng];
    }
}

clsLectura clsLector::fLectura() const
{
    clsLectura lectura = m_lectura;
    lectura.lngTotalKB = m_lngTotal / 1024;
    return lectura;
}

} // namespace

clsLectura fLeerCatalogo(std::string_view strBytes, std::string_view strExtensiones,
                         clsFilas &filas)
{
    clsLector lector(strExtensiones, filas);
    lector.fReservar(strBytes.size());
    lector.fBloque(strBytes, true);
    return lector.fLectura();
}

std::optional<clsLectura> fLeerFicheroCatalogo(const std::string &strRuta,
                                               std::string_view strExtensiones, clsFilas &filas,
                                               int &intError)
{
    clsHuella huella;
    const clsDescriptor archivo = fAbrirRegular(strRuta, intError, &huella);
    if (!archivo.fAbierto()) {
        return {};
    }
    clsLector lector(strExtensiones, filas);
    lector.fReservar(static_cast<std::size_t>(huella.lngBytes));
    // Small enough to stay in the processor's cache between reading and parsing.
    std::vector<char> lstBloque(1 << 18);
    std::size_t lngLlenos = 0;
    bool bolUltimo = false;
    while (!bolUltimo && lector.fSigue()) {
        if (lngLlenos == lstBloque.size()) {
            lstBloque.resize(lstBloque.size() * 2); // a line longer than the block
        }
        const ssize_t lngLeidos =
            read(archivo.fFd(), lstBloque.data() + lngLlenos, lstBloque.size() - lngLlenos);
        if (lngLeidos < 0 && errno != EINTR) {
            intError = errno;
            return {};
        }
        bolUltimo = lngLeidos == 0;
        lngLlenos += static_cast<std::size_t>(std::max<ssize_t>(lngLeidos, 0));
        const std::size_t lngUsados = lector.fBloque({lstBloque.data(), lngLlenos}, bolUltimo);
        std::memmove(lstBloque.data(), lstBloque.data() + lngUsados, lngLlenos - lngUsados);
        lngLlenos -= lngUsados;
    }
    return lector.fLectura();
}
