#include "shared/progreso.h"

#include "shared/numeros.h"

#include <algorithm>
#include <cstdint>

namespace {

std::string fAgrupado(std::int64_t lngCuantos) { return fConGrupos(lngCuantos, {}); }

std::string fResto(std::chrono::seconds resto)
{
    const auto fCon = [](std::int64_t lngCuantos, const std::string &strUnidad) {
        return (lngCuantos == 1 ? ", queda 1 " + strUnidad
                                : ", quedan " + fAgrupado(lngCuantos) + ' ' + strUnidad + 's');
    };
    const std::int64_t lngSegundos = std::max<std::int64_t>(resto.count(), 1);
    return lngSegundos < 60 ? fCon(lngSegundos, "segundo")
                            : fCon((lngSegundos + 59) / 60, "minuto");
}

} // namespace

std::string fTextoProgreso(std::string_view strObra, int lngHechos, int lngTodos,
                           std::chrono::milliseconds pasado)
{
    constexpr std::chrono::seconds pronto{2};
    std::string strTexto =
        std::string(strObra) + ": " + fAgrupado(lngHechos) + " de " + fAgrupado(lngTodos);
    if (lngHechos > 0 && lngHechos < lngTodos && pasado >= pronto) {
        const std::int64_t lngResto = pasado.count() * (lngTodos - lngHechos) / lngHechos;
        strTexto += fResto(std::chrono::seconds((lngResto + 999) / 1000));
    }
    return strTexto;
}
