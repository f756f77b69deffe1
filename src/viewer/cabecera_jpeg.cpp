#include "viewer/cabecera_jpeg.h"

#include "dates/ifd.h"
#include "dates/segmentos.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr std::uint32_t intMarcaApp1 = 0xE1;
constexpr std::uint32_t intMarcaApp2 = 0xE2;
constexpr std::uint32_t lngBytesAntesPerfil = 14; ///< its name, number and count of pieces
constexpr std::uint32_t lngOrientacion = 0x0112;
constexpr std::uint32_t lngDesdeMini = 0x0201;
constexpr std::uint32_t lngLargoMini = 0x0202;
constexpr std::uint32_t lngTipoCorto = 3;
// A file has a dozen segments before its frame; they bound the time for those that lie.
constexpr int intMaximoSegmentos = 4096;

// Beyond this, a file of a few bytes that claims a huge picture is not worth what decoding its
// emptiness costs: a plain grey photo of that size takes far more.
constexpr std::int64_t lngPixelesDudosos = std::int64_t{16} << 20;
constexpr std::int64_t lngPixelesPorByte = 400;

// What is left of a picture that nobody wants any more is filled with grey, which takes time, too.
// The largest cameras have 400 megapixels.
constexpr std::int64_t lngMaximoPixeles = std::int64_t{1} << 31;

// Every scan visits the blocks of its components, about 5 ns each. Cameras and converters make a
// dozen scans: 60 million visits for 100 megapixels.
constexpr std::int64_t lngMaximoVisitas = 200'000'000;
constexpr std::int64_t lngBytesBloque = 64 * 2;

std::uint32_t fNumero(const clsEntradaIfd &entrada, Orden orden)
{
    return entrada.lngTipo == lngTipoCorto ? fCorto(entrada.strCampo, orden)
                                           : fLargo(entrada.strCampo, orden);
}

void fLeerExif(clsLector &lector, std::int64_t lngInicio, clsCabeceraJpeg &cabecera)
{
    const std::string strCabecera = lector.fCopiar(lngInicio, 8);
    const std::string_view strBytes = strCabecera;
    if (strBytes.size() < 8 || (strBytes.substr(0, 2) != "II" && strBytes.substr(0, 2) != "MM")) {
        return;
    }
    const Orden orden = strBytes[0] == 'I' ? Orden::II : Orden::MM;
    std::uint32_t lngDesde = 0;
    std::uint32_t lngLargo = 0;
    bool bolOrientacion = false;
    fRecorrerIfds({lector, lngInicio, orden}, fLargo(strBytes.substr(4), orden),
                  [&](const clsEntradaIfd &entrada) {
                      const std::uint32_t lngNumero = fNumero(entrada, orden);
                      if (entrada.lngCodigo == lngOrientacion && !bolOrientacion) {
                          bolOrientacion = true; // the thumbnail's own one comes later
                          cabecera.intOrientacion =
                              lngNumero >= 1 && lngNumero <= 8 ? static_cast<int>(lngNumero) : 1;
                      } else if (entrada.lngCodigo == lngDesdeMini) {
                          lngDesde = lngNumero;
                      } else if (entrada.lngCodigo == lngLargoMini) {
                          lngLargo = lngNumero;
                      }
                      return lngDesde == 0 || lngLargo == 0;
                  });
    const std::int64_t lngPrincipio = lngInicio + lngDesde;
    if (lngDesde != 0 && lngLargo != 0 && lngPrincipio + lngLargo <= lector.fTamano()) {
        cabecera.lngMiniatura = lngPrincipio;
        cabecera.lngBytesMini = lngLargo;
    }
}

/// Source: ICC.1:2010, annex B.4.
void fLeerPerfil(std::string_view strDentro, const clsSegmento &segmento, clsCabeceraJpeg &cabecera)
{
    if (strDentro.size() < lngBytesAntesPerfil || segmento.lngBytes <= lngBytesAntesPerfil ||
        !strDentro.starts_with(std::string_view("ICC_PROFILE\0", 12))) {
        return;
    }
    if (strDentro.substr(12, 2) != "\1\1") { // the first piece of one
        cabecera.bolPerfilPartido = true;
        return;
    }
    cabecera.lngPerfil = segmento.lngContenido + lngBytesAntesPerfil;
    cabecera.lngBytesPerfil = segmento.lngBytes - lngBytesAntesPerfil;
}

