#include "bytes.h"

namespace demo {

char clsBytes::fOcteto(quint32 lngValor, int intBytes, int intIndice) const
{
    const int intLugar = ordenBytes == enmOrden::Intel ? intIndice : intBytes - 1 - intIndice;
    return static_cast<char>((lngValor >> (8 * intLugar)) & 0xFFU);
}

void clsBytes::fPoner(quint32 lngValor, int intBytes)
{
    for (int intI = 0; intI < intBytes; ++intI) {
        datBytes.append(fOcteto(lngValor, intBytes, intI));
    }
}

void clsBytes::fPoner8(quint32 lngValor) { fPoner(lngValor, 1); }

void clsBytes::fPoner16(quint32 lngValor) { fPoner(lngValor, 2); }

void clsBytes::fPoner32(quint32 lngValor) { fPoner(lngValor, 4); }

void clsBytes::fPonerTexto(std::string_view strTexto)
{
    datBytes.append(strTexto.data(), static_cast<qsizetype>(strTexto.size()));
}

void clsBytes::fCorregir32(qsizetype lngLugar, quint32 lngValor)
{
    for (int intI = 0; intI < 4; ++intI) {
        datBytes[lngLugar + intI] = fOcteto(lngValor, 4, intI);
    }
}

} // namespace demo
