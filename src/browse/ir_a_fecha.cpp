#include "browse/ir_a_fecha.h"

#include "browse/dias.h"
#include "browse/mover.h"
#include "dates/fecha_tecleada.h"

#include <string>

std::optional<std::chrono::year_month_day> fLeerRespuestaFecha(std::string_view str)
{
    if (str.size() != 8) {
        return {};
    }
    std::string strFecha(str);
    strFecha.insert(4, 1, '/').insert(2, 1, '/');
    const auto fecha = fLeerTecleada(strFecha + " 00:00:00"); // refuses what is no digit
    if (!fecha) {
        return {};
    }
    const clsPartesFecha partes = fPartes(*fecha);
    return std::chrono::year{partes.intAno} /
           std::chrono::month{static_cast<unsigned>(partes.intMes)} /
           std::chrono::day{static_cast<unsigned>(partes.intDia)};
}

std::optional<int> fIrAFecha(const clsFilas &filas, int lngActual, std::chrono::year_month_day dia)
{
    const auto lngHallada = fPrimeroDesde(filas, 0, dia);
    return lngHallada ? lngHallada : fDestino(Movimiento::Ultimo, lngActual, filas.fCantidad() - 1);
}
