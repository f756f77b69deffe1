#include "shared/fecha.h"

#include <array>
#include <chrono>

namespace {

using std::chrono::sys_days;

constexpr std::int64_t lngSegundosDia = 86400;
constexpr sys_days datDiaCero =
    std::chrono::year{1899} / std::chrono::December / std::chrono::day{30};

/// Seconds from day 0 to the start of a year.
constexpr std::int64_t fSegundosHasta(int intAno)
{
    const sys_days datInicio =
        std::chrono::year{intAno} / std::chrono::January / std::chrono::day{1};
    return (datInicio - datDiaCero).count() * lngSegundosDia;
}

void fEscribir(std::string &strTexto, std::size_t lngPos, int intCifras, int intValor)
{
    for (std::size_t lng = lngPos + static_cast<std::size_t>(intCifras); lng-- > lngPos;) {
        strTexto[lng] = static_cast<char>('0' + intValor % 10);
        intValor /= 10;
    }
}

} // namespace

std::optional<clsFecha> fFechaDe(const clsPartesFecha &partes)
{
    if (partes.intAno < 100 || partes.intAno > 9999 || partes.intMes < 1 || partes.intDia < 1) {
        return {};
    }
    const std::chrono::year_month_day datDia{
        std::chrono::year{partes.intAno}, std::chrono::month{static_cast<unsigned>(partes.intMes)},
        std::chrono::day{static_cast<unsigned>(partes.intDia)}};
    const auto fDentro = [](int intValor, int intFin) {
        return intValor >= 0 && intValor < intFin;
    };
    if (partes.intMes > 12 || partes.intDia > 31 || !datDia.ok() || !fDentro(partes.intHora, 24) ||
        !fDentro(partes.intMinuto, 60) || !fDentro(partes.intSegundo, 60)) {
        return {};
    }
    const std::int64_t lngDias = (sys_days{datDia} - datDiaCero).count();
    return clsFecha{lngDias * lngSegundosDia + partes.intHora * 3600 + partes.intMinuto * 60 +
                    partes.intSegundo};
}

clsPartesFecha fPartes(clsFecha fecha)
{
    // Limits of the valid years, so that no number of seconds reaches the calendar unchecked.
    constexpr std::int64_t lngPrimero = fSegundosHasta(100);
    constexpr std::int64_t lngFin = fSegundosHasta(10000);
    const bool bolValida = fecha.lngSegundos >= lngPrimero && fecha.lngSegundos < lngFin;
    const std::chrono::seconds lngSegundos{bolValida ? fecha.lngSegundos : 0};
    const auto lngDias = std::chrono::floor<std::chrono::days>(lngSegundos);
    const std::chrono::year_month_day datDia{datDiaCero + lngDias};
    const int intHora = static_cast<int>((lngSegundos - lngDias).count());
    return {static_cast<int>(datDia.year()),
            static_cast<int>(static_cast<unsigned>(datDia.month())),
            static_cast<int>(static_cast<unsigned>(datDia.day())),
            intHora / 3600,
            intHora / 60 % 60,
            intHora % 60};
}

clsFecha fFechaLocal(std::time_t lngMomento)
{
    std::tm tm{};
    if (localtime_r(&lngMomento, &tm) == nullptr || tm.tm_year > 9999 - 1900) {
        return {};
    }
    // A leap second of the system's zone tables counts as the second before it.
    const int intSegundo = tm.tm_sec > 59 ? 59 : tm.tm_sec;
    return fFechaDe(
               {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, intSegundo})
        .value_or(clsFecha{});
}

std::optional<std::time_t> fMomento(clsFecha fecha)
{
    const clsPartesFecha partes = fPartes(fecha);
    std::tm tm{};
    tm.tm_year = partes.intAno - 1900;
    tm.tm_mon = partes.intMes - 1;
    tm.tm_mday = partes.intDia;
    tm.tm_hour = partes.intHora;
    tm.tm_min = partes.intMinuto;
    tm.tm_sec = partes.intSegundo;
    tm.tm_isdst = -1;
    // -1 is a moment like any other; only the weekday tells whether mktime found one.
    tm.tm_wday = -1;
    const std::time_t lngMomento = std::mktime(&tm);
    return tm.tm_wday == -1 ? std::optional<std::time_t>{} : lngMomento;
}

std::string fTextoCatalogo(clsFecha fecha)
{
    const clsPartesFecha partes = fPartes(fecha);
    std::string strTexto = "0000/00/00 00:00:00";
    fEscribir(strTexto, 0, 4, partes.intAno);
    fEscribir(strTexto, 5, 2, partes.intMes);
    fEscribir(strTexto, 8, 2, partes.intDia);
    fEscribir(strTexto, 11, 2, partes.intHora);
    fEscribir(strTexto, 14, 2, partes.intMinuto);
    fEscribir(strTexto, 17, 2, partes.intSegundo);
    return strTexto;
}

std::string fTextoUsuario(clsFecha fecha)
{
    const std::string strTexto = fTextoCatalogo(fecha);
    return strTexto.substr(8, 2) + '/' + strTexto.substr(5, 2) + '/' + strTexto.substr(0, 4) +
           strTexto.substr(10);
}

std::string fTextoDia(clsFecha fecha) { return fTextoUsuario(fecha).substr(0, 10); }

std::string fTextoSello(clsFecha fecha)
{
    std::string strTexto = fTextoCatalogo(fecha);
    std::erase_if(strTexto, [](char chr) { return chr < '0' || chr > '9'; });
    return strTexto;
}

std::string fPrefijoNombre(clsFecha fecha) { return fTextoSello(fecha).substr(0, 8) + '_'; }

std::optional<clsFecha> fLeerTextoCatalogo(std::string_view strTexto)
{
    constexpr std::string_view strForma = "nnnn/nn/nn nn:nn:nn";
    if (strTexto.size() != strForma.size()) {
        return {};
    }
    std::array<int, 6> lstNumeros{};
    std::size_t lngNumero = 0;
    for (std::size_t lng = 0; lng < strForma.size(); ++lng) {
        const char chr = strTexto[lng];
        if (strForma[lng] != 'n') {
            if (chr != strForma[lng]) {
                return {};
            }
            ++lngNumero;
        } else if (chr < '0' || chr > '9') {
            return {};
        } else {
            lstNumeros[lngNumero] = lstNumeros[lngNumero] * 10 + (chr - '0');
        }
    }
    return fFechaDe(
        {lstNumeros[0], lstNumeros[1], lstNumeros[2], lstNumeros[3], lstNumeros[4], lstNumeros[5]});
}
