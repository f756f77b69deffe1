#include "viewer/mini_exif.h"

#include "dates/origen.h"
#include "viewer/recorte_mini.h"

#include <QColorSpace>

#include <algorithm>

namespace {

/// Bytes and pixels a thumbnail has at most; by right its segment has 64 KiB.
constexpr std::uint32_t lngMaximoMini = 1 << 20;

/// The profile that a photo embeds; not valid when it cannot be used.
QColorSpace fPerfil(clsLector &lector, const clsCabeceraJpeg &cabecera)
{
    return QColorSpace::fromIccProfile(
        QByteArray::fromStdString(lector.fCopiar(cabecera.lngPerfil, cabecera.lngBytesPerfil)));
}

/// Whether a stripe at the edge of a thumbnail is a bar. The line next to the picture is not looked
/// at: it may show half of it.
bool fEsFranja(const QImage &imagen, QRect franja)
{
    const QImage puntos = imagen.copy(franja).convertToFormat(QImage::Format_RGB32);
    return fOscura({reinterpret_cast<const std::uint32_t *>(puntos.constBits()),
                    static_cast<std::size_t>(puntos.sizeInBytes()) / sizeof(std::uint32_t)});
}

/// The middle of a thumbnail; null when something else than bars lies beside it.
QImage fSinFranjas(const QImage &imagen, const clsRecorte &recorte)
{
    const QRect sitio(recorte.intX, recorte.intY, recorte.intAncho, recorte.intAlto);
    if (imagen.rect() == sitio) {
        return imagen;
    }
    QSize tam = imagen.size();
    if (recorte.intX > 0) {
        tam.setWidth(std::max(recorte.intX - 1, 1));
    } else {
        tam.setHeight(std::max(recorte.intY - 1, 1));
    }
    QRect opuesta(QPoint(), tam);
    opuesta.moveBottomRight(imagen.rect().bottomRight());
    return fEsFranja(imagen, {QPoint(), tam}) && fEsFranja(imagen, opuesta) ? imagen.copy(sitio)
                                                                            : QImage();
}

} // namespace

QSize fTamDerecho(const clsCabeceraJpeg &cabecera)
{
    constexpr int intGirada = 5; // from this orientation on the picture lies on its side
    const QSize tam(cabecera.intAncho, cabecera.intAlto);
    return cabecera.intOrientacion < intGirada ? tam : tam.transposed();
}

QImage fMiniExif(clsLector &lector, const clsCabeceraJpeg &cabecera)
{
    if (cabecera.lngBytesMini == 0 || cabecera.lngBytesMini > lngMaximoMini ||
        cabecera.bolPerfilPartido) {
        return {};
    }
    QImage imagen = fLeerJpeg(lector.fCopiar(cabecera.lngMiniatura, cabecera.lngBytesMini));
    const auto recorte =
        fRecorteMini({imagen.width(), imagen.height()}, {cabecera.intAncho, cabecera.intAlto});
    imagen = recorte ? fSinFranjas(imagen, *recorte) : QImage();
    if (!imagen.isNull() && !imagen.colorSpace().isValid() && cabecera.lngBytesPerfil > 0) {
        // Cameras and programs make it from the picture's values, and its profile holds for both.
        imagen.setColorSpace(fPerfil(lector, cabecera));
    }
    return imagen;
}

QImage fLeerJpeg(const std::string &strBytes)
{
    clsOrigenMemoria memoria(strBytes);
    clsLector lector(memoria);
    // Its own head first: what claims to be larger than a thumbnail is not worth decoding.
    const auto esfuerzo = strBytes.size() <= lngMaximoMini ? fMedirJpeg(lector) : std::nullopt;
    if (!esfuerzo || esfuerzo->lngPixeles > lngMaximoMini ||
        !fDecodificable(*esfuerzo, static_cast<std::int64_t>(strBytes.size()))) {
        return {};
    }
    return QImage::fromData(reinterpret_cast<const uchar *>(strBytes.data()),
                            static_cast<int>(strBytes.size()), "JPG");
}
