#pragma once

#include "sistema/archivo.h"

#include <optional>
#include <string>

/// Renames a file or a link (the link itself) within its file system; a folder is refused (EISDIR).
/// It never replaces: a name that is taken gives EEXIST. On an error the file has its old name; the
/// new one, too, where taking the old one away failed and may be done yet. What was done although
/// the system reported an error is done. Only where the file system can neither refuse a taken name
/// by itself nor make links is there a moment between looking and renaming.
[[nodiscard]] clsError fRenombrar(const std::string &strDe, const std::string &strA);
/// The same of names in an open folder.
/// @param visto what the file is known to be at this moment; without it, it is looked at.
[[nodiscard]] clsError fRenombrarEn(const clsDescriptor &carpeta, const std::string &strDe,
                                    const std::string &strA,
                                    const std::optional<clsDatosArchivo> &visto = {});

/// Takes a name from a file or a link that keeps the other one. EEXIST when the other is none of
/// its names.
[[nodiscard]] clsError fSoltarNombre(const std::string &strRuta, const std::string &strOtro);
[[nodiscard]] clsError fSoltarNombreEn(const clsDescriptor &carpeta, const std::string &strNombre,
                                       const std::string &strOtro);

/// Renames a file and replaces what has the new name. What was done although the system reported an
/// error is done.
[[nodiscard]] clsError fSustituir(const std::string &strDe, const std::string &strA);
