#pragma once

#include <cstdint>

/// What Miravel and its child programs say to each other: the one for frames of videos
/// (miravel-fotograma) and the one for pictures (miravel-imagen). All run on one machine and come
/// from one build: numbers are in its byte order.

/// What is asked for.
enum class PeticionHijo : std::uint32_t {
    Fotograma,
    Fechas, ///< what the file says of its date
    Imagen,
    Cruda ///< the preview in a raw photo
};

/// How large an answer may be.
struct clsMarcoHijo {
    std::uint32_t lngAncho = 0;   ///< box in pixels, 1 to lngLadoMaximo
    std::uint32_t lngAlto = 0;    ///< the same
    std::uint32_t lngPixeles = 0; ///< and no more than so many, 1 to lngPixelesMaximos
    /// Percentage of the natural size, 1 to 100, whatever the box is; 0: what fits into it.
    std::uint32_t lngZoom = 0;
    std::uint32_t lngEntera = 0; ///< 1: nothing rather than smaller than that, for lngPixeles' sake
};

/// A request; the file, open for reading, goes with it. The child never learns its name.
struct clsPeticionHijo {
    static constexpr std::uint32_t lngMarcaBuena = 0x3f56494d;
    std::uint32_t lngMarca = lngMarcaBuena;
    std::uint32_t lngNumero = 0; ///< one more with every request
    std::int64_t lngBytes = 0;   ///< size of the file
    clsMarcoHijo marco;
    PeticionHijo cual = PeticionHijo::Fotograma;
};

enum class EstadoHijo : std::uint32_t {
    Imagen,   ///< the pixels follow
    SinImagen ///< no image comes out of it
};

/// An answer. With an image, lngAncho x lngAlto pixels of 32 bits follow, row by row, 0xffRRGGBB.
/// The dates are a text in the place of one row of pixels, filled up with zero bytes.
struct clsRespuestaHijo {
    static constexpr std::uint32_t lngMarcaBuena = 0x2156494d;
    std::uint32_t lngMarca = lngMarcaBuena;
    std::uint32_t lngNumero = 0; ///< that of the request
    EstadoHijo estado = EstadoHijo::SinImagen;
    std::uint32_t lngAncho = 0;        ///< 0 without an image, else as the request allows
    std::uint32_t lngAlto = 0;         ///< the same
    std::uint32_t lngAnchoNatural = 0; ///< of a picture: size of the upright whole, not smaller
    std::uint32_t lngAltoNatural = 0;  ///< the same
};

inline constexpr std::uint32_t lngLadoMaximo = 1 << 16;
/// 512 MB of them.
inline constexpr std::uint32_t lngPixelesMaximos = 1 << 27;
/// Bytes of a text of dates, at most.
inline constexpr std::uint32_t lngTextoMaximo = 4096;

/// The largest answer that can be asked for at all.
inline constexpr clsMarcoHijo marcoMayor{lngLadoMaximo, lngLadoMaximo, lngPixelesMaximos};

/// Exit code of a child that could not lock itself in, and therefore looks at no file.
inline constexpr int intSinEncierro = 125;
/// And of one that has taken too much time of the processors for a file.
inline constexpr int intTarde = 124;

/// Whether a request can be one of ours.
[[nodiscard]] bool fCreible(const clsPeticionHijo &peticion);

/// Whether an answer can be true at all, for such a request; its number is not looked at.
[[nodiscard]] bool fCreible(const clsRespuestaHijo &respuesta, const clsMarcoHijo &marco);

struct clsMedidaHijo {
    std::uint32_t lngAncho = 0;
    std::uint32_t lngAlto = 0;
    friend bool operator==(const clsMedidaHijo &, const clsMedidaHijo &) = default;
};

/// The size a picture of that size is answered in: it is never enlarged. 0 x 0: not at all.
[[nodiscard]] clsMedidaHijo fMedidaHijo(clsMedidaHijo natural, const clsMarcoHijo &marco);
