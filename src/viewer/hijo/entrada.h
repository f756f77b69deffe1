#pragma once

#include "sistema/archivo.h"

#include <cstdint>
#include <functional>

struct AVIOContext;

namespace hijo {

/// An open file as libav reads it. libav never sees a name, so that none can be taken for the
/// address of something else.
class clsEntrada {
public:
    /// @param fAnulado asked at every read.
    clsEntrada(const clsAbierto &archivo, const std::function<bool()> &fAnulado);
    ~clsEntrada();
    clsEntrada(const clsEntrada &) = delete;
    clsEntrada &operator=(const clsEntrada &) = delete;

    /// The context, which belongs to this object; nullptr without memory.
    [[nodiscard]] AVIOContext *fContexto() const { return m_contexto; }
    [[nodiscard]] std::int64_t fBytes() const { return m_archivo.huella.lngBytes; }
    /// Begins again at the start, with so many bytes to read at most.
    void fRebobinar(std::int64_t lngPermitidos);

private:
    static int fLeer(void *yo, std::uint8_t *bytDatos, int intBytes);
    static std::int64_t fIr(void *yo, std::int64_t lngLugar, int intDesde);

    const clsAbierto &m_archivo;
    const std::function<bool()> &m_fAnulado;
    std::int64_t m_lngLugar = 0;
    std::int64_t m_lngPermitidos = 0;
    AVIOContext *m_contexto = nullptr;
};

} // namespace hijo
