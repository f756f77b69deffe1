#pragma once

#include "shared/fecha.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What becomes of the names of repaired files.
enum class NombreReparado {
    AnteponerFecha, ///< the day before the name, as a correction does it
    SinCambio
};

/// The path that a repaired file gets. A name that begins with that day already, as yyyyMMdd,
/// yyyy-MM-dd or dd-MM-yyyy (see fFechasEnNombre), keeps it: days are not stacked.
[[nodiscard]] std::string fRutaReparada(std::string_view strRuta, clsFecha fecha,
                                        NombreReparado nombre);

/// Why a file cannot get its new name.
enum class Choque {
    Ninguno,
    Repetido, ///< another file of this repair would get the same
    Existe    ///< there is something of that name
};

/// A path in 64 bits, never 0. Two of a million paths have the same once in ten million times; in a
/// repair such files are in each other's way and keep their names. None is replaced by that.
using clsClaveRuta = std::uint64_t;
[[nodiscard]] clsClaveRuta fClaveRuta(std::string_view strRuta);

/// Which paths are taken, and which new ones of a repair run into those or into each other. A name
/// that another file of the repair gives up counts as taken: so no order of the work matters.
class clsNombresNuevos {
public:
    /// What is known of a new path.
    struct clsMirada {
        Choque choque = Choque::Ninguno;
        bool bolSabido = true; ///< false: nobody has looked yet whether something has it
    };
    /// What somebody found out about a path; it counts for more than what was known.
    void fSaber(clsClaveRuta clave, bool bolExiste);
    /// Looks at all new paths at once: in the order of their keys, as going to and fro in memory
    /// takes longer than all the rest.
    /// @param lstNuevas 0: a file that keeps its path.
    [[nodiscard]] std::vector<clsMirada> fMirar(const std::vector<clsClaveRuta> &lstNuevas);

private:
    void fOrdenar();

    std::vector<std::pair<clsClaveRuta, bool>> m_lstSabidas; ///< by their keys, but for the last
    std::size_t m_lngOrdenadas = 0;                          ///< so many at the start
};
