#include "viewer/pcMemDC.h"

void pcMemDC::fCrear(QSize tam)
{
    m_imagen = tam.isEmpty() ? QImage() : QImage(tam, QImage::Format_ARGB32_Premultiplied);
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
    Width(bitmap.width());
    Height(bitmap.height());
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
    return sitio.isEmpty() ? QImage() : m_imagen.copy(sitio); // QImage would copy the whole then
}
