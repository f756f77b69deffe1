#include "app/raiz.h"

#include "app/arranque.h"
#include "app/escritorio.h"
#include "catalogue/registro.h"
#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/archivo.h"

namespace {

constexpr std::string_view strClave = "ARCHIVO";

/// What speaks against a folder as an archive; empty when nothing does.
std::string fReparo(const std::string &strRaiz, const std::string &strCasa)
{
    const std::string strReal = fRutaReal(strRaiz);
    if (strReal.empty() || fExisteArchivo(strRaiz + std::string(strFicheroCatalogo))) {
        return {};
    }
    if (strReal == "/") {
        return "Es la raíz del sistema: todos los discos enteros.";
    }
    return strReal == fRutaReal(strCasa) ? "Es la carpeta personal entera." : "";
}

bool fQuererla(const std::string &strRaiz, const clsInicio &inicio, clsMensajes &mensajes)
{
    const std::string strReparo = fReparo(strRaiz, inicio.strCasa);
    return strReparo.empty() || mensajes.fSiNo(fTextoPantalla(strRaiz) + "\r\n" + strReparo +
                                               "\r\n¿Hacer de ella un archivo de fotos y vídeos?");
}

/// The folder of last time; empty when it is not known or not there, which is said.
std::string fUltima(clsAjustes &escritorio, clsMensajes &mensajes)
{
    std::string strUltima = escritorio.fConsultar(strSeccionEscritorio, strClave);
    if (strUltima.empty() || fExisteCarpeta(strUltima)) {
        return strUltima;
    }
    mensajes.fAviso(Icono::Aviso,
                    "El archivo de la última vez no está:\r\n" + fTextoPantalla(strUltima));
    return {};
}

} // namespace

std::optional<std::string> fElegirRaiz(const clsInicio &inicio, clsAjustes &escritorio,
                                       clsMensajes &mensajes)
{
    const bool bolPreguntar = inicio.bolPreguntar && inicio.lstArgumentos.empty();
    std::string strRaiz =
        bolPreguntar ? fUltima(escritorio, mensajes)
                     : fRaizDeOrdenes(inicio.lstArgumentos, inicio.strPrograma, inicio.strTrabajo);
    while (strRaiz.empty() || !fQuererla(strRaiz, inicio, mensajes)) {
        strRaiz = bolPreguntar ? mensajes.fElegirCarpeta("Selecciona la carpeta de fotos y vídeos:")
                               : std::string();
        if (strRaiz.empty()) {
            return {};
        }
        strRaiz = fBarraFinal(strRaiz, false);
    }
    return strRaiz;
}

void fRecordarRaiz(clsAjustes &escritorio, const std::string &strRaiz)
{
    if (strRaiz.find_first_of("\r\n") == std::string::npos) { // it is one line of the file
        escritorio.fGuardarIni(strSeccionEscritorio, strClave, strRaiz);
    }
}
