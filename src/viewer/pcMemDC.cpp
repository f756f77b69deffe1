#include "viewer/pcMemDC.h"

namespace {

constexpr QImage::Format formato = QImage::Format_ARGB32_Premultiplied;

} // namespace

void pcMemDC::fCrear(QSize tam)
{
    m_imagen = tam.isEmpty() ? QImage() : QImage(tam, formato);
    m_tam = tam.isEmpty() || !m_imagen.isNull() ? tam : QSize(0, 0);
    m_imagen.fill(Qt::transparent);
}

void pcMemDC::Width(int intAncho)
{
    if (intAncho > Width()) {
        fCrear({intAncho, Height()});
    }
}

void pcMemDC::Height(int intAlto)
{
    if (intAlto > Height()) {
        fCrear({Width(), intAlto});
    }
}

void pcMemDC::CreateFromHBitmap(const QImage &hBmp)
{
    QImage bitmap = hBmp;
    bitmap.setDevicePixelRatio(1); // pixel by pixel, whatever density it is meant for
    const QSize tam = bitmap.size();
    if (tam.expandedTo(m_tam) ==
        tam) { // nothing else stays: the pixels are shared until one is changed
        m_imagen =
            bitmap.format() == QImage::Format_RGB32 ? bitmap : bitmap.convertToFormat(formato);
        m_tam = m_imagen.size();
        return;
    }
    Width(tam.width());
    Height(tam.height());
    if (!m_imagen.isNull()) {
        QPainter pintor(&m_imagen);
        pintor.setCompositionMode(QPainter::CompositionMode_Source);
        pintor.drawImage(0, 0, bitmap);
    }
}

void pcMemDC::PaintPicture(QPainter &hDCTo, int lLeft, int lTop, int lWidth, int lHeight,
                           int lSrcLeft, int lSrcTop, QPainter::CompositionMode dwRop) const
{
    hDCTo.save();
    hDCTo.setCompositionMode(dwRop);
    hDCTo.drawImage(QPoint(lLeft, lTop), GetPicture(lSrcLeft, lSrcTop, lWidth, lHeight));
    hDCTo.restore();
}

QImage pcMemDC::GetPicture(int lLeft, int lTop, int lWidth, int lHeight) const
{
    const QRect sitio(lLeft, lTop, lWidth < 0 ? Width() : lWidth, lHeight < 0 ? Height() : lHeight);
    return sitio.isEmpty()            ? QImage() // QImage would copy the whole then
           : sitio == m_imagen.rect() ? m_imagen
                                      : m_imagen.copy(sitio);
}
