#include "filter/filtro.h"

#include "shared/hilos.h"
#include "shared/ritmo.h"
#include "shared/texto.h"
#include "sistema/archivo.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace {

constexpr int intCorte = 4; // characters cut off: a dot and an extension of three letters
constexpr std::size_t lngBloques = 32; // looked up ahead

unsigned char fByte(char chr) { return static_cast<unsigned char>(chr); }

/// Capitals of Latin-1 as letter and mark, and the second bytes of mark and capital in UTF-8 (those
/// before are CC and C3).
struct clsCompuesta {
    char chrLetra;
    unsigned char bytMarca;
    unsigned char bytCapital;
};
constexpr clsCompuesta lstCompuestas[] = {
    {'A', 0x80, 0x80},
    {'A', 0x81, 0x81},
    {'A', 0x82, 0x82},
    {'A', 0x83, 0x83},
    {'A', 0x88, 0x84},
    {'A', 0x8A, 0x85},
    {'C', 0xA7, 0x87},
    {'E', 0x80, 0x88},
    {'E', 0x81, 0x89},
    {'E', 0x82, 0x8A},
    {'E', 0x88, 0x8B},
    {'I', 0x80, 0x8C},
    {'I', 0x81, 0x8D},
    {'I', 0x82, 0x8E},
    {'I', 0x88, 0x8F},
    {'N', 0x83, 0x91},
    {'O', 0x80, 0x92},
    {'O', 0x81, 0x93},
    {'O', 0x82, 0x94},
    {'O', 0x83, 0x95},
    {'O', 0x88, 0x96},
    {'U', 0x80, 0x99},
    {'U', 0x81, 0x9A},
    {'U', 0x82, 0x9B},
    {'U', 0x88, 0x9C},
    {'Y', 0x81, 0x9D}
};

/// The second byte of the capital that a letter makes with a mark; 0 when there is none in Latin-1.
unsigned char fComponer(char chrLetra, unsigned char bytMarca)
{
    const auto *const it = std::find_if(
        std::begin(lstCompuestas), std::end(lstCompuestas), [=](const clsCompuesta &compuesta) {
            return compuesta.chrLetra == chrLetra && compuesta.bytMarca == bytMarca;
        });
    return it == std::end(lstCompuestas) ? 0 : it->bytCapital;
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
            bytSegundo = fComponer(strSalida[lngFin - 1], byt);
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

/// Rows whose files one piece of work looks up, one after the other.
struct clsBloque {
    std::vector<int> lstPosiciones;
    std::vector<std::string> lstRutas;
};
/// Small ones where there are few rows, so that every worker has some; large ones cost less.
std::size_t fPorBloque(int lngFilas)
{
    return static_cast<std::size_t>(std::clamp(lngFilas / 64, 8, 256));
}

using clsHuellas = std::vector<std::optional<clsHuella>>;

clsHuellas fMirar(const std::vector<std::string> &lstRutas)
{
    clsHuellas lstHuellas;
    lstHuellas.reserve(lstRutas.size());
    for (const std::string &strRuta : lstRutas) {
        lstHuellas.push_back(fHuella(strRuta));
    }
    return lstHuellas;
}

/// One run of the filter through the rows.
class clsPasada {
public:
    clsPasada(const clsFilas &filas, const clsFiltro &filtro, const clsMayusculas &fMayusculas,
              const clsPasoFiltro &fPaso)
        : m_filas(filas), m_filtro(filtro), m_texto(filtro, fMayusculas), m_fPaso(fPaso),
          m_lngRevision(filas.fRevision())
    {
    }

    clsFiltrado fHacer(int intHilos);

private:
    [[nodiscard]] bool fQuedanFilas() const { return m_lngSiguiente < m_filas.fCantidad(); }
    [[nodiscard]] bool fLlenar(clsBloque &bloque);
    [[nodiscard]] bool fSeguir();
    void fRecoger(const std::vector<int> &lstPosiciones, const clsHuellas &lstHuellas);
    void fRecogerFila(int lngPos, const std::optional<clsHuella> &huella);
    [[nodiscard]] clsFiltrado fAcabar();

    const clsFilas &m_filas;
    const clsFiltro &m_filtro;
    clsBuscaTexto m_texto;
    const clsPasoFiltro &m_fPaso;
    const std::uint64_t m_lngRevision;
    clsRitmo m_ritmo;
    clsFiltrado m_filtrado;
    std::int64_t m_lngTotal = 0;
    int m_lngSiguiente = 0;
};

/// Lets the caller do something now and then; false: no longer wanted.
bool clsPasada::fSeguir()
{
    return m_ritmo.fSeguir(
        [this] { return m_fPaso(m_lngSiguiente) && m_filas.fRevision() == m_lngRevision; });
}

/// Gathers the next rows that have not failed by their names; false: no longer wanted.
bool clsPasada::fLlenar(clsBloque &bloque)
{
    constexpr int lngEntreMiradas = 64; // rows between two looks at the clock
    const std::size_t lngPorBloque = fPorBloque(m_filas.fCantidad());
    for (; fQuedanFilas() && bloque.lstRutas.size() < lngPorBloque; ++m_lngSiguiente) {
        if (m_lngSiguiente % lngEntreMiradas == 0 && !fSeguir()) {
            return false;
        }
        if (m_filtro.bolFechas || m_texto.fPasa(m_filas, m_lngSiguiente)) {
            bloque.lstPosiciones.push_back(m_lngSiguiente);
            bloque.lstRutas.push_back(m_filas.fRuta(m_lngSiguiente));
        }
    }
    return true;
}

void clsPasada::fRecogerFila(int lngPos, const std::optional<clsHuella> &huella)
{
    clsConservada conservada{lngPos, -1, {}};
    if (huella) {
        conservada.lngBytes = huella->lngBytes;
        conservada.fecha = fFechaLocal(huella->lngSegundos);
    }
    // Deliberate: both ends are midnights, so that of the last day only the files stamped exactly
    // at its midnight pass.
    if (m_filtro.bolFechas &&
        (!huella || conservada.fecha < m_filtro.datDesde || conservada.fecha > m_filtro.datHasta)) {
        return;
    }
    m_lngTotal += huella ? huella->lngBytes : m_filas.fTamano(lngPos);
    m_filtrado.lstFilas.push_back(conservada);
}

void clsPasada::fRecoger(const std::vector<int> &lstPosiciones, const clsHuellas &lstHuellas)
{
    for (std::size_t lng = 0; lng < lstPosiciones.size(); ++lng) {
        fRecogerFila(lstPosiciones[lng], lstHuellas[lng]);
    }
}

clsFiltrado clsPasada::fAcabar()
{
    m_filtrado.lngTotalKB = m_lngTotal / 1024;
    if (m_filtrado.lstFilas.empty()) {
        m_filtrado.resultado = ResultadoFiltro::Ninguno;
    } else if (m_filtrado.lstFilas.size() == static_cast<std::size_t>(m_filas.fCantidad())) {
        m_filtrado.resultado = ResultadoFiltro::Igual;
    } else {
        m_filtrado.resultado = ResultadoFiltro::Menos;
    }
    return std::move(m_filtrado);
}

clsFiltrado clsPasada::fHacer(int intHilos)
{
    clsHilos hilos({.intHilos = intHilos, .bolEnOrden = true});
    while (fQuedanFilas() || hilos.fPendientes() > 0) {
        while (fQuedanFilas() && hilos.fPendientes() < lngBloques) {
            clsBloque bloque;
            if (!fLlenar(bloque)) {
                return {};
            }
            if (!bloque.lstRutas.empty()) {
                hilos.fPedir(
                    [lstRutas = std::move(bloque.lstRutas)] { return fMirar(lstRutas); },
                    [this, lstPosiciones = std::move(bloque.lstPosiciones)](
                        const clsHuellas &lstHuellas) { fRecoger(lstPosiciones, lstHuellas); });
            }
        }
        if (!fSeguir()) {
            return {};
        }
        hilos.fAtender(pausaRitmo);
    }
    return fAcabar();
}

} // namespace

