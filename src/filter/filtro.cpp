#include "filter/filtro.h"

#include "shared/medios.h"
#include "shared/ritmo.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/archivo.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace {

constexpr std::size_t lngBloques = 32; // looked up ahead

unsigned char fByte(char chr) { return static_cast<unsigned char>(chr); }

/// The capitals of Latin-1 from U+00C0 on: their letters, and the second byte of the mark (in
/// UTF-8; the first is CC) that makes each of its letter. Blank where a capital is made of no two.
constexpr std::string_view strLetras = "AAAAAA CEEEEIIII NOOOOO  UUUUY";
constexpr std::string_view strMarcas =
    "\x80\x81\x82\x83\x88\x8A \xA7\x80\x81\x82\x88\x80\x81\x82\x88 \x83\x80\x81\x82\x83\x88  "
    "\x80\x81\x82\x88\x81";

/// The second byte of the capital (after C3) that a letter makes with a mark; 0 when there is none
/// in Latin-1.
unsigned char fComponer(char chrLetra, char chrMarca)
{
    std::size_t lng = 0;
    while (lng < strLetras.size() && (strLetras[lng] != chrLetra || strMarcas[lng] != chrMarca)) {
        ++lng;
    }
    return static_cast<unsigned char>(lng < strLetras.size() ? 0x80 + lng : 0);
}

/// The second byte of a capital after C2 or C3; 0 where that is no letter of Latin-1: sharp s, y
/// with diaeresis, micro sign.
unsigned char fCapital(unsigned char bytPrimero, unsigned char byt)
{
    if (bytPrimero == 0xC2) {
        return byt == 0xB5 ? 0 : byt;
    }
    if (byt == 0x9F || byt == 0xBF) {
        return 0;
    }
    return static_cast<unsigned char>(byt >= 0xA0 && byt != 0xB7 ? byt - 0x20
                                                                 : byt); // B7: division
}

/// A to Z for a to z from lngInicio on.
/// @return whether all is ASCII.
bool fMayusculasDesde(std::string &strTexto, std::size_t lngInicio)
{
    unsigned char bytTodos = 0;
    for (std::size_t lng = lngInicio; lng < strTexto.size(); ++lng) {
        const unsigned char byt = fByte(strTexto[lng]);
        bytTodos |= byt;
        strTexto[lng] = static_cast<char>(byt >= 'a' && byt <= 'z' ? byt - 0x20 : byt);
    }
    return bytTodos < 0x80;
}

/// Appends a text in capitals and composed, as long as that gives nothing but ASCII and Latin-1:
/// nearly all names, without a call.
/// @return whether it did; else strSalida ends somewhere in the text.
bool fMayusculasLatin1(std::string_view strUtf8, std::string &strSalida)
{
    const std::size_t lngInicio = strSalida.size();
    strSalida.append(strUtf8);
    if (fMayusculasDesde(strSalida, lngInicio)) {
        return true;
    }
    std::size_t lngFin = lngInicio; // what is composed is shorter
    for (std::size_t lng = lngInicio; lng < strSalida.size(); ++lng) {
        const unsigned char bytPrimero = fByte(strSalida[lng]);
        if (bytPrimero < 0x80) {
            strSalida[lngFin++] = strSalida[lng];
            continue;
        }
        const unsigned char byt = ++lng < strSalida.size() ? fByte(strSalida[lng]) : 0;
        unsigned char bytSegundo = 0;
        if (bytPrimero == 0xC2 || bytPrimero == 0xC3) {
            bytSegundo = fCapital(bytPrimero, byt);
            strSalida[lngFin++] = static_cast<char>(bytPrimero);
        } else if (bytPrimero == 0xCC && lngFin > lngInicio) {
            bytSegundo = fComponer(strSalida[lngFin - 1], static_cast<char>(byt));
            strSalida[lngFin - 1] = '\xC3';
        }
        if (bytSegundo == 0) {
            return false;
        }
        strSalida[lngFin++] = static_cast<char>(bytSegundo);
    }
    strSalida.resize(lngFin);
    return true;
}

/// Characters cut off a name: its dot and its extension, which has three letters, or is no
/// matter of ours.
int fCorte(std::string_view strNombre, bool bolFormatos)
{
    return bolFormatos && fEsOtroFormato(strNombre)
               ? static_cast<int>(fExtensionDe(strNombre).size()) + 1
               : 4;
}

