#include "repair/textos_reparar.h"

#include "shared/numeros.h"

#include <algorithm>

namespace {

std::string fCuantos(std::int64_t lngCuantos) { return fConGrupos(lngCuantos, {}); }

std::string fArchivos(int intCuantos)
{
    return fCuantos(intCuantos) + (intCuantos == 1 ? " archivo" : " archivos");
}

std::string fFecha(clsFecha fecha) { return fEscribirFecha(fecha, strFormaUsuario); }

} // namespace

std::string fTextoFuentes(const clsFechasFichero &fechas, const clsRelojLocal &reloj)
{
    std::string strTexto;
    for (const clsFechaFuente &fuente : fechas.lstFuentes) {
        strTexto += strTexto.empty() ? "" : "\n";
        strTexto += std::string(fTextoFuente(fuente.fuente)) + ": ";
        const clsFecha fecha = fLocal(fuente, reloj);
        strTexto += fuente.precision == Precision::Dia ? fEscribirFecha(fecha, "dd/MM/yyyy")
                                                       : fFecha(fecha);
    }
    return strTexto;
}

std::string fTextoTramo(const clsTramoFechas &tramo)
{
    return tramo.datPrimera.fHay()
               ? "Del " + fFecha(tramo.datPrimera) + " al " + fFecha(tramo.datUltima)
               : std::string();
}

std::string fTextoCorregir(int intFicheros) { return "&Corregir " + fArchivos(intFicheros); }

std::string fPreguntaCorregir(int intFicheros, NombreReparado nombre)
{
    const bool bolNombre = nombre == NombreReparado::AnteponerFecha;
    return std::string("Se va a cambiar ") + (bolNombre ? "la fecha y el nombre" : "la fecha") +
           " de " + fArchivos(intFicheros) + ".\r\nSe puede deshacer después.";
}

std::string fPreguntaDeshacer(const std::vector<clsCorreccionHecha> &lstHechas)
{
    constexpr std::size_t lngMaximo = 10;
    std::string strTexto = "Correcciones que se pueden deshacer:";
    for (std::size_t lng = 0; lng < std::min(lstHechas.size(), lngMaximo); ++lng) {
        strTexto +=
            "\r\n" + fFecha(lstHechas[lng].fecha) + ": " + fArchivos(lstHechas[lng].intFicheros);
    }
    if (lstHechas.size() > lngMaximo) {
        strTexto += "\r\n... y " + std::to_string(lstHechas.size() - lngMaximo) + " más.";
    }
    return strTexto + "\r\n\r\nSe deshará la última.";
}
