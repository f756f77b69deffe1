#include "repair/anchos.h"

#include <algorithm>
#include <cstdint>

std::vector<int> fAnchos(const std::vector<clsAncho> &lstColumnas, int intSitio)
{
    std::int64_t lngIdeal = 0;
    std::int64_t lngHolgura = 0;
    for (const clsAncho &columna : lstColumnas) {
        lngIdeal += columna.intIdeal;
        lngHolgura += columna.intIdeal - columna.intMinimo;
    }
    const std::int64_t lngFalta = std::clamp<std::int64_t>(lngIdeal - intSitio, 0, lngHolgura);
    std::vector<int> lstAnchos;
    std::int64_t lngQuedan = intSitio;
    for (const clsAncho &columna : lstColumnas) {
        const std::int64_t lngSuya = columna.intIdeal - columna.intMinimo;
        const std::int64_t lngCede =
            lngHolgura == 0 ? 0 : (lngSuya * lngFalta + lngHolgura - 1) / lngHolgura;
        lstAnchos.push_back(static_cast<int>(columna.intIdeal - lngCede));
        lngQuedan -= lstAnchos.back();
    }
    if (!lstAnchos.empty() && lngQuedan > 0) {
        lstAnchos.back() += static_cast<int>(lngQuedan);
    }
    return lstAnchos;
}
