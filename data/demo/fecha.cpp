#include "fecha.h"

#include <charconv>
#include <stdexcept>

namespace demo {

namespace {

constexpr std::size_t lngLargoFecha = 19;

int fNumero(std::string_view strFecha, std::size_t lngDesde, std::size_t lngCuantos)
{
    const std::string_view strParte = strFecha.substr(lngDesde, lngCuantos);
    int intValor = 0;
    const char *const pFin = strParte.data() + strParte.size();
    const auto resultado = std::from_chars(strParte.data(), pFin, intValor);
    if (resultado.ec != std::errc() || resultado.ptr != pFin) {
        throw std::runtime_error("fecha mal escrita en el plan: " + std::string(strFecha));
    }
    return intValor;
}

} // namespace

std::time_t fInstante(std::string_view strFecha)
{
    if (strFecha.size() != lngLargoFecha) {
        throw std::runtime_error("fecha mal escrita en el plan: " + std::string(strFecha));
    }
    std::tm datPartes{};
    datPartes.tm_year = fNumero(strFecha, 0, 4) - 1900;
    datPartes.tm_mon = fNumero(strFecha, 5, 2) - 1;
    datPartes.tm_mday = fNumero(strFecha, 8, 2);
    datPartes.tm_hour = fNumero(strFecha, 11, 2);
    datPartes.tm_min = fNumero(strFecha, 14, 2);
    datPartes.tm_sec = fNumero(strFecha, 17, 2);
    datPartes.tm_isdst = -1; // the C library knows whether it was summer time
    return std::mktime(&datPartes);
}

std::string fFechaExif(std::string_view strFecha)
{
    std::string strExif(strFecha);
    for (const std::size_t lngLugar : {4U, 7U}) {
        strExif.at(lngLugar) = ':';
    }
    return strExif;
}

} // namespace demo
