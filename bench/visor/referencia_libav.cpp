#include "referencia_libav.h"

#include <algorithm>
#include <cstdint>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

namespace {

bool fEscalar(const AVFrame &cuadro, int intLado)
{
    const int intMayor = std::max(cuadro.width, cuadro.height);
    const int intAncho = std::max(1, cuadro.width * intLado / intMayor);
    const int intAlto = std::max(1, cuadro.height * intLado / intMayor);
    std::vector<std::uint8_t> lstPuntos(static_cast<std::size_t>(intAncho + 32) *
                                        static_cast<std::size_t>(intAlto) * 4);
    std::uint8_t *const lstDestino[4] = {lstPuntos.data(), nullptr, nullptr, nullptr};
    const int lstPaso[4] = {(intAncho + 31) * 4, 0, 0, 0};
    SwsContext *escalador = sws_getContext(
        cuadro.width, cuadro.height, static_cast<AVPixelFormat>(cuadro.format), intAncho, intAlto,
        AV_PIX_FMT_RGB32, SWS_FAST_BILINEAR, nullptr, nullptr, nullptr);
    const bool bolHecho =
        escalador != nullptr && sws_scale(escalador, cuadro.data, cuadro.linesize, 0, cuadro.height,
                                          lstDestino, lstPaso) == intAlto;
    sws_freeContext(escalador);
    return bolHecho;
}

bool fPrimero(AVFormatContext *formato, int intFlujo, AVCodecContext *codec, AVFrame *cuadro)
{
    AVPacket *paquete = av_packet_alloc();
    bool bolHay = false;
    while (!bolHay && av_read_frame(formato, paquete) >= 0) {
        if (paquete->stream_index == intFlujo) {
            avcodec_send_packet(codec, paquete);
            bolHay = avcodec_receive_frame(codec, cuadro) == 0;
        }
        av_packet_unref(paquete);
    }
    av_packet_free(&paquete);
    return bolHay;
}

} // namespace

bool fReferenciaLibav(const char *strRuta, int intLado)
{
    AVFormatContext *formato = nullptr;
    const AVCodec *decodificador = nullptr;
    av_log_set_level(AV_LOG_QUIET);
    if (avformat_open_input(&formato, strRuta, nullptr, nullptr) < 0) {
        return false;
    }
    avformat_find_stream_info(formato, nullptr);
    const int intFlujo =
        av_find_best_stream(formato, AVMEDIA_TYPE_VIDEO, -1, -1, &decodificador, 0);
    bool bolHay = false;
    if (intFlujo >= 0) {
        AVCodecContext *codec = avcodec_alloc_context3(decodificador);
        AVFrame *cuadro = av_frame_alloc();
        avcodec_parameters_to_context(codec, formato->streams[intFlujo]->codecpar);
        codec->thread_count = 1;
        av_seek_frame(formato, -1, formato->duration / 10, AVSEEK_FLAG_BACKWARD);
        bolHay = avcodec_open2(codec, decodificador, nullptr) == 0 &&
                 fPrimero(formato, intFlujo, codec, cuadro) && fEscalar(*cuadro, intLado);
        av_frame_free(&cuadro);
        avcodec_free_context(&codec);
    }
    avformat_close_input(&formato);
    return bolHay;
}