/// The text without its last characters (code points), all of it when there are fewer.
/// @param intCaracteres how many; what could not be cut remains in it.
std::string_view fCortar(std::string_view strUtf8, int &intCaracteres)
{
    while (intCaracteres > 0 && !strUtf8.empty()) {
        const bool bolPrimero = (fByte(strUtf8.back()) & 0xC0) != 0x80;
        strUtf8.remove_suffix(1);
        intCaracteres -= bolPrimero ? 1 : 0;
    }
    return strUtf8;
}

/// A text for the screen; copied into strHueco only when it is not that already.
std::string_view fDescifrar(std::string_view strBytes, std::string &strHueco)
{
    if (fEsUtf8(strBytes)) {
        return strBytes;
    }
    strHueco = fTextoPantalla(strBytes);
    return strHueco;
}

/// A row whose file is looked up.
struct clsMirada {
    int lngPos;
    std::string strRuta;
    std::optional<clsHuella> huella{};
};
/// Those that one piece of work looks up, one after the other.
using clsBloque = std::vector<clsMirada>;
/// One run of the filter through the rows.
class clsPasada {
public:
    clsPasada(const clsFilas &filas, const clsFiltro &filtro, const clsMayusculas &fMayusculas,
              const clsPasoFiltro &fPaso)
        : m_filas(filas), m_filtro(filtro), m_texto(filtro, fMayusculas), m_fPaso(fPaso),
          m_lngRevision(filas.fRevision())
    {
    }

    std::optional<clsFiltrado> fHacer(int intHilos)
    {
        clsHilos hilos({.intHilos = intHilos, .bolEnOrden = true});
        while (fQuedanFilas() || hilos.fPendientes() > 0) {
            while (fQuedanFilas() && hilos.fPendientes() < lngBloques) {
                auto bloque = std::make_shared<clsBloque>();
                if (!fLlenar(*bloque)) {
                    return std::nullopt;
                }
                hilos.fPedir(
                    [bloque] {
                        for (clsMirada &mirada : *bloque) {
                            mirada.huella = fHuella(mirada.strRuta);
                        }
                        return bloque;
                    },
                    [this](const std::shared_ptr<clsBloque> &mirado) {
                        for (const clsMirada &mirada : *mirado) {
                            fRecoger(mirada);
                        }
                    });
            }
            if (!fSeguir()) {
                return std::nullopt;
            }
            hilos.fAtender(pausaRitmo);
        }
        m_filtrado.lngTotalKB = m_lngTotal / 1024;
        return std::move(m_filtrado);
    }

private:
    [[nodiscard]] bool fQuedanFilas() const { return m_lngSiguiente < m_filas.fCantidad(); }

    /// Lets the caller do something now and then; false: no longer wanted.
    [[nodiscard]] bool fSeguir()
    {
        return m_ritmo.fSeguir(
            [this] { return m_fPaso(m_lngSiguiente) && m_filas.fRevision() == m_lngRevision; });
    }

    /// Gathers the next rows that have not failed by their names; false: no longer wanted.
    [[nodiscard]] bool fLlenar(clsBloque &bloque)
    {
        constexpr int lngEntreMiradas = 64; // rows between two looks at the clock
        // Small blocks where there are few rows, so that every worker has some; large ones cost
        // less.
        const auto lngPorBloque =
            static_cast<std::size_t>(std::clamp(m_filas.fCantidad() / 64, 8, 256));
        for (; fQuedanFilas() && bloque.size() < lngPorBloque; ++m_lngSiguiente) {
            if (m_lngSiguiente % lngEntreMiradas == 0 && !fSeguir()) {
                return false;
            }
            if (m_filtro.bolFechas || m_texto.fPasa(m_filas, m_lngSiguiente)) {
                bloque.push_back({m_lngSiguiente, m_filas.fRutaDisco(m_lngSiguiente)});
            }
        }
        return true;
    }

    void fRecoger(const clsMirada &mirada)
    {
        const auto &huella = mirada.huella;
        clsConservada conservada{mirada.lngPos, -1, {}};
        if (huella) {
            conservada.lngBytes = huella->lngBytes;
            conservada.fecha = fFechaLocal(huella->lngSegundos);
        }
        // Deliberate: both ends are midnights, so that of the last day only the files stamped
        // exactly at its midnight pass.
        if (m_filtro.bolFechas && (!huella || conservada.fecha < m_filtro.datDesde ||
                                   conservada.fecha > m_filtro.datHasta)) {
            return;
        }
        m_lngTotal += huella ? huella->lngBytes : m_filas.fTamano(mirada.lngPos);
        m_filtrado.lstFilas.push_back(conservada);
    }

