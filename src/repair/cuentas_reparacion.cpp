#include "repair/cuentas_reparacion.h"

#include "shared/numeros.h"

#include <array>

namespace {

/// The number that counts rows of a kind of source.
int &fCuentaDe(clsCuentasReparacion &cuentas, Fuente fuente)
{
    switch (fuente) {
    case Fuente::ExifTomada:
    case Fuente::ExifDigitalizada:
    case Fuente::ExifCambiada:
        return cuentas.intExif;
    case Fuente::Gps:
        return cuentas.intGps;
    case Fuente::Xmp:
        return cuentas.intXmp;
    case Fuente::Iptc:
        return cuentas.intIptc;
    case Fuente::Video:
        return cuentas.intVideo;
    case Fuente::Nombre:
        return cuentas.intNombre;
    case Fuente::Carpeta:
        return cuentas.intCarpeta;
    case Fuente::Archivo:
    case Fuente::Tecleada:
        break;
    }
    return cuentas.intManual;
}

} // namespace

void clsCuentasReparacion::fContar(Fuente fuente) { ++fCuentaDe(*this, fuente); }

std::string fTextoCuentas(const clsCuentasReparacion &cuentas)
{
    struct clsParte {
        int intCuantos;
        std::string_view strTexto;
    };
    const std::array<clsParte, 9> lstPartes{
        {{cuentas.intExif, "por EXIF"},
         {cuentas.intVideo, "por el vídeo"},
         {cuentas.intXmp, "por XMP"},
         {cuentas.intIptc, "por IPTC"},
         {cuentas.intGps, "por GPS"},
         {cuentas.intNombre, "por el nombre"},
         {cuentas.intCarpeta, "por la carpeta"},
         {cuentas.intManual, "a mano"},
         {cuentas.intSinPropuesta, "sin propuesta"}}
    };
    // Spanish points whatever the locale says: the rest of the text is Spanish, too.
    std::string strTexto =
        fConGrupos(cuentas.intFicheros, {}) + (cuentas.intFicheros == 1 ? " archivo" : " archivos");
    std::string_view strEntre = ": ";
    for (const clsParte &parte : lstPartes) {
        if (parte.intCuantos != 0) {
            strTexto += std::string(strEntre) + fConGrupos(parte.intCuantos, {}) + ' ' +
                        std::string(parte.strTexto);
            strEntre = ", ";
        }
    }
    return strTexto;
}
