#include "viewer/vistazo.h"

#include "dates/origen.h"
#include "viewer/colores.h"
#include "viewer/de_paso.h"
#include "viewer/enderezar.h"
#include "viewer/mini_exif.h"

#include <utility>

namespace {

using clsHechoFoto = clsAlmacen<clsFoto>::clsHecho;

clsHechoFoto fVisto(clsFuente fuente)
{
    const bool bolHay = !fuente.imagen.isNull();
    return {.valor = {std::make_shared<const clsFuente>(std::move(fuente))}, .bolGuardar = bolHay};
}

/// One eighth in each direction, which the JPEG decoder makes of the fewest of its numbers.
clsHechoFoto fOctavo(const std::string &strRuta, const clsAnulado &anulado)
{
    return fVisto(fDecodificar({strRuta, QSize(1, 1), 0, lngMaximoFoto}, anulado));
}

clsHechoFoto fOjear(const std::string &strRuta, const clsHuella &huella, const clsCacheFotos *fotos)
{
    const auto abierto = fAbrirRegular(strRuta);
    clsCabeceraJpeg cabecera;
    if (!abierto) {
        return fVisto({});
    }
    clsOrigenArchivo origen(*abierto);
    clsLector lector(origen);
    if (!fLeerCabeceraJpeg(lector, cabecera) || fTamDerecho(cabecera).isEmpty()) {
        return fVisto({}); // without its size there is no place for it
    }
    QImage imagen = fMiniExif(lector, cabecera);
    if (!imagen.isNull()) {
        imagen = fParaPantalla(fEnderezar(imagen, cabecera.intOrientacion));
    } else if (fotos != nullptr) {
        bool bolPropia = false;
        imagen = fotos->fLeer(strRuta, huella, clsCacheFotos::intLado, bolPropia).imagen;
    }
    clsHechoFoto hecho = fVisto({imagen, fTamDerecho(cabecera)});
    if (imagen.isNull()) {
        clsLector desdeElPrincipio(origen);
        const auto esfuerzo = fMedirJpeg(desdeElPrincipio);
        if (esfuerzo && fOctavoDePaso(huella.lngBytes, esfuerzo->intPasadas)) {
            hecho.fSigue = [strRuta](const clsAnulado &anulado) {
                return fOctavo(strRuta, anulado);
            };
        }
    }
    return hecho;
}

} // namespace

std::string fClaveVistazo(const std::string &strRuta, const clsHuella &huella)
{
    return fClave({strRuta, QSize(), 0}, huella); // no frame has no size
}

clsAlmacen<clsFoto>::clsPieza fPiezaVistazo(const std::string &strRuta, const clsHuella &huella,
                                            const std::shared_ptr<const clsCacheFotos> &fotos)
{
    return [=](const clsAnulado & /*anulado*/) { return fOjear(strRuta, huella, fotos.get()); };
}
