#pragma once

#include "catalogue/filas.h"

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

/// The files whose dates were found wrong in this run. A file that has another date or name since
/// is none of them.
class clsMalas {
public:
    /// A row's date was found wrong.
    void fAnotar(const clsFilas &filas, int lngPos);
    /// How many there are; raised by every one that is new.
    [[nodiscard]] int fCuantas() const { return m_lngCuantas; }
    /// Which rows of a list are of them, by their numbers; empty when there are none.
    [[nodiscard]] std::vector<bool> fEn(const clsFilas &filas) const;

private:
    using clsCarpeta = std::multimap<clsFecha, std::string>; ///< names by their dates

    std::unordered_map<std::string, clsCarpeta> m_mapCarpetas;
    int m_lngCuantas = 0;
};
