#include "viewer/hijo_imagen/decodificada.h"

#include "viewer/enderezar.h"

#include <libraw/libraw.h>

#include <memory>

namespace hijo {

namespace {

/// LibRaw has the turn in numbers of its own; its other ones are of no camera.
int fOrientacionDe(int intGiro)
{
    return intGiro == 3 ? 3 : intGiro == 5 ? 8 : intGiro == 6 ? 6 : 1;
}

/// A preview of plain pixels, three bytes each.
std::optional<clsDecodificada> fDePuntos(const libraw_thumbnail_t &mini, int intOrientacion)
{
    const std::int64_t lngBytes = std::int64_t{mini.twidth} * mini.theight * 3;
    if (lngBytes == 0 || mini.tlength < lngBytes) {
        return {};
    }
    const QImage imagen(reinterpret_cast<const uchar *>(mini.thumb), mini.twidth, mini.theight,
                        mini.twidth * 3, QImage::Format_RGB888);
    clsDecodificada decodificada{
        fEnderezar(imagen.convertToFormat(QImage::Format_RGB32), intOrientacion), {}};
    decodificada.natural = decodificada.imagen.size();
    return decodificada;
}

} // namespace

std::optional<clsDecodificada> fDecodificarCruda(std::string_view strBytes,
                                                 const clsMarcoHijo &marco)
{
    const auto cruda = std::make_unique<LibRaw>();
    if (cruda->open_buffer(const_cast<char *>(strBytes.data()), strBytes.size()) !=
            LIBRAW_SUCCESS ||
        cruda->unpack_thumb() != LIBRAW_SUCCESS) {
        return {};
    }
    const libraw_thumbnail_t &mini = cruda->imgdata.thumbnail;
    const int intOrientacion = fOrientacionDe(cruda->imgdata.sizes.flip);
    if (mini.tformat == LIBRAW_THUMBNAIL_JPEG) {
        return fDecodificarJpeg({mini.thumb, mini.tlength}, intOrientacion, marco);
    }
    return mini.tformat == LIBRAW_THUMBNAIL_BITMAP ? fDePuntos(mini, intOrientacion) : std::nullopt;
}

} // namespace hijo
