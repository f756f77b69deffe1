#include "fotos.h"

#include "exif_escritor.h"
#include "fecha.h"

#include <algorithm>
#include <QBuffer>
#include <QTransform>
#include <stdexcept>

namespace demo {

namespace {

/// The stored pixels that give this upright picture once the orientation (Exif 2.3, tag 0112) is
/// applied. The mirrored orientations are their own inverse, 6 and 8 are each other's.
QImage fGirar(const QImage &imgDerecha, int intOrientacion)
{
    const QImage imgTraspuesta =
        intOrientacion == 5 || intOrientacion == 7
            ? imgDerecha.transformed(QTransform().rotate(90)).mirrored(true, false)
            : QImage();
    switch (intOrientacion) {
    case 1:
        return imgDerecha;
    case 2:
        return imgDerecha.mirrored(true, false);
    case 3:
        return imgDerecha.mirrored(true, true);
    case 4:
        return imgDerecha.mirrored(false, true);
    case 5: // exchange of rows and columns
        return imgTraspuesta;
    case 6: // a viewer turns it clockwise, so it is stored turned the other way
        return imgDerecha.transformed(QTransform().rotate(-90));
    case 7: // the other diagonal
        return imgTraspuesta.mirrored(true, true);
    case 8:
        return imgDerecha.transformed(QTransform().rotate(90));
    default:
        throw std::runtime_error("orientación desconocida en el plan");
    }
}

/// Cameras write 160x120 whatever the photo's proportions are, with black bars (Exif 2.3, and the
/// DCF rule for thumbnails).
QByteArray fMiniatura(const QImage &imgGuardada)
{
    const QSize tamMini(160, 120);
    const QImage imgChica =
        imgGuardada.scaled(tamMini, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage imgMini(tamMini, QImage::Format_RGB32);
    imgMini.fill(Qt::black);
    QPainter pintor(&imgMini);
    pintor.drawImage((tamMini.width() - imgChica.width()) / 2,
                     (tamMini.height() - imgChica.height()) / 2, imgChica);
    pintor.end();
    return fJpeg(imgMini, 75);
}

/// Exposure and sensitivity: plausible and always the same for one path.
void fElegirToma(clsExif &exif, const std::string &strRuta)
{
    clsAzar azar(clsAzar::fSemilla("toma " + strRuta));
    constexpr quint32 lstExposiciones[] = {30, 60, 80, 125, 200, 250, 400, 500, 800};
    constexpr quint32 lstIso[] = {80, 100, 125, 200, 400};
    exif.lngExposicionEntre = lstExposiciones[azar.fEntero(0, 8)];
    exif.lngIso = lstIso[azar.fEntero(0, 4)];
}

} // namespace

QImage fPintar(fnEscena fPintarEscena, const QSize &tamImagen, const std::string &strSemilla,
               double dblTiempo)
{
    QImage imgEscena(tamImagen, QImage::Format_RGB32);
    if (imgEscena.isNull()) {
        throw std::runtime_error("no hay memoria para pintar una imagen");
    }
    imgEscena.fill(Qt::white);
    const double dblEscala = std::min(tamImagen.width(), tamImagen.height()) / 1000.0;
    clsAzar azar(clsAzar::fSemilla(strSemilla));
    QPainter pintor(&imgEscena);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(Qt::NoPen);
    pintor.scale(dblEscala, dblEscala);
    clsLienzo lienzo{pintor, azar, tamImagen.width() / dblEscala, tamImagen.height() / dblEscala,
                     dblTiempo};
    fPintarEscena(lienzo);
    pintor.end();
    return imgEscena;
}

QByteArray fJpeg(const QImage &imgFoto, int intCalidad)
{
    QByteArray datJpeg;
    QBuffer memoria(&datJpeg);
    if (!memoria.open(QIODevice::WriteOnly) || !imgFoto.save(&memoria, "JPEG", intCalidad)) {
        throw std::runtime_error("no se puede codificar una imagen JPEG (falta el módulo de Qt)");
    }
    return datJpeg;
}

QByteArray fFoto(const clsCamara *pCamara, const clsFilaFoto &fila, const std::string &strRuta)
{
    const QImage imgDerecha = fPintar(fila.fPintar, fila.tamFoto, strRuta, 0);
    const QImage imgGuardada = fGirar(imgDerecha, fila.intOrientacion);
    const QByteArray datJpeg = fJpeg(imgGuardada, 86);
    if (pCamara == nullptr) {
        return datJpeg;
    }
    clsExif exif{};
    exif.ordenBytes = pCamara->ordenBytes;
    exif.strMarca = pCamara->strMarca;
    exif.strModelo = pCamara->strModelo;
    exif.strFecha = fFechaExif(fila.strFecha);
    exif.intOrientacion = fila.intOrientacion;
    exif.tamGuardado = imgGuardada.size();
    exif.lngDiafragmaDecimos = pCamara->lngDiafragmaDecimos;
    fElegirToma(exif, strRuta);
    if (pCamara->bolMiniatura) {
        exif.datMiniatura = fMiniatura(imgGuardada);
    }
    return fConExif(datJpeg, exif);
}

} // namespace demo
