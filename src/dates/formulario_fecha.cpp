#include "dates/formulario_fecha.h"

#include "shared/texto.h"

#include <algorithm>

namespace {

constexpr clsColor colVerde{128, 255, 128};
constexpr clsColor colRojo{255, 128, 128};
constexpr clsColor colAmarillo{255, 255, 128};

/// Names tell the day only: noon is offered, the middle of what is not known.
std::string fAMediodia(clsFecha fecha) { return fEscribirFecha(fecha, "dd/MM/yyyy 12:00:00"); }

} // namespace

clsFormularioFecha fFormularioFecha(const std::vector<clsFile> &lstFicheros)
{
    clsFormularioFecha formulario;
    formulario.strActual = '(' + std::to_string(lstFicheros.size()) + " FICHEROS)";
    formulario.fondo = colAmarillo;
    if (lstFicheros.size() == 1) {
        formulario.strActual = fEscribirFecha(lstFicheros.front().datFile(), strFormaUsuario);
        const bool bolCorrecta = lstFicheros.front().bolFechaCorrecta();
        formulario.fondo = bolCorrecta ? colVerde : colRojo;
        formulario.strJuicio = bolCorrecta ? "Fecha correcta" : "Fecha incorrecta";
    }
    for (const clsFile &fichero : lstFicheros) {
        if (fichero.datExif().fHay()) {
            formulario.lstFechas[0] = fEscribirFecha(fichero.datExif(), strFormaUsuario);
        }
        if (fichero.datNombre1().fHay()) {
            formulario.lstFechas[1] = fAMediodia(fichero.datNombre1());
        }
        if (fichero.datNombre2().fHay()) {
            formulario.lstFechas[2] = fAMediodia(fichero.datNombre2());
        }
    }
    return formulario;
}

bool fSeCorrige(const std::vector<clsFile> &lstFicheros, bool bolSiempre)
{
    return bolSiempre ||
           std::none_of(lstFicheros.begin(), lstFicheros.end(),
                        [](const clsFile &fichero) { return fichero.bolFechaCorrecta(); });
}

std::string fNormalizarTecleada(std::string_view strTexto)
{
    std::string strCompleto(strTexto);
    const int intCaracteres = fContarCaracteres(strTexto);
    if (intCaracteres == 10) {
        strCompleto += " 12:00:00";
    } else if (intCaracteres == 16) {
        strCompleto += ":00";
    }
    return strCompleto;
}

std::string fAvisoFechaNoValida(std::string_view strTexto)
{
    return '\'' + std::string(strTexto) +
           "' no es una fecha válida.\r\n\r\nFormato permitidos:\r\n- 'dd/mm/yyyy hh:mm:ss'\r\n"
           "- 'dd/mm/yyyy hh:mm'\r\n- 'dd/mm/yyyy'";
}

std::string fAvisoFichero(std::string_view strRuta)
{
    return "Hay algún problema con el fichero: \r\n" + std::string(strRuta);
}
