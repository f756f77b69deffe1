#pragma once

#include "viewer/teselas.h"

#include <QImage>
#include <QRect>

#include <memory>

class clsConversion;

/// A picture in a format that the screen can paint without converting it each time, one pixel to a
/// device pixel, and in the screen's colours, which are taken for sRGB. A picture without a profile
/// is in sRGB already. Safe on several threads. It looks at every pixel: what is to become smaller
/// becomes so before.
[[nodiscard]] QImage fParaPantalla(QImage imagen);

/// Gives a picture the screen's colours where it is looked at: of a large one that mostly is a
/// part. For one thread at a time, and always for the same picture.
class clsTinte {
public:
    /// What that takes for a picture, which then counts as one in the screen's colours.
    /// @return nullptr, and nothing is changed, where it cannot be done in parts, or need not be.
    [[nodiscard]] static std::unique_ptr<clsTinte> fCrear(QImage &imagen);

    /// Sees to it that a part of the picture has the screen's colours.
    void fTenir(QImage &imagen, QRect parte);
    /// A part of the picture in the screen's colours, made smaller, of which nothing is kept.
    /// @param parte   lies within the picture.
    /// @param intPaso of so many pixels one is taken, each way.
    [[nodiscard]] QImage fMuestra(const QImage &imagen, QRect parte, int intPaso) const;

private:
    clsTinte(std::shared_ptr<const clsConversion> conversion, QSize tam);

    const std::shared_ptr<const clsConversion> m_conversion;
    clsTeselas m_teselas;
};
