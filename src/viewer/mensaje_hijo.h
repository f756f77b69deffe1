#pragma once

#include <cstdint>

/// What Miravel and its child program for frames of videos (miravel-fotograma) say to each other.
/// Both run on one machine and come from one build: numbers are in its byte order.

/// What is asked for.
enum class PeticionHijo : std::uint32_t {
    Fotograma,
    Fechas ///< what the file says of its date
};

/// A request; the video, open for reading, goes with it. The child never learns its name.
struct clsPeticionHijo {
    static constexpr std::uint32_t lngMarcaBuena = 0x3f56494d;
    std::uint32_t lngMarca = lngMarcaBuena;
    std::uint32_t lngNumero = 0; ///< one more with every request
    std::int64_t lngBytes = 0;   ///< size of the video
    std::uint32_t lngLado = 0;   ///< side of the box in pixels, 1 to lngLadoMaximo
    PeticionHijo cual = PeticionHijo::Fotograma;
};

enum class EstadoHijo : std::uint32_t {
    Imagen,   ///< the pixels follow
    SinImagen ///< no frame comes out of it
};

/// An answer. With an image, lngAncho x lngAlto pixels of 32 bits follow, row by row, 0xffRRGGBB.
/// The dates are a text in the place of one row of pixels, filled up with zero bytes.
struct clsRespuestaHijo {
    static constexpr std::uint32_t lngMarcaBuena = 0x2156494d;
    std::uint32_t lngMarca = lngMarcaBuena;
    std::uint32_t lngNumero = 0; ///< that of the request
    EstadoHijo estado = EstadoHijo::SinImagen;
    std::uint32_t lngAncho = 0; ///< 0 without an image, else 1 to the side of the box
    std::uint32_t lngAlto = 0;  ///< the same
};

inline constexpr std::uint32_t lngLadoMaximo = 4096;
/// Bytes of a text of dates, at most.
inline constexpr std::uint32_t lngTextoMaximo = 4096;

/// Exit code of a child that could not lock itself in, and therefore looks at no video.
inline constexpr int intSinEncierro = 125;

/// Whether an answer can be true at all, for a box of that side; its number is not looked at.
[[nodiscard]] bool fCreible(const clsRespuestaHijo &respuesta, std::uint32_t lngLado);
