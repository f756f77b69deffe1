#include "dates/fecha_iptc.h"

#include "dates/cabecera.h"

#include <algorithm>

namespace {

constexpr std::uint32_t lngRecursoIptc = 0x0404;
constexpr std::size_t lngCabezaRegistro = 5;

std::string_view fDesde(std::string_view strBytes, std::size_t lngPos)
{
    return strBytes.substr(std::min(lngPos, strBytes.size()));
}

std::size_t fPar(std::size_t lngBytes) { return lngBytes + lngBytes % 2; }

/// The records of the first resource that holds IPTC.
std::string_view fRegistrosDe(std::string_view strRecursos)
{
    // Adobe Photoshop File Formats, "Image resource blocks": "8BIM", number, a name with its length
    // before it, length, data; names and data are filled up to an even length.
    while (strRecursos.size() >= 12 && strRecursos.starts_with("8BIM")) {
        const std::uint32_t lngCual = fCorto(strRecursos.substr(4), Orden::MM);
        const std::size_t lngNombre = fPar(1U + static_cast<unsigned char>(strRecursos[6]));
        const std::string_view strResto = fDesde(strRecursos, 6 + lngNombre);
        const std::size_t lngLargo = fLargo(strResto, Orden::MM);
        const std::string_view strDatos = fDesde(strResto, 4);
        if (lngCual == lngRecursoIptc) {
            return strDatos.substr(0, lngLargo);
        }
        strRecursos = fDesde(strDatos, fPar(lngLargo));
    }
    return {};
}

/// Puts the time of a record into a day; one that is no time leaves the day.
clsFechaFuente fConHora(clsFechaFuente dia, std::string_view strHora)
{
    std::string strTodo = fEscribirFecha(dia.fecha, "yyyy-MM-dd") + 'T';
    if (strHora.size() < 6) {
        return dia;
    }
    strTodo += std::string(strHora.substr(0, 2)) + ':' + std::string(strHora.substr(2, 2)) + ':' +
               std::string(strHora.substr(4));
    return fLeerFechaIso(strTodo, Fuente::Iptc).value_or(dia);
}

} // namespace

std::optional<clsFechaFuente> fLeerFechaIptc(std::string_view strRegistros)
{
    // IPTC-NAA Information Interchange Model 4.2: 1C, record, data set, length, data. Lengths of
    // more than 15 bits belong to pictures.
    std::string_view strDia;
    std::string_view strHora;
    while (strRegistros.size() >= lngCabezaRegistro && strRegistros[0] == '\x1C') {
        const std::size_t lngLargo = fCorto(strRegistros.substr(3), Orden::MM);
        const std::string_view strDatos = strRegistros.substr(lngCabezaRegistro, lngLargo);
        const std::string_view strCual = strRegistros.substr(1, 2);
        if (strCual == "\x02\x37" && strDia.empty()) {
            strDia = strDatos;
        } else if (strCual == "\x02\x3C" && strHora.empty()) {
            strHora = strDatos;
        }
        strRegistros = fDesde(strRegistros, lngCabezaRegistro + lngLargo);
    }
    const auto dia = fLeerFecha(strDia, "yyyyMMdd");
    if (!dia || !dia->fHay()) {
        return {};
    }
    return fConHora(
        {.fecha = fMediodia(fDia(*dia)), .fuente = Fuente::Iptc, .precision = Precision::Dia},
        strHora);
}

std::optional<clsFechaFuente> fLeerFechaRecursos(std::string_view strRecursos)
{
    return fLeerFechaIptc(fRegistrosDe(strRecursos));
}
