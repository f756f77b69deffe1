#include "viewer/de_paso.h"

bool fDePaso(std::optional<std::chrono::milliseconds> desde, bool bolNitida,
             std::chrono::milliseconds reposo)
{
    constexpr int intVeces = 3;
    return desde && *desde < (bolNitida ? reposo : reposo * intVeces);
}

bool fEnteraDePaso(std::int64_t lngBytes)
{
    constexpr std::int64_t lngPequeno = 512 << 10;
    return lngBytes <= lngPequeno;
}

bool fOctavoDePaso(std::int64_t lngBytes, int intPasadas)
{
    constexpr std::int64_t lngMaximo = 6 << 20; // about 60 ms, two at a time
    return intPasadas == 1 && lngBytes <= lngMaximo;
}