/// Reads on through a file.
class clsCinta {
public:
    clsCinta(clsLector &lector, std::int64_t lngDesde) : m_lector(lector), m_lngTrozo(lngDesde) {}

    /// The next byte; -1 at the end.
    int fByte()
    {
        if (m_lngPos == m_strTrozo.size() && !fSeguir()) {
            return -1;
        }
        return static_cast<unsigned char>(m_strTrozo[m_lngPos++]);
    }
    std::uint32_t fNumero()
    {
        const int intAlto = fByte();
        const int intBajo = fByte();
        return intBajo < 0 ? 0 : static_cast<std::uint32_t>(intAlto << 8 | intBajo);
    }
    void fSaltar(std::uint32_t lngBytes)
    {
        m_lngPos += lngBytes;
        if (m_lngPos > m_strTrozo.size()) {
            m_lngTrozo += static_cast<std::int64_t>(m_lngPos);
            m_strTrozo.clear();
            m_lngPos = 0;
        }
    }
    /// Goes behind the next marker that has a length or ends the picture; 0 when none comes.
    std::uint32_t fMarca()
    {
        for (;;) {
            m_lngPos = std::min(m_strTrozo.find('\xFF', m_lngPos), m_strTrozo.size());
            int intByte = fByte();
            if (intByte >= 0 && intByte != 0xFF) {
                continue; // the first one of the next piece
            }
            while (intByte == 0xFF) { // fill bytes may stand before a marker
                intByte = fByte();
            }
            if (intByte < 0) {
                return 0;
            }
            const auto lngMarca = static_cast<std::uint32_t>(intByte);
            if (lngMarca != 0 && !fMarcaSola(lngMarca)) {
                return lngMarca;
            }
        }
    }

private:
    bool fSeguir()
    {
        constexpr std::size_t lngTrozo = 64 * 1024;
        m_lngTrozo += static_cast<std::int64_t>(m_strTrozo.size());
        m_strTrozo = m_lector.fCopiar(m_lngTrozo, lngTrozo);
        m_lngPos = 0;
        return !m_strTrozo.empty();
    }

    clsLector &m_lector;
    std::int64_t m_lngTrozo; ///< where the piece lies in the file
    std::string m_strTrozo;
    std::size_t m_lngPos = 0;
};

/// The start of a frame: size, components and what they are subsampled by.
struct clsMarco {
    std::int64_t lngAncho = 0;
    std::int64_t lngAlto = 0;
    std::vector<std::pair<int, int>> lstComponentes; ///< blocks of each in a unit, across and down

    /// Bytes of all coefficients: whole units, each component its share of blocks.
    [[nodiscard]] std::int64_t fCoeficientes() const
    {
        int intAncho = 1;
        int intAlto = 1;
        std::int64_t lngBloques = 0;
        for (const auto &[intHor, intVer] : lstComponentes) {
            intAncho = std::max(intAncho, intHor);
            intAlto = std::max(intAlto, intVer);
            lngBloques += std::int64_t{intHor} * intVer;
        }
        const auto fUnidades = [](std::int64_t lngLado, int intBloques) {
            return (lngLado + 8 * intBloques - 1) / (8 * intBloques);
        };
        return fUnidades(lngAncho, intAncho) * fUnidades(lngAlto, intAlto) * lngBloques *
               lngBytesBloque;
    }
};

clsMarco fLeerMarco(clsCinta &cinta)
{
    clsMarco marco;
    const std::uint32_t lngLargo = cinta.fNumero();
    cinta.fByte(); // bits of a sample
    marco.lngAlto = cinta.fNumero();
    marco.lngAncho = cinta.fNumero();
    const int intCuantas = cinta.fByte();
    for (int intCual = 0; intCual < intCuantas; ++intCual) {
        cinta.fByte(); // its name
        const int intBloques = cinta.fByte();
        cinta.fByte(); // its table
        marco.lstComponentes.emplace_back(intBloques >> 4 & 15, intBloques & 15);
    }
    const std::size_t lngLeidos = 8 + 3 * marco.lstComponentes.size();
    cinta.fSaltar(lngLargo > lngLeidos ? static_cast<std::uint32_t>(lngLargo - lngLeidos) : 0);
    return marco;
}