    const clsFilas &m_filas;
    const clsFiltro &m_filtro;
    clsBuscaTexto m_texto;
    const clsPasoFiltro &m_fPaso;
    const std::uint64_t m_lngRevision;
    clsRitmo m_ritmo;
    clsFiltrado m_filtrado;
    std::int64_t m_lngTotal = 0; ///< bytes
    int m_lngSiguiente = 0;
};

} // namespace

clsBuscaTexto::clsBuscaTexto(const clsFiltro &filtro, clsMayusculas fMayusculas)
    : m_fMayusculas(std::move(fMayusculas)), m_filtro(filtro)
{
    m_filtro.lstPalabras.clear();
    for (const std::string &strPalabra : filtro.lstPalabras) {
        fAnadir(m_filtro.lstPalabras.emplace_back(), fSinBlancos(strPalabra));
    }
}

/// Appends a UTF-8 text, in capitals and composed.
void clsBuscaTexto::fAnadir(std::string &strSujeto, std::string_view strUtf8) const
{
    const std::size_t lngInicio = strSujeto.size();
    if (!fMayusculasLatin1(strUtf8, strSujeto)) {
        strSujeto.resize(lngInicio);
        strSujeto.append(m_fMayusculas(strUtf8));
    }
}

/// The folder of a row, prepared once for all its files.
const std::string &clsBuscaTexto::fCarpeta(const clsFilas &filas, int lngPos)
{
    const std::uint32_t lngFila = filas.fOrden()[static_cast<std::size_t>(lngPos)];
    const std::uint32_t lngCarpeta = filas.fNumeroCarpeta(lngFila);
    if (m_lstCarpetas.size() <= lngCarpeta) {
        m_lstCarpetas.resize(filas.fTextosCarpeta().size());
    }
    std::string &strCarpeta = m_lstCarpetas[lngCarpeta];
    if (strCarpeta.empty()) {
        fAnadir(strCarpeta, fTextoPantalla(filas.fCarpeta(lngPos)));
    }
    return strCarpeta;
}

void clsBuscaTexto::fComponerSujeto(const clsFilas &filas, int lngPos)
{
    int intResto = fCorte(filas.fNombre(lngPos), m_filtro.bolFormatos);
    std::string strHueco;
    const std::string_view strNombre =
        fCortar(fDescifrar(filas.fNombre(lngPos), strHueco), intResto);
    m_strSujeto.clear();
    if (m_filtro.bolCarpeta && intResto == 0) {
        m_strSujeto.append(fCarpeta(filas, lngPos));
    } else if (m_filtro.bolCarpeta) {
        // A name shorter than the cut: the rest of it comes off the folder.
        fAnadir(m_strSujeto, fCortar(fTextoPantalla(filas.fCarpeta(lngPos)), intResto));
    }
    fAnadir(m_strSujeto, strNombre);
}

bool clsBuscaTexto::fPasa(const clsFilas &filas, int lngPos)
{
    if (m_filtro.lstPalabras.empty()) {
        return true;
    }
    fComponerSujeto(filas, lngPos);
    // An empty word is contained in every text: with none of the words nothing passes then.
    const auto fContenida = [this](const std::string &strPalabra) {
        return std::string_view(m_strSujeto).find(strPalabra) != std::string_view::npos;
    };
    switch (m_filtro.modo) {
    case ModoTexto::And:
        return std::all_of(m_filtro.lstPalabras.begin(), m_filtro.lstPalabras.end(), fContenida);
    case ModoTexto::Or:
        return std::any_of(m_filtro.lstPalabras.begin(), m_filtro.lstPalabras.end(), fContenida);
    case ModoTexto::Nor:
        return std::none_of(m_filtro.lstPalabras.begin(), m_filtro.lstPalabras.end(), fContenida);
    }
    return false;
}

std::optional<clsFiltrado> fFiltrar(const clsFilas &filas, const clsFiltro &filtro,
                                    const clsMayusculas &fMayusculas, const clsPasoFiltro &fPaso,
                                    int intHilos)
{
    return clsPasada(filas, filtro, fMayusculas, fPaso).fHacer(intHilos);
}
