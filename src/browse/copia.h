#pragma once

#include "sistema/resultado.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A copy that failed.
struct clsFalloCopia {
    std::string strOrigen;
    std::string strDestino;
    clsError error;
};

/// What became of a list of files.
struct clsFinCopia {
    int lngHechas = 0;                  ///< the first so many files were copied completely
    int lngReemplazadas = 0;            ///< so many of these copies took another file's place
    std::optional<clsFalloCopia> fallo; ///< of the file behind them; empty: none failed
};

/// Why it failed, in words (UTF-8).
[[nodiscard]] std::string fMotivo(const clsFalloCopia &fallo);

/// Full path of the copy of a file. Called on a worker thread, and perhaps still when the copying
/// was given up: it must not refer to anything that ends with it.
using clsDestino = std::function<std::string(const std::string &strOrigen)>;

/// The copy's path for copies that keep their names.
/// @param strCarpeta with or without a trailing "/".
[[nodiscard]] clsDestino fDestinoEn(const std::string &strCarpeta);

/// Copies files in order up to the first failure. A copy that would replace one of the files that
/// are sent fails (EEXIST). The work is done on a thread, so that the caller's can go on answering
/// whatever the disk does.
/// @param fPaso runs in the caller's thread with the number of files copied so far: before the
///              first and every 50 ms. False ends the copying: nothing is left of the file under
///              way, unless it was complete by then and is counted. A disk that does not answer is
///              waited for no longer than 200 ms then.
[[nodiscard]] clsFinCopia fCopiarLista(const std::vector<std::string> &lstRutas,
                                       const clsDestino &fDestino,
                                       const std::function<bool(int)> &fPaso);
