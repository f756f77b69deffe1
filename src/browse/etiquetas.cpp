#include "browse/etiquetas.h"

namespace {

/// A number and what it counts, which ends in "s" but for one; nothing where there is none.
std::string fCuenta(int lngCuantos, const std::string &strUno)
{
    return std::to_string(lngCuantos) + ' ' + strUno + (lngCuantos == 1 ? "" : "s");
}

std::string fTextoZoom(const clsEstado &estado)
{
    if (estado.bolMiniaturas || estado.intZoom == 100) {
        return {};
    }
    return estado.intZoom == 0 ? "Zoom ajustado" : "Zoom " + std::to_string(estado.intZoom) + " %";
}

} // namespace

clsEtiquetas fEtiquetas(const clsEstado &estado)
{
    const std::string strOtros =
        estado.lngOtros > 0 ? std::to_string(estado.lngOtros) + " de otros formatos" : "";
    if (estado.filas.fVacia()) {
        return {"", "", "", "", "", strOtros};
    }
    const int lngMarcados = estado.filas.fContarMarcados();
    const clsCopiados &copiados = estado.copiados;
    return {estado.bolFiltrada ? "FILTRO" : "",
            lngMarcados > 0 ? fCuenta(lngMarcados, "marcado") : "",
            fTextoZoom(estado),
            estado.bolPendiente ? "Cargando..." : "",
            copiados.lngHechos > 0 ? fCuenta(copiados.lngHechos, "copiado") + ", " +
                                         fCuenta(copiados.lngReemplazados, "reemplazado")
                                   : "",
            strOtros};
}