clsBuscaTexto::clsBuscaTexto(const clsFiltro &filtro, clsMayusculas fMayusculas)
    : m_fMayusculas(std::move(fMayusculas)), m_bolCarpeta(filtro.bolCarpeta), m_modo(filtro.modo)
{
    m_lstPalabras.reserve(filtro.lstPalabras.size());
    for (const std::string &strPalabra : filtro.lstPalabras) {
        m_strSujeto.clear();
        fAnadir(fSinBlancos(strPalabra));
        m_lstPalabras.push_back(m_strSujeto);
    }
}

/// Appends a UTF-8 text to the subject, in capitals and composed.
void clsBuscaTexto::fAnadir(std::string_view strUtf8)
{
    const std::size_t lngInicio = m_strSujeto.size();
    if (!fMayusculasLatin1(strUtf8, m_strSujeto)) {
        m_strSujeto.resize(lngInicio);
        m_strSujeto.append(m_fMayusculas(strUtf8));
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
        m_strSujeto.clear();
        fAnadir(fTextoPantalla(filas.fCarpeta(lngPos)));
        strCarpeta = m_strSujeto;
    }
    return strCarpeta;
}

void clsBuscaTexto::fComponerSujeto(const clsFilas &filas, int lngPos)
{
    int intResto = intCorte;
    std::string strHueco;
    const std::string_view strNombre =
        fCortar(fDescifrar(filas.fNombre(lngPos), strHueco), intResto);
    const std::string *const strCarpeta =
        m_bolCarpeta && intResto == 0 ? &fCarpeta(filas, lngPos) : nullptr;
    m_strSujeto.clear();
    if (strCarpeta != nullptr) {
        m_strSujeto.append(*strCarpeta);
    } else if (m_bolCarpeta) {
        // A name shorter than the cut: the rest of it comes off the folder.
        fAnadir(fCortar(fTextoPantalla(filas.fCarpeta(lngPos)), intResto));
    }
    fAnadir(strNombre);
}

bool clsBuscaTexto::fPasa(const clsFilas &filas, int lngPos)
{
    if (m_lstPalabras.empty()) {
        return true;
    }
    fComponerSujeto(filas, lngPos);
    // An empty word is contained in every text: with none of the words nothing passes then.
    const auto fContenida = [this](const std::string &strPalabra) {
        return std::string_view(m_strSujeto).find(strPalabra) != std::string_view::npos;
    };
    switch (m_modo) {
    case ModoTexto::And:
        return std::all_of(m_lstPalabras.begin(), m_lstPalabras.end(), fContenida);
    case ModoTexto::Or:
        return std::any_of(m_lstPalabras.begin(), m_lstPalabras.end(), fContenida);
    case ModoTexto::Nor:
        return std::none_of(m_lstPalabras.begin(), m_lstPalabras.end(), fContenida);
    }
    return false;
}

clsFiltrado fFiltrar(const clsFilas &filas, const clsFiltro &filtro,
                     const clsMayusculas &fMayusculas, const clsPasoFiltro &fPaso, int intHilos)
{
    return clsPasada(filas, filtro, fMayusculas, fPaso)
        .fHacer(intHilos > 0 ? intHilos : intHilosUsuales);
}
