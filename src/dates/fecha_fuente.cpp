#include "dates/fecha_fuente.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr std::int64_t lngSegundosDia = 86400;
constexpr clsFecha datEpoca = fMedianoche(std::chrono::year{1970} / 1 / 1);

std::string_view fSinBordes(std::string_view strTexto)
{
    constexpr std::string_view strBordes(" \t\r\n\0", 5);
    const std::size_t lngDesde = std::min(strTexto.find_first_not_of(strBordes), strTexto.size());
    return strTexto.substr(lngDesde, strTexto.find_last_not_of(strBordes) - lngDesde + 1);
}

bool fEsCifra(char chr) { return chr >= '0' && chr <= '9'; }

/// Takes the zone off the end of a text of the form date-time. Nothing where it is no zone.
std::optional<std::string_view> fQuitarZona(std::string_view strTexto, clsFechaFuente &fuente)
{
    constexpr std::size_t lngHora = 11; // a "-" before it belongs to the day
    const std::size_t lngPos = strTexto.find_first_of("Z+-", lngHora);
    if (lngPos == std::string_view::npos) {
        return strTexto;
    }
    const auto intZona = fLeerDesfase(strTexto.substr(lngPos));
    if (!intZona) {
        return {};
    }
    fuente.zona = strTexto[lngPos] == 'Z' ? Zona::Utc : Zona::ConDesfase;
    fuente.intZona = static_cast<std::int16_t>(*intZona);
    return strTexto.substr(0, lngPos);
}

/// Takes what stands behind the point of the seconds off a text. Nothing where it is no number.
std::optional<std::string_view> fQuitarNanos(std::string_view strTexto, clsFechaFuente &fuente)
{
    const std::size_t lngPunto = strTexto.find_first_of(".,");
    if (lngPunto == std::string_view::npos) {
        return strTexto;
    }
    const std::string_view strCifras = strTexto.substr(lngPunto + 1);
    if (strCifras.empty() || !std::all_of(strCifras.begin(), strCifras.end(), fEsCifra)) {
        return {};
    }
    fuente.lngNanos = *fLeerNanos(strCifras);
    return strTexto.substr(0, lngPunto);
}

} // namespace

clsFecha fMediodia(std::chrono::sys_days dia)
{
    return {fMedianoche(dia).lngSegundos + lngSegundosDia / 2};
}

clsFecha fLocal(const clsFechaFuente &fuente, const clsRelojLocal &reloj)
{
    const auto lngInstante = fInstante(fuente);
    return fuente.zona == Zona::Utc ? reloj(static_cast<std::time_t>(*lngInstante)) : fuente.fecha;
}

std::optional<std::int64_t> fInstante(const clsFechaFuente &fuente)
{
    if (fuente.zona == Zona::Local) {
        return {};
    }
    return fuente.fecha.lngSegundos - datEpoca.lngSegundos - fuente.intZona * 60;
}

clsFecha fFechaUtc(std::int64_t lngInstante) { return {lngInstante + datEpoca.lngSegundos}; }

std::optional<clsFechaFuente> fLeerFechaIso(std::string_view strTexto, Fuente fuente)
{
    constexpr std::string_view strForma = "yyyy-MM-dd HH:mm:ss";
    clsFechaFuente leida{.fuente = fuente};
    auto strResto = fQuitarZona(fSinBordes(strTexto), leida);
    strResto = strResto ? fQuitarNanos(*strResto, leida) : strResto;
    if (!strResto || strResto->empty()) {
        return {};
    }
    std::string strFecha(*strResto);
    const std::size_t lngLargo = strFecha.size();
    if (lngLargo > 10 && strFecha[10] == 'T') {
        strFecha[10] = ' ';
    }
    if ((lngLargo != 10 && lngLargo != 16 && lngLargo != 19) ||
        (leida.lngNanos != 0 && lngLargo != 19) || (leida.zona != Zona::Local && lngLargo == 10)) {
        return {};
    }
    const auto fecha = fLeerFecha(strFecha, strForma.substr(0, lngLargo));
    if (!fecha || !fecha->fHay()) {
        return {};
    }
    leida.precision = lngLargo == 19   ? Precision::Segundo
                      : lngLargo == 16 ? Precision::Minuto
                                       : Precision::Dia;
    leida.fecha = lngLargo == 10 ? fMediodia(fDia(*fecha)) : *fecha;
    return leida;
}

std::optional<int> fLeerDesfase(std::string_view strTexto)
{
    constexpr int intMaximo = 15 * 60;
    std::string strCifras(fSinBordes(strTexto));
    if (strCifras == "Z") {
        return 0;
    }
    if (strCifras.size() == 6 && strCifras[3] == ':') {
        strCifras.erase(3, 1);
    }
    if (strCifras.size() != 5 || (strCifras[0] != '+' && strCifras[0] != '-') ||
        !std::all_of(strCifras.begin() + 1, strCifras.end(), fEsCifra)) {
        return {};
    }
    const int intNumero = std::atoi(strCifras.c_str() + 1);
    const int intMinutos = intNumero / 100 * 60 + intNumero % 100;
    if (intNumero % 100 > 59 || intMinutos > intMaximo) {
        return {};
    }
    return strCifras[0] == '-' ? -intMinutos : intMinutos;
}

std::optional<std::int32_t> fLeerNanos(std::string_view strCifras)
{
    const std::string_view strNumero = fSinBordes(strCifras);
    if (strNumero.empty() || !std::all_of(strNumero.begin(), strNumero.end(), fEsCifra)) {
        return {};
    }
    std::string strNueve(strNumero.substr(0, 9));
    strNueve.resize(9, '0');
    return std::atoi(strNueve.c_str());
}

std::string_view fTextoFuente(Fuente fuente)
{
    constexpr std::array<std::string_view, intFuentes> lstTextos{"EXIF (tomada)",
                                                                 "EXIF (digitalizada)",
                                                                 "EXIF (modificada)",
                                                                 "GPS",
                                                                 "XMP",
                                                                 "IPTC",
                                                                 "vídeo",
                                                                 "nombre",
                                                                 "carpeta",
                                                                 "archivo",
                                                                 "a mano"};
    return lstTextos[static_cast<std::size_t>(fuente)];
}
