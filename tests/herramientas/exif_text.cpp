/// Prints the text of the EXIF window for a file, with --dates the dates its verdict rests on, or
/// with --sources all that tells its date, a line "source<tab>date" each. With --batch it reads
/// zero-terminated paths from standard input and answers each with the length of the text in bytes,
/// a line feed, and the text.

#include "dates/clsFile.h"
#include "dates/exif.h"
#include "dates/fecha_texto.h"
#include "dates/fuentes.h"
#include "shared/fecha.h"

#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>
#include <variant>

namespace {

std::string fTextoFecha(clsFecha fecha) { return fecha.fHay() ? fEscribirFecha(fecha) : "-"; }

std::string fTextoFechas(const std::string &strRuta)
{
    clsTablaExif tabla;
    clsMarcas marcas;
    static_cast<void>(ReadExifTable(strRuta, tabla, marcas));
    std::string strTexto;
    for (const std::string_view strCodigo : {"0132", "9003"}) {
        const auto valor = GetExifValue(tabla, strCodigo, true);
        const auto *const fecha = valor ? std::get_if<clsFecha>(&*valor) : nullptr;
        strTexto.append(strCodigo).append(" ");
        strTexto.append(fTextoFecha(fecha != nullptr ? *fecha : clsFecha())).append("\n");
    }
    clsFile fichero;
    fichero.fCargar(strRuta);
    return strTexto + "exif " + fTextoFecha(fichero.datExif()) + '\n';
}

std::string fTextoFuentes(const std::string &strRuta)
{
    std::string strTexto;
    for (const clsFechaFuente &fuente : fLeerFechas(strRuta, "/").lstFuentes) {
        strTexto.append(fTextoFuente(fuente.fuente)).append("\t");
        strTexto.append(fTextoDeFuente(fuente)).append("\n");
    }
    return strTexto;
}

/// Whether everything reached standard output.
bool fImprimir(std::string_view strTexto)
{
    return std::fwrite(strTexto.data(), 1, strTexto.size(), stdout) == strTexto.size() &&
           std::fflush(stdout) == 0;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    const std::string_view strModo = intArgumentos > 2 ? lstArgumentos[1] : "";
    const bool bolModo = strModo == "--dates" || strModo == "--sources";
    if (intArgumentos != (bolModo ? 3 : 2)) {
        std::fputs("exif_text [--dates | --sources] FILE | --batch\n", stderr);
        return 2;
    }
    const auto fTexto = [&](const std::string &strRuta) {
        return strModo == "--dates"     ? fTextoFechas(strRuta)
               : strModo == "--sources" ? fTextoFuentes(strRuta)
                                        : GetExifText(strRuta);
    };
    const std::string strFichero = lstArgumentos[intArgumentos - 1];
    if (strFichero != "--batch") {
        return fImprimir(fTexto(strFichero)) ? 0 : 1;
    }
    for (std::string strRuta; std::getline(std::cin, strRuta, '\0');) {
        const std::string strTexto = fTexto(strRuta);
        if (!fImprimir(std::to_string(strTexto.size()) + '\n' + strTexto)) {
            return 1;
        }
    }
    return 0;
}
