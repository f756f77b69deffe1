#include "duplicates/candidatos.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

clsCandidatos fCandidatos(const clsFilas &filas)
{
    std::vector<std::pair<std::int64_t, int>> lstTamanos; // and positions
    lstTamanos.reserve(static_cast<std::size_t>(filas.fCantidad()));
    for (int lngPos = 0; lngPos < filas.fCantidad(); ++lngPos) {
        lstTamanos.emplace_back(filas.fTamano(lngPos), lngPos);
    }
    std::sort(lstTamanos.begin(), lstTamanos.end());
    clsCandidatos candidatos;
    for (std::size_t lng = 0; lng < lstTamanos.size(); ++lng) {
        const auto fComo = [&](std::size_t lngOtro) {
            return lngOtro < lstTamanos.size() &&
                   lstTamanos[lngOtro].first == lstTamanos[lng].first;
        };
        if (!fComo(lng - 1) && !fComo(lng + 1)) {
            continue;
        }
        if (std::string strRuta = filas.fRutaDisco(lstTamanos[lng].second); !strRuta.empty()) {
            candidatos.lstRutas.push_back(std::move(strRuta));
        } else {
            ++candidatos.intFuera;
        }
    }
    return candidatos;
}
