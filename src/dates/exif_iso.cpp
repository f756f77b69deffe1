#include "dates/exif_iso.h"

#include "dates/ifd.h"
#include "dates/trozos.h"
#include "dates/valor.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace {

constexpr std::uint64_t lngMaximoMeta = std::uint64_t{1} << 20;

/// Bytes of its own.
class clsOrigenPropio final : public clsOrigen {
public:
    explicit clsOrigenPropio(std::string strBytes)
        : m_strBytes(std::move(strBytes)), m_memoria(m_strBytes)
    {
    }
    [[nodiscard]] std::int64_t fTamano() const override { return m_memoria.fTamano(); }
    std::size_t fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes) override
    {
        return m_memoria.fLeer(lngPos, chrDestino, lngBytes);
    }

private:
    const std::string m_strBytes;
    clsOrigenMemoria m_memoria;
};

/// Whole numbers of a text, one after the other; zeros from its end on.
class clsNumeros {
public:
    explicit clsNumeros(std::string_view strBytes) : m_strBytes(strBytes) {}
    std::uint64_t fTomar(unsigned intBytes)
    {
        std::uint64_t lngNumero = 0;
        m_bolFin = m_bolFin || m_strBytes.size() < intBytes;
        for (unsigned intByte = 0; intByte < intBytes && !m_bolFin; ++intByte) {
            lngNumero = lngNumero << 8 | static_cast<unsigned char>(m_strBytes[intByte]);
        }
        m_strBytes.remove_prefix(m_bolFin ? m_strBytes.size() : intBytes);
        return lngNumero;
    }
    [[nodiscard]] bool fFin() const { return m_bolFin; }

private:
    std::string_view m_strBytes;
    bool m_bolFin = false;
};

std::string fContenido(clsLector &lector, const clsTrozo &caja)
{
    return lector.fCopiar(caja.lngContenido,
                          std::min(static_cast<std::uint64_t>(caja.lngBytes), lngMaximoMeta));
}

/// The number of the item with EXIF data. Source: ISO/IEC 14496-12, 8.11.6.
std::optional<std::uint64_t> fNumeroDeExif(clsLector &lector, const clsTrozo &iinf)
{
    const bool bolLarga = lector.fMirar(iinf.lngContenido, 1) != std::string_view("\0", 1);
    std::int64_t lngPos = iinf.lngContenido + (bolLarga ? 8 : 6);
    for (int intCual = 0; intCual < intMaximoTrozos; ++intCual) {
        const auto infe = fBuscarTrozo(lector, formaIso, {lngPos, iinf.fFin()}, "infe");
        if (!infe) {
            return {};
        }
        clsNumeros numeros(lector.fMirar(infe->lngContenido, 16));
        const std::uint64_t lngVersion = numeros.fTomar(1);
        numeros.fTomar(3);
        const std::uint64_t lngNumero = numeros.fTomar(lngVersion == 3 ? 4 : 2);
        numeros.fTomar(2);
        if (lngVersion >= 2 && numeros.fTomar(4) == 0x45786966) { // "Exif"
            return lngNumero;
        }
        lngPos = infe->fFin();
    }
    return {};
}

/// Where an item lies in the file, by its first extent. Source: ISO/IEC 14496-12, 8.11.3.
std::optional<clsTrozo> fLugarDe(std::string_view strIloc, std::uint64_t lngBuscado)
{
    clsNumeros numeros(strIloc);
    const std::uint64_t lngVersion = numeros.fTomar(1);
    numeros.fTomar(3);
    const std::uint64_t lngMedidas = numeros.fTomar(2);
    const auto fMedida = [&](int intBits) {
        return static_cast<unsigned>(lngMedidas >> intBits & 15);
    };
    const std::uint64_t lngCuantos = numeros.fTomar(lngVersion == 2 ? 4 : 2);
    for (std::uint64_t lngCual = 0; lngCual < lngCuantos && !numeros.fFin(); ++lngCual) {
        const std::uint64_t lngNumero = numeros.fTomar(lngVersion == 2 ? 4 : 2);
        const std::uint64_t lngModo = lngVersion > 0 ? numeros.fTomar(2) & 15 : 0;
        numeros.fTomar(2); // the file itself, or another one
        const std::uint64_t lngBase = numeros.fTomar(fMedida(4));
        const std::uint64_t lngTramos = numeros.fTomar(2);
        for (std::uint64_t lngTramo = 0; lngTramo < lngTramos && !numeros.fFin(); ++lngTramo) {
            numeros.fTomar(lngVersion > 0 ? fMedida(0) : 0);
            const std::uint64_t lngDesde = lngBase + numeros.fTomar(fMedida(12));
            const std::uint64_t lngBytes = numeros.fTomar(fMedida(8));
            if (lngNumero == lngBuscado && lngModo == 0 && !numeros.fFin()) {
                constexpr auto lngTope = static_cast<std::uint64_t>(INT64_MAX / 4);
                return clsTrozo{"", static_cast<std::int64_t>(std::min(lngDesde, lngTope)),
                                static_cast<std::int64_t>(std::min(lngBytes, lngTope))};
            }
        }
    }
    return {};
}

