#pragma once

#include <cstdint>
#include <optional>
#include <span>

/// The thumbnail inside a photo: which part of it has the photo's proportions.

/// The sides of a picture in pixels.
struct clsLados {
    int intAncho = 0;
    int intAlto = 0;
};

/// The middle of a thumbnail, in its pixels. What lies beside it is as large on both sides.
struct clsRecorte {
    int intX = 0;
    int intY = 0;
    int intAncho = 0;
    int intAlto = 0;
    friend bool operator==(const clsRecorte &, const clsRecorte &) = default;
};

/// The part of a thumbnail that has the picture's proportions, give or take a pixel: all of it, or
/// the middle without the bars that cameras put above and below, or left and right, to fill it up.
/// A line that may be half bar, half picture does not belong to it.
/// @return nothing when one of the sides is not above 0, or no pixel would be left.
[[nodiscard]] std::optional<clsRecorte> fRecorteMini(clsLados mini, clsLados foto);

/// Whether the pixels (0xffRRGGBB) of what is cut away are those of a bar: dark but for the few
/// that JPEG makes of the picture beside them.
[[nodiscard]] bool fOscura(std::span<const std::uint32_t> lstPuntos);

/// Whether a picture has as many pixels as a box shows of the picture it stands for.
/// @param intLado side of the box in pixels.
[[nodiscard]] bool fBastanPixeles(clsLados mini, clsLados foto, int intLado);
