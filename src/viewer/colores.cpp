#include "viewer/colores.h"

#include "viewer/conversion_color.h"

#include <QColorSpace>

#include <algorithm>
#include <span>
#include <utility>

namespace {

/// Whether it is sRGB to the eye. The profiles that cameras embed are not equal to
/// QColorSpace::SRgb.
bool fEsSrgb(const QColorSpace &espacio)
{
    return espacio.primaries() == QColorSpace::Primaries::SRgb &&
           espacio.transferFunction() == QColorSpace::TransferFunction::SRgb;
}

std::span<QRgb> fPuntos(QImage &imagen, int intX, int intY, int intCuantos)
{
    return {reinterpret_cast<QRgb *>(imagen.scanLine(intY)) + intX,
            static_cast<std::size_t>(intCuantos)};
}

void fASrgb(QImage &imagen)
{
    if (const auto tinte = clsTinte::fCrear(imagen)) {
        tinte->fTenir(imagen, imagen.rect());
    } else if (const QColorSpace espacio = imagen.colorSpace();
               espacio.isValid() && !fEsSrgb(espacio)) {
        imagen.convertToColorSpace(QColorSpace::SRgb);
    }
}

} // namespace

QImage fParaPantalla(QImage imagen)
{
    fASrgb(imagen);
    const QImage::Format formato =
        imagen.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    imagen.setDevicePixelRatio(1); // whatever density the file claims
    return imagen.format() == formato ? imagen : std::move(imagen).convertToFormat(formato);
}

clsTinte::clsTinte(std::shared_ptr<const clsConversion> conversion, QSize tam)
    : m_conversion(std::move(conversion)), m_teselas(tam.width(), tam.height())
{
}

std::unique_ptr<clsTinte> clsTinte::fCrear(QImage &imagen)
{
    const QColorSpace espacio = imagen.colorSpace();
    if (imagen.format() != QImage::Format_RGB32 || !espacio.isValid() || fEsSrgb(espacio)) {
        return nullptr;
    }
    auto conversion = fConversion(espacio);
    if (!conversion->fVale()) {
        return nullptr;
    }
    imagen.setColorSpace(QColorSpace::SRgb);
    return std::unique_ptr<clsTinte>(new clsTinte(std::move(conversion), imagen.size()));
}

void clsTinte::fTenir(QImage &imagen, QRect parte)
{
    for (const clsTesela &tesela :
         m_teselas.fNuevas({parte.x(), parte.y(), parte.width(), parte.height()})) {
        for (int intY = tesela.intY; intY < tesela.intY + tesela.intAlto; ++intY) {
            m_conversion->fConvertir(fPuntos(imagen, tesela.intX, intY, tesela.intAncho));
        }
    }
}

QImage clsTinte::fMuestra(const QImage &imagen, QRect parte, int intPaso) const
{
    const auto fCuantos = [intPaso](int intPixeles) {
        return (intPixeles + intPaso - 1) / intPaso;
    };
    QImage muestra(fCuantos(parte.width()), fCuantos(parte.height()), QImage::Format_RGB32);
    for (int intY = 0; intY < muestra.height(); ++intY) {
        const int intSuyaY = parte.y() + intY * intPaso;
        const auto *const lstSuyos =
            reinterpret_cast<const QRgb *>(imagen.constScanLine(intSuyaY)) + parte.x();
        for (int intX = 0; intX < muestra.width();) { // square by square
            const int intSuyaX = parte.x() + intX * intPaso;
            const int intResto = clsTeselas::intLado - intSuyaX % clsTeselas::intLado;
            const auto lstPuntos =
                fPuntos(muestra, intX, intY, std::min(fCuantos(intResto), muestra.width() - intX));
            for (QRgb &punto : lstPuntos) {
                punto = lstSuyos[intX++ * intPaso];
            }
            if (!m_teselas.fDada(intSuyaX, intSuyaY)) {
                m_conversion->fConvertir(lstPuntos);
            }
        }
    }
    return muestra;
}
