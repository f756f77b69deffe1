#pragma once

#include "sistema/archivo.h"

#include <QImage>
#include <QSize>

#include <atomic>
#include <memory>

/// Bytes that all pictures take together while they are decoded: coefficients, pixels, copies of
/// them. Who comes when others have them waits.
inline constexpr qint64 lngMaximoEnMarcha = qint64{640} << 20;

/// Decodes the JPEG picture of an open file within bounds of memory and processor time, whatever
/// the file claims. Works on any thread, from beginning to end on one.
class clsDecodificador {
public:
    /// Reads the file's head.
    /// @param abierto    must outlive it, as bolAnulado must.
    /// @param bolAnulado may become true meanwhile: the result is then of no use.
    clsDecodificador(const clsAbierto &abierto, const std::atomic<bool> &bolAnulado);
    ~clsDecodificador();
    clsDecodificador(const clsDecodificador &) = delete;
    clsDecodificador &operator=(const clsDecodificador &) = delete;

    /// Size of the picture as it is stored; empty when there is none or it is not to be decoded.
    [[nodiscard]] QSize fTam() const;
    /// Whether it lies on its side as it is stored.
    [[nodiscard]] bool fGirada() const;
    /// Bytes that the decoded picture may have.
    [[nodiscard]] qint64 fSitio() const;
    /// The picture, upright; null when it was no longer wanted or took too much.
    /// @param tam the size to decode it in, as it is stored, no larger than fTam().
    [[nodiscard]] QImage fLeer(QSize tam);
    /// Whether the file system did not give the bytes.
    [[nodiscard]] bool fFalloDisco() const;

private:
    class clsLectura;
    std::unique_ptr<clsLectura> m_lectura;
};
