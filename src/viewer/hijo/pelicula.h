#pragma once

#include "viewer/hijo/entrada.h"

#include <functional>
#include <memory>
#include <string>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace hijo {

struct clsSoltarAv {
    void operator()(AVFormatContext *formato) const { avformat_close_input(&formato); }
    void operator()(AVCodecContext *codec) const { avcodec_free_context(&codec); }
    void operator()(AVFrame *cuadro) const { av_frame_free(&cuadro); }
    void operator()(AVPacket *paquete) const { av_packet_free(&paquete); }
};
using clsCuadro = std::unique_ptr<AVFrame, clsSoltarAv>;

/// How much trouble is taken for a frame.
struct clsEmpeno {
    bool bolAnalizar;        ///< have libav look into the packets, not only into the headers
    bool bolDecima;          ///< go to a tenth of the length
    bool bolRapido;          ///< key frames only, decoded coarsely where the box allows it
    std::int64_t lngLectura; ///< bytes it may read
};

/// A video file opened with libav: one video stream, everything else is thrown away unread.
class clsPelicula {
public:
    /// @param entrada must outlive it.
    clsPelicula(clsEntrada &entrada, const clsEmpeno &empeno, int intLado);

    /// Whether libav knows the file's format; without that more trouble is of no use.
    [[nodiscard]] bool fAbierta() const { return m_formato != nullptr; }
    /// What the file, else one of its streams, has under a name; without line breaks, empty where
    /// there is nothing.
    [[nodiscard]] std::string fDato(const std::string &strClave);
    /// One frame as the decoder gives it; nullptr when none comes out.
    [[nodiscard]] clsCuadro fCuadro();
    /// Width to height of one pixel of that frame; 1 when nothing is known.
    [[nodiscard]] double fPixel(AVFrame *cuadro) const;
    /// Width and height that the frame has by right, before it was decoded coarsely.
    [[nodiscard]] int fAnchoNatural(const AVFrame *cuadro) const;
    [[nodiscard]] int fAltoNatural(const AVFrame *cuadro) const;
    /// The nine numbers of the display matrix; nullptr when there is none.
    [[nodiscard]] const std::int32_t *fMatriz() const;

private:
    void fLeerCabeza();
    [[nodiscard]] bool fElegirFlujo();
    [[nodiscard]] bool fBuscarFlujo();
    void fIrADecima();
    [[nodiscard]] bool fAbrirCodec();
    [[nodiscard]] bool fRecibir(const AVPacket *paquete, AVFrame *cuadro);

    clsEntrada &m_entrada;
    const clsEmpeno m_empeno;
    const int m_intLado;
    std::unique_ptr<AVFormatContext, clsSoltarAv> m_formato;
    std::unique_ptr<AVCodecContext, clsSoltarAv> m_codec;
    AVStream *m_flujo = nullptr;
    bool m_bolCabeza = false; ///< fLeerCabeza has run
};

} // namespace hijo
