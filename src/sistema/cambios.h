#pragma once

#include "sistema/archivo.h"

#include <cstdint>
#include <string>

/// Sets the modification time of a regular file below a folder; nothing else of it changes, and it
/// is opened neither for reading nor for writing. A link's target gets the time, since it is the
/// target's that the list shows.
/// @param lngMomento      whole seconds since 1970, universal time.
/// @param raiz            the open folder. EXDEV: the file lies elsewhere, wherever its path leads
///                        to in this very moment; it keeps its time.
/// @param lngNanosegundos the rest of the time.
/// @return ERANGE when the file system took a time more than 2 seconds off: it has fewer years.
[[nodiscard]] clsError fFechar(const std::string &strRuta, std::int64_t lngMomento,
                               const clsDescriptor &raiz, long lngNanosegundos = 0);

/// Renames a file or a link (the link itself) within its file system; a folder is refused (EISDIR).
/// It never replaces: a name that is taken gives EEXIST. On an error the file has its old name; the
/// new one, too, where taking the old one away failed and may be done yet. What was done although
/// the system reported an error is done. Only where the file system can neither refuse a taken name
/// by itself nor make links is there a moment between looking and renaming.
[[nodiscard]] clsError fRenombrar(const std::string &strDe, const std::string &strA);

/// Takes a name from a file or a link that keeps the other one. EEXIST when the other is none of
/// its names.
[[nodiscard]] clsError fSoltarNombre(const std::string &strRuta, const std::string &strOtro);

/// Renames a file and replaces what has the new name. What was done although the system reported an
/// error is done.
[[nodiscard]] clsError fSustituir(const std::string &strDe, const std::string &strA);
