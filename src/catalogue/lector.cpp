#include "catalogue/lector.h"

#include "shared/medios.h"
#include "shared/numeros.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/archivo.h"

#include <algorithm>
#include <array>

namespace {

/// Turns the lines of records into rows.
class clsRellenador {
public:
    clsRellenador(std::string_view strExtensiones, clsFilas &filas, const clsMudanza &mudanza,
                  std::string_view strContadas)
        : m_strExtensiones(strExtensiones), m_strContadas(strContadas), m_filas(filas),
          m_mudanza(mudanza)
    {
    }
    /// @return whether reading goes on.
    [[nodiscard]] bool fTomar(const clsRegistro &registro)
    {
        const std::string_view strRuta = registro.lstLineas[0].strTexto;
        if (!fExtensionEn(strRuta, m_strExtensiones)) {
            const bool bolCuenta = fExtensionEn(strRuta, m_strContadas) && !fRutaOculta(strRuta);
            m_lectura.lngContados += bolCuenta ? 1 : 0;
            m_lngLinea += static_cast<std::int64_t>(registro.lngLineas);
            return true;
        }
        for (std::size_t lng = 0; lng < registro.lngLineas && !m_lectura.fallo; ++lng) {
            ++m_lngLinea;
            fLinea(registro.lstLineas[lng].strTexto);
        }
        // The texts that wait for those of later records.
        for (std::size_t lng = 0; lng < m_lngHueco; ++lng) {
            m_lstConservados[lng] = std::string(m_lstHuecos[lng]);
            m_lstHuecos[lng] = m_lstConservados[lng];
        }
        return !m_lectura.fallo;
    }

    [[nodiscard]] clsLectura fLectura()
    {
        m_lectura.lngTotalKB = m_lngTotal / 1024;
        return m_lectura;
    }

private:
    void fLinea(std::string_view strLinea)
    {
        if (strLinea.empty()) {
            return;
        }
        m_lstHuecos[m_lngHueco++] = strLinea;
        if (m_lngHueco == m_lstHuecos.size()) {
            m_lngHueco = 0;
            fFila();
        }
    }

    void fFila()
    {
        if (m_mudanza.fHay()) {
            m_lstHuecos[0] = m_strMudada = m_mudanza.fRuta(m_lstHuecos[0]);
        }
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

    const std::string_view m_strExtensiones;
    const std::string_view m_strContadas;
    clsFilas &m_filas;
    const clsMudanza &m_mudanza;
    clsLectura m_lectura;
    std::int64_t m_lngTotal = 0;
    std::int64_t m_lngLinea = 0;
    // Kept texts fill path, date and size in turn. An empty text leaves its slot empty, so that the
    // next text takes its place.
    std::array<std::string_view, 3> m_lstHuecos;
    std::size_t m_lngHueco = 0;
    std::string m_strMudada;                     ///< the path taken over
    std::array<std::string, 3> m_lstConservados; ///< texts that outlive their record
};

} // namespace

clsLectura fLeerCatalogo(clsRegistros &registros, std::string_view strExtensiones, clsFilas &filas,
                         const clsMudanza &mudanza, std::string_view strContadas)
{
    clsRellenador rellenador(strExtensiones, filas, mudanza, strContadas);
    const clsRegistro *registro = registros.fSiguiente();
    while (registro != nullptr && rellenador.fTomar(*registro)) {
        registro = registros.fSiguiente();
    }
    return rellenador.fLectura();
}

clsResultado<clsLectura> fLeerFicheroCatalogo(const std::string &strRuta,
                                              std::string_view strExtensiones, clsFilas &filas,
                                              const clsMudanza &mudanza,
                                              std::string_view strContadas)
{
    const auto archivo = fAbrirRegular(strRuta, false);
    if (!archivo) {
        return archivo.fError();
    }
    // Room for the rows. Records are seldom shorter; where they are, the lists grow as usual.
    constexpr std::int64_t lngRegistroCorto = 56;
    constexpr std::size_t lngNombreCorto = 12;
    constexpr std::int64_t lngMaximas = 1 << 20; // the length may be that of a hole
    const auto lngFilas =
        static_cast<std::size_t>(std::min(archivo->huella.lngBytes / lngRegistroCorto, lngMaximas));
    filas.fReservar(lngFilas, lngFilas * lngNombreCorto);
    clsRegistros registros(fBytesDe(archivo->descriptor));
    const clsLectura lectura =
        fLeerCatalogo(registros, strExtensiones, filas, mudanza, strContadas);
    if (registros.fError()) {
        return registros.fError();
    }
    return lectura;
}
