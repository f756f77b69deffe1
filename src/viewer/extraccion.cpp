#include "viewer/extraccion.h"

#include "dates/origen.h"
#include "viewer/cabecera_jpeg.h"
#include "viewer/colores.h"
#include "viewer/decodificador.h"
#include "viewer/enderezar.h"
#include "viewer/imagenes.h"
#include "viewer/mini_exif.h"
#include "viewer/recorte_mini.h"

#include <QColorSpace>
#include <QPainter>

#include <algorithm>
#include <cerrno>
#include <cmath>

namespace {

/// Size of a picture in the box, keeping its proportions; not larger than it is.
QSize fEnCaja(QSize tam, int intLado)
{
    if (tam.width() <= intLado && tam.height() <= intLado) {
        return tam;
    }
    const double dblEscala = static_cast<double>(intLado) / std::max(tam.width(), tam.height());
    const auto fReducido = [dblEscala](int intPixeles) {
        return std::max(1, static_cast<int>(std::lround(intPixeles * dblEscala)));
    };
    return {fReducido(tam.width()), fReducido(tam.height())};
}

/// Gives a picture another size. From the half of it on, interpolating between neighbours is as
/// good as the mean of all pixels and a good deal faster.
QImage fAjustar(const QImage &imagen, QSize tam)
{
    if (imagen.isNull() || tam == imagen.size()) {
        return imagen;
    }
    if (tam.width() * 2 < imagen.width() || imagen.hasAlphaChannel()) {
        return imagen.scaled(tam, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    QImage ajustada(tam, QImage::Format_RGB32);
    ajustada.setColorSpace(imagen.colorSpace());
    QPainter pintor(&ajustada);
    pintor.setRenderHint(QPainter::SmoothPixmapTransform);
    pintor.setCompositionMode(QPainter::CompositionMode_Source);
    // In bands: Qt has more than 95 lines done by other threads, which here costs more than it
    // saves.
    constexpr int intBanda = 64;
    for (int intY = 0; intY < tam.height(); intY += intBanda) {
        pintor.setClipRect(0, intY, tam.width(), intBanda);
        pintor.drawImage(ajustada.rect(), imagen);
    }
    return ajustada;
}

/// The EXIF thumbnail in a box; "Pendiente" where there is none that can stand for the picture.
clsMiniatura fMiniaturaExif(clsLector &lector, const clsCabeceraJpeg &cabecera, int intLado)
{
    QImage imagen = fMiniExif(lector, cabecera);
    if (imagen.isNull()) {
        return {Extraccion::Pendiente, {}};
    }
    const clsLados foto{cabecera.intAncho, cabecera.intAlto};
    const bool bolFina = fBastanPixeles({imagen.width(), imagen.height()}, foto, intLado);
    imagen = fAjustar(imagen, fEnCaja({foto.intAncho, foto.intAlto}, intLado));
    return {Extraccion::Hecha, fParaPantalla(fEnderezar(imagen, cabecera.intOrientacion)), bolFina};
}

/// A thumbnail of a photo that is not for this program to decode.
clsMiniatura fMiniaturaAjena(const clsAbierto &foto, const std::string &strRuta, int intLado,
                             const std::atomic<bool> &bolAnulado)
{
    clsPedido pedido;
    pedido.strRuta = strRuta;
    pedido.recuadro = QSize(intLado, intLado);
    pedido.lngMaximo = qint64{intLado} * intLado * 4;
    bool bolPasajero = false;
    QImage imagen = fDecodificarAjena(foto, pedido, bolAnulado, &bolPasajero).imagen;
    const bool bolHay = !imagen.isNull();
    return {bolHay ? Extraccion::Hecha : Extraccion::SinImagen, std::move(imagen), !bolPasajero};
}

} // namespace

QImage fEncajada(const QImage &imagen, int intLado)
{
    return imagen.isNull() ? imagen
                           : fParaPantalla(fAjustar(imagen, fEnCaja(imagen.size(), intLado)));
}

Extraccion fSinAbrir(clsError error)
{
    switch (error.fNumero()) {
    case ENOENT:
    case ENOTDIR:
    case EISDIR:
    case EINVAL: // a pipe or a device
    case ENXIO:  // a socket
        return Extraccion::Falta;
    default:
        return Extraccion::Disco;
    }
}

clsMiniatura fDeOtra(const clsMiniatura &otra, QSize natural, int intLado)
{
    const QSize suyo = otra.imagen.size();
    constexpr int intGrande = 64; // times its size: larger than any box
    const QSize tam = fEnCaja(natural.isEmpty() ? suyo * intGrande : natural, intLado);
    return {Extraccion::Hecha, fAjustar(otra.imagen, tam),
            otra.bolFina && suyo.width() >= tam.width() && suyo.height() >= tam.height()};
}

clsMiniatura fMirarFoto(const std::string &strRuta, int intLado, const clsMiniatura &otra)
{
    const auto abierto = fAbrirRegular(strRuta);
    if (!abierto) {
        return {fSinAbrir(abierto.fError()), {}};
    }
    clsOrigenArchivo origen(*abierto);
    clsLector lector(origen);
    clsCabeceraJpeg cabecera;
    static_cast<void>(fLeerCabeceraJpeg(lector, cabecera));
    clsMiniatura exif = fMiniaturaExif(lector, cabecera, intLado);
    const bool bolHay = exif.extraccion == Extraccion::Hecha;
    if (otra.imagen.isNull() || (bolHay && exif.bolFina)) {
        return exif;
    }
    clsMiniatura hecha = fDeOtra(otra, fTamDerecho(cabecera), intLado);
    return bolHay && !hecha.bolFina ? exif : hecha;
}

clsMiniatura fDecodificarMini(const std::string &strRuta, int intLado,
                              const std::atomic<bool> &bolAnulado)
{
    const auto abierto = fAbrirRegular(strRuta);
    if (!abierto) {
        return {fSinAbrir(abierto.fError()), {}};
    }
    if (fAjena(*abierto, strRuta)) {
        return fMiniaturaAjena(*abierto, strRuta, intLado, bolAnulado);
    }
    clsDecodificador decodificador(*abierto, bolAnulado);
    const QSize tam = decodificador.fTam();
    QImage imagen = tam.isEmpty() ? QImage() : decodificador.fLeer(fEnCaja(tam, intLado));
    if (imagen.isNull()) {
        return {decodificador.fFalloDisco() ? Extraccion::Disco : Extraccion::SinImagen, {}};
    }
    // What the disk did not give is grey.
    return {Extraccion::Hecha, fParaPantalla(std::move(imagen)), !decodificador.fFalloDisco()};
}

clsMiniatura fExtraerFoto(const std::string &strRuta, int intLado,
                          const std::atomic<bool> &bolAnulado)
{
    clsMiniatura vista = fMirarFoto(strRuta, intLado);
    const bool bolFalta = vista.extraccion == Extraccion::Pendiente || !vista.bolFina;
    return bolFalta ? fDecodificarMini(strRuta, intLado, bolAnulado) : vista;
}
