#pragma once

#include "dates/origen.h"

#include <optional>
#include <utility>

// Files that are made of parts, each with its kind and its length.

// No file of this world has more of them; that bounds the time for those that lie.
inline constexpr int intMaximoTrozos = 4096;

/// A part of a file: where its content begins, and how long it says that is.
struct clsTrozo {
    std::string strTipo; ///< four characters
    std::int64_t lngContenido = 0;
    std::int64_t lngBytes = 0;
    [[nodiscard]] std::int64_t fFin() const { return lngContenido + lngBytes; }
};

/// How the parts of a format are told.
struct clsFormaTrozos {
    /// Reads the head of the part at a position; nothing behind the last one.
    std::optional<clsTrozo> (*fLeer)(clsLector &lector, std::int64_t lngPos, std::int64_t lngFin);
    int intCola; ///< bytes behind a content
    int intPar;  ///< contents fill up whole multiples of it
};
extern const clsFormaTrozos formaPng;  ///< PNG, 3rd edition, 5.3
extern const clsFormaTrozos formaRiff; ///< RIFF, as in the WebP container format
extern const clsFormaTrozos formaIso;  ///< boxes, ISO/IEC 14496-12, 4.2

/// The first part of a kind between two positions.
[[nodiscard]] std::optional<clsTrozo> fBuscarTrozo(clsLector &lector, const clsFormaTrozos &forma,
                                                   std::pair<std::int64_t, std::int64_t> tramo,
                                                   std::string_view strTipo);
