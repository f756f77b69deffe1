#include "viewer/hijo/fotograma.h"

#include "viewer/hijo/pelicula.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

extern "C" {
#include <libavutil/display.h>
#include <libswscale/swscale.h>
}

namespace hijo {

namespace {

struct clsMedida {
    int intAncho;
    int intAlto;
};

/// Size of the scaled frame before it is turned. A pixel that is not square shrinks one side: the
/// other way round the frame would be enlarged.
clsMedida fMedida(double dblAncho, double dblAlto, double dblPixel, int intLado)
{
    dblAncho *= std::min(dblPixel, 1.0);
    dblAlto /= std::max(dblPixel, 1.0);
    const double dblEscala = std::min(1.0, intLado / std::max(dblAncho, dblAlto));
    const auto fEntera = [&](double dblMedida) {
        return std::clamp(static_cast<int>(std::lround(dblMedida * dblEscala)), 1, intLado);
    };
    return {fEntera(dblAncho), fEntera(dblAlto)};
}

/// Tells swscale which of the two usual colour tables and ranges the frame has.
void fColores(SwsContext *escalador, const AVFrame &cuadro)
{
    const bool bolSinDecir = cuadro.colorspace == AVCOL_SPC_UNSPECIFIED;
    const int intTabla = bolSinDecir ? (cuadro.height >= 720 ? SWS_CS_ITU709 : SWS_CS_ITU601)
                                     : static_cast<int>(cuadro.colorspace);
    const bool bolEntera =
        cuadro.color_range == AVCOL_RANGE_JPEG || cuadro.format == AV_PIX_FMT_YUVJ420P ||
        cuadro.format == AV_PIX_FMT_YUVJ422P || cuadro.format == AV_PIX_FMT_YUVJ444P;
    constexpr int intUno = 1 << 16;
    sws_setColorspaceDetails(escalador, sws_getCoefficients(intTabla), bolEntera ? 1 : 0,
                             sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, intUno, intUno);
}

bool fEscalar(const AVFrame &cuadro, clsMedida medida, clsFotograma &salida)
{
    SwsContext *escalador = sws_getContext(
        cuadro.width, cuadro.height, static_cast<AVPixelFormat>(cuadro.format), medida.intAncho,
        medida.intAlto, AV_PIX_FMT_RGB32, SWS_AREA, nullptr, nullptr, nullptr);
    if (escalador == nullptr) {
        return false;
    }
    fColores(escalador, cuadro);
    // swscale writes in steps that may go past the end of a row.
    const int intPaso = (medida.intAncho + 31) / 32 * 32;
    std::vector<std::uint32_t> lstFilas(
        static_cast<std::size_t>(intPaso) * static_cast<std::size_t>(medida.intAlto) + 32);
    std::array<std::uint8_t *, 4> lstDestino{reinterpret_cast<std::uint8_t *>(lstFilas.data())};
    const std::array<int, 4> lstPaso{intPaso * 4};
    const int intFilas = sws_scale(escalador, cuadro.data, cuadro.linesize, 0, cuadro.height,
                                   lstDestino.data(), lstPaso.data());
    sws_freeContext(escalador);
    if (intFilas != medida.intAlto) {
        return false;
    }
    salida.intAncho = medida.intAncho;
    salida.intAlto = medida.intAlto;
    salida.lstPuntos.clear();
    for (int intFila = 0; intFila < medida.intAlto; ++intFila) {
        const auto desde = lstFilas.begin() + std::ptrdiff_t{intFila} * intPaso;
        salida.lstPuntos.insert(salida.lstPuntos.end(), desde, desde + medida.intAncho);
    }
    return true;
}

/// Turns the frame so many quarters clockwise.
void fGirar(clsFotograma &fotograma, int intCuartos)
{
    for (; intCuartos > 0; --intCuartos) {
        std::vector<std::uint32_t> lstGirada;
        lstGirada.reserve(fotograma.lstPuntos.size());
        for (int intX = 0; intX < fotograma.intAncho; ++intX) {
            for (int intY = fotograma.intAlto - 1; intY >= 0; --intY) {
                lstGirada.push_back(
                    fotograma.lstPuntos[static_cast<std::size_t>(intY) *
                                            static_cast<std::size_t>(fotograma.intAncho) +
                                        static_cast<std::size_t>(intX)]);
            }
        }
        fotograma.lstPuntos = std::move(lstGirada);
        std::swap(fotograma.intAncho, fotograma.intAlto);
    }
}

/// Quarters clockwise that a display matrix asks for; anything slanted is rounded.
int fCuartos(const std::int32_t *lstMatriz)
{
    const double dblGrados = lstMatriz == nullptr ? 0 : av_display_rotation_get(lstMatriz);
    if (!std::isfinite(dblGrados)) {
        return 0;
    }
    // libav counts the other way round.
    return static_cast<int>(std::lround(-dblGrados / 90) + 8) % 4;
}

bool fProbar(clsEntrada &entrada, const clsEmpeno &empeno, int intLado, clsFotograma &salida,
             bool &bolSeguir)
{
    clsPelicula pelicula(entrada, empeno, intLado);
    bolSeguir = pelicula.fAbierta();
    if (!bolSeguir) {
        return false;
    }
    const clsCuadro cuadro = pelicula.fCuadro();
    if (!cuadro) {
        return false;
    }
    const clsMedida medida =
        fMedida(pelicula.fAnchoNatural(cuadro.get()), pelicula.fAltoNatural(cuadro.get()),
                pelicula.fPixel(cuadro.get()), intLado);
    if (!fEscalar(*cuadro, medida, salida)) {
        return false;
    }
    fGirar(salida, fCuartos(pelicula.fMatriz()));
    salida.estado = EstadoHijo::Imagen;
    return true;
}

} // namespace

clsFotograma fTomarFotograma(const clsAbierto &video, int intLado,
                             const std::function<bool()> &fAnulado)
{
    constexpr std::int64_t lngRapido = std::int64_t{64} << 20;
    constexpr std::int64_t lngSinLimite = std::numeric_limits<std::int64_t>::max();
    constexpr clsEmpeno lstEmpenos[] = {
        {false, true,  true,  lngRapido   },
        {true,  true,  true,  lngRapido   },
        {true,  false, false, lngSinLimite},
    };
    clsFotograma fotograma;
    clsEntrada entrada(video, fAnulado);
    bool bolSeguir = true;
    for (const clsEmpeno &empeno : lstEmpenos) {
        if (!bolSeguir || fAnulado() || fProbar(entrada, empeno, intLado, fotograma, bolSeguir)) {
            break;
        }
    }
    return fotograma;
}

} // namespace hijo
