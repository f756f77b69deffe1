// From a row of the plan to the bytes of its photo or film.
#include "escenas.h"
#include "escritores.h"
#include "plan.h"

#include <algorithm>
#include <QBuffer>
#include <QTransform>
#include <stdexcept>
#include <vector>

namespace demo {

namespace {

/// The stored pixels that give this upright picture once the orientation (Exif 2.3, tag 0112) is
/// applied. The mirrored orientations are their own inverse, 6 and 8 are each other's.
QImage fGirar(const QImage &imgDerecha, int intOrientacion)
{
    constexpr int lstGiros[] = {0, 0, 180, 180, 90, 270, 270, 90}; // clockwise, from orientation 1
    const bool bolEspejo =
        intOrientacion == 2 || intOrientacion == 4 || intOrientacion == 5 || intOrientacion == 7;
    return imgDerecha.transformed(QTransform().rotate(lstGiros[intOrientacion - 1]))
        .mirrored(bolEspejo, false);
}

/// The scene in this size. The same seed gives the same picture; the time moves it within a film.
QImage fPintar(std::string_view strEscena, const QSize &tamImagen, const std::string &strSemilla,
               double dblTiempo)
{
    QImage imgEscena(tamImagen, QImage::Format_RGB32);
    if (imgEscena.isNull()) {
        throw std::runtime_error("no hay memoria para pintar una imagen");
    }
    imgEscena.fill(Qt::white);
    const double dblEscala = std::min(tamImagen.width(), tamImagen.height()) / 1000.0;
    clsAzar azar(strSemilla);
    QPainter pintor(&imgEscena);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(Qt::NoPen);
    pintor.scale(dblEscala, dblEscala);
    clsLienzo lienzo{pintor, azar, tamImagen.width() / dblEscala, tamImagen.height() / dblEscala,
                     dblTiempo};
    fPintarEscena(lienzo, strEscena);
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

/// Cameras write 160x120 whatever the photo's proportions are, with black bars (Exif 2.3, and the
/// DCF rule for thumbnails).
QByteArray fMiniatura(const QImage &imgGuardada)
{
    QImage imgMini(160, 120, QImage::Format_RGB32);
    imgMini.fill(Qt::black);
    const QImage imgChica =
        imgGuardada.scaled(imgMini.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QRect marco = imgChica.rect();
    marco.moveCenter(imgMini.rect().center());
    QPainter pintor(&imgMini);
    pintor.drawImage(marco, imgChica);
    pintor.end();
    return fJpeg(imgMini, 75);
}

/// Exposure and sensitivity: plausible and always the same for one path.
void fElegirToma(clsExif &exif, const std::string &strRuta)
{
    clsAzar azar("toma " + strRuta);
    constexpr quint32 lstExposiciones[] = {30, 60, 80, 125, 200, 250, 400, 500, 800};
    constexpr quint32 lstIso[] = {80, 100, 125, 200, 400};
    exif.lngExposicionEntre = lstExposiciones[azar.fEntero(0, 8)];
    exif.lngIso = lstIso[azar.fEntero(0, 4)];
}

} // namespace

QByteArray fFoto(const clsCamara *pCamara, const clsFila &fila, const std::string &strRuta)
{
    const QImage imgDerecha = fPintar(fila.strEscena, fila.tamFoto, strRuta, 0);
    const QImage imgGuardada = fGirar(imgDerecha, fila.intOrientacion);
    const QByteArray datJpeg = fJpeg(imgGuardada, 86);
    if (pCamara == nullptr) {
        return datJpeg;
    }
    clsExif exif{.ordenBytes = pCamara->ordenBytes,
                 .strMarca = pCamara->strMarca,
                 .strModelo = pCamara->strModelo,
                 .strFecha = fila.strFecha,
                 .intOrientacion = fila.intOrientacion,
                 .tamGuardado = imgGuardada.size(),
                 .lngDiafragmaDecimos = pCamara->lngDiafragmaDecimos};
    exif.strFecha[4] = exif.strFecha[7] = ':'; // Exif 2.3, DateTime
    fElegirToma(exif, strRuta);
    if (pCamara->bolMiniatura) {
        exif.datMiniatura = fMiniatura(imgGuardada);
    }
    return fConExif(datJpeg, exif);
}

QByteArray fVideo(const clsFila &fila, const std::string &strRuta)
{
    constexpr QSize tamCuadro(320, 240);
    constexpr int intPorSegundo = 10;
    std::vector<QByteArray> lstCuadros;
    for (int intI = 0; intI < fila.intCuadros; ++intI) {
        const double dblTiempo = static_cast<double>(intI) / fila.intCuadros;
        lstCuadros.push_back(fJpeg(fPintar(fila.strEscena, tamCuadro, strRuta, dblTiempo), 85));
    }
    if (QString::fromStdString(strRuta).endsWith(".avi", Qt::CaseInsensitive)) {
        return fAvi(lstCuadros, tamCuadro, intPorSegundo);
    }
    return fMov(lstCuadros, tamCuadro, intPorSegundo, fInstante(fila.strFecha));
}

} // namespace demo
