#include "viewer/cache_fotos.h"

#include "viewer/mini_exif.h"

#include <QBuffer>

#include <algorithm>

clsCacheFotos::clsOrigen clsCacheFotos::fOrigenUsual()
{
    return {clsCacheMini::fCarpetaUsual(), clsCacheEscritorio::fCarpetaUsual()};
}

clsCacheFotos::clsCacheFotos(const clsOrigen &origen)
    : m_minimo(origen.minimo), m_propia(origen.strPropia), m_escritorio(origen.strEscritorio)
{
}

clsMiniatura clsCacheFotos::fLeer(const std::string &strRuta, const clsHuella &huella, int intCaja,
                                  bool &bolPropia) const
{
    clsMiniatura guardada{Extraccion::Hecha, fLeerJpeg(m_propia.fLeer(strRuta, huella))};
    bolPropia = !guardada.imagen.isNull();
    if (!bolPropia) {
        guardada.imagen = m_escritorio.fLeer(strRuta, huella, intCaja, true);
    }
    if (guardada.imagen.isNull()) {
        return {Extraccion::Pendiente, {}};
    }
    // Of ours, one that is smaller than all of them is all there is of a small picture.
    const QSize tam = guardada.imagen.size();
    const bool bolEntera = bolPropia && std::max(tam.width(), tam.height()) < intLado;
    guardada = fDeOtra(guardada, bolEntera ? tam : QSize(), intCaja);
    guardada.imagen = fEncajada(guardada.imagen, intCaja);
    return guardada;
}

void clsCacheFotos::fGuardar(const std::string &strRuta, const clsHuella &huella,
                             const QImage &imagen, std::chrono::nanoseconds tardanza)
{
    constexpr int intCalidad = 90;
    QBuffer bufer;
    if (tardanza > m_minimo && bufer.open(QIODevice::WriteOnly) &&
        fEncajada(imagen, intLado).save(&bufer, "JPG", intCalidad)) {
        m_propia.fGuardar(
            strRuta, huella,
            {bufer.data().constData(), static_cast<std::size_t>(bufer.data().size())});
    }
}
