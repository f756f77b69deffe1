#include "repair/desfase.h"

std::int64_t clsDesfase::fSegundos() const
{
    return std::int64_t{intDias} * 86400 + std::int64_t{intHoras} * 3600 +
           std::int64_t{intMinutos} * 60 + intSegundos;
}

std::optional<clsFecha> fDesplazar(clsFecha fecha, std::int64_t lngSegundos)
{
    constexpr std::int64_t lngMaximo = std::int64_t{10000} * 366 * 86400;
    if (!fecha.fHay() || lngSegundos > lngMaximo || lngSegundos < -lngMaximo) {
        return {};
    }
    const clsFecha otra{fecha.lngSegundos + lngSegundos};
    // What lies outside the valid years has the numbers of the zero date.
    const auto vuelta = fFechaDe(fPartes(otra));
    return otra.fHay() && vuelta == otra ? vuelta : std::nullopt;
}
