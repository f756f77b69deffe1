#pragma once

#include "viewer/mensaje_hijo.h"

#include <QImage>
#include <QSize>

#include <optional>
#include <string_view>

// Each library decodes what it knows; all of them only here, in a program of their own.

namespace hijo {

/// A picture as a library gives it.
struct clsDecodificada {
    QImage imagen; ///< upright; perhaps larger than it was asked for
    QSize natural; ///< size of the upright whole
};

/// Bytes that a picture may take as it is decoded, at its natural size.
inline constexpr std::int64_t lngMaximoDecodificada = std::int64_t{768} << 20;

/// Size that an upright picture of that size is to be answered in; empty: not at all.
[[nodiscard]] QSize fMedida(QSize natural, const clsMarcoHijo &marco);

/// Loads what decoding needs later: no file can be opened then.
void fPrepararQt();
void fPrepararHeif();

/// Formats that Qt reads, by their first bytes: PNG, WEBP, TIFF, BMP, GIF and some more.
/// @return nothing: it is none of them, or does not decode.
[[nodiscard]] std::optional<clsDecodificada> fDecodificarQt(std::string_view strBytes,
                                                            const clsMarcoHijo &marco);
/// A JPEG picture as it is stored, whatever its EXIF data say of its orientation.
/// @param intOrientacion that it has by right.
[[nodiscard]] std::optional<clsDecodificada>
fDecodificarJpeg(std::string_view strBytes, int intOrientacion, const clsMarcoHijo &marco);
/// HEIC, HEIF, AVIF.
[[nodiscard]] std::optional<clsDecodificada> fDecodificarHeif(std::string_view strBytes,
                                                              const clsMarcoHijo &marco);
/// The preview in a raw photo.
[[nodiscard]] std::optional<clsDecodificada> fDecodificarCruda(std::string_view strBytes,
                                                               const clsMarcoHijo &marco);

} // namespace hijo
