#pragma once

#include "sistema/archivo.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// One name of a file whose content other files have, too.
struct clsGemelo {
    std::string strRuta;
    clsIdentidad identidad; ///< those of one identity are one file under several names
    clsHuella huella;
    bool bolFechaBien = false; ///< its date agrees with that of the photo or of its name
};

/// Files of the same content, by path, of which one is to stay.
struct clsGrupo {
    std::vector<clsGemelo> lstGemelos;
    std::size_t lngQueda = 0;
};

/// Which one is proposed to stay: one whose date is right, then the one of the shortest path, then
/// the first by its bytes. There must be one.
[[nodiscard]] std::size_t fProponer(const std::vector<clsGemelo> &lstGemelos);

/// Whether one of a group is a copy of the one that stays: not when it is that file itself under
/// another name.
[[nodiscard]] bool fSobra(const clsGrupo &grupo, std::size_t lngCual);

/// The paths of all copies.
[[nodiscard]] std::vector<std::string> fSobrantes(const std::vector<clsGrupo> &lstGrupos);

/// What would be gained without the copies.
struct clsSobra {
    int intCopias = 0;         ///< names
    std::int64_t lngBytes = 0; ///< of files; one under several names counts once
};
[[nodiscard]] clsSobra fSumarSobra(const std::vector<clsGrupo> &lstGrupos);