Orden fOrdenDe(std::string_view strTiff)
{
    return strTiff.starts_with("MM") ? Orden::MM : Orden::II;
}

/// Writes a number of 4 bytes over what stands there; false where there is no room.
bool fSobrescribir(std::string &strBytes, std::uint64_t lngLugar, std::uint32_t lngNumero,
                   Orden orden)
{
    if (lngLugar + 4 > strBytes.size()) {
        return false;
    }
    for (unsigned intByte = 0; intByte < 4; ++intByte) {
        const unsigned intBits = 8 * (orden == Orden::II ? intByte : 3 - intByte);
        strBytes[lngLugar + intByte] = static_cast<char>(lngNumero >> intBits & 0xFF);
    }
    return true;
}

/// Two TIFF files as one, whose IFD1 is the IFD0 of the second.
std::string fUnir(std::string strUno, std::string strOtro)
{
    const Orden orden = fOrdenDe(strUno);
    const std::uint32_t lngIfd =
        fLargo(std::string_view(strUno).substr(std::min<std::size_t>(4, strUno.size())), orden);
    const std::uint32_t lngOtroIfd =
        fLargo(std::string_view(strOtro).substr(std::min<std::size_t>(4, strOtro.size())), orden);
    const auto lngDelante = static_cast<std::uint32_t>(strUno.size());
    const std::string strLeido = strOtro;
    clsOrigenMemoria memoria(strLeido);
    clsLector lector(memoria);
    const clsDatosTiff tiff{lector, 0, orden};
    fRecorrerIfd(tiff, lngOtroIfd, [&](const clsEntradaIfd &entrada) {
        if (const auto lngDonde = fDesplazamiento(tiff, entrada)) {
            fSobrescribir(
                strOtro, std::uint64_t{lngOtroIfd} + static_cast<unsigned>(entrada.intPosicion) + 8,
                *lngDonde + lngDelante, orden);
        }
        return true;
    });
    const std::uint32_t lngEntradas =
        lngIfd < strUno.size() ? fCorto(std::string_view(strUno).substr(lngIfd), orden) : 0;
    const bool bolUnidos =
        fOrdenDe(strOtro) == orden &&
        fSobrescribir(strUno, std::uint64_t{lngIfd} + 2 + std::uint64_t{lngEntradas} * 12,
                      lngOtroIfd + lngDelante, orden);
    return bolUnidos ? strUno + strOtro : strLeido;
}

} // namespace

std::unique_ptr<clsOrigen> fExifDeHeif(clsOrigen &origen, clsLector &lector)
{
    const auto meta = fBuscarTrozo(lector, formaIso, {0, lector.fTamano()}, "meta");
    if (!meta) {
        return nullptr;
    }
    const std::pair tramo{meta->lngContenido + 4, meta->fFin()};
    const auto iinf = fBuscarTrozo(lector, formaIso, tramo, "iinf");
    const auto iloc = fBuscarTrozo(lector, formaIso, tramo, "iloc");
    const auto lngNumero = iinf ? fNumeroDeExif(lector, *iinf) : std::nullopt;
    const auto lugar =
        lngNumero && iloc ? fLugarDe(fContenido(lector, *iloc), *lngNumero) : std::nullopt;
    if (!lugar) {
        return nullptr;
    }
    const std::int64_t lngSalto =
        4 + std::int64_t{fLargo(lector.fMirar(lugar->lngContenido, 4), Orden::MM)};
    if (lngSalto >= lugar->lngBytes || lugar->fFin() > lector.fTamano()) {
        return nullptr;
    }
    return std::make_unique<clsOrigenTramo>(origen, lugar->lngContenido + lngSalto,
                                            lugar->lngBytes - lngSalto);
}

std::unique_ptr<clsOrigen> fExifDeCr3(clsLector &lector)
{
    constexpr std::int64_t lngIdentificador = 16;
    const auto moov = fBuscarTrozo(lector, formaIso, {0, lector.fTamano()}, "moov");
    const auto uuid =
        moov ? fBuscarTrozo(lector, formaIso, {moov->lngContenido, moov->fFin()}, "uuid")
             : std::nullopt;
    if (!uuid) {
        return nullptr;
    }
    const auto fParte = [&](std::string_view strTipo) {
        const auto caja = fBuscarTrozo(
            lector, formaIso, {uuid->lngContenido + lngIdentificador, uuid->fFin()}, strTipo);
        return caja ? fContenido(lector, *caja) : std::string();
    };
    std::string strPrimera = fParte("CMT1");
    std::string strExif = fParte("CMT2");
    if (strExif.empty() || strPrimera.empty()) {
        strPrimera += strExif;
        return strPrimera.empty() ? nullptr : std::make_unique<clsOrigenPropio>(strPrimera);
    }
    return std::make_unique<clsOrigenPropio>(fUnir(std::move(strPrimera), std::move(strExif)));
}