/// Goes behind the start of a scan; how many components it has.
int fLeerPasada(clsCinta &cinta)
{
    const std::uint32_t lngLargo = cinta.fNumero();
    const int intComponentes = cinta.fByte();
    cinta.fSaltar(lngLargo > 3 ? lngLargo - 3 : 0);
    return intComponentes;
}

bool fEsProgresivo(std::uint32_t lngMarco) { return lngMarco == 0xC2 || lngMarco == 0xCA; }

} // namespace

bool fLeerCabeceraJpeg(clsLector &lector, clsCabeceraJpeg &cabecera)
{
    cabecera = {};
    bool bolExif = false;
    return fRecorrerSegmentos(lector, [&](const clsSegmento &segmento) {
        const std::string strContenido = lector.fCopiar(segmento.lngContenido, lngBytesAntesPerfil);
        const std::string_view strBytes = strContenido;
        if (fEsMarco(segmento.lngMarca) && strBytes.size() >= 5) {
            cabecera.intAlto = static_cast<int>(fCorto(strBytes.substr(1), Orden::MM));
            cabecera.intAncho = static_cast<int>(fCorto(strBytes.substr(3), Orden::MM));
        }
        if (segmento.lngMarca == intMarcaApp1 && !bolExif &&
            strBytes.starts_with(std::string_view("Exif\0\0", 6))) {
            bolExif = true;
            fLeerExif(lector, segmento.lngContenido + 6, cabecera);
        } else if (segmento.lngMarca == intMarcaApp2) {
            fLeerPerfil(strBytes, segmento, cabecera);
        }
        return !fEsMarco(segmento.lngMarca);
    });
}

std::optional<clsEsfuerzoJpeg> fMedirJpeg(clsLector &lector)
{
    if (lector.fMirar(0, 2) != "\xFF\xD8") {
        return {};
    }
    clsCinta cinta(lector, 2);
    std::optional<clsMarco> marco;
    bool bolProgresivo = false;
    clsEsfuerzoJpeg esfuerzo;
    for (int intSegmento = 0; intSegmento < intMaximoSegmentos; ++intSegmento) {
        const std::uint32_t lngMarca = cinta.fMarca();
        const bool bolPasada = lngMarca == 0xDA;
        if (lngMarca == 0 || lngMarca == 0xD9) {
            return esfuerzo.intPasadas > 0 ? std::optional(esfuerzo) : std::nullopt;
        }
        if (bolPasada ? !marco : fEsMarco(lngMarca) && marco) {
            return {};
        }
        if (fEsMarco(lngMarca)) {
            marco = fLeerMarco(cinta);
            bolProgresivo = fEsProgresivo(lngMarca);
            esfuerzo.lngPixeles = marco->lngAncho * marco->lngAlto;
        } else if (!bolPasada) {
            const std::uint32_t lngLargo = cinta.fNumero();
            cinta.fSaltar(lngLargo > 2 ? lngLargo - 2 : 0);
        } else if (++esfuerzo.intPasadas == 1) {
            const bool bolTodas =
                fLeerPasada(cinta) >= static_cast<int>(marco->lstComponentes.size());
            if (bolTodas && !bolProgresivo) {
                return esfuerzo;
            }
            esfuerzo.lngCoeficientes = marco->fCoeficientes();
        } else {
            fLeerPasada(cinta);
        }
    }
    return {};
}

bool fDecodificable(const clsEsfuerzoJpeg &esfuerzo, std::int64_t lngBytes)
{
    return esfuerzo.lngPixeles <= lngMaximoPixeles &&
           esfuerzo.lngCoeficientes <= lngMaximoCoeficientes &&
           esfuerzo.lngCoeficientes / lngBytesBloque * esfuerzo.intPasadas <= lngMaximoVisitas &&
           (esfuerzo.lngPixeles <= lngPixelesDudosos ||
            esfuerzo.lngPixeles / lngPixelesPorByte <= lngBytes);
}
