#include "duplicates/textos_duplicados.h"

#include "dates/fuentes.h"
#include "shared/fecha.h"
#include "shared/numeros.h"
#include "shared/rutas.h"
#include "shared/texto.h"

namespace {

/// A number with what it counts.
std::string fCuenta(int intCuantos, const char *strUno, const char *strVarios)
{
    return fConGrupos(intCuantos, {}) + ' ' + (intCuantos == 1 ? strUno : strVarios);
}

std::string fTextoOmitidos(const clsOmitidos &omitidos)
{
    const struct {
        int intCuantos;
        const char *strUno;
        const char *strVarios;
    } lstPartes[] = {
        {omitidos.intFaltan,     "no existe",                          "no existen"                      },
        {omitidos.intIlegibles,  "no se puede leer",                   "no se pueden leer"               },
        {omitidos.intVacios,     "está vacío",                       "están vacíos"                  },
        {omitidos.intFuera,      "queda fuera de la carpeta raíz",    "quedan fuera de la carpeta raíz"},
        {omitidos.intOtroNombre, "es otro nombre de un mismo archivo",
         "son otros nombres de un mismo archivo"                                                         },
    };
    std::string strTexto;
    for (const auto &parte : lstPartes) {
        if (parte.intCuantos > 0) {
            strTexto += strTexto.empty() ? " Sin comparar: " : ", ";
            strTexto += fCuenta(parte.intCuantos, parte.strUno, parte.strVarios);
        }
    }
    return strTexto.empty() ? strTexto : strTexto + '.';
}

} // namespace

std::string fTextoDuplicado(const clsGrupo &grupo, std::size_t lngCual, ColumnaDuplicados columna,
                            std::string_view strRaiz)
{
    const clsGemelo &uno = grupo.lstGemelos[lngCual];
    switch (columna) {
    case ColumnaDuplicados::Queda:
        return lngCual == grupo.lngQueda ? "se queda"
               : fSobra(grupo, lngCual)  ? "copia"
                                         : "otro nombre";
    case ColumnaDuplicados::Nombre:
        return fTextoPantalla(fNombreDe(uno.strRuta));
    case ColumnaDuplicados::Carpeta:
        return fTextoPantalla(fCarpetasBajo(uno.strRuta, strRaiz));
    case ColumnaDuplicados::Fecha:
        return fEscribirFecha(fFechaLocal(uno.huella.lngSegundos), strFormaUsuario);
    case ColumnaDuplicados::Correcta:
        return uno.bolFechaBien ? "sí" : "no";
    default:
        return std::string(fSinBlancos(fTextoKB(uno.huella.lngBytes, {})));
    }
}

std::string fTextoHallados(const std::vector<clsGrupo> &lstGrupos, const clsOmitidos &omitidos,
                           bool bolBuscando)
{
    const clsSobra sobra = fSumarSobra(lstGrupos);
    std::string strTexto;
    if (!lstGrupos.empty()) {
        strTexto = fCuenta(static_cast<int>(lstGrupos.size()), "grupo", "grupos") + ", " +
                   fCuenta(sobra.intCopias, "copia", "copias") + " (" +
                   fConGrupos(fKilobytes(sobra.lngBytes), {}) + " KB).";
    } else if (!bolBuscando) {
        strTexto = "No hay archivos duplicados.";
    }
    return strTexto + fTextoOmitidos(omitidos);
}

std::string fTextoMarcar(int intCopias)
{
    return "&Marcar las copias" + (intCopias == 0 ? "" : " (" + fConGrupos(intCopias, {}) + ')');
}
