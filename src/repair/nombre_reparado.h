#pragma once

#include "shared/fecha.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

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

/// The names of a repair, and those it would run into. A name that another file of the repair gives
/// up counts as taken: so no order of the work matters.
class clsNombresNuevos {
public:
    /// A file that is there, whether it gets another name or not.
    void fHay(std::string strRuta) { m_mapHay.insert_or_assign(std::move(strRuta), true); }
    /// What somebody found out about a path.
    void fSaber(std::string strRuta, bool bolExiste);
    /// Whether it is known of a path if something has it.
    [[nodiscard]] bool fSabido(const std::string &strRuta) const;

    /// A file that gets this path; each as often as it was taken.
    void fPedir(const std::string &strA) { ++m_mapPedidos[strA]; }
    void fSoltar(const std::string &strA);

    /// What is in the way of a file that gets another path, which was taken by fPedir.
    [[nodiscard]] Choque fChoque(const std::string &strA) const;

private:
    std::unordered_map<std::string, bool> m_mapHay;
    std::unordered_map<std::string, int> m_mapPedidos;
};
