#include "dates/valor.h"

#include <algorithm>

namespace {

constexpr std::uint32_t lngComentario = 0x9286;

/// What the bytes of a value mean.
enum class Clase { Nada, Numero, Racional, Texto };

struct clsTipo {
    Clase clase;
    unsigned intBytes; ///< of one number
};

/// TIFF 6.0, section 2: field types 1 to 12. The signed ones are read as their unsigned partners.
clsTipo fTipo(std::uint32_t lngTipo)
{
    constexpr clsTipo lstTipos[] = {
        {Clase::Nada,     1}, // no type
        {Clase::Numero,   1}, // BYTE
        {Clase::Texto,    1}, // ASCII
        {Clase::Numero,   2}, // SHORT
        {Clase::Numero,   4}, // LONG
        {Clase::Racional, 8}, // RATIONAL
        {Clase::Numero,   1}, // SBYTE
        {Clase::Texto,    1}, // UNDEFINED
        {Clase::Numero,   2}, // SSHORT
        {Clase::Numero,   4}, // SLONG
        {Clase::Racional, 8}, // SRATIONAL
        {Clase::Nada,     4}, // FLOAT
        {Clase::Nada,     8}, // DOUBLE
    };
    return lngTipo < std::size(lstTipos) ? lstTipos[lngTipo] : lstTipos[0];
}

std::uint64_t fBytes(const clsEntradaIfd &entrada)
{
    return std::uint64_t{entrada.lngCuenta} * fTipo(entrada.lngTipo).intBytes;
}

/// The first lngMaximo bytes of the value, as many of them as the file has.
std::string fCrudo(const clsDatosTiff &tiff, const clsEntradaIfd &entrada, std::uint64_t lngMaximo)
{
    const std::uint64_t lngBytes = std::min(fBytes(entrada), lngMaximo);
    if (const auto lngDonde = fDesplazamiento(tiff, entrada)) {
        return tiff.lector.fCopiar(tiff.lngInicio + *lngDonde, lngBytes);
    }
    return std::string(entrada.strCampo.substr(0, lngBytes));
}

/// A number at a place of the bytes; 0 when it is not there as a whole.
std::uint32_t fNumero(std::string_view strBytes, std::size_t lngPos, unsigned intBytes, Orden orden)
{
    const std::string_view strResto = strBytes.substr(std::min(lngPos, strBytes.size()));
    if (intBytes == 1) {
        return strResto.empty() ? 0 : static_cast<unsigned char>(strResto[0]);
    }
    return intBytes == 2 ? fCorto(strResto, orden) : fLargo(strResto, orden);
}

std::string fTextoNumero(std::string_view strBytes, std::size_t lngPos, const clsTipo &tipo,
                         Orden orden)
{
    if (tipo.clase == Clase::Numero) {
        return std::to_string(fNumero(strBytes, lngPos, tipo.intBytes, orden));
    }
    return std::to_string(fNumero(strBytes, lngPos, 4, orden)) + '/' +
           std::to_string(fNumero(strBytes, lngPos + 4, 4, orden));
}

std::string fTextoNumeros(const clsDatosTiff &tiff, const clsEntradaIfd &entrada,
                          std::size_t lngMaximo)
{
    const clsTipo tipo = fTipo(entrada.lngTipo);
    // A number takes at least one digit and its separator.
    const std::string strBytes = fCrudo(tiff, entrada, lngMaximo / 2 * tipo.intBytes);
    const std::string strFalta = tipo.clase == Clase::Racional ? "0/0" : "0";
    const std::uint64_t lngHay = (strBytes.size() + tipo.intBytes - 1) / tipo.intBytes;
    const std::uint64_t lngCuenta =
        std::min<std::uint64_t>(entrada.lngCuenta, lngHay + lngMaximoAusentes);
    std::string strTexto;
    for (std::uint64_t lngCual = 0; lngCual < lngCuenta; ++lngCual) {
        const std::size_t lngPos = lngCual * tipo.intBytes;
        const std::string strNumero =
            lngPos < strBytes.size() ? fTextoNumero(strBytes, lngPos, tipo, tiff.orden) : strFalta;
        if (strTexto.size() + 1 + strNumero.size() > lngMaximo) {
            break;
        }
        strTexto += lngCual == 0 ? "" : " ";
        strTexto += strNumero;
    }
    return strTexto;
}

} // namespace

std::optional<std::uint32_t> fDesplazamiento(const clsDatosTiff &tiff, const clsEntradaIfd &entrada)
{
    // TIFF 6.0, section 2: a value of up to 4 bytes lies in the entry itself.
    if (fBytes(entrada) <= 4) {
        return {};
    }
    return fLargo(entrada.strCampo, tiff.orden);
}

std::string fTextoBytes(const clsDatosTiff &tiff, const clsEntradaIfd &entrada,
                        std::size_t lngMaximo)
{
    std::string strTexto = fCrudo(tiff, entrada, lngMaximo);
    while (strTexto.ends_with('\0')) {
        strTexto.pop_back();
    }
    strTexto.shrink_to_fit();
    return strTexto;
}

std::string fTextoValor(const clsDatosTiff &tiff, const clsEntradaIfd &entrada,
                        std::size_t lngMaximo)
{
    // The user comment is a text, whatever its type says.
    const Clase clase =
        entrada.lngCodigo == lngComentario ? Clase::Texto : fTipo(entrada.lngTipo).clase;
    switch (clase) {
    case Clase::Numero:
    case Clase::Racional:
        return fTextoNumeros(tiff, entrada, lngMaximo);
    case Clase::Texto:
        return fTextoBytes(tiff, entrada, lngMaximo);
    case Clase::Nada:
        break;
    }
    return {};
}

std::optional<std::uint32_t> fPrimerNumero(const clsDatosTiff &tiff, const clsEntradaIfd &entrada)
{
    const clsTipo tipo = fTipo(entrada.lngTipo);
    if ((tipo.clase != Clase::Numero && tipo.clase != Clase::Racional) || entrada.lngCuenta == 0) {
        return {};
    }
    const unsigned intBytes = std::min(tipo.intBytes, 4U);
    return fNumero(fCrudo(tiff, entrada, intBytes), 0, intBytes, tiff.orden);
}
