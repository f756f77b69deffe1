/// Prints what the EXIF window shows of each file, or with --dates the two dates that judge it. For
/// tests from outside.

#include "dates/exif.h"
#include "dates/exif_fecha.h"
#include "shared/archivo.h"

#include <cstdio>
#include <string>
#include <string_view>

namespace {

std::string fTextoFecha(clsFecha fecha) { return fecha.fHay() ? fTextoCatalogo(fecha) : "-"; }

/// The dates of the table and those of the short way, which have to be the same.
std::string fTextoFechas(const std::string &strRuta, const clsTablaExif &tabla)
{
    const auto fFecha = [&](std::string_view strCodigo) {
        const auto valor = GetExifValue(tabla, strCodigo, true);
        const auto *const fecha = valor ? std::get_if<clsFecha>(&*valor) : nullptr;
        return fecha != nullptr ? *fecha : clsFecha();
    };
    int intError = 0;
    clsHuella huella;
    const clsDescriptor archivo = fAbrirRegular(strRuta, intError, &huella);
    clsOrigenArchivo origen(archivo, archivo.fAbierto() ? huella.lngBytes : 0);
    const clsFechasExif fechas = fLeerFechasExif(origen);
    const bool bolIguales = fechas.datFecha == fFecha("0132") && fechas.datTomada == fFecha("9003");
    return "0132 " + fTextoFecha(fechas.datFecha) + "\n9003 " + fTextoFecha(fechas.datTomada) +
           (bolIguales ? "\n" : "\nDIFFERENT from the table\n");
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    const bool bolFechas = intArgumentos > 1 && std::string_view(lstArgumentos[1]) == "--dates";
    for (int intCual = bolFechas ? 2 : 1; intCual < intArgumentos; ++intCual) {
        const std::string strRuta = lstArgumentos[intCual];
        clsTablaExif tabla;
        clsMarcas marcas;
        const std::string strMensaje = ReadExifTable(strRuta, tabla, marcas);
        std::printf(
            "== %s: %zu rows %s\n%s", strRuta.c_str(), tabla.lstFilas.size(), strMensaje.c_str(),
            bolFechas ? fTextoFechas(strRuta, tabla).c_str() : (fTextoTabla(tabla) + "\n").c_str());
    }
    return 0;
}
