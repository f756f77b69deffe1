#include "shared/texto.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace {

// Bytes 80 to 9F of Windows-1252 (source: the Unicode Consortium's mapping table CP1252.TXT).
constexpr std::array<char16_t, 32> lstWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned char fByte(char chr) { return static_cast<unsigned char>(chr); }

void fAnadirUtf8(std::string &strTexto, char32_t chr)
{
    if (chr < 0x80) {
        strTexto += static_cast<char>(chr);
    } else if (chr < 0x800) {
        strTexto += static_cast<char>(0xC0 | (chr >> 6));
        strTexto += static_cast<char>(0x80 | (chr & 0x3F));
    } else {
        strTexto += static_cast<char>(0xE0 | (chr >> 12));
        strTexto += static_cast<char>(0x80 | ((chr >> 6) & 0x3F));
        strTexto += static_cast<char>(0x80 | (chr & 0x3F));
    }
}

/// Length in bytes of the well-formed sequence at the start of the text; 0 when there is none.
std::size_t fSecuencia(std::string_view str)
{
    const unsigned char byt = fByte(str[0]);
    if (byt < 0x80) {
        return 1;
    }
    // The table of RFC 3629, section 4: length and limits of the second byte by the first.
    std::size_t lngBytes = 0;
    unsigned char bytDesde = 0x80;
    unsigned char bytHasta = 0xBF;
    if (byt >= 0xC2 && byt <= 0xDF) {
        lngBytes = 2;
    } else if (byt >= 0xE0 && byt <= 0xEF) {
        lngBytes = 3;
        bytDesde = byt == 0xE0 ? 0xA0 : 0x80;
        bytHasta = byt == 0xED ? 0x9F : 0xBF;
    } else if (byt >= 0xF0 && byt <= 0xF4) {
        lngBytes = 4;
        bytDesde = byt == 0xF0 ? 0x90 : 0x80;
        bytHasta = byt == 0xF4 ? 0x8F : 0xBF;
    }
    if (lngBytes == 0 || str.size() < lngBytes || fByte(str[1]) < bytDesde ||
        fByte(str[1]) > bytHasta) {
        return 0;
    }
    for (std::size_t lng = 2; lng < lngBytes; ++lng) {
        if ((fByte(str[lng]) & 0xC0) != 0x80) {
            return 0;
        }
    }
    return lngBytes;
}

} // namespace

bool fEsUtf8(std::string_view strBytes)
{
    while (!strBytes.empty()) {
        const std::size_t lngBytes = fSecuencia(strBytes);
        if (lngBytes == 0) {
            return false;
        }
        strBytes.remove_prefix(lngBytes);
    }
    return true;
}

std::string fTextoPantalla(std::string_view strBytes)
{
    if (fEsUtf8(strBytes)) {
        return std::string(strBytes);
    }
    std::string strTexto;
    for (const char chr : strBytes) {
        const unsigned char byt = fByte(chr);
        const bool bolTabla = byt >= 0x80 && byt < 0xA0;
        fAnadirUtf8(strTexto, bolTabla ? lstWindows1252[byt - 0x80U] : byt);
    }
    return strTexto;
}

std::string fSinGiros(std::string_view strTexto)
{
    constexpr std::string_view lstGiros[] = {
        "\u061C", "\u200E", "\u200F", "\u202A", "\u202B", "\u202C",
        "\u202D", "\u202E", "\u2066", "\u2067", "\u2068", "\u2069",
    };
    std::string strLimpio;
    while (!strTexto.empty()) {
        const auto *const giro =
            std::find_if(std::begin(lstGiros), std::end(lstGiros),
                         [=](std::string_view strGiro) { return strTexto.starts_with(strGiro); });
        const bool bolGira = giro != std::end(lstGiros);
        strLimpio += bolGira ? "\uFFFD" : strTexto.substr(0, 1);
        strTexto.remove_prefix(bolGira ? giro->size() : 1);
    }
    return strLimpio;
}

int fContarCaracteres(std::string_view strUtf8)
{
    return static_cast<int>(std::count_if(strUtf8.begin(), strUtf8.end(),
                                          [](char chr) { return (fByte(chr) & 0xC0) != 0x80; }));
}

std::string fMayusculasAscii(std::string_view strTexto)
{
    std::string strMayusculas(strTexto);
    std::transform(strMayusculas.begin(), strMayusculas.end(), strMayusculas.begin(), fMayuscula);
    return strMayusculas;
}

bool fIgualSinCaja(std::string_view strUno, std::string_view strOtro)
{
    return std::equal(
        strUno.begin(), strUno.end(), strOtro.begin(), strOtro.end(),
        [](char chrUno, char chrOtro) { return fMayuscula(chrUno) == fMayuscula(chrOtro); });
}

std::string_view fSinBlancos(std::string_view strTexto)
{
    const auto fBlanco = [](char chr) { return chr == ' ' || chr == '\t'; };
    while (!strTexto.empty() && fBlanco(strTexto.front())) {
        strTexto.remove_prefix(1);
    }
    while (!strTexto.empty() && fBlanco(strTexto.back())) {
        strTexto.remove_suffix(1);
    }
    return strTexto;
}

std::vector<std::string> fPartir(std::string_view strTexto, char chrEntre)
{
    std::vector<std::string> lstPartes;
    std::size_t lngDesde = 0;
    for (std::size_t lngFin = 0; (lngFin = strTexto.find(chrEntre, lngDesde)) < strTexto.size();
         lngDesde = lngFin + 1) {
        lstPartes.emplace_back(strTexto.substr(lngDesde, lngFin - lngDesde));
    }
    if (!strTexto.empty()) {
        lstPartes.emplace_back(strTexto.substr(lngDesde));
    }
    return lstPartes;
}
