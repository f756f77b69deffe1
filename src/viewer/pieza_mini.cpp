#include "viewer/pieza_mini.h"

#include "shared/medios.h"

#include <utility>

namespace {

using clsHecho = clsAlmacenMini::clsHecho;

/// What the disk did not give today it may give tomorrow: that is not kept.
clsHecho fHecho(clsMiniatura miniatura, const clsHuella &huella = {}, bool bolGuardar = false)
{
    return {
        .valor = {huella, std::move(miniatura)},
          .bolGuardar = bolGuardar
    };
}

clsHecho fHacerFoto(const std::string &strRuta, const clsHuella &huella, int intLado,
                    const clsAnulado &anulado)
{
    clsMiniatura miniatura = fExtraerFoto(strRuta, intLado, anulado);
    const bool bolVale =
        miniatura.extraccion == Extraccion::Hecha || miniatura.extraccion == Extraccion::SinImagen;
    return fHecho(std::move(miniatura), huella, bolVale);
}

/// Looks whether a video can be opened; its frame has to wait for its turn.
clsHecho fHacerVideo(const std::string &strRuta, const clsHuella &huella, int intLado,
                     const clsFotograma &fFotograma)
{
    if (const auto archivo = fAbrirRegular(strRuta); !archivo) {
        return fHecho({fSinAbrir(archivo.fError()), {}});
    }
    if (!fFotograma || huella.lngBytes == 0) {
        return fHecho({Extraccion::SinImagen, {}}, huella, true);
    }
    clsHecho hecho = fHecho({Extraccion::Pendiente, {}});
    hecho.fSigue = [=](const clsAnulado &anulado) {
        QImage imagen = fFotograma(strRuta, huella, intLado, anulado);
        // Without one it may be that the disk was slow: the next visit tries again.
        return imagen.isNull() ? fHecho({Extraccion::SinImagen, {}})
                               : fHecho({Extraccion::Hecha, std::move(imagen)}, huella, true);
    };
    return hecho;
}

} // namespace

std::string fClaveMini(const std::string &strRuta, int intLado)
{
    return strRuta + '\0' + std::to_string(intLado);
}

clsAlmacenMini::clsPieza fPiezaMini(const std::string &strRuta, int intLado,
                                    std::optional<clsMiniGuardada> guardada,
                                    const clsFotograma &fFotograma)
{
    return [=, guardada = std::move(guardada)](const clsAnulado &anulado) -> clsHecho {
        const auto huella = fHuella(strRuta);
        if (!huella) {
            return fHecho({fSinAbrir(huella.fError()), {}});
        }
        if (guardada && guardada->huella == *huella) {
            return {*guardada};
        }
        return fEsVideo(strRuta) ? fHacerVideo(strRuta, *huella, intLado, fFotograma)
                                 : fHacerFoto(strRuta, *huella, intLado, anulado);
    };
}
