#include "viewer/cache_mini.h"

#include "sistema/carpeta.h"
#include "sistema/entorno.h"
#include "sistema/recinto.h"
#include "sistema/reemplazo.h"

#include <algorithm>
#include <cerrno>
#include <tuple>
#include <utility>
#include <vector>

namespace {

/// What an entry begins with; another number where entries are made in another way.
constexpr std::string_view strMarca{"Miravel-mini-1\0", 15};
constexpr std::size_t lngCifras = 16;

/// Source: the FNV-1a hash of 64 bits.
std::uint64_t fSuma(std::string_view strBytes)
{
    std::uint64_t lngSuma = 0xcbf29ce484222325;
    for (const char chr : strBytes) {
        lngSuma = (lngSuma ^ static_cast<unsigned char>(chr)) * 0x100000001b3;
    }
    return lngSuma;
}

std::string fCifras(std::uint64_t lngNumero)
{
    std::string strCifras(lngCifras, '0');
    for (auto it = strCifras.rbegin(); it != strCifras.rend(); ++it, lngNumero >>= 4U) {
        *it = "0123456789abcdef"[lngNumero & 15U];
    }
    return strCifras;
}

/// Which file, with which content.
std::string fDueno(std::string_view strRuta, const clsHuella &huella)
{
    std::string strDueno(strRuta);
    for (const std::int64_t lngNumero :
         {huella.lngBytes, huella.lngSegundos, std::int64_t{huella.lngNanosegundos}}) {
        strDueno += '\0' + std::to_string(lngNumero);
    }
    return strDueno + '\0';
}

/// Whether a name is that of an entry, or of one that was being written.
bool fEsEntrada(std::string_view strNombre)
{
    const std::string_view strCifras =
        strNombre.substr(strNombre.starts_with('.') ? 1 : 0, lngCifras);
    return strCifras.size() == lngCifras &&
           strCifras.find_first_not_of("0123456789abcdef") == std::string_view::npos &&
           (strNombre == strCifras || clsReemplazo::fEsTemporal(strNombre, strCifras));
}

/// A file of the cache.
struct clsFicha {
    clsHuella huella;
    std::string strNombre;
    std::int64_t lngBytes = 0; ///< on the disk
};

std::vector<clsFicha> fFichas(const clsDescriptor &carpeta)
{
    std::vector<clsEntradaCarpeta> lstEntradas;
    static_cast<void>(fListarCarpeta(carpeta, lstEntradas));
    std::vector<clsFicha> lstFichas;
    for (clsEntradaCarpeta &entrada : lstEntradas) {
        const auto datos = fEsEntrada(entrada.strNombre)
                               ? fConsultarEn(carpeta, entrada.strNombre, false)
                               : clsError(ENOENT);
        if (datos && datos->tipo != TipoArchivo::Carpeta) {
            lstFichas.push_back({datos->huella, std::move(entrada.strNombre),
                                 std::max(datos->huella.lngBytes, datos->lngOcupados)});
        }
    }
    return lstFichas;
}

} // namespace

std::string fEmpaquetarMini(std::string_view strRuta, const clsHuella &huella,
                            std::string_view strImagen)
{
    const std::string strResto = fDueno(strRuta, huella).append(strImagen);
    return std::string(strMarca) + fCifras(fSuma(strResto)) + strResto;
}

std::optional<std::string_view>
fDesempaquetarMini(std::string_view strEntrada, std::string_view strRuta, const clsHuella &huella)
{
    const std::string strDueno = fDueno(strRuta, huella);
    if (strEntrada.size() < strMarca.size() + lngCifras || !strEntrada.starts_with(strMarca)) {
        return {};
    }
    std::string_view strResto = strEntrada.substr(strMarca.size() + lngCifras);
    if (!strResto.starts_with(strDueno) ||
        strEntrada.substr(strMarca.size(), lngCifras) != fCifras(fSuma(strResto))) {
        return {};
    }
    return strResto.substr(strDueno.size());
}

clsCacheMini::clsCacheMini(std::string strCarpeta, std::int64_t lngMaximo)
    : m_strCarpeta(std::move(strCarpeta)), m_lngMaximo(lngMaximo)
{
}

