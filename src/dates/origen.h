#pragma once

#include "sistema/archivo.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Where the bytes of a photo come from: an open file, or memory.
class clsOrigen {
public:
    virtual ~clsOrigen() = default;
    [[nodiscard]] virtual std::int64_t fTamano() const = 0;
    /// Copies up to lngBytes bytes from lngPos on; how many there were. lngPos is not negative.
    virtual std::size_t fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes) = 0;
};

/// An open regular file. The read position of the descriptor is left alone.
class clsOrigenArchivo final : public clsOrigen {
public:
    /// @param archivo must outlive it.
    explicit clsOrigenArchivo(const clsAbierto &archivo)
        : m_archivo(archivo.descriptor), m_lngTamano(archivo.huella.lngBytes)
    {
    }
    [[nodiscard]] std::int64_t fTamano() const override { return m_lngTamano; }
    std::size_t fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes) override;

private:
    const clsDescriptor &m_archivo;
    std::int64_t m_lngTamano;
};

/// Bytes in memory; they must outlive it.
class clsOrigenMemoria final : public clsOrigen {
public:
    explicit clsOrigenMemoria(std::string_view strBytes) : m_strBytes(strBytes) {}
    [[nodiscard]] std::int64_t fTamano() const override
    {
        return static_cast<std::int64_t>(m_strBytes.size());
    }
    std::size_t fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes) override;

private:
    std::string_view m_strBytes;
};

/// A stretch of another origin, which must outlive it, perhaps with another beginning.
class clsOrigenTramo final : public clsOrigen {
public:
    /// @param lngInicio within the other one, or its end.
    /// @param lngBytes  what the other one has not is left out.
    /// @param strCabeza in the place of as many bytes at its beginning.
    clsOrigenTramo(clsOrigen &origen, std::int64_t lngInicio, std::int64_t lngBytes,
                   std::string_view strCabeza = {});
    [[nodiscard]] std::int64_t fTamano() const override { return m_lngTamano; }
    std::size_t fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes) override;

private:
    clsOrigen &m_origen;
    const std::int64_t m_lngInicio;
    const std::int64_t m_lngTamano;
    const std::string m_strCabeza;
};

/// The one way to the bytes: whatever position and length are asked for, it gives the bytes that
/// exist and never asks the origin for others. A window of it is kept, so that an ordinary photo
/// costs one small read.
class clsLector {
public:
    static constexpr std::size_t lngVentana = 4096;

    explicit clsLector(clsOrigen &origen) : m_origen(origen), m_lngTamano(origen.fTamano()) {}

    [[nodiscard]] std::int64_t fTamano() const { return m_lngTamano; }

    /// Up to lngBytes bytes (not more than lngVentana) from lngPos on, fewer at the end of the
    /// file. Valid until the next call.
    [[nodiscard]] std::string_view fMirar(std::int64_t lngPos, std::size_t lngBytes);

    /// A copy of up to lngBytes bytes, however many.
    [[nodiscard]] std::string fCopiar(std::int64_t lngPos, std::uint64_t lngBytes);

    /// How many bytes the copies took by now.
    [[nodiscard]] std::uint64_t fCopiados() const { return m_lngCopiados; }

private:
    [[nodiscard]] std::size_t fQuedan(std::int64_t lngPos, std::uint64_t lngBytes) const;

    clsOrigen &m_origen;
    std::int64_t m_lngTamano;
    std::int64_t m_lngDesde = 0;
    std::size_t m_lngHay = 0;
    std::uint64_t m_lngCopiados = 0;
    std::array<char, lngVentana> m_lstBytes; ///< the first m_lngHay of them are set
};
