#pragma once

#include "dates/cabecera.h"

#include <functional>

/// TIFF data inside a file. All offsets in them count from lngInicio.
struct clsDatosTiff {
    clsLector &lector;
    std::int64_t lngInicio = 0;
    Orden orden = Orden::II;
};

/// The 12 bytes of an IFD's entry.
struct clsEntradaIfd {
    std::uint32_t lngCodigo = 0;
    std::uint32_t lngTipo = 0;
    std::uint32_t lngCuenta = 0;
    std::string_view strCampo; ///< the last 4 bytes: the value itself or its offset
    int intPosicion = 0;       ///< of the entry, from the start of the IFD
};

// No file of this world has more; they bound time and memory for those that are not.
inline constexpr int intMaximoFilas = 65536;
inline constexpr int intMaximoIfds = 65536;

/// Visits the entries of IFD0, of the Exif IFD that IFD0 points to, then of IFD1 and further, as
/// long as fVisitar returns true. An IFD is read once: a link back, or one beyond the file, ends
/// the walk. The Exif IFD's own link is not followed.
/// @param fMas asked before IFD1 and each one behind it; false ends the walk. Empty: all are read.
void fRecorrerIfds(const clsDatosTiff &tiff, std::uint32_t lngIfd0,
                   const std::function<bool(const clsEntradaIfd &)> &fVisitar,
                   const std::function<bool()> &fMas = {});

/// Visits the entries of one IFD; neither links nor pointers are followed.
void fRecorrerIfd(const clsDatosTiff &tiff, std::uint32_t lngIfd,
                  const std::function<bool(const clsEntradaIfd &)> &fVisitar);
