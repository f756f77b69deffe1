#pragma once

#include <QImage>

/// A picture in a format that the screen can paint without converting it each time, one pixel to a
/// device pixel, and in the screen's colours, which are taken for sRGB. A picture without a profile
/// is in sRGB already. Safe on several threads. It looks at every pixel: what is to become smaller
/// becomes so before.
[[nodiscard]] QImage fParaPantalla(QImage imagen);
