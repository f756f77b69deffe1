#include "viewer/hijo/entrada.h"

#include <cerrno>
#include <cstdio>
#include <unistd.h>

extern "C" {
#include <libavformat/avio.h>
#include <libavutil/error.h>
#include <libavutil/mem.h>
}

namespace hijo {

namespace {
constexpr int intTamBufer = 32768;
}

clsEntrada::clsEntrada(const clsDescriptor &archivo, std::int64_t lngBytes,
                       const std::function<bool()> &fAnulado)
    : m_archivo(archivo), m_lngBytes(lngBytes), m_fAnulado(fAnulado)
{
}

clsEntrada::~clsEntrada() { fRebobinar(-1); }

void clsEntrada::fRebobinar(std::int64_t lngPermitidos)
{
    if (m_contexto != nullptr) {
        av_freep(&m_contexto->buffer);
        avio_context_free(&m_contexto);
    }
    m_lngLugar = 0;
    m_lngPermitidos = lngPermitidos;
    if (lngPermitidos < 0) {
        return;
    }
    auto *bytBufer = static_cast<unsigned char *>(av_malloc(intTamBufer));
    if (bytBufer != nullptr) {
        m_contexto = avio_alloc_context(bytBufer, intTamBufer, 0, this, fLeer, nullptr, fIr);
        if (m_contexto == nullptr) {
            av_free(bytBufer);
        }
    }
}

int clsEntrada::fLeer(void *yo, std::uint8_t *bytDatos, int intBytes)
{
    auto &entrada = *static_cast<clsEntrada *>(yo);
    if (entrada.m_lngPermitidos <= 0 || entrada.m_fAnulado()) {
        return AVERROR_EXIT;
    }
    ssize_t lngLeidos = -1;
    do {
        lngLeidos = pread(entrada.m_archivo.fFd(), bytDatos, static_cast<std::size_t>(intBytes),
                          entrada.m_lngLugar);
    } while (lngLeidos < 0 && errno == EINTR);
    if (lngLeidos < 0) {
        return AVERROR(errno);
    }
    entrada.m_lngLugar += lngLeidos;
    entrada.m_lngPermitidos -= lngLeidos;
    return lngLeidos == 0 ? AVERROR_EOF : static_cast<int>(lngLeidos);
}

std::int64_t clsEntrada::fIr(void *yo, std::int64_t lngLugar, int intDesde)
{
    auto &entrada = *static_cast<clsEntrada *>(yo);
    switch (intDesde & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return entrada.m_lngBytes;
    case SEEK_CUR:
        lngLugar += entrada.m_lngLugar;
        break;
    case SEEK_END:
        lngLugar += entrada.m_lngBytes;
        break;
    default:
        break;
    }
    if (lngLugar < 0) {
        return AVERROR(EINVAL);
    }
    return entrada.m_lngLugar = lngLugar;
}

} // namespace hijo
