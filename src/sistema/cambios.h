#pragma once

#include "sistema/disco.h"

#include <cstdint>
#include <string>

/// Sets the modification time of a regular file; nothing else of it changes, and it is never
/// opened. A link's target gets the time, since it is the target's that the list shows.
/// @param lngMomento whole seconds since 1970, universal time.
/// @return 0 or the error number. File systems with fewer years or coarser times take the nearest
///         they have, without an error.
[[nodiscard]] int fFechar(const std::string &strRuta, std::int64_t lngMomento,
                          const clsDisco &disco = discoReal);

/// Renames a file or a link (the link itself) within its file system; a folder is refused (EISDIR).
/// It never replaces: a name that is taken gives EEXIST.
/// @return 0 or the error number; the file then has its old name. Only where the file system can
///         neither refuse a taken name by itself nor make links is there a moment between looking
///         and renaming.
[[nodiscard]] int fRenombrar(const std::string &strDe, const std::string &strA,
                             const clsDisco &disco = discoReal);
