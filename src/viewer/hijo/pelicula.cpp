#include "viewer/hijo/pelicula.h"

#include <algorithm>
#include <cerrno>
#include <span>

namespace hijo {

namespace {

/// Formats that hold a video by themselves. Play lists, which name other files, are not among them.
constexpr const char *strFormatos =
    "mov,avi,asf,flv,mpeg,mpegts,mpegvideo,m4v,h264,hevc,matroska,ogg,dv,rm,nut,wtv";
/// Packets looked at before a file counts as one without a video stream, or without key frames.
constexpr int intPaquetesMaximos = 2000;

/// A video never opens another file.
int fNegarArchivo(AVFormatContext *, AVIOContext **contexto, const char *, int, AVDictionary **)
{
    *contexto = nullptr;
    return AVERROR(EACCES);
}

std::int64_t fArea(const AVStream *flujo)
{
    // A cover picture is a stream, too; it only counts when there is nothing else.
    const bool bolPortada = (flujo->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
    const std::int64_t lngArea =
        std::int64_t{flujo->codecpar->width} * std::int64_t{flujo->codecpar->height};
    return bolPortada ? -1 : lngArea;
}

/// What the file says of a stream besides its packets; empty where it says nothing of that kind.
/// From its version 7 on, libav keeps it with the parameters of the codec.
std::span<const std::uint8_t> fDatosDelFlujo(const AVStream &flujo, AVPacketSideDataType tipo)
{
#if LIBAVFORMAT_VERSION_MAJOR >= 61
    const AVCodecParameters &parametros = *flujo.codecpar;
    const AVPacketSideData *datos =
        av_packet_side_data_get(parametros.coded_side_data, parametros.nb_coded_side_data, tipo);
    return datos == nullptr ? std::span<const std::uint8_t>() : std::span(datos->data, datos->size);
#else
    std::size_t lngBytes = 0;
    const std::uint8_t *bytDatos = av_stream_get_side_data(&flujo, tipo, &lngBytes);
    return {bytDatos, bytDatos == nullptr ? 0 : lngBytes};
#endif
}

} // namespace

clsPelicula::clsPelicula(clsEntrada &entrada, const clsEmpeno &empeno, int intLado)
    : m_entrada(entrada), m_empeno(empeno), m_intLado(intLado)
{
    entrada.fRebobinar(empeno.lngLectura);
    AVFormatContext *formato = avformat_alloc_context();
    if (formato == nullptr || entrada.fContexto() == nullptr) {
        avformat_free_context(formato);
        return;
    }
    formato->pb = entrada.fContexto();
    formato->io_open = fNegarArchivo;
    AVDictionary *opciones = nullptr;
    av_dict_set(&opciones, "format_whitelist", strFormatos, 0);
    // It frees the context when it fails.
    if (avformat_open_input(&formato, nullptr, nullptr, &opciones) == 0) {
        m_formato.reset(formato);
    }
    av_dict_free(&opciones);
}

void clsPelicula::fLeerCabeza()
{
    constexpr int intPrimeros = 8;
    m_bolCabeza = true;
    // Where the format has no header, what the file says of itself comes with its first packets.
    const bool bolSinCabeza = (m_formato->ctx_flags & AVFMTCTX_NOHEADER) != 0;
    const std::unique_ptr<AVPacket, clsSoltarAv> paquete(av_packet_alloc());
    for (int intVisto = 0; bolSinCabeza && paquete && intVisto < intPrimeros; ++intVisto) {
        if (av_read_frame(m_formato.get(), paquete.get()) < 0) {
            return;
        }
        av_packet_unref(paquete.get());
    }
}

std::string clsPelicula::fDato(const std::string &strClave)
{
    if (!fAbierta()) {
        return {};
    }
    if (!m_bolCabeza) {
        fLeerCabeza();
    }
    const AVDictionaryEntry *dato = av_dict_get(m_formato->metadata, strClave.c_str(), nullptr, 0);
    for (unsigned lng = 0; dato == nullptr && lng < m_formato->nb_streams; ++lng) {
        dato = av_dict_get(m_formato->streams[lng]->metadata, strClave.c_str(), nullptr, 0);
    }
    std::string strValor(dato == nullptr ? "" : dato->value);
    std::replace(strValor.begin(), strValor.end(), '\n', ' ');
    return strValor;
}

bool clsPelicula::fElegirFlujo()
{
    m_flujo = nullptr;
    for (unsigned lng = 0; lng < m_formato->nb_streams; ++lng) {
        AVStream *flujo = m_formato->streams[lng];
        const bool bolVideo = flujo->codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
                              flujo->codecpar->codec_id != AV_CODEC_ID_NONE;
        if (bolVideo && (m_flujo == nullptr || fArea(flujo) > fArea(m_flujo))) {
            m_flujo = flujo;
        }
    }
    for (unsigned lng = 0; m_flujo != nullptr && lng < m_formato->nb_streams; ++lng) {
        AVStream *flujo = m_formato->streams[lng];
        flujo->discard = flujo == m_flujo ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    return m_flujo != nullptr;
}

bool clsPelicula::fBuscarFlujo()
{
    if (m_empeno.bolAnalizar && avformat_find_stream_info(m_formato.get(), nullptr) < 0) {
        return false;
    }
    // Some formats have no list of their streams: these show with their first packet.
    const std::unique_ptr<AVPacket, clsSoltarAv> paquete(av_packet_alloc());
    for (int intVisto = 0; !fElegirFlujo() && intVisto < intPaquetesMaximos; ++intVisto) {
        if (av_read_frame(m_formato.get(), paquete.get()) < 0) {
            return false;
        }
        av_packet_unref(paquete.get());
    }
    return m_flujo != nullptr;
}

void clsPelicula::fIrADecima()
{
    // Without an index libav would read everything up to there: a tenth of the bytes will do.
    const bool bolSinIndice = (m_formato->ctx_flags & AVFMTCTX_NOHEADER) != 0;
    const bool bolPorBytes =
        bolSinIndice && (m_formato->iformat->flags & AVFMT_NO_BYTE_SEEK) == 0 &&
        av_seek_frame(m_formato.get(), -1, m_entrada.fBytes() / 10, AVSEEK_FLAG_BYTE) >= 0;
    std::int64_t lngDura = std::max<std::int64_t>(m_formato->duration, 0);
    if (lngDura == 0 && m_flujo->duration > 0) {
        lngDura = av_rescale_q(m_flujo->duration, m_flujo->time_base, {1, AV_TIME_BASE});
    }
    if (bolPorBytes || lngDura == 0) {
        return;
    }
    const std::int64_t lngInicio =
        m_formato->start_time == AV_NOPTS_VALUE ? 0 : m_formato->start_time;
    // Where that fails, the first frame has to do.
    av_seek_frame(m_formato.get(), -1, lngInicio + lngDura / 10, AVSEEK_FLAG_BACKWARD);
}

bool clsPelicula::fAbrirCodec()
{
    const AVCodec *codec = avcodec_find_decoder(m_flujo->codecpar->codec_id);
    if (codec == nullptr) {
        return false;
    }
    m_codec.reset(avcodec_alloc_context3(codec));
    if (!m_codec || avcodec_parameters_to_context(m_codec.get(), m_flujo->codecpar) < 0) {
        return false;
    }
    m_codec->thread_count = 1;
    if (m_empeno.bolRapido) {
        m_codec->skip_frame = AVDISCARD_NONKEY;
        m_codec->skip_loop_filter = AVDISCARD_ALL;
        m_codec->flags2 |= AV_CODEC_FLAG2_FAST;
        // Halved as long as the longer side fills the box.
        const int intMayor = std::max(m_flujo->codecpar->width, m_flujo->codecpar->height);
        while (m_codec->lowres < codec->max_lowres &&
               (intMayor >> (m_codec->lowres + 1)) >= m_intLado) {
            ++m_codec->lowres;
        }
    }
    return avcodec_open2(m_codec.get(), codec, nullptr) == 0;
}

bool clsPelicula::fRecibir(const AVPacket *paquete, AVFrame *cuadro)
{
    if (avcodec_send_packet(m_codec.get(), paquete) < 0) {
        return false;
    }
    while (avcodec_receive_frame(m_codec.get(), cuadro) == 0) {
        const bool bolSana = (cuadro->flags & AV_FRAME_FLAG_CORRUPT) == 0;
        if (cuadro->width > 0 && cuadro->height > 0 && (bolSana || !m_empeno.bolRapido)) {
            return true;
        }
        av_frame_unref(cuadro);
    }
    return false;
}

clsCuadro clsPelicula::fCuadro()
{
    if (!fBuscarFlujo()) {
        return nullptr;
    }
    if (m_empeno.bolDecima) {
        fIrADecima();
    }
    clsCuadro cuadro(av_frame_alloc());
    const std::unique_ptr<AVPacket, clsSoltarAv> paquete(av_packet_alloc());
    if (!cuadro || !paquete || !fAbrirCodec()) {
        return nullptr;
    }
    for (int intVisto = 0; intVisto < intPaquetesMaximos; ++intVisto) {
        av_packet_unref(paquete.get());
        if (av_read_frame(m_formato.get(), paquete.get()) < 0) {
            break;
        }
        const bool bolClave = (paquete->flags & AV_PKT_FLAG_KEY) != 0;
        if (paquete->stream_index != m_flujo->index || (m_empeno.bolRapido && !bolClave)) {
            continue;
        }
        if (fRecibir(paquete.get(), cuadro.get())) {
            return cuadro;
        }
        // A decoder that puts frames into order would keep this one until it has seen the next.
        if (m_empeno.bolRapido) {
            if (fRecibir(nullptr, cuadro.get())) {
                return cuadro;
            }
            avcodec_flush_buffers(m_codec.get());
        }
    }
    return fRecibir(nullptr, cuadro.get()) ? std::move(cuadro) : nullptr;
}

double clsPelicula::fPixel(AVFrame *cuadro) const
{
    const AVRational pixel = av_guess_sample_aspect_ratio(m_formato.get(), m_flujo, cuadro);
    const double dblPixel = pixel.num > 0 && pixel.den > 0 ? av_q2d(pixel) : 1;
    // Beyond that it is a mistake of the file.
    return dblPixel >= 0.1 && dblPixel <= 10 ? dblPixel : 1;
}

int clsPelicula::fAnchoNatural(const AVFrame *cuadro) const
{
    return m_codec->lowres > 0 ? m_flujo->codecpar->width : cuadro->width;
}

int clsPelicula::fAltoNatural(const AVFrame *cuadro) const
{
    return m_codec->lowres > 0 ? m_flujo->codecpar->height : cuadro->height;
}

const std::int32_t *clsPelicula::fMatriz() const
{
    const std::span<const std::uint8_t> lstBytes =
        fDatosDelFlujo(*m_flujo, AV_PKT_DATA_DISPLAYMATRIX);
    return lstBytes.size() < 9 * sizeof(std::int32_t)
               ? nullptr
               : reinterpret_cast<const std::int32_t *>(lstBytes.data());
}

} // namespace hijo
