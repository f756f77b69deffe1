#pragma once

#include "catalogue/diario.h"
#include "dates/catalogo_corregido.h"
#include "dates/correccion.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What is to become of a file.
struct clsMeta {
    std::string strRuta; ///< the path it gets, in its folder; the one it has: it keeps its name
    std::optional<clsHuella> hora;   ///< the time it gets; none: the system has no such moment
    bool bolFechar = true;           ///< false: its time is right
    bool bolSoltar = false;          ///< it has that path already, and loses the other one
    std::optional<clsVisto> visto{}; ///< what was seen of it; none yet: it is looked at
};

/// Files that get other times and names, and the catalogue that follows them: what correcting and
/// taking back have in common.
struct clsFaena {
    const std::string &strRaiz;             ///< with a trailing "/"
    const clsDescriptor &carpeta;           ///< the root folder, open; its lock is held
    std::vector<clsCorregido> &lstFicheros; ///< their dates are those for the catalogue
    std::vector<clsMeta> lstMetas;          ///< one for each of them
    clsCatalogoCorregido &catalogo;         ///< where there is no old one, none is written
    /// What the catalogue's records get, by what lstFicheros tells at that moment.
    std::function<clsDestinos()> fDestinos;
    std::string strCopia{}; ///< full path for a backup of the old catalogue; empty: none is made
    clsDiario diario{};     ///< its end; of each file that can be in it what is planned is added
    std::vector<std::size_t> lstAnotados{}; ///< the files of these
};

/// Does it. The journal stays for the caller to keep or to delete, unless nothing was touched.
[[nodiscard]] clsFinCorreccion fHacerFaena(clsFaena &faena, const clsFalloNombre &fFallo,
                                           const clsSeguir &fSeguir);

/// What became of the files that were treated.
[[nodiscard]] std::vector<clsAnotacion> fHecho(const clsFaena &faena);
