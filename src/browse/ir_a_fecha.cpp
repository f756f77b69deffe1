#include "browse/ir_a_fecha.h"

#include "browse/dias.h"
#include "browse/mover.h"

std::optional<clsFecha> fLeerRespuestaFecha(std::string_view str)
{
    return fLeerFecha(str, "ddMMyyyy");
}

std::optional<int> fIrAFecha(const clsFilas &filas, int lngActual, clsFecha dia)
{
    const auto lngHallada = fPrimeroDesde(filas, 0, dia);
    return lngHallada ? lngHallada : fDestino(Movimiento::Ultimo, lngActual, filas.fCantidad() - 1);
}
