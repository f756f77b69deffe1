#include "viewer/hijo_imagen/decodificada.h"

#include <QColorSpace>

#include <libheif/heif.h>

#include <algorithm>
#include <memory>
#include <thread>

namespace hijo {

namespace {

struct clsSoltarHeif {
    void operator()(heif_context *contexto) const { heif_context_free(contexto); }
    void operator()(heif_image_handle *foto) const { heif_image_handle_release(foto); }
    void operator()(heif_image *imagen) const { heif_image_release(imagen); }
    void operator()(heif_color_profile_nclx *perfil) const { heif_nclx_color_profile_free(perfil); }
};
template <typename Cosa> using clsDeHeif = std::unique_ptr<Cosa, clsSoltarHeif>;
using clsFotoHeif = clsDeHeif<heif_image_handle>;

QSize fTamHeif(const heif_image_handle *foto)
{
    return {heif_image_handle_get_width(foto), heif_image_handle_get_height(foto)};
}

QColorSpace fEspacio(const heif_image_handle *foto)
{
    if (const std::size_t lngBytes = heif_image_handle_get_raw_color_profile_size(foto);
        lngBytes > 0 && lngBytes < std::size_t{16} << 20) {
        QByteArray lstPerfil(static_cast<qsizetype>(lngBytes), '\0');
        if (heif_image_handle_get_raw_color_profile(foto, lstPerfil.data()).code == heif_error_Ok) {
            return QColorSpace::fromIccProfile(lstPerfil);
        }
    }
    heif_color_profile_nclx *suyo = nullptr;
    const bool bolHay = heif_image_handle_get_nclx_color_profile(foto, &suyo).code == heif_error_Ok;
    const clsDeHeif<heif_color_profile_nclx> perfil(suyo);
    const bool bolP3 =
        bolHay && perfil && perfil->color_primaries == heif_color_primaries_SMPTE_EG_432_1;
    return bolP3 ? QColorSpace(QColorSpace::DisplayP3) : QColorSpace();
}

/// The thumbnail in the file, where it has as many pixels as are wanted.
clsFotoHeif fMiniaturaHeif(const heif_image_handle *foto, QSize tam)
{
    heif_item_id numero = 0;
    heif_image_handle *suya = nullptr;
    if (heif_image_handle_get_list_of_thumbnail_IDs(foto, &numero, 1) != 1 ||
        heif_image_handle_get_thumbnail(foto, numero, &suya).code != heif_error_Ok) {
        return nullptr;
    }
    clsFotoHeif mini(suya);
    const QSize suyo = fTamHeif(suya);
    const QSize natural = fTamHeif(foto);
    // Of the picture's proportions, but for half a pixel of the thumbnail on either side.
    const std::int64_t lngCruz = std::int64_t{suyo.width()} * natural.height() -
                                 std::int64_t{suyo.height()} * natural.width();
    const bool bolIgual = std::abs(lngCruz) <= std::max(natural.width(), natural.height());
    return bolIgual && suyo.width() >= tam.width() && suyo.height() >= tam.height()
               ? std::move(mini)
               : nullptr;
}

QImage fPixelesHeif(const heif_image_handle *foto)
{
    const bool bolAlfa = heif_image_handle_has_alpha_channel(foto) != 0;
    heif_image *suya = nullptr;
    const heif_error error = heif_decode_image(
        foto, &suya, heif_colorspace_RGB,
        bolAlfa ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, nullptr);
    const clsDeHeif<heif_image> imagen(suya);
    int intPaso = 0;
    const std::uint8_t *const bytFilas =
        error.code == heif_error_Ok
            ? heif_image_get_plane_readonly(imagen.get(), heif_channel_interleaved, &intPaso)
            : nullptr;
    if (bytFilas == nullptr) {
        return {};
    }
    return QImage(bytFilas, heif_image_get_width(imagen.get(), heif_channel_interleaved),
                  heif_image_get_height(imagen.get(), heif_channel_interleaved), intPaso,
                  bolAlfa ? QImage::Format_RGBA8888 : QImage::Format_RGB888)
        .convertToFormat(bolAlfa ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

} // namespace

void fPrepararHeif() { heif_init(nullptr); }

std::optional<clsDecodificada> fDecodificarHeif(std::string_view strBytes,
                                                const clsMarcoHijo &marco)
{
    const clsDeHeif<heif_context> contexto(heif_context_alloc());
    heif_context_set_max_decoding_threads(
        contexto.get(), static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 4U)));
    heif_image_handle *suya = nullptr;
    if (heif_context_read_from_memory_without_copy(contexto.get(), strBytes.data(), strBytes.size(),
                                                   nullptr)
                .code != heif_error_Ok ||
        heif_context_get_primary_image_handle(contexto.get(), &suya).code != heif_error_Ok) {
        return {};
    }
    const clsFotoHeif foto(suya);
    const QSize natural = fTamHeif(suya);
    const QSize tam = fMedida(natural, marco);
    // Planes, the same as RGB, and once more as pixels of the screen.
    constexpr std::int64_t lngPorPixel = 10;
    if (tam.isEmpty() || std::int64_t{natural.width()} * natural.height() * lngPorPixel >
                             2 * lngMaximoDecodificada) {
        return {};
    }
    const clsFotoHeif mini = fMiniaturaHeif(suya, tam);
    QImage imagen = fPixelesHeif(mini ? mini.get() : suya);
    if (imagen.isNull()) {
        return {};
    }
    imagen.setColorSpace(fEspacio(suya));
    return clsDecodificada{imagen, natural};
}

} // namespace hijo