std::string clsCacheMini::fCarpetaUsual()
{
    const std::string strCache = fCarpetaCache();
    return strCache.empty() ? strCache : strCache + "miravel/miniaturas/";
}

/// Path of a file's entry: one for each path, so that a new content takes the old one's place.
std::string clsCacheMini::fEntrada(std::string_view strRuta) const
{
    return m_strCarpeta + fCifras(fSuma(strRuta));
}

std::string clsCacheMini::fLeer(const std::string &strRuta, const clsHuella &huella) const
{
    if (m_strCarpeta.empty()) {
        return {};
    }
    const std::string strNombre = fEntrada(strRuta);
    const auto abierto = fAbrirRegular(strNombre, false);
    const auto strBytes = abierto ? fLeerArchivo(*abierto) : abierto.fError();
    const auto strImagen = strBytes ? fDesempaquetarMini(*strBytes, strRuta, huella) : std::nullopt;
    if (!strImagen) {
        return {};
    }
    // Its time tells when it was last used, to the day.
    constexpr std::int64_t lngDia = 86400;
    if (const std::int64_t lngAhora = fAhora(); lngAhora - abierto->huella.lngSegundos > lngDia) {
        if (const auto carpeta = fAbrirCarpeta(m_strCarpeta)) {
            static_cast<void>(clsRecinto(m_strCarpeta, *carpeta).fFechar(strNombre, lngAhora));
        }
    }
    return std::string(*strImagen);
}

void clsCacheMini::fGuardar(const std::string &strRuta, const clsHuella &huella,
                            std::string_view strImagen)
{
    constexpr std::int64_t lngReciente = 2; // seconds; some disks tell time no finer
    constexpr unsigned lngPropios = 0600;
    if (m_strCarpeta.empty() || fAhora() - huella.lngSegundos <= lngReciente ||
        !fAsegurarCarpeta(m_strCarpeta)) {
        return;
    }
    const std::string strEntrada = fEmpaquetarMini(strRuta, huella, strImagen);
    clsReemplazo archivo(fEntrada(strRuta), lngPropios);
    archivo.fEscribir(strEntrada);
    // Not flushed: what a power cut spoils is damaged, and is made again.
    static_cast<void>(archivo.fCerrar());
    if (!archivo.fConfirmar(false)) {
        fContar(static_cast<std::int64_t>(strEntrada.size()));
    }
}

/// Counts what was added. What is too much goes, down to nine tenths, so that it is not looked for
/// every time.
void clsCacheMini::fContar(std::int64_t lngMas)
{
    const std::lock_guard guarda(m_cerrojo);
    m_lngHay += m_lngHay < 0 ? 0 : lngMas;
    if (m_lngHay >= 0 && m_lngHay <= m_lngMaximo) {
        return;
    }
    const auto carpeta = fAbrirCarpeta(m_strCarpeta, false);
    if (!carpeta) {
        return;
    }
    std::vector<clsFicha> lstFichas = fFichas(*carpeta);
    std::ranges::sort(lstFichas, {}, [](const clsFicha &ficha) {
        return std::tuple(ficha.huella.lngSegundos, ficha.huella.lngNanosegundos);
    });
    m_lngHay = 0;
    for (const clsFicha &ficha : lstFichas) {
        m_lngHay += ficha.lngBytes;
    }
    const std::int64_t lngMeta = m_lngHay > m_lngMaximo ? m_lngMaximo / 10 * 9 : m_lngMaximo;
    for (auto it = lstFichas.begin(); it != lstFichas.end() && m_lngHay > lngMeta; ++it) {
        if (!fBorrarEn(*carpeta, it->strNombre)) {
            m_lngHay -= it->lngBytes;
        }
    }
}

clsError clsCacheMini::fVaciar()
{
    const std::lock_guard guarda(m_cerrojo);
    const auto carpeta = fAbrirCarpeta(m_strCarpeta, false);
    if (!carpeta) {
        return fExisteCarpeta(m_strCarpeta) ? carpeta.fError() : clsError();
    }
    m_lngHay = -1;
    clsError primero;
    for (const clsFicha &ficha : fFichas(*carpeta)) {
        if (const clsError error = fBorrarEn(*carpeta, ficha.strNombre); error && !primero) {
            primero = error;
        }
    }
    return primero;
}
