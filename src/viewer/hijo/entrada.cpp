#include "viewer/hijo/entrada.h"

#include <cerrno>
#include <cstdio>

extern "C" {
#include <libavformat/avio.h>
#include <libavutil/error.h>
#include <libavutil/mem.h>
}

namespace hijo {

namespace {
constexpr int intTamBufer = 32768;
}

clsEntrada::clsEntrada(const clsAbierto &archivo, const std::function<bool()> &fAnulado)
    : m_archivo(archivo), m_fAnulado(fAnulado)
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
    const auto lngLeidos = fLeerEn(entrada.m_archivo.descriptor, entrada.m_lngLugar, bytDatos,
                                   static_cast<std::size_t>(intBytes));
    if (!lngLeidos) {
        return AVERROR(lngLeidos.fError().fNumero());
    }
    const auto intLeidos = static_cast<int>(*lngLeidos);
    entrada.m_lngLugar += intLeidos;
    entrada.m_lngPermitidos -= intLeidos;
    return intLeidos == 0 ? AVERROR_EOF : intLeidos;
}

std::int64_t clsEntrada::fIr(void *yo, std::int64_t lngLugar, int intDesde)
{
    auto &entrada = *static_cast<clsEntrada *>(yo);
    switch (intDesde & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return entrada.fBytes();
    case SEEK_CUR:
        lngLugar += entrada.m_lngLugar;
        break;
    case SEEK_END:
        lngLugar += entrada.fBytes();
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
