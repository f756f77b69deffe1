#pragma once

#include <QImage>
#include <QPainter>

/// An off-screen drawing surface that owns its pixels. Sizes in pixels.
///
/// It holds Width() x Height() pixels, none when one of the two is still 0. Negative sizes in the
/// operations mean the surface's own.
class pcMemDC {
public:
    /// Copies the picture's pixels into the surface, see CreateFromHBitmap.
    void CreateFromPicture(const QPixmap &sPic) { CreateFromHBitmap(sPic.toImage()); }
    /// Grows the surface to the bitmap's size where it is smaller and copies the whole bitmap to
    /// its top left corner. A surface already larger keeps its size and its other pixels.
    void CreateFromHBitmap(const QImage &hBmp);

    /// Block transfer of a rectangle of the surface to another device.
    /// @param dwRop how the pixels are combined; a plain copy as a rule.
    void PaintPicture(QPainter &hDCTo, int lLeft, int lTop, int lWidth, int lHeight, int lSrcLeft,
                      int lSrcTop,
                      QPainter::CompositionMode dwRop = QPainter::CompositionMode_Source) const;
    /// A rectangle of the surface as a picture of its own; null when the surface is empty or the
    /// size is 0. What lies outside the surface is blank.
    [[nodiscard]] QImage GetPicture(int lLeft, int lTop, int lWidth, int lHeight) const;

    /// The surface itself, to paint on.
    [[nodiscard]] QImage &hDC() { return m_imagen; }
    [[nodiscard]] int Width() const { return m_tam.width(); }
    [[nodiscard]] int Height() const { return m_tam.height(); }
    /// Grow the surface to at least that size; growing loses what it shows. On a lack of memory the
    /// surface is empty afterwards.
    void Width(int intAncho);
    void Height(int intAlto);

private:
    void fCrear(QSize tam);

    QImage m_imagen;
    QSize m_tam{0, 0};
};
