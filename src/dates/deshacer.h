#pragma once

#include "dates/correccion.h"

#include <string>
#include <vector>

/// A correction that can be taken back.
struct clsCorreccionHecha {
    clsFecha fecha;        ///< when it was done, local
    int intFicheros = 0;   ///< that it dealt with
    std::string strDiario; ///< name of its journal in the root folder
};

/// The corrections of which there is a journal, the latest first. Journals that are damaged or
/// foreign do not count.
/// @param strRaiz root folder with a trailing "/".
[[nodiscard]] std::vector<clsCorreccionHecha> fCorreccionesHechas(const std::string &strRaiz);

/// Why a file of a correction is left as it is: it has another size or time than the correction
/// gave it. What is not there has ENOENT; whose old name is another's, EEXIST.
inline constexpr clsError errorCambiado{-1};

struct clsFinDeshacer {
    clsFinCorreccion fin;                  ///< without a backup
    std::vector<clsCorregido> lstFicheros; ///< strFilePathNew: where each is now
    bool bolPendiente = false; ///< doing it again can take more back; its journal was kept for that
};

/// Takes the latest correction back: names, times to the nanosecond, catalogue. Where nothing else
/// has changed the catalogue since, it is that of the backup, byte by byte; else the records of
/// these files are put right by their paths. Files that have changed since are left, and said so.
///
/// It has a journal of its own, and can be done again when it was killed: what is done already is
/// found so. In the end the correction's journal is deleted, unless errors, taken names or fSeguir
/// were in the way.
/// @param fSeguir runs after every file; false ends it there, with what is done in the catalogue.
[[nodiscard]] clsFinDeshacer fDeshacer(const std::string &strRaiz, bool bolEscritura,
                                       const clsSeguir &fSeguir = {});
