#pragma once

#include "sistema/resultado.h"

#include <functional>
#include <string>
#include <string_view>

/// An archive that was copied or moved, or lies elsewhere today: its catalogue still tells the
/// paths below the root it had. Both roots with a trailing "/"; no old one: nothing has to be taken
/// over.
struct clsMudanza {
    std::string strDe;
    std::string strA;

    [[nodiscard]] bool fHay() const { return !strDe.empty(); }
    /// A path taken over; one that does not lie below the old root stays.
    [[nodiscard]] std::string fRuta(std::string_view strRuta) const;
};

/// Finds out from a catalogue whether its archive has moved to strRaiz. When its first path does
/// not lie there, the longest tails of a few paths are looked for below strRaiz; the root that one
/// of them tells counts when files of other folders are found the same way.
/// @param fExiste whether there is a file of that path.
[[nodiscard]] clsMudanza fBuscarMudanza(const std::string &strCatalogo, const std::string &strRaiz,
                                        const std::function<bool(const std::string &)> &fExiste);

/// Writes the catalogue of the new root with all paths taken over; whole or not at all.
/// @return why not; EBUSY when another Miravel works on this archive.
[[nodiscard]] clsError fMudarCatalogo(const std::string &strCatalogo, const clsMudanza &mudanza);
