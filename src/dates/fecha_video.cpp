#include "dates/fecha_video.h"

#include "shared/texto.h"

#include <algorithm>
#include <charconv>

namespace {

/// The value of the first line with that key.
std::string_view fValorDe(std::string_view strDatos, std::string_view strClave)
{
    while (!strDatos.empty()) {
        const std::string_view strLinea = strDatos.substr(0, strDatos.find('\n'));
        strDatos.remove_prefix(std::min(strLinea.size() + 1, strDatos.size()));
        const std::size_t lngIgual = strLinea.find('=');
        if (lngIgual != std::string_view::npos &&
            fIgualSinCaja(strLinea.substr(0, lngIgual), strClave)) {
            return strLinea.substr(lngIgual + 1);
        }
    }
    return {};
}

/// A moment as ASF counts it: tenths of a microsecond since 1601; none before 1970, so that no
/// other number passes for one.
std::optional<clsFechaFuente> fFechaDeAsf(std::string_view strNumero)
{
    constexpr std::int64_t lngDecimas = 10'000'000;
    constexpr std::int64_t lngDe1601a1970 = 11'644'473'600;
    std::int64_t lngValor = 0;
    const char *const chrFin = strNumero.data() + strNumero.size();
    const auto leido = std::from_chars(strNumero.data(), chrFin, lngValor);
    if (leido.ec != std::errc() || leido.ptr != chrFin || lngValor / lngDecimas < lngDe1601a1970) {
        return {};
    }
    const clsFecha fecha = fFechaUtc(lngValor / lngDecimas - lngDe1601a1970);
    if (!fecha.fHay() || fFechaDe(fPartes(fecha)) != fecha) {
        return {};
    }
    return clsFechaFuente{.fecha = fecha,
                          .fuente = Fuente::Video,
                          .zona = Zona::Utc,
                          .lngNanos = static_cast<std::int32_t>(lngValor % lngDecimas * 100)};
}

bool fEsCero(const clsFechaFuente &fuente)
{
    // 1904 is where QuickTime begins to count.
    constexpr std::int64_t lngDe1904a1970 = 2'082'844'800;
    const std::int64_t lngInstante = fInstante(fuente).value_or(1);
    return lngInstante == 0 || lngInstante == -lngDe1904a1970;
}

} // namespace

std::optional<clsFechaFuente> fFechaDeVideo(std::string_view strDatos)
{
    std::optional<clsFechaFuente> mejor;
    for (const std::string_view strClave : lstClavesVideo) {
        const std::string_view strValor = fValorDe(strDatos, strClave);
        auto fecha = fLeerFechaIso(strValor, Fuente::Video);
        fecha = fecha ? fecha : fFechaDeAsf(strValor);
        // A phone says when and where as well as when by universal time.
        const bool bolConZona = fecha && fecha->zona == Zona::ConDesfase;
        if (fecha && !fEsCero(*fecha) && (!mejor || (bolConZona && mejor->zona == Zona::Utc))) {
            mejor = fecha;
        }
    }
    return mejor;
}
