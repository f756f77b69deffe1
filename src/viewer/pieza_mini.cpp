#include "viewer/pieza_mini.h"

#include "shared/medios.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

using clsHecho = clsAlmacenMini::clsHecho;

/// What was found out about a file.
struct clsHallazgo {
    std::string strRuta;
    clsHuella huella;
    int intLado = 0;
};

/// What the disk did not give today it may give tomorrow: that is not kept.
clsHecho fHecho(clsMiniatura miniatura, const clsHallazgo &suyo = {}, bool bolGuardar = false)
{
    return {
        .valor = {suyo.huella, suyo.intLado, std::move(miniatura)},
          .bolGuardar = bolGuardar
    };
}

/// Whether something is still to be done for what there is at once.
bool fFalta(const clsMiniatura &vista)
{
    return vista.extraccion == Extraccion::Pendiente || !vista.bolFina;
}

/// What there is at once, and what is still to be done for it, if anything.
clsHecho fPrimero(clsMiniatura vista, const clsHallazgo &suyo, clsAlmacenMini::clsPieza fSigue)
{
    const bool bolHay = vista.extraccion == Extraccion::Hecha;
    const bool bolFalta = fFalta(vista);
    clsHecho hecho = fHecho(std::move(vista), suyo, bolHay);
    if (bolFalta) {
        hecho.fSigue = std::move(fSigue);
        hecho.intMas = bolHay ? 1 : 0;
    }
    return hecho;
}

/// Decodes a photo, and keeps the thumbnail in the cache, if one is given.
clsMiniatura fDescifrar(const clsHallazgo &suyo, clsCacheFotos *cache, const clsAnulado &anulado)
{
    if (cache == nullptr) {
        return fDecodificarMini(suyo.strRuta, suyo.intLado, anulado);
    }
    const auto antes = std::chrono::steady_clock::now();
    clsMiniatura fina =
        fDecodificarMini(suyo.strRuta, std::max(suyo.intLado, clsCacheFotos::intLado), anulado);
    const auto tardanza = std::chrono::steady_clock::now() - antes;
    // Of that content, and no other that came in its place meanwhile.
    const auto huella = fHuella(suyo.strRuta);
    if (!fina.imagen.isNull() && fina.bolFina && huella && *huella == suyo.huella) {
        cache->fGuardar(suyo.strRuta, suyo.huella, fina.imagen, tardanza);
    }
    fina.imagen = fEncajada(fina.imagen, suyo.intLado);
    return fina;
}

clsHecho fHacerFoto(const clsHallazgo &suyo, const clsMiniatura &otra,
                    std::shared_ptr<clsCacheFotos> cache)
{
    clsMiniatura vista = fMirarFoto(suyo.strRuta, suyo.intLado, otra);
    if (cache && fFalta(vista)) {
        bool bolPropia = false;
        clsMiniatura guardada = cache->fLeer(suyo.strRuta, suyo.huella, suyo.intLado, bolPropia);
        if (guardada.extraccion == Extraccion::Hecha &&
            (guardada.bolFina || vista.extraccion == Extraccion::Pendiente)) {
            vista = std::move(guardada);
        }
        if (bolPropia) {
            cache.reset(); // there is nothing to add
        }
    }
    return fPrimero(vista, suyo, [suyo, vista, cache](const clsAnulado &anulado) {
        clsMiniatura fina = fDescifrar(suyo, cache.get(), anulado);
        const bool bolNinguna = fina.extraccion == Extraccion::SinImagen;
        if (bolNinguna && vista.extraccion == Extraccion::Hecha) {
            fina = {vista.extraccion, vista.imagen, fina.bolFina}; // nothing sharper comes now
        }
        const bool bolFirme = bolNinguna && fina.bolFina;
        return fHecho(fina, suyo, fina.extraccion == Extraccion::Hecha || bolFirme);
    });
}

/// Looks whether a video can be opened; its frame has to wait for its turn.
clsHecho fHacerVideo(const clsHallazgo &suyo, const clsMiniatura &otra,
                     const clsFotograma &fFotograma)
{
    if (const auto archivo = fAbrirRegular(suyo.strRuta); !archivo) {
        return fHecho({fSinAbrir(archivo.fError()), {}});
    }
    if (!fFotograma || suyo.huella.lngBytes == 0) {
        return fHecho({Extraccion::SinImagen, {}}, suyo, true);
    }
    clsMiniatura vista{Extraccion::Pendiente, {}};
    if (!otra.imagen.isNull()) {
        vista = fDeOtra(otra, {}, suyo.intLado);
    }
    return fPrimero(vista, suyo, [suyo, fFotograma](const clsAnulado &anulado) {
        QImage imagen = fFotograma(suyo.strRuta, suyo.huella, suyo.intLado, anulado);
        // Without one it may be that the disk was slow: the next visit tries again.
        return imagen.isNull() ? fHecho({Extraccion::SinImagen, {}})
                               : fHecho({Extraccion::Hecha, std::move(imagen)}, suyo, true);
    });
}

/// What of a kept thumbnail can serve for another box: one that is smaller than its own box is all
/// there is of a small picture.
clsMiniatura fServible(const clsMiniGuardada &guardada)
{
    const QSize tam = guardada.miniatura.imagen.size();
    return std::max(tam.width(), tam.height()) >= guardada.intLado ? guardada.miniatura
                                                                   : clsMiniatura{};
}

} // namespace

std::string fClaveMini(const std::string &strRuta, int intLado)
{
    return strRuta + '\0' + std::to_string(intLado);
}

clsAlmacenMini::clsPieza fPiezaMini(const std::string &strRuta, int intLado,
                                    std::optional<clsMiniGuardada> guardada,
                                    const clsFuentesMini &fuentes)
{
    return [=, guardada = std::move(guardada)](const clsAnulado & /*anulado*/) -> clsHecho {
        const auto huella = fHuella(strRuta);
        if (!huella) {
            return fHecho({fSinAbrir(huella.fError()), {}});
        }
        const bool bolVale = guardada && guardada->huella == *huella;
        if (bolVale && guardada->intLado == intLado && guardada->miniatura.bolFina) {
            return {*guardada};
        }
        const clsHallazgo suyo{strRuta, *huella, intLado};
        const clsMiniatura otra = bolVale ? fServible(*guardada) : clsMiniatura{};
        return fEsVideo(strRuta) ? fHacerVideo(suyo, otra, fuentes.fFotograma)
                                 : fHacerFoto(suyo, otra, fuentes.fotos);
    };
}

clsAlmacenMini::clsPieza fSinAfinar(clsAlmacenMini::clsPieza fPieza)
{
    return [fPieza = std::move(fPieza)](const clsAnulado &anulado) {
        clsHecho hecho = fPieza(anulado);
        if (hecho.valor.miniatura.extraccion == Extraccion::Hecha) {
            hecho.fSigue = nullptr;
        }
        return hecho;
    };
}
